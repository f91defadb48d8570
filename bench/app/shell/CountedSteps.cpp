// The steps whose instructions are counted: bench/instructions.py runs this program under a
// profiler, to which it says when a step begins and ends.
#include "app/BenchSession.h"
#include "app/engine/BrowserPane.h"
#include "app/market/IndexStrip.h"
#include "app/shell/Application.h"

#include <QTest>

#include <cstdio>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else // it still has to build; nothing is counted
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTickers = 1000;
constexpr int kTimes = 3;
constexpr int kLink = 1;
constexpr int kSecondsBetweenAnswers = 300;

std::string IndexRow(const char* symbol, const char* value, const char* change) {
    return std::string("<tr><td nowrap><a href=\"/q?s=") + symbol + "&d=t\">" + symbol +
           "</a></td><td nowrap>4:00PM</td><td nowrap><b>" + value + "</b></td><td nowrap>" +
           change + "</td></tr>\n";
}

/// Tells one answer from the next.
QString LastValue(int number) {
    return u"19,00%1.00"_s.arg(number);
}

std::string IndexPage(int number) {
    return "<html><table>" + IndexRow("^NYA", "19,500.25", "+1.50") +
           IndexRow("^SPC", "5,900.10", "-3.25") + IndexRow("^OEX", "2,800.00", "0.00") +
           IndexRow("^TYX", "4.55", "+0.01") + IndexRow("^DJI", "44,000.00", "+100.00") +
           IndexRow("^IXIC", FromQt(LastValue(number)).c_str(), "-50.00") +
           "</table><p>Quotes delayed 15 minutes</p></html>";
}

int Fail(const char* why) {
    std::fprintf(stderr, "counted_steps: %s\n", why);
    return 1;
}

/// Takes a step several times and has the profiler say what each time took, under that name.
template <typename Step>
void Count(const char* name, Step step) {
    for (int time = 0; time < kTimes; ++time) {
        CALLGRIND_ZERO_STATS;
        step(time);
        CALLGRIND_DUMP_STATS_AT(name);
    }
}

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    int answers = 0;
    BenchSession session(
        [](SettingsStore& settings) {
            settings.SaveSetting("Settings", "Stocks1", StoredTickers('A', kTickers));
            settings.SaveSetting("Settings", "Stocks2", StoredTickers('B', kTickers));
        },
        "h.example", WebMode::Sample,
        [&](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", IndexPage(answers++)};
        });
    frmMain& form = session.Form();
    IndexStrip& strip = *session->Controllers().market.strip;
    strip.Timer1.stop();
    int opened = 0;
    QObject::connect(form.Web, &BrowserPane::BeforeNavigate2, &application,
                     [&](const QString& address) { opened += address.contains(u"board=a0"_s); });

    // Whether a display wants it painted plays no part.
    Count("paint", [&](int) { form.grab(); });
    Count("switch", [&](int time) {
        form.lblListNum.at(time % 2 == 0 ? 2 : 1)->click();
        form.List1->grab();
    });
    form.lblListNum[1]->click();
    form.List1->SetListIndex(0);
    Count("click", [&](int) { QTest::mouseClick(form.lbllink.at(kLink), Qt::LeftButton); });
    if (opened != kTimes)
        return Fail("the link was not opened as often as it was clicked");
    QDateTime now(QDate(2026, 11, 20), QTime(12, 0));
    bool isShown = true;
    Count("fetch", [&](int) {
        session.SetClock(now);
        now = now.addSecs(kSecondsBetweenAnswers);
        const int answer = answers;
        strip.Tick();
        form.SpooBar->grab();
        isShown = isShown && answers == answer + 1 &&
                  form.SpooBar->PanelText(StripBar::kPanels).contains(LastValue(answer));
    });
    if (!isShown)
        return Fail("the panels do not show the answer");
    // How the web engine ends is no matter of these counts.
    CALLGRIND_DUMP_STATS_AT("end");
    return 0;
}
