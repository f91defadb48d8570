#include "app/links/PaneTabs.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/TabRow.h"
#include "app/links/PaneDeck.h"
#include "app/links/SearchMenu.h"
#include "app/links/SitePopups.h"
#include "support/LoopbackServer.h"
#include "support/PaintedPage.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QWebEnginePage>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    Bench() : session(server.Address({}), WebMode::Direct) {
        server.Serve(u"/"_s, "<title>other</title>");
        server.Serve(u"/cgi-bin/AW/DoInquiry.zcom"_s, "<title>other</title>");
        server.Serve(u"/first"_s, "<title>first</title><body style='margin:0'>"
                                  "<a href='/linked' style='display:block;height:200px'>x</a>"
                                  "<a href='/blank' target=_blank"
                                  " style='display:block;height:200px'>y</a>");
        server.Serve(u"/linked"_s, "<title>linked</title>");
        server.Serve(u"/blank"_s, "<title>blank &amp; new</title>");
        server.Serve(u"/q"_s, "<title>quote</title>");
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/first"_s))).c_str());
    }
    void Start() {
        session.Start();
        QTRY_COMPARE(Form().Web->Title(), u"first"_s);
    }
    frmMain& Form() { return session.Form(); }
    TabRow& Row() { return *Form().tabRow; }
    PaneTabs& Tabs() { return *session->Controllers().links.tabs; }
    QStringList Captions() {
        QStringList captions;
        for (int n = 0; n < Row().count(); ++n)
            captions << Row().tabText(n);
        return captions;
    }
    BrowserPane* Tab(int index) { return Form().FurtherPanes().value(index); }
    QStringList Loaded() {
        QStringList paths;
        for (const QString& request : server.Requests())
            paths << request.section(u' ', 1).section(u'?', 0, 0);
        return paths;
    }
    void ClickPage(Qt::MouseButton button, Qt::KeyboardModifiers keys, int y) {
        auto* view = Form().Web->findChild<QWebEngineView*>();
        QVERIFY(AwaitPaint(*view->page()));
        QTest::mouseClick(view->focusProxy(), button, keys, {100, y});
    }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class PaneTabsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void WithoutAFurtherPaneThereIsNoRow() {
        Bench bench;
        bench.Start();
        QVERIFY(bench.Row().isHidden());
        QCOMPARE(bench.Form().Web->y() * 15, 450);
        bench.session.ClickLink(8); // a broker
        QVERIFY(!bench.Form().WebB->isHidden());
        QVERIFY(bench.Row().isHidden());
        QCOMPARE(bench.Form().WebB->geometry(), bench.Form().Web->geometry());
    }

    void AMiddleClickOpensATabBehindThePage_data() {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        QTest::addColumn<bool>("isInFront");
        const Qt::KeyboardModifiers none, ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier;
        QTest::newRow("middle") << Qt::MiddleButton << none << false;
        QTest::newRow("Ctrl") << Qt::LeftButton << ctrl << false;
        QTest::newRow("middle, Shift") << Qt::MiddleButton << shift << true;
        QTest::newRow("Ctrl, Shift") << Qt::LeftButton << (ctrl | shift) << true;
    }
    void AMiddleClickOpensATabBehindThePage() {
        QFETCH(const Qt::MouseButton, button);
        QFETCH(const Qt::KeyboardModifiers, keys);
        QFETCH(const bool, isInFront);
        Bench bench;
        bench.Start();
        const ColorPair before = bench.session.Link(3)->Colors();
        QTest::mouseClick(bench.session.Link(3), button, keys);
        QCOMPARE(bench.session.Link(3)->Colors(), before);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"first"_s, u"quote"_s}));
        QVERIFY(!bench.Row().isHidden());
        QCOMPARE(bench.Tab(0)->LocationURL(), bench.server.Address(u"/q?s=msft&d=2b"_s));
        QCOMPARE(bench.Form().Web->isHidden(), isInFront);
        QCOMPARE(bench.Tab(0)->isHidden(), !isInFront);
        QCOMPARE(bench.Row().currentIndex(), isInFront ? 1 : 0);
        QCOMPARE(bench.Form().Web->LocationURL(), bench.server.Address(u"/first"_s));
        QVERIFY(bench.Row().y() + bench.Row().height() <= bench.Form().Web->y());
        QCOMPARE(bench.Tab(0)->geometry(), bench.Form().Web->geometry());
        // The next click is one as ever, and brings the research page back.
        bench.session.ClickLink(15);
        QVERIFY(!bench.Form().Web->isHidden());
        QTRY_COMPARE(bench.Form().Web->Title(), u"other"_s);
        QCOMPARE(bench.Form().FurtherPanes().size(), 1);
    }

    void ALinkThatComesToNothingOpensNoLaterPageInATab() {
        Bench bench;
        bench.Start();
        bench.Form().List1->SetListIndex(-1);
        QTest::mouseClick(bench.session.Link(3), Qt::MiddleButton);
        QCOMPARE(bench.session.prompts.messages, QStringList{u"Quorvane: Select a Ticker"_s});
        QCOMPARE(bench.session->Panes().Next(), PagePlace::Pane);
        QTest::mouseClick(bench.session.Link(0), Qt::MiddleButton); // a tool shows no page
        QVERIFY(bench.Form().FurtherPanes().isEmpty());
    }

    void ABrokerOpensInATabToo() {
        Bench bench;
        bench.Start();
        QTest::mouseClick(bench.session.Link(8), Qt::MiddleButton);
        QCOMPARE(bench.Form().FurtherPanes().size(), 1);
        QVERIFY(bench.Form().WebB->isHidden());
        QVERIFY(bench.Form().WebB->LocationURL().isEmpty());
    }

    void AnItemOfAMenuOpensInATab() {
        Bench bench;
        bench.Start();
        SearchMenu* menu = bench.session->Popups().Menu(u"mnuHisty"_s);
        QVERIFY(menu);
        const auto choose = [&](Qt::KeyboardModifiers keys) {
            bench.session->Popups().PopUp(u"mnuHisty"_s);
            QTRY_VERIFY(menu->isVisible());
            QTest::keyClick(menu, Qt::Key_Home);
            QTest::keyClick(menu, Qt::Key_Return, keys);
        };
        const auto pages = bench.server.Requests().size();
        choose(Qt::ControlModifier);
        QTRY_COMPARE(bench.Form().FurtherPanes().size(), 1);
        QTRY_VERIFY(bench.server.Requests().size() > pages);
        QCOMPARE(bench.Form().Web->LocationURL(), bench.server.Address(u"/first"_s));
        choose({});
        QTRY_VERIFY(bench.Form().Web->LocationURL() != bench.server.Address(u"/first"_s));
        QCOMPARE(bench.Form().FurtherPanes().size(), 1);
    }

    void WhatIsRecordedOpensInNoTab() {
        Bench bench;
        bench.Start();
        bench.session.ClickLink(211);
        QVERIFY(bench.session->Recorded().templateMode);
        QTest::mouseClick(bench.session.Link(3), Qt::LeftButton, Qt::ControlModifier);
        QVERIFY(bench.Form().FurtherPanes().isEmpty());
        QCOMPARE(bench.session->Recorded().multiLinkPage.count(u"<IFRAME"_s), 1);
    }

    void ALinkInAPageOpensATab() {
        Bench bench;
        bench.Start();
        bench.ClickPage(Qt::MiddleButton, {}, 100);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"first"_s, u"linked"_s}));
        QVERIFY(!bench.Form().Web->isHidden());
        bench.ClickPage(Qt::LeftButton, Qt::ControlModifier, 100);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"first"_s, u"linked"_s, u"linked"_s}));
        // What opens a window comes to the front.
        bench.ClickPage(Qt::LeftButton, {}, 300);
        QTRY_COMPARE(bench.Captions(),
                     (QStringList{u"first"_s, u"linked"_s, u"linked"_s, u"blank && new"_s}));
        QCOMPARE(bench.Row().currentIndex(), 3);
        QCOMPARE(bench.Form().Web->LocationURL(), bench.server.Address(u"/first"_s));
    }

    void AWindowWithoutAGestureOpensNothing() {
        Bench bench;
        bench.Start();
        auto* page = bench.Form().Web->findChild<QWebEngineView*>()->page();
        page->runJavaScript(
            u"window.open('/blank'); setTimeout(() => document.title = 'over', 0)"_s);
        QTRY_COMPARE(bench.Form().Web->Title(), u"over"_s);
        // The next one that the user opens is the first.
        bench.ClickPage(Qt::MiddleButton, {}, 100);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"over"_s, u"linked"_s}));
    }

    void TheLookupOfAnIndexIsRewrittenInATabToo() {
        Bench bench;
        bench.Start();
        bench.Tabs().Open(bench.server.Address(u"/scripts/stocklookup?symbol=$INDU"_s), true);
        QTRY_VERIFY(
            bench.Tab(0)->LocationURL().endsWith(u"/moneynet/jtickredir.asp?symbol=?.DJI"_s));
    }

    void KeysWalkAndCloseButNeverTheFirstTwo() {
        Bench bench;
        bench.Start();
        const MainMenus& menus = *bench.Form().menus;
        bench.Tabs().Open(bench.server.Address(u"/linked"_s), false);
        bench.Tabs().Open(bench.server.Address(u"/blank"_s), false);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"first"_s, u"linked"_s, u"blank && new"_s}));
        menus.At("nextTab")->trigger();
        QVERIFY(!bench.Tab(0)->isHidden());
        menus.At("previousTab")->trigger();
        menus.At("previousTab")->trigger();
        QVERIFY(!bench.Tab(1)->isHidden());
        menus.At("closeTab")->trigger();
        QCOMPARE(bench.Form().FurtherPanes().size(), 1);
        QVERIFY(!bench.Tab(0)->isHidden());
        menus.At("closeTab")->trigger();
        QVERIFY(bench.Form().FurtherPanes().isEmpty());
        QVERIFY(bench.Row().isHidden());
        QVERIFY(!bench.Form().Web->isHidden());
        QCOMPARE(bench.Form().Web->y() * 15, 450);
        menus.At("closeTab")->trigger();
        QVERIFY(bench.Form().isVisible());
        QVERIFY(!bench.Form().Web->isHidden());
        bench.session.ClickLink(8);
        menus.At("closeTab")->trigger();
        QVERIFY(!bench.Form().WebB->isHidden());
    }

    void TheRowChoosesAndCloses() {
        Bench bench;
        bench.Start();
        bench.session.ClickLink(8);
        QTRY_COMPARE(bench.Form().WebB->Title(), u"other"_s);
        bench.Tabs().Open(bench.server.Address(u"/linked"_s), false);
        QTRY_COMPARE(bench.Captions(), (QStringList{u"first"_s, u"other"_s, u"linked"_s}));
        QCOMPARE(bench.Row().currentIndex(), 1);
        const auto click = [&](int tab, Qt::MouseButton button) {
            QTest::mouseClick(&bench.Row(), button, {}, bench.Row().tabRect(tab).center());
        };
        click(0, Qt::LeftButton);
        QVERIFY(!bench.Form().Web->isHidden());
        QVERIFY(bench.Form().WebB->isHidden());
        click(2, Qt::LeftButton);
        QVERIFY(!bench.Tab(0)->isHidden());
        click(0, Qt::MiddleButton);
        click(1, Qt::MiddleButton);
        QCOMPARE(bench.Row().count(), 3);
        click(2, Qt::MiddleButton);
        QVERIFY(bench.Form().FurtherPanes().isEmpty());
        QVERIFY(!bench.Form().WebB->isHidden()); // its neighbour
    }

    void ToolsActOnTheTabInFront() {
        Bench bench;
        bench.Start();
        bench.Tabs().Open(bench.server.Address(u"/linked"_s), true);
        QTRY_COMPARE(bench.Tab(0)->Title(), u"linked"_s);
        bench.session.ClickLink(0);
        QTRY_COMPARE(bench.server.CountOf(u"/linked"_s), 2);
        QCOMPARE(bench.server.CountOf(u"/first"_s), 1);
    }

    void ThereAreNotMoreThanAMost() {
        Bench bench;
        bench.Start();
        for (int n = 0; n < PaneTabs::kMostTabs; ++n)
            bench.Tabs().AddWaiting({bench.server.Address(u"/linked"_s), u"x"_s});
        QCOMPARE(bench.Form().FurtherPanes().size(), PaneTabs::kMostTabs);
        bench.Tabs().Open(bench.server.Address(u"/blank"_s), true);
        QCOMPARE(bench.Form().FurtherPanes().size(), PaneTabs::kMostTabs);
        QVERIFY(bench.Form().WebStatus->text().contains(u"no room"));
        QCOMPARE(bench.server.CountOf(u"/linked"_s), 0); // none was shown
    }
};

TALLOWMERE_WEB_TEST_MAIN(PaneTabsTest)
#include "PaneTabsTest.moc"
