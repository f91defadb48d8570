#include "app/links/HistoryMenus.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/PaneNotice.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenu>
#include <QStyleHints>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A window whose pane has been on some pages and is on the last of them.
struct Walker {
    explicit Walker(int pages) : session(server.Address({}), WebMode::Direct) {
        session.Store("DefaultWeb", "Aabout:blank");
        session.Start();
        for (int n = 1; n <= pages; ++n) {
            const QString path = u"/p%1"_s.arg(n);
            server.Serve(path, u"<title>Page &amp;%1</title>"_s.arg(n).toUtf8());
            Show(path);
        }
    }
    void Show(const QString& path) {
        session.Form().Web->Navigate(server.Address(path));
        QTRY_VERIFY(!session.Form().Web->Busy());
    }
    bool IsAt(const QString& path) {
        return !session.Form().Web->Busy() &&
               session.Form().Web->LocationURL() == server.Address(path);
    }
    QMenu& Menu(int link) {
        return link == kBack ? *session.Form().menus->backMenu : *session.Form().menus->forwardMenu;
    }
    QStringList Entries(int link) {
        QStringList entries;
        for (const QAction* action : Menu(link).actions())
            entries << action->text() + (action->isEnabled() ? QString() : u" (off)"_s);
        return entries;
    }
    void RightClick(int link) { QTest::mouseClick(session.Link(link), Qt::RightButton); }
    void Choose(int link, int entry) {
        Menu(link).actions().at(entry)->trigger();
        Menu(link).close();
    }

    static constexpr int kBack = 19;
    static constexpr int kForward = 20;
    LoopbackServer server;
    TestSession session;
};

} // namespace

class HistoryMenusTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ARightClickListsThePagesAndLeadsToOne() {
        Walker bench(4);
        bench.RightClick(Walker::kBack);
        QVERIFY(bench.Menu(Walker::kBack).isVisible());
        QCOMPARE(bench.Entries(Walker::kBack),
                 (QStringList{u"Page &&3"_s, u"Page &&2"_s, u"Page &&1"_s}));
        bench.Choose(Walker::kBack, 2);
        QTRY_VERIFY(bench.IsAt(u"/p1"_s));
        bench.RightClick(Walker::kForward);
        QCOMPARE(bench.Entries(Walker::kForward),
                 (QStringList{u"Page &&2"_s, u"Page &&3"_s, u"Page &&4"_s}));
        bench.Choose(Walker::kForward, 1);
        QTRY_VERIFY(bench.IsAt(u"/p3"_s));
        // Steps go on from there.
        bench.session.ClickLink(Walker::kBack);
        QTRY_VERIFY(bench.IsAt(u"/p2"_s));
        bench.session.ClickLink(Walker::kForward);
        QTRY_VERIFY(bench.IsAt(u"/p3"_s));
    }

    void ALongPressOpensTheListAndIsNoClick() {
        Walker bench(2);
        Chip* link = bench.session.Link(Walker::kBack);
        const ColorPair before = link->Colors();
        QTest::mousePress(link, Qt::LeftButton);
        QCOMPARE(link->Colors(), Swapped(before));
        QTRY_VERIFY(bench.Menu(Walker::kBack).isVisible());
        QCOMPARE(link->Colors(), before);
        QTest::mouseRelease(link, Qt::LeftButton);
        QVERIFY(bench.Menu(Walker::kBack).isVisible());
        bench.Menu(Walker::kBack).close();
        QVERIFY(bench.IsAt(u"/p2"_s));
        // A click is a click as before.
        bench.session.ClickLink(Walker::kBack);
        QTRY_VERIFY(bench.IsAt(u"/p1"_s));
        QVERIFY(!bench.Menu(Walker::kBack).isVisible());
    }

    void TheMenuKeyAndTheMenuBarHaveTheSameList() {
        Walker bench(2);
        Chip* link = bench.session.Link(Walker::kBack);
        link->setFocus();
        QTest::keyClick(link, Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(bench.Menu(Walker::kBack).isVisible());
        QCOMPARE(bench.Entries(Walker::kBack), QStringList{u"Page &&1"_s});
        bench.Menu(Walker::kBack).close();
        QCOMPARE(bench.Menu(Walker::kBack).menuAction()->text(), u"Back &To"_s);
    }

    void AtTheEndsTheListSaysSo() {
        Walker bench(0);
        bench.RightClick(Walker::kBack);
        QCOMPARE(bench.Entries(Walker::kBack), QStringList{u"No page before this one (off)"_s});
        bench.Menu(Walker::kBack).close();
        bench.RightClick(Walker::kForward);
        QCOMPARE(bench.Entries(Walker::kForward), QStringList{u"No page after this one (off)"_s});
        bench.Menu(Walker::kForward).close();
    }

    void AtMostFifteenPagesAreListed() {
        Walker bench(18);
        bench.RightClick(Walker::kBack);
        const QStringList entries = bench.Entries(Walker::kBack);
        QCOMPARE(entries.size(), 15);
        QCOMPARE(entries.first(), u"Page &&17"_s);
        QCOMPARE(entries.last(), u"Page &&3"_s);
        bench.Choose(Walker::kBack, 14);
        QTRY_VERIFY(bench.IsAt(u"/p3"_s));
    }

    void ThePageBehindANoticeIsOneStepBack() {
        Walker bench(2);
        bench.session.Form().Web->Navigate(u"mailto:somebody"_s);
        QVERIFY(bench.session.Form().Web->findChild<PaneNotice*>()->isVisible());
        bench.RightClick(Walker::kBack);
        QCOMPARE(bench.Entries(Walker::kBack), (QStringList{u"Page &&2"_s, u"Page &&1"_s}));
        bench.Choose(Walker::kBack, 0);
        QTRY_VERIFY(!bench.session.Form().Web->findChild<PaneNotice*>()->isVisible());
        QVERIFY(bench.IsAt(u"/p2"_s));
    }

    void TheListIsThatOfThePaneInFront() {
        Walker bench(1);
        bench.session.ClickLink(8); // a broker
        QVERIFY(!bench.session.Form().WebB->isHidden());
        QTRY_VERIFY(!bench.session.Form().WebB->Busy());
        bench.RightClick(Walker::kBack);
        QCOMPARE(bench.Entries(Walker::kBack), QStringList{u"No page before this one (off)"_s});
        bench.Menu(Walker::kBack).close();
    }
};

TALLOWMERE_WEB_TEST_MAIN(HistoryMenusTest)
#include "HistoryMenusTest.moc"
