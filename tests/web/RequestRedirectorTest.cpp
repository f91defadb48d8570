#include "links/BrowserPane.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// Which requests of a page are led to today's addresses in live mode.
class RequestRedirectorTest : public QObject {
    Q_OBJECT
private:
    LoopbackServer m_server;
    std::unique_ptr<TestSession> m_session;

    /// Opens a page with this body on the server.
    void Open(const QByteArray& body) {
        m_server.Serve(u"/page"_s, "<html><body>" + body + "</body></html>");
        m_session->Form().Web->Navigate(m_server.Address(u"/page"_s));
    }

private Q_SLOTS:
    void init() {
        m_server.Clear();
        m_session = std::make_unique<TestSession>(u"h.example"_s, WebMode::Live);
        const std::string host = FromQt(m_server.Address({}));
        m_session->today = "[links]\n"
                           "3 = \"http://" +
                           host +
                           "/today/{upper}\"\n"
                           "chart_images = \"http://" +
                           host + "/image\"\n";
        m_session->Start();
    }
    void cleanup() { m_session.reset(); }

    void AMainFrame() {
        m_session->Form().Web->Navigate(u"h.example/q?s=msft&d=2b"_s);
        QTRY_COMPARE(m_server.CountOf(u"/today/MSFT"_s), 1);
        QTRY_COMPARE(m_session->Form().Web->LocationURL(), u"h.example/q?s=msft&d=2b"_s);
    }

    void ALinkInAPage() {
        Open("<a id=a href='http://h.example/q?s=msft&d=2b'>x</a><script>a.click()</script>");
        QTRY_COMPARE(m_server.CountOf(u"/today/MSFT"_s), 1);
    }

    void ASubFrame() {
        Open("<iframe src='http://h.example/q?s=msft&amp;d=2b'></iframe>");
        QTRY_COMPARE(m_server.CountOf(u"/today/MSFT"_s), 1);
    }

    void AnImage() {
        Open("<img src='http://h.example/c/1y/m/msft.gif'><img src='http://h.example/v?s=ibm'>");
        QTRY_COMPARE(m_server.CountOf(u"/image"_s), 2);
    }

    void NothingElse() {
        Open("<img src='http://" + m_server.Address(u"/q?s=msft&d=2b"_s).toLatin1() + "'>");
        QTRY_COMPARE(m_server.CountOf(u"/q?s=msft&d=2b"_s), 1);
        QCOMPARE(m_server.CountOf(u"/today/MSFT"_s), 0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(RequestRedirectorTest)
#include "RequestRedirectorTest.moc"
