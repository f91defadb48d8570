#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/TestPrompts.h"
#include "support/TlsProxy.h"
#include "support/WebTest.h"

#include <QNetworkProxy>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The engine has certificates of its own, to which a test cannot add one.
const bool isTrusting = qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--ignore-certificate-errors");

/// A pane whose whole web is the proxy.
struct Bench {
    explicit Bench(WebMode mode = WebMode::Live) : access(mode, 700ms) {
        pane.resize(400, 300);
        pane.show();
    }
    void Show(const QString& address) {
        pane.Navigate(address);
        [[maybe_unused]] const bool isOver = Await([this] { return !pane.Busy(); });
    }
    QString Title() {
        const auto* page = profile.findChild<PanePage*>();
        return page && !pane.findChild<PaneNotice*>()->isVisible() ? page->title() : QString();
    }

    TestPrompts prompts;
    QTemporaryDir folder;
    WebAccess access;
    EngineProfile profile{folder.path() + u"/engine"_s, folder.path(), access, prompts};
    BrowserPane pane{profile, prompts};
};

} // namespace

/// In live mode sites are asked by https first, and by http where they do not speak it.
class HttpsFirstTest : public QObject {
    Q_OBJECT
private:
    TlsProxy m_web;

    qsizetype PlainRequests(const QString& site) const {
        return m_web.Requests().filter(u"GET http://"_s + site).size();
    }

private Q_SLOTS:
    void initTestCase() {
        if (!m_web.HasCertificate())
            QSKIP("openssl makes the certificate, and is not installed");
        // A server is of no use to a proxy: it listens already.
        QNetworkProxy::setApplicationProxy(
            {QNetworkProxy::HttpProxy, u"127.0.0.1"_s, m_web.serverPort()});
    }
    void init() { m_web.Forget(); }

    void ASiteThatSpeaksHttpsIsNotAskedByHttp() {
        m_web.SpeakHttps(u"good.example"_s);
        m_web.Serve(u"/page"_s, "<title>secure</title>");
        m_web.Serve(u"http://good.example/page"_s, "<title>plain</title>");
        Bench bench;
        bench.Show(u"good.example/page"_s);
        QTRY_COMPARE(bench.Title(), u"secure"_s);
        QCOMPARE(bench.pane.LocationURL(), u"good.example/page"_s);
        QCOMPARE(bench.pane.RealAddress(), u"https://good.example/page"_s);
        QCOMPARE(PlainRequests(u"good.example"_s), 0);
    }

    void AnswersAreWaitedForHoweverLateTheyCome() {
        m_web.SpeakHttps(u"late.example"_s);
        m_web.Serve(u"/late"_s, CannedPage{"", CannedPage::Ending::Silent});
        m_web.Serve(u"http://late.example/late"_s, "<title>plain</title>");
        Bench bench;
        bench.pane.Navigate(u"late.example/late"_s);
        // Its connection is secured; what has no certificate is given up meanwhile.
        m_web.ServeTunnel(u"slow.example"_s, CannedPage{"", CannedPage::Ending::Silent});
        bench.access.Https().Ask(QUrl(u"https://slow.example"_s));
        QTRY_VERIFY(bench.access.Https().IsPlain(u"slow.example"_s));
        QTRY_VERIFY(m_web.Requests().contains(u"GET /late"_s));
        QVERIFY(bench.pane.Busy());
        QCOMPARE(PlainRequests(u"late.example"_s), 0);
    }

    void ASiteThatDoesNotIsAskedByHttpFromThenOn_data() {
        QTest::addColumn<int>("ending");
        QTest::newRow("hangs up") << int(CannedPage::Ending::HangUp);
        QTest::newRow("refuses") << int(CannedPage::Ending::Length);
        QTest::newRow("is silent") << int(CannedPage::Ending::Silent);
    }
    void ASiteThatDoesNotIsAskedByHttpFromThenOn() {
        QFETCH(const int, ending);
        const QString site = u"plain%1.example"_s.arg(ending);
        m_web.ServeTunnel(site, CannedPage{"", CannedPage::Ending(ending), 502});
        m_web.Serve(u"http://"_s + site + u"/a"_s, "<title>a</title>");
        m_web.Serve(u"http://"_s + site + u"/b"_s, "<title>b</title>");
        Bench bench;
        const QSignalSpy ends(&bench.pane, &BrowserPane::DocumentComplete);
        bench.pane.Navigate(site + u"/a"_s);
        QTRY_COMPARE(bench.Title(), u"a"_s);
        QTRY_VERIFY(!bench.pane.Busy());
        // The try is no load of its own that the user is told of.
        QCOMPARE(ends.size(), 1);
        QVERIFY(ends.first().first().toBool());
        QCOMPARE(bench.pane.LocationURL(), site + u"/a"_s);
        QVERIFY(m_web.Tunnels().contains(site + u":443"_s));
        const qsizetype tunnels = m_web.Tunnels().size();
        bench.Show(site + u"/b"_s);
        QTRY_COMPARE(bench.Title(), u"b"_s);
        QCOMPARE(m_web.Tunnels().size(), tunnels);
        QCOMPARE(PlainRequests(site + u"/a"_s), 1);
    }

    void ASiteThatLeadsOnToAnotherNameOfItsOwn() {
        m_web.Redirect(u"http://short.example/"_s, u"http://www.short.example/home"_s);
        m_web.Serve(u"http://www.short.example/home"_s, "<title>home</title>");
        Bench bench;
        bench.pane.Navigate(u"short.example"_s);
        QTRY_COMPARE(bench.Title(), u"home"_s);
        QVERIFY(m_web.Tunnels().contains(u"www.short.example:443"_s));
    }

    void ASiteWhoseHttpsLeadsBackToHttp() {
        m_web.SpeakHttps(u"back.example"_s);
        m_web.Redirect(u"/back"_s, u"http://back.example/back"_s);
        m_web.Serve(u"http://back.example/back"_s, "<title>back</title>");
        Bench bench;
        bench.pane.Navigate(u"back.example/back"_s);
        QTRY_COMPARE(bench.Title(), u"back"_s);
    }

    void ALinkOfAPage() {
        m_web.Serve(u"http://from.example/"_s,
                    "<script>setTimeout(() => location = 'http://to.example/', 50)</script>");
        m_web.Serve(u"http://to.example/"_s, "<title>to</title>");
        Bench bench;
        bench.pane.Navigate(u"from.example"_s);
        QTRY_COMPARE(bench.Title(), u"to"_s);
        QVERIFY(m_web.Tunnels().contains(u"to.example:443"_s));
    }

    void FramesAndPicturesOfAPage() {
        m_web.Serve(u"http://whole.example/"_s,
                    "<title>whole</title><iframe src='http://frame.example/f'></iframe>"
                    "<img src='http://image.example/i'>");
        m_web.Serve(u"http://frame.example/f"_s, "frame");
        m_web.Serve(u"http://image.example/i"_s, "no image");
        Bench bench;
        bench.pane.Navigate(u"whole.example"_s);
        QTRY_VERIFY(PlainRequests(u"frame.example/f"_s) >= 1);
        QTRY_VERIFY2(PlainRequests(u"image.example/i"_s) >= 1,
                     qPrintable((m_web.Tunnels() + m_web.Requests()).join(u'\n')));
        QVERIFY(m_web.Tunnels().contains(u"frame.example:443"_s));
        QVERIFY(m_web.Tunnels().contains(u"image.example:443"_s));
    }

    void ScriptsOfAPage() {
        m_web.Serve(u"http://scripted.example/"_s,
                    "<title>bare</title><script src='http://script.example/s'></script>");
        m_web.Serve(u"http://script.example/s"_s,
                    CannedPage{"document.title = 'run'", {}, 200, "text/javascript"});
        Bench bench;
        bench.pane.Navigate(u"scripted.example"_s);
        QTRY_COMPARE(bench.Title(), u"run"_s);
    }

    void ARowOfTheTableCountsAndIsAskedByHttpsToo() {
        m_web.SpeakHttps(u"today.example"_s);
        m_web.Serve(u"/now"_s, "<title>now</title>");
        Bench bench;
        bench.access.SetResolver([](const std::string& address, AddressUse) {
            return address.find("then.example") == std::string::npos ? address
                                                                     : "http://today.example/now";
        });
        bench.Show(u"then.example/x"_s);
        QTRY_COMPARE(bench.Title(), u"now"_s);
        QCOMPARE(bench.pane.LocationURL(), u"then.example/x"_s);
        QCOMPARE(m_web.Tunnels().filter(u"then"_s).size(), 0);
    }

    void PortsOfTheirOwnStay() {
        m_web.Serve(u"http://port.example:8080/"_s, "<title>port</title>");
        Bench bench;
        bench.Show(u"port.example:8080/"_s);
        QTRY_COMPARE(bench.Title(), u"port"_s);
        QCOMPARE(m_web.Tunnels().filter(u"port.example"_s).size(), 0);
    }

    void NoOtherModeAsksByHttps() {
        m_web.Serve(u"http://direct.example/"_s, "<title>direct</title>");
        Bench bench(WebMode::Direct);
        bench.Show(u"direct.example"_s);
        QTRY_COMPARE(bench.Title(), u"direct"_s);
        QCOMPARE(m_web.Tunnels().filter(u"direct.example"_s).size(), 0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(HttpsFirstTest)
#include "HttpsFirstTest.moc"
