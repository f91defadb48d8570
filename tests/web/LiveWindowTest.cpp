#include "links/BrowserPane.h"
#include "market/IndexStrip.h"
#include "support/StandIns.h"
#include "support/TestSession.h"
#include "support/WebTest.h"
#include "text/files.h"

#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;
using Host = StandIns::Host;

namespace {

/// What the table of sites leads to the built-in portal.
constexpr const char* kToday = R"([links]
3 = "portal:"
index_page = "portal:"
chart_images = "portal:"
stream_ticker = "portal:"
read_indices = "portal:"
read_portfolio = "portal:"
read_profile = "portal:"
read_lists = "portal:"
)";

/// The window in live mode, with stand-ins for all sources. No address leads to a network.
class LiveWindow : public TestSession {
public:
    StandIns sources;

    LiveWindow() : TestSession(u"h.example"_s, WebMode::Live) {
        Store("First", "OK");
        Store("Stocks1", "MSFT|");
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

    /// Loads an address in the main pane and gives the page as it came.
    QString PageOf(const QString& address) {
        Form().Web->Navigate(address);
        Form().Web->WaitWhileBusy();
        QString html;
        bool isThere = false;
        Form().Web->findChild<QWebEngineView*>()->page()->toHtml([&](const QString& text) {
            html = text;
            isThere = true;
        });
        return QTest::qWaitFor([&] { return isThere; }) ? html : QString();
    }
    QString QuotePage() { return PageOf(u"h.example/q?s=msft&d=2b"_s); }
    QString ChartImage() { return PageOf(u"h.example/c/1y/m/msft.gif"_s); }

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

} // namespace

class LiveWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void EveryPartOfTheWindowShowsTodaysQuotes() {
        LiveWindow window;
        window.Open();
        window.TickStrip();
        QCOMPARE(window.StripTexts(), StripOf(Host::Cnbc));
        const QString quote = window.QuotePage();
        QVERIFY2(quote.contains(PriceText(Host::Cnbc)), qUtf8Printable(quote));
        QVERIFY2(quote.contains(u"Nov 20, 2026 4:00 PM ET, CNBC"_s), qUtf8Printable(quote));
        QVERIFY(!quote.contains(u"Could not be reached"_s));
        QVERIFY(window.CondensedPage().contains(BarePriceText(Host::Cnbc)));
        const QString chart = window.ChartImage();
        QVERIFY2(chart.contains(u"Yahoo! Finance"_s), qUtf8Printable(chart));
        QVERIFY(chart.contains(u"polyline"_s));
        QVERIFY(window.prompts.messages.isEmpty());
    }
};

TALLOWMERE_WEB_TEST_MAIN(LiveWindowTest)
#include "LiveWindowTest.moc"
