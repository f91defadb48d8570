#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/engine/PaneWait.h"
#include "app/forms/StripPanel.h"
#include "app/market/IndexStrip.h"
#include "core/portfolio/quote_columns.h"
#include "core/text/files.h"
#include "support/StandIns.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;
using Host = StandIns::Host;

namespace {

/// What the table of sites leads to the built-in portal.
constexpr const char* kToday = R"([links]
3 = "portal:"
quote_page = "portal:"
index_page = "portal:"
chart_images = "portal:"
stream_ticker = "portal:"
read_indices = "portal:"
read_portfolio = "portal:"
read_profile = "portal:"
read_lists = "portal:"
)";

/// The window in live mode, with stand-ins for all sources. The sites lie where nobody listens.
class LiveWindow : public TestSession {
public:
    StandIns sources;

    LiveWindow() : TestSession(u"127.0.0.1:1"_s, WebMode::Live) {
        Store("First", "OK");
        Store("Stocks1", "MSFT|");
        // A ticker list without prices asks for none.
        for (const QuoteColumnRow& row : kQuoteColumns)
            Store(std::string(row.key).c_str(), "False");
        today = kToday;
    }

    void Open(int timeout = 10) {
        TestSession::sources = sources.Table(timeout);
        Start();
    }

    /// Fetches the strip anew.
    void TickStrip() {
        clock.now = clock.now.addSecs(201);
        (*this)->Strip().Tick();
    }

    QStringList StripTexts() {
        QStringList shown;
        for (int panel = 1; panel <= 6; ++panel)
            shown << Form().SpooBar->PanelText(panel);
        return shown;
    }

    StripPanel& Panel(int number) {
        return *Form().findChild<StripPanel*>(u"SpooBar"_s + QString::number(number));
    }

    /// Loads an address in the main pane and gives the page as it came.
    QString PageOf(const QString& address) {
        Form().Web->Navigate(address);
        WaitWhileBusy(*Form().Web);
        QString html;
        bool isThere = false;
        Form().Web->findChild<QWebEngineView*>()->page()->toHtml([&](const QString& text) {
            html = text;
            isThere = true;
        });
        return QTest::qWaitFor([&] { return isThere; }) ? html : QString();
    }
    QString QuotePage() { return PageOf(u"127.0.0.1:1/q?s=msft&d=2b"_s); }
    QString ChartImage() { return PageOf(u"127.0.0.1:1/c/1y/m/msft.gif"_s); }

    /// The condensed page of the list, as it is written.
    QString CondensedPage() {
        Form().findChild<QAction*>(u"mnuPort16"_s)->trigger();
        return QString::fromStdString(ReadWholeFile(Folder() / "ycprint.html"));
    }
};

QString PriceText(Host host) {
    return QLocale(QLocale::English).toString(StandIns::PriceOf(host), 'f', 2);
}

/// As the condensed page writes it, which drops all commas.
QString BarePriceText(Host host) {
    return PriceText(host).remove(u',');
}

QStringList StripOf(Host host) {
    QStringList texts;
    for (const QString& name :
         {u"NYSE"_s, u"S&P 500"_s, u"S&P 100"_s, u"30Y-TSY"_s, u"DJIA"_s, u"NAS/NMS"_s})
        texts << name + u" : "_s + PriceText(host) + u" +1.00"_s;
    return texts;
}

struct Trouble {
    const char* name;
    CannedPage answer; ///< of the first source
};

QList<Trouble> Troubles() {
    const QByteArray others = R"({"FormattedQuoteResult":{"FormattedQuote":[{"symbol":"GE",)"
                              R"("code":0,"last":"7.00","last_time":"2026-11-20"}]}})";
    const QByteArray future = R"({"FormattedQuoteResult":{"FormattedQuote":[{"symbol":"MSFT",)"
                              R"("code":0,"last":"7.00","last_time":"2030-01-02"}]}})";
    return {{"slow", {{}, Ending::Silent}},
            {"stalling", {R"({"FormattedQuoteResult":{)", Ending::Stall}},
            {"cut short", {R"({"FormattedQuoteResult":{)", Ending::CutShort}},
            {"garbage", {"{\"Formatted\xFF\xFE", Ending::Length, 200, "application/json"}},
            {"endless", {QByteArray(1 << 20, '['), Ending::Endless, 200, "application/json"}},
            {"an error", {"oops", Ending::Length, 500, "text/plain"}},
            {"too many requests",
             {"{}", Ending::Length, 429, "application/json", {"Retry-After: 600"}}},
            {"a page", {"<html><body>Are you a robot?</body></html>"}},
            {"a page that calls itself data",
             {"<!DOCTYPE html><p>Consent", Ending::Length, 200, "application/json"}},
            {"nothing", {{}, Ending::Length, 200, "application/json"}},
            {"wrong symbols", {others, Ending::Length, 200, "application/json"}},
            {"a price of the future", {future, Ending::Length, 200, "application/json"}}};
}

} // namespace

class LiveWindowTest : public QObject {
    Q_OBJECT
private:
    /// Whether every part of the window shows the quotes of one source.
    static void ShowsQuotesOf(LiveWindow& window, Host host, const QString& name) {
        window.TickStrip();
        QCOMPARE(window.StripTexts(), StripOf(host));
        auto* panel = window.Form().findChild<QLabel*>(u"SpooBar6"_s);
        QCOMPARE(panel->toolTip(), u"Indexes retrieved from Yahoo! Finanace"_s);
        QEvent entering(QEvent::Enter);
        QApplication::sendEvent(panel, &entering);
        const QString note = window.Form().WebStatus->text();
        QVERIFY2(note.contains(u"Nov 20, 2026 4:00 PM ET, "_s + name), qUtf8Printable(note));
        const QString quote = window.QuotePage();
        QVERIFY2(quote.contains(PriceText(host)), qUtf8Printable(quote));
        QVERIFY2(quote.contains(u"Nov 20, 2026 4:00 PM ET, "_s + name), qUtf8Printable(quote));
        const QString page = window.CondensedPage();
        QVERIFY2(page.contains(BarePriceText(host)), qUtf8Printable(page));
        const QString chart = window.ChartImage();
        QVERIFY2(chart.contains(u"Nov 20, 2026 4:00 PM ET, Yahoo! Finance"_s),
                 qUtf8Printable(chart));
        QVERIFY(chart.contains(u"<polyline"_s));
        QVERIFY(window.prompts.messages.isEmpty());
    }

private Q_SLOTS:
    void EveryPartOfTheWindowShowsTodaysQuotes() {
        LiveWindow window;
        window.Open();
        ShowsQuotesOf(window, Host::Cnbc, u"CNBC"_s);
        QVERIFY(!window.QuotePage().contains(u"Could not be reached"_s));
    }

    void AFirstSourceThatIsDownLeavesTheQuotesToTheSecond() {
        LiveWindow window;
        window.sources.TakeDown(Host::Cnbc);
        window.Open();
        ShowsQuotesOf(window, Host::Yahoo, u"Yahoo! Finance"_s);
        QVERIFY(window.QuotePage().contains(u"Could not be reached"_s));
    }

    void AFirstSourceInTroubleLeavesTheQuotesToTheSecond_data() {
        QTest::addColumn<qsizetype>("trouble");
        const QList<Trouble> troubles = Troubles();
        for (qsizetype i = 0; i < troubles.size(); ++i)
            QTest::newRow(troubles[i].name) << i;
    }

    void AFirstSourceInTroubleLeavesTheQuotesToTheSecond() {
        QFETCH(qsizetype, trouble);
        LiveWindow window;
        window.sources.Answer(Host::Cnbc, Troubles()[trouble].answer);
        window.Open(1);
        ShowsQuotesOf(window, Host::Yahoo, u"Yahoo! Finance"_s);
    }

    void EveryLaterSourceGivesWhatItHasWhenTheOnesBeforeItAreDown() {
        LiveWindow window;
        window.sources.TakeDown(Host::Cnbc);
        window.sources.TakeDown(Host::Yahoo);
        window.Open();
        window.TickStrip();
        // Each has some of the indices only; the strip reads them one after the other and, as it
        // always did, stops at the first one that is missing.
        const QString quote = window.QuotePage();
        QVERIFY2(quote.contains(PriceText(Host::Nasdaq)), qUtf8Printable(quote));
        QVERIFY(quote.contains(u"ET, Nasdaq"_s));
        const QString indices =
            window.PageOf(u"127.0.0.1:1/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s);
        QVERIFY2(indices.contains(PriceText(Host::Cboe)), qUtf8Printable(indices));
        QVERIFY2(indices.contains(u"4.51"_s), qUtf8Printable(indices));
        QVERIFY2(indices.contains(PriceText(Host::Fred)), qUtf8Printable(indices));
        QVERIFY2(indices.contains(PriceText(Host::Nasdaq)), qUtf8Printable(indices));
        QVERIFY(window.ChartImage().contains(u"no prices"_s));

        window.sources.TakeDown(Host::Nasdaq);
        window.clock.now = window.clock.now.addSecs(1000);
        QVERIFY(window.PageOf(u"127.0.0.1:1/q?s=aol&d=2b"_s).contains(PriceText(Host::Cboe)));
    }

    void WithoutANetworkThingsStayAndGoOnByThemselvesWhenItReturns() {
        LiveWindow window;
        window.Open();
        ShowsQuotesOf(window, Host::Cnbc, u"CNBC"_s);
        for (const Host host :
             {Host::Cnbc, Host::Yahoo, Host::Nasdaq, Host::Cboe, Host::Treasury, Host::Fred})
            window.sources.TakeDown(host);
        window.TickStrip();
        QCOMPARE(window.StripTexts(), StripOf(Host::Cnbc));
        const QString kept = window.QuotePage();
        QVERIFY2(kept.contains(PriceText(Host::Cnbc)), qUtf8Printable(kept));
        QVERIFY2(kept.contains(u"stale since "_s), qUtf8Printable(kept));
        QVERIFY(window.CondensedPage().contains(BarePriceText(Host::Cnbc)));
        QVERIFY(window.ChartImage().contains(u"stale since "_s));
        const QString never = window.PageOf(u"127.0.0.1:1/q?s=yhoo&d=2b"_s);
        QVERIFY2(never.contains(u"No source"_s), qUtf8Printable(never));
        QVERIFY2(never.contains(u"Could not be reached"_s), qUtf8Printable(never));

        window.sources.SetCnbcPrice(7.5);
        for (const Host host : {Host::Cnbc, Host::Yahoo})
            window.sources.BringBack(host);
        window.TickStrip();
        QCOMPARE(window.StripTexts().first(), u"NYSE : 7.50 +1.00"_s);
        QVERIFY(!window.QuotePage().contains(u"stale"_s));
        QVERIFY(window.PageOf(u"127.0.0.1:1/q?s=yhoo&d=2b"_s).contains(u"7.50"_s));
    }

    void TheStripStaysEmptyWithoutANetworkFromTheStart() {
        LiveWindow window;
        for (int host = 0; host < StandIns::kHosts; ++host)
            window.sources.TakeDown(static_cast<Host>(host));
        window.Open();
        const QStringList before = window.StripTexts();
        window.TickStrip();
        QCOMPARE(window.StripTexts(), before);
        QVERIFY(window.PageOf(u"127.0.0.1:1/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s)
                    .contains(u"No source"_s));
        QVERIFY(window.CondensedPage().contains(u"No source"_s));
        QVERIFY(window.ChartImage().contains(u"no prices"_s));
    }

    void TheStripShowsTheLastValuesOfTheRunBefore() {
        LiveWindow window;
        window.Open();
        window.TickStrip();
        window.Form().close();
        for (int host = 0; host < StandIns::kHosts; ++host)
            window.sources.TakeDown(static_cast<Host>(host));
        window.Open();
        window.TickStrip();
        QCOMPARE(window.StripTexts(), StripOf(Host::Cnbc));
        const auto* panel = window.Form().findChild<QLabel*>(u"SpooBar1"_s);
        QVERIFY2(panel->accessibleDescription().contains(u"stale since "_s),
                 qUtf8Printable(panel->accessibleDescription()));
    }

    void ASourceThatAsksForPatienceIsLeftAloneAsLongAsItSays() {
        LiveWindow window;
        window.sources.Answer(
            Host::Cnbc, {"{}", Ending::Length, 429, "application/json", {"Retry-After: 600"}});
        window.Open();
        window.QuotePage();
        const qsizetype asked = window.sources[Host::Cnbc].Requests().size();
        QVERIFY(asked > 0);
        window.clock.now = window.clock.now.addSecs(599);
        window.QuotePage();
        QCOMPARE(window.sources[Host::Cnbc].Requests().size(), asked);
        window.clock.now = window.clock.now.addSecs(2);
        window.QuotePage();
        QCOMPARE(window.sources[Host::Cnbc].Requests().size(), asked + 1);
    }

    void AnEmptyPanelSaysThatQuotesAreAwaitedAndThenWhyThereAreNone() {
        LiveWindow window;
        for (int host = 0; host < StandIns::kHosts; ++host)
            window.sources.TakeDown(static_cast<Host>(host));
        window.Open();
        for (int panel = 1; panel <= StripBar::kPanels; ++panel)
            QCOMPARE(window.Panel(panel).Hint(), u"Quotes awaited"_s);
        window.TickStrip();
        for (int panel = 1; panel <= StripBar::kPanels; ++panel) {
            QCOMPARE(window.Panel(panel).Hint(), u"No quotes"_s);
            QCOMPARE(window.Panel(panel).text(), QString());
            QCOMPARE(window.Panel(panel).accessibleName(), QString());
            QCOMPARE(window.Panel(panel).accessibleDescription(),
                     u"No source of quotes can be reached."_s);
        }
    }

    void AStaleStripBearsItsAgeUntilThereIsANewerQuote() {
        LiveWindow window;
        window.Open();
        window.TickStrip();
        QCOMPARE(window.Panel(2).Age(), QString());
        const QStringList before = window.StripTexts();
        window.clock.now = window.clock.now.addDays(4); // the sources still tell Friday's close
        window.TickStrip();
        QCOMPARE(window.StripTexts(), before);
        QCOMPARE(window.Panel(2).Age(), u"4 d"_s);
        QVERIFY(window.Panel(2).accessibleDescription().contains(u"stale"_s));
    }

    void ThePageOfTheTickerStripShowsTheListsQuotes() {
        LiveWindow window;
        window.Store("WSCTick", "True");
        window.Open();
        BrowserPane* strip = window.Form().WebTick;
        WaitWhileBusy(*strip);
        QString text;
        PageReader::ReadText(*strip, [&](const QString& shown) { text = shown; });
        QTRY_VERIFY2(text.contains(u"MSFT "_s + PriceText(Host::Cnbc)), qUtf8Printable(text));
        QVERIFY(text.contains(u"^IXIC "_s + PriceText(Host::Cnbc)));
    }

    void APageThatIsLeftBeforeItsQuotesCameIsForgotten() {
        LiveWindow window;
        window.Open();
        window.QuotePage();
        window.sources.Answer(Host::Cnbc, {{}, Ending::Silent});
        window.Form().Web->Navigate(u"127.0.0.1:1/q?s=aol&d=2b"_s);
        QTRY_VERIFY(!window.sources[Host::Cnbc].Requests().filter(u"AOL"_s).isEmpty());
        QVERIFY(window.PageOf(u"127.0.0.1:1/q?s=msft&d=t"_s).contains(PriceText(Host::Cnbc)));
        window.Form().Web->Navigate(u"127.0.0.1:1/q?s=yhoo&d=2b"_s);
        window.End(); // while that page and the strip still wait
    }
};

TALLOWMERE_WEB_TEST_MAIN(LiveWindowTest)
#include "LiveWindowTest.moc"
