#include "app/engine/BrowserPane.h"
#include "app/engine/LocationLine.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// What a pane says of where it is.
class LocationTest : public QObject {
    Q_OBJECT
private:
    LoopbackServer m_server;
    std::unique_ptr<TestSession> m_session;

    BrowserPane& Pane() { return *m_session->Form().Web; }
    LocationLine& Line(BrowserPane& pane) { return *pane.findChild<LocationLine*>(); }
    QString Said(BrowserPane& pane) {
        return Line(pane).isVisible() ? Line(pane).accessibleDescription() : QString();
    }
    QString Said() { return Said(Pane()); }
    bool Show(const QString& address) {
        Pane().Navigate(address);
        return Await([this] { return !Pane().Busy(); });
    }
    QString Http(const QString& path) { return u"http://"_s + m_server.Address(path); }

private Q_SLOTS:
    void init() {
        m_server.Clear();
        m_server.Serve(u"/a"_s, "<title>a</title><body>a");
        m_server.Serve(u"/login"_s, "<title>login</title><form><input type=password></form>");
        m_server.Redirect(u"/old"_s, u"/a?now=1"_s);
        m_session = std::make_unique<TestSession>(u"h.example"_s, WebMode::Live);
        m_session->today = "[links]\n3 = \"http://" + FromQt(m_server.Address({})) + "/old\"\n";
        m_session->Start();
        QVERIFY(Await([this] { return !Pane().Busy(); })); // the first page
    }
    void cleanup() { m_session.reset(); }

    void ThePlaceAfterEveryRedirectIsSaidWithTheBuiltAddressBesideIt() {
        const QString built = u"h.example/q?s=msft&d=2b"_s;
        QVERIFY(Show(built));
        QCOMPARE(Said(), u"Not encrypted "_s + Http(u"/a?now=1"_s) + u" - stands for "_s + built);
        QCOMPARE(Pane().LocationURL(), built);
        QCOMPARE(Pane().RealAddress(), Http(u"/a?now=1"_s));

        // What is copied works in any browser; the built address has an entry of its own.
        m_session->ClickLink(43);
        QCOMPARE(QGuiApplication::clipboard()->text(), Http(u"/a?now=1"_s));
        m_session->Form().menus->copyBuilt->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), built);

        QVERIFY(Show(m_server.Address(u"/a"_s)));
        QCOMPARE(Said(), u"Not encrypted "_s + Http(u"/a"_s));
        Pane().GoBack();
        QTRY_COMPARE(Said(),
                     u"Not encrypted "_s + Http(u"/a?now=1"_s) + u" - stands for "_s + built);
    }

    void APageThatIsStillAwaitedIsNotSaidToBeThere() {
        m_server.Serve(u"/silent"_s, CannedPage{{}, CannedPage::Ending::Silent});
        QVERIFY(Show(m_server.Address(u"/a"_s)));
        Pane().Navigate(m_server.Address(u"/silent"_s));
        QTRY_COMPARE(m_server.CountOf(u"/silent"_s), 1);
        QCOMPARE(Said(), u"Not encrypted "_s + Http(u"/a"_s));
        Pane().Stop();
        QCOMPARE(Said(), u"Not encrypted "_s + Http(u"/a"_s));
    }

    void AFormThatAsksForAPasswordWithoutEncryptionIsNamed() {
        const QString warning = u"others can read a password that is typed here"_s;
        QVERIFY(Show(m_server.Address(u"/login"_s)));
        QTRY_VERIFY(Said().contains(warning));
        QVERIFY(Show(m_server.Address(u"/a"_s)));
        QVERIFY(!Said().contains(warning));
        // One that the page makes later is seen when the user comes to it.
        m_server.Serve(u"/late"_s,
                       "<body style='margin:0' onmousedown=\"if (!document.forms.length)"
                       " document.body.innerHTML = '<form><input type=password></form>'\""
                       "><p style='height:300px'>x");
        QVERIFY(Show(m_server.Address(u"/late"_s)));
        QVERIFY(!Said().contains(warning));
        QWidget* view = Pane().findChild<QWebEngineView*>()->focusProxy();
        QTRY_VERIFY(
            (QTest::mouseClick(view, Qt::LeftButton, {}, {60, 60}), Said().contains(warning)));
    }

    void AnAddressIsShownAsTextAndWithoutTheNameBeforeItsHost() {
        QVERIFY(Show(u"http://bank.example:pw@"_s + m_server.Address(u"/a?<b>x</b>"_s)));
        QVERIFY2(Said().startsWith(u"Not encrypted "_s + Http(u"/a?"_s)), qPrintable(Said()));
        QVERIFY(!Pane().RealAddress().contains(u"pw"));
        QVERIFY(!Pane().RealAddress().contains(u"bank"));
    }

    void AFailureSaysItselfWhereAndTheStripHasNoRoomForALine() {
        QVERIFY(Show(u"nowhere.invalid/"_s));
        QCOMPARE(Said(), QString());
        m_session->Form().ShowTicker(true);
        BrowserPane& strip = *m_session->Form().WebTick;
        strip.Navigate(m_server.Address(u"/a"_s));
        QVERIFY(Await([&] { return !strip.Busy(); }));
        QVERIFY(!Line(strip).isVisible());
    }

    void ALongAddressNeitherWidensNorRaisesThePane() {
        QVERIFY(Show(m_server.Address(u"/a"_s)));
        const QRect before = Pane().geometry();
        const int height = Line(Pane()).height();
        QVERIFY(height <= Pane().fontMetrics().height() + 2);
        QVERIFY(Show(m_server.Address(u"/a?"_s + QString(3000, u'x'))));
        QCOMPARE(Pane().geometry(), before);
        QCOMPARE(Line(Pane()).height(), height);
    }
};

TALLOWMERE_WEB_TEST_MAIN(LocationTest)
#include "LocationTest.moc"
