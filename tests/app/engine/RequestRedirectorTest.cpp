#include "app/engine/BrowserPane.h"
#include "support/LoopbackServer.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QNetworkInformation>
#include <QPushButton>
#include <QSignalSpy>

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
        if (!m_server.isListening())
            QVERIFY(m_server.listen(QHostAddress::LocalHost));
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

    void AFailedLinkNamesWhatWasTriedAndOffersTheBuiltAddress() {
        const QString built = u"h.example/q?s=msft&d=2b"_s;
        BrowserPane& pane = *m_session->Form().Web;
        const auto text = [&](const QString& label) {
            const auto* shown = pane.findChild<QLabel*>(label);
            return shown->isVisible() ? shown->text() : QString();
        };
        const quint16 port = m_server.serverPort();
        m_server.close();
        pane.Navigate(built);
        const QString tried = u"http://127.0.0.1:%1/today/MSFT"_s.arg(port);
        QTRY_COMPARE(text(u"NoticeAddress"_s), tried);
        QCOMPARE(text(u"NoticeText"_s), u"The server refuses connections."_s);
        QCOMPARE(text(u"NoticeBuilt"_s), u"It stands for "_s + built);
        QCOMPARE(pane.LocationURL(), built);

        const Navigations navigations(m_session->Form());
        QTest::mouseClick(pane.findChild<QPushButton*>(u"NoticeSearch"_s), Qt::LeftButton);
        QTest::mouseClick(pane.findChild<QPushButton*>(u"NoticeArchive"_s), Qt::LeftButton);
        QCOMPARE(navigations, (QStringList{u"Web: https://duckduckgo.com/?q=127.0.0.1"_s,
                                           u"Web: https://web.archive.org/web/http://"_s + built}));
    }

    void ThePageComesWhenTheServerIsBackAndTheBuiltAddressOnDemand() {
        const QString builtPath = u"/q?s=msft&d=2b"_s;
        TestSession session(m_server.Address({}), WebMode::Live);
        LoopbackServer today;
        const quint16 port = today.serverPort();
        session.today = "[links]\n3 = \"http://" + FromQt(today.Address({})) + "/today\"\n";
        session.Start();
        BrowserPane& pane = *session.Form().Web;
        today.close();
        pane.Navigate(m_server.Address(builtPath));
        auto* asBuilt = pane.findChild<QPushButton*>(u"NoticeAsBuilt"_s);
        QTRY_VERIFY(asBuilt->isVisible());
        QTest::mouseClick(asBuilt, Qt::LeftButton);
        QTRY_COMPARE(m_server.CountOf(builtPath), 1);
        QTRY_VERIFY(!pane.Busy() && !asBuilt->isVisible());
        QCOMPARE(pane.LocationURL(), m_server.Address(builtPath));

        pane.Navigate(m_server.Address(builtPath));
        QTRY_VERIFY(asBuilt->isVisible());
        QCOMPARE(m_server.CountOf(builtPath), 1);
        QVERIFY(today.listen(QHostAddress::LocalHost, port));
        pane.Refresh();
        QTRY_COMPARE(today.CountOf(u"/today"_s), 1);
        QTRY_VERIFY(!asBuilt->isVisible());
    }

    void AFailedPageComesWhenTheNetworkReturns() {
        const quint16 port = m_server.serverPort();
        m_server.close();
        BrowserPane& pane = *m_session->Form().Web;
        pane.Navigate(u"h.example/q?s=msft&d=2b"_s);
        auto* again = pane.findChild<QPushButton*>(u"NoticeTryAgain"_s);
        QTRY_VERIFY(again->isVisible() && !pane.Busy());
        if (!QNetworkInformation::instance())
            QSKIP("This system does not tell whether there is a network.");
        QVERIFY(m_server.listen(QHostAddress::LocalHost, port));
        Q_EMIT QNetworkInformation::instance()->reachabilityChanged(
            QNetworkInformation::Reachability::Online);
        QTRY_COMPARE(m_server.CountOf(u"/today/MSFT"_s), 1);
        QTRY_VERIFY(!again->isVisible());
    }

    void ABuiltAddressThatFailsTooIsNotOfferedAgain() {
        m_server.close();
        BrowserPane& pane = *m_session->Form().Web;
        pane.Navigate(u"h.example/q?s=msft&d=2b"_s);
        auto* asBuilt = pane.findChild<QPushButton*>(u"NoticeAsBuilt"_s);
        QTRY_VERIFY(asBuilt->isVisible());
        QTest::mouseClick(asBuilt, Qt::LeftButton);
        QTRY_VERIFY(!asBuilt->isVisible() && !pane.Busy());
        QCOMPARE(pane.findChild<QLabel*>(u"NoticeAddress"_s)->text(), u"h.example/q?s=msft&d=2b"_s);
    }

    void TheBuiltAddressStaysShownOnTheWayBackAndForth() {
        const QString first = u"h.example/q?s=msft&d=2b"_s, second = u"h.example/q?s=ibm&d=2b"_s;
        BrowserPane& pane = *m_session->Form().Web;
        QTRY_VERIFY(!pane.Busy()); // the first page
        QStringList shown;
        connect(&pane, &BrowserPane::StatusTextChange, this,
                [&](const QString& text) { shown << text; });
        QSignalSpy completed(&pane, &BrowserPane::DocumentComplete);
        for (const QString& address : {first, second}) {
            pane.Navigate(address);
            QVERIFY(completed.wait());
            QCOMPARE(pane.LocationURL(), address);
        }
        QVERIFY2(shown.filter(u"/today/"_s).isEmpty(), qPrintable(shown.join(u'\n')));
        pane.GoBack();
        QVERIFY(completed.wait());
        QCOMPARE(pane.LocationURL(), first);
        pane.Refresh();
        QVERIFY(completed.wait());
        QCOMPARE(pane.LocationURL(), first);
        pane.GoForward();
        QVERIFY(completed.wait());
        QCOMPARE(pane.LocationURL(), second);
    }

    void NothingElse() {
        Open("<img src='http://" + m_server.Address(u"/q?s=msft&d=2b"_s).toLatin1() + "'>");
        QTRY_COMPARE(m_server.CountOf(u"/q?s=msft&d=2b"_s), 1);
        QCOMPARE(m_server.CountOf(u"/today/MSFT"_s), 0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(RequestRedirectorTest)
#include "RequestRedirectorTest.moc"
