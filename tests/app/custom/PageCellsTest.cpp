#include "app/custom/PageCells.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/TabRow.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneDeck.h"
#include "core/custom/multi_link.h"
#include "core/links/before_navigate.h"
#include "core/text/files.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QWebEngineScript>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSlot = 101;
constexpr int kPatience = 15000;

/// A session whose custom link 101 is a multi-link of pages of a server beside it.
struct Bench {
    Bench() : session(server.Address({}), WebMode::Direct) {
        server.Serve(u"/open?s=msft"_s, "<title>open</title>open");
        server.Serve(u"/deny?s=MSFT"_s, {"<title>deny</title>deny",
                                         CannedPage::Ending::Length,
                                         200,
                                         "text/html; charset=utf-8",
                                         {"X-Frame-Options: DENY"}});
        server.Serve(u"/none"_s, {"<title>none</title>none",
                                  CannedPage::Ending::Length,
                                  200,
                                  "text/html; charset=utf-8",
                                  {"Content-Security-Policy: frame-ancestors 'none'"}});
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Store("DefaultWeb", ("A" + Url("/start")).c_str());
        session.Store("Custom101", "MULTILINK:Pages.mlnk");
        session.Store("CustomT101", "Pages");
        session.Start();
    }

    std::string Url(const std::string& path) const {
        return FromQt(u"http://"_s + server.Address(ToQt(path)));
    }

    /// Clicks the multi-link made of these pages.
    void Show(const std::vector<std::string>& paths) {
        std::string page(kMultiLinkHead);
        for (const std::string& path : paths)
            page += MultiLinkFrame(Url(path));
        WriteWholeFile(session.Folder() / "Pages.mlnk", page + std::string(kMultiLinkTail));
        session.ClickLink(kSlot);
    }

    PageCells& Cells() { return *Web().findChild<PageCells*>({}, Qt::FindDirectChildrenOnly); }
    MultiLinkHeader* Header() { return Cells().Header(); }
    TabRow& Names() { return *Header()->findChild<TabRow*>(); }
    /// Chooses a layout from the menu of the line above the pages.
    void Lay(int columns) {
        for (QAction* choice : Header()->findChild<QToolButton*>()->menu()->actions())
            if (choice->data().toInt() == columns)
                choice->trigger();
    }
    /// Where the cells are, as "x,y" of each.
    QStringList Places() {
        QStringList places;
        for (const PageCell* cell : Grid()->Cells())
            places << u"%1,%2"_s.arg(cell->x()).arg(cell->y());
        return places;
    }
    CellGrid* Grid() { return Cells().Grid(); }
    BrowserPane& Web() { return *session.Form().Web; }

    /// The titles of the pages in the cells; "-" for one that is not live.
    QStringList Titles() {
        QStringList titles;
        for (const PageCell* cell : Grid()->Cells()) {
            const auto* view = cell->findChild<QWebEngineView*>();
            titles << (view ? view->title() : u"-"_s);
        }
        return titles;
    }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class PageCellsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void PagesThatAreFramedStayOnOnePage() {
        Bench bench;
        bench.Show({"/open?s=LCASETICK", "/open?s=LCASETICK"});
        QTRY_COMPARE_WITH_TIMEOUT(bench.server.CountOf(u"/open?s=msft"_s), 2, kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QVERIFY(!bench.Grid());
    }

    void AddressesWithoutASchemeAreFramedToo() {
        Bench bench;
        const std::string host = FromQt(bench.server.Address({}));
        WriteWholeFile(bench.session.Folder() / "Pages.mlnk",
                       MultiLinkFrame(host + "/open?s=LCASETICK") + MultiLinkFrame(host + "/a b"));
        bench.session.ClickLink(kSlot);
        QTRY_COMPARE_WITH_TIMEOUT(bench.server.CountOf(u"/open?s=msft"_s), 1, kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(bench.server.CountOf(u"/a%20b"_s), 1, kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QVERIFY(!bench.Grid());
    }

    void WhatTheLinksRecordIsFramedAsTheyBuildIt() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Start();
        constexpr int kRecord = 211;
        constexpr int kQuote = 3;
        constexpr int kSmallCharts = 6;
        for (const int link : {kRecord, kQuote, kSmallCharts, kRecord})
            session.ClickLink(link);
        for (const QString& address : {u"h.example/q?s=msft&d=2b"_s, u"h.example/t?s=msft"_s})
            QTRY_VERIFY2_WITH_TIMEOUT(session.asked.contains(address), qPrintable(address),
                                      kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!session.Form().Web->Busy(), kPatience);
        QVERIFY(!session.Form().Web->findChild<PageCells*>()->Grid());
    }

    void APageThatRefusesFramesIsSeenInItsCell_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("X-Frame-Options") << u"/deny?s=UCASETICK"_s;
        QTest::newRow("frame-ancestors") << u"/none"_s;
    }
    void APageThatRefusesFramesIsSeenInItsCell() {
        QFETCH(QString, path);
        Bench bench;
        bench.Show({"/open?s=LCASETICK", FromQt(path), "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        QVERIFY(bench.Grid()->isVisible());
        const QString refused = path == u"/none" ? u"none"_s : u"deny"_s;
        QTRY_COMPARE_WITH_TIMEOUT(bench.Titles(), (QStringList{u"open"_s, refused, u"open"_s}),
                                  kPatience);
        // The page itself is sent to Web as ever, and says so.
        QCOMPARE(bench.Web().LocationURL(), PathToQt(bench.session.Folder() / "multiweb.html"));
    }

    void EveryCellSaysItsAddressAndIsAsBigAsThePane() {
        Bench bench;
        bench.Show({"/deny?s=UCASETICK", "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        const QList<PageCell*>& cells = bench.Grid()->Cells();
        QCOMPARE(cells.size(), 2);
        QCOMPARE(cells[0]->Address(), ToQt(bench.Url("/deny?s=MSFT")));
        QCOMPARE(cells[1]->Address(), ToQt(bench.Url("/open?s=msft")));
        QCOMPARE(cells[1]->findChild<QLabel*>(u"address"_s)->text(),
                 ToQt(bench.Url("/open?s=msft")));
        bench.session.Form().resize(1100, 800);
        // Below the line with their names.
        const auto free = [&] {
            return QRect(0, bench.Header()->height(), bench.Web().width(),
                         bench.Web().height() - bench.Header()->height());
        };
        QTRY_COMPARE(bench.Grid()->geometry(), free());
        QTRY_COMPARE(cells[0]->height(), free().height());
        QCOMPARE(cells[1]->height(), free().height());
        QCOMPARE(cells[1]->y(), free().height());
        QCOMPARE(cells[0]->width(), bench.Grid()->viewport()->width());
    }

    void ALineNamesThePagesAndLeadsToThem() {
        Bench bench;
        bench.Show({"/open?s=LCASETICK", "/open?s=LCASETICK", "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Header() && !bench.Web().Busy(), kPatience);
        QVERIFY(!bench.Grid());
        TabRow& names = bench.Names();
        QCOMPARE(names.count(), 3);
        QCOMPARE(names.tabText(1), bench.server.Address({}));
        QCOMPARE(names.tabToolTip(1), ToQt(bench.Url("/open?s=msft")));
        QCOMPARE(names.currentIndex(), 0);
        const auto* page = bench.Web().findChild<QWebEngineView*>()->page();
        names.setCurrentIndex(2);
        QTRY_VERIFY_WITH_TIMEOUT(page->scrollPosition().y() > page->contentsSize().height() / 2,
                                 kPatience);
        names.setCurrentIndex(0);
        QTRY_COMPARE_WITH_TIMEOUT(page->scrollPosition().y(), 0.0, kPatience);
        // Whoever scrolls sees where that is.
        bench.Web().findChild<QWebEngineView*>()->page()->runJavaScript(
            u"scrollTo(0, document.documentElement.scrollHeight / 3)"_s,
            QWebEngineScript::ApplicationWorld);
        QTRY_COMPARE_WITH_TIMEOUT(names.currentIndex(), 1, kPatience);
        // Its own page again, by a click on its own name.
        bench.Web().findChild<QWebEngineView*>()->page()->runJavaScript(
            u"scrollBy(0, 40)"_s, QWebEngineScript::ApplicationWorld);
        QTRY_VERIFY_WITH_TIMEOUT(
            page->scrollPosition().y() > page->contentsSize().height() / 3 + 20, kPatience);
        QTest::mouseClick(&names, Qt::LeftButton, {}, names.tabRect(1).center());
        QTRY_VERIFY_WITH_TIMEOUT(
            page->scrollPosition().y() < page->contentsSize().height() / 3 + 20, kPatience);
        // It goes with the page.
        bench.session.ClickLink(3);
        QVERIFY(!bench.Header());
    }

    void TilesAreNativePanesInColumnsThatAreKept() {
        Bench bench;
        const std::vector<std::string> paths(4, "/open?s=LCASETICK");
        bench.Show(paths);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Header() && !bench.Web().Busy(), kPatience);
        bench.Lay(2);
        QVERIFY(bench.Grid());
        QTRY_COMPARE_WITH_TIMEOUT(bench.Titles(), QStringList(4, u"open"_s), kPatience);
        const QSize view = bench.Grid()->viewport()->size();
        const int x = view.width() / 2;
        const int y = view.height() / 2;
        QCOMPARE(bench.Places(), (QStringList{u"0,0"_s, u"%1,0"_s.arg(x), u"0,%1"_s.arg(y),
                                              u"%1,%2"_s.arg(x).arg(y)}));
        QCOMPARE(bench.session.Stored("CustomC101"), u"2"_s);
        bench.Lay(4);
        QCOMPARE(bench.Places()[3], u"%1,0"_s.arg(view.width() / 4 * 3));
        // The pages stay as they are.
        QCOMPARE(bench.Titles(), QStringList(4, u"open"_s));

        // Shown again they come in tiles at once, and no page is asked for twice.
        bench.session.ClickLink(3);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Grid(), kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        const auto asked = bench.server.CountOf(u"/open?s=msft"_s);
        QCOMPARE(asked, 8); // in the frames, and in the tiles
        bench.Show(paths);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(bench.Titles(), QStringList(4, u"open"_s), kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QCOMPARE(bench.server.CountOf(u"/open?s=msft"_s), asked + 4);

        // On one page the frames are filled after all.
        bench.Lay(0);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Grid(), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(bench.server.CountOf(u"/open?s=msft"_s), asked + 8, kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy() && bench.Header(), kPatience);
        QCOMPARE(bench.session.Stored("CustomC101"), u"<absent>"_s);
        QVERIFY(!bench.Grid());
    }

    void WhatIsRecordedWithoutALinkKeepsNoLayout() {
        Bench bench;
        bench.Show({"/open?s=LCASETICK", "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Header() && !bench.Web().Busy(), kPatience);
        bench.Lay(2);
        constexpr int kRecord = 211;
        for (const int link : {kRecord, kSlot, kRecord}) // a multi-link is not recorded
            bench.session.ClickLink(link);
        bench.session.ClickLink(kRecord);
        bench.Web().Navigate(ToQt(bench.Url("/open?s=msft")));
        bench.session.ClickLink(kRecord);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Header() && !bench.Web().Busy(), kPatience);
        QCOMPARE(bench.Names().count(), 1);
        QVERIFY(!bench.Grid());
        QCOMPARE(bench.session.Stored("CustomC101"), u"2"_s);
    }

    void ANameLeadsToItsTileAndGivesItTheKeyboard() {
        Bench bench;
        bench.session.Store("CustomC101", "2");
        bench.Show(std::vector<std::string>(9, "/open?s=LCASETICK"));
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(bench.Titles().first(), u"open"_s, kPatience);
        bench.Names().setCurrentIndex(8);
        const PageCell* last = bench.Grid()->Cells()[8];
        QTRY_COMPARE(bench.Grid()->verticalScrollBar()->value(),
                     bench.Grid()->verticalScrollBar()->maximum());
        QVERIFY(last->Pane());
        QTRY_VERIFY(last->isAncestorOf(QApplication::focusWidget()));
        bench.Grid()->verticalScrollBar()->setValue(0);
        QTRY_COMPARE(bench.Names().currentIndex(), 0);
    }

    void AFurtherPaneHasItsLineToo() {
        Bench bench;
        bench.session.Store("CustomC101", "2");
        bench.Show({"/open?s=LCASETICK", "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        bench.session.Form().findChild<PaneDeck*>()->OpenNext(PagePlace::FrontTab);
        bench.session.Form().findChild<LinkDispatch*>()->Click(kSlot);
        QTRY_COMPARE_WITH_TIMEOUT(bench.session.Form().FurtherPanes().size(), 1, kPatience);
        auto* cells = bench.session.Form().FurtherPanes().first()->findChild<PageCells*>(
            {}, Qt::FindDirectChildrenOnly);
        QTRY_VERIFY_WITH_TIMEOUT(cells->Grid() && cells->Header(), kPatience);
        QVERIFY(bench.Grid());
        // Its page has no title; the tab says which file it is.
        QTRY_COMPARE(bench.session.Form().tabRow->tabText(1), u"multiweb.html"_s);
    }

    void ACellIsOpenedAlone() {
        Bench bench;
        bench.Show({"/open?s=LCASETICK", "/deny?s=UCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        auto* alone = bench.Grid()->Cells()[1]->findChild<QPushButton*>();
        QCOMPARE(alone->text(), u"Open alone"_s);
        QTest::mouseClick(alone, Qt::LeftButton);
        QVERIFY(!bench.Grid());
        QTRY_VERIFY(bench.Web().findChildren<CellGrid*>().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(bench.Web().LocationURL(), ToQt(bench.Url("/deny?s=MSFT")),
                                  kPatience);
    }

    void AnyOtherNavigationRemovesTheCells() {
        Bench bench;
        bench.Show({"/deny?s=UCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        bench.session.ClickLink(3);
        QVERIFY(!bench.Grid());
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QVERIFY(!bench.Grid());
        // Back on the page they are there again, and again after a refresh.
        bench.session.ClickLink(19);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        const QPointer<CellGrid> before = bench.Grid();
        bench.session.ClickLink(0);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid() && bench.Grid() != before, kPatience);
    }

    void LoginsHoldInTheCells() {
        Bench bench;
        bench.server.Serve(u"/login"_s, {"in",
                                         CannedPage::Ending::Length,
                                         200,
                                         "text/html; charset=utf-8",
                                         {"Set-Cookie: login=me; SameSite=Lax"}});
        bench.Web().Navigate(ToQt(bench.Url("/login")));
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QVERIFY(bench.server.CountOf(u"/login"_s) == 1);
        bench.Show({"/deny?s=UCASETICK"});
        QTRY_COMPARE_WITH_TIMEOUT(bench.server.CountOf(u"/deny?s=MSFT"_s), 2, kPatience);
        QVERIFY(bench.server.LastHead().contains("Cookie: login=me"));
    }

    void AtMostTwelveCellsAreLive() {
        Bench bench;
        std::vector<std::string> paths(15, "/open?s=LCASETICK");
        paths[0] = "/deny?s=UCASETICK";
        bench.Show(paths);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Grid(), kPatience);
        const auto live = [&] {
            QString pattern;
            for (const PageCell* cell : bench.Grid()->Cells())
                pattern += cell->Pane() ? u'x' : u'-';
            return pattern;
        };
        QCOMPARE(live(), u"xxxxxxxxxxxx---"_s);
        QScrollBar* bar = bench.Grid()->verticalScrollBar();
        bar->setValue(bar->maximum());
        QTRY_COMPARE_WITH_TIMEOUT(live(), u"-xxxxxxxxxxx--x"_s, kPatience);
        bar->setValue(0);
        QTRY_COMPARE_WITH_TIMEOUT(live(), u"xxxxxxxxxxxx---"_s, kPatience);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PageCellsTest)
#include "PageCellsTest.moc"
