#include "app/custom/PageCells.h"
#include "app/engine/BrowserPane.h"
#include "core/custom/multi_link.h"
#include "core/links/before_navigate.h"
#include "core/text/files.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
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

    PageCells& Cells() { return *session.Form().findChild<PageCells*>(); }
    CellColumn* Column() { return Cells().Column(); }
    BrowserPane& Web() { return *session.Form().Web; }

    /// The titles of the pages in the cells; "-" for one that is not live.
    QStringList Titles() {
        QStringList titles;
        for (const PageCell* cell : Column()->Cells()) {
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
        QVERIFY(!bench.Column());
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
        QVERIFY(!bench.Column());
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
        QVERIFY(!session.Form().findChild<PageCells*>()->Column());
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
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        QVERIFY(bench.Column()->isVisible());
        const QString refused = path == u"/none" ? u"none"_s : u"deny"_s;
        QTRY_COMPARE_WITH_TIMEOUT(bench.Titles(), (QStringList{u"open"_s, refused, u"open"_s}),
                                  kPatience);
        // The page itself is sent to Web as ever, and says so.
        QCOMPARE(bench.Web().LocationURL(), PathToQt(bench.session.Folder() / "multiweb.html"));
    }

    void EveryCellSaysItsAddressAndIsAsBigAsThePane() {
        Bench bench;
        bench.Show({"/deny?s=UCASETICK", "/open?s=LCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        const QList<PageCell*>& cells = bench.Column()->Cells();
        QCOMPARE(cells.size(), 2);
        QCOMPARE(cells[0]->Address(), ToQt(bench.Url("/deny?s=MSFT")));
        QCOMPARE(cells[1]->Address(), ToQt(bench.Url("/open?s=msft")));
        QCOMPARE(cells[1]->findChild<QLabel*>(u"address"_s)->text(),
                 ToQt(bench.Url("/open?s=msft")));
        bench.session.Form().resize(1100, 800);
        QTRY_COMPARE(bench.Column()->size(), bench.Web().size());
        QTRY_COMPARE(cells[0]->height(), bench.Web().height());
        QCOMPARE(cells[1]->height(), bench.Web().height());
        QCOMPARE(cells[1]->y(), bench.Web().height());
        QCOMPARE(cells[0]->width(), bench.Column()->viewport()->width());
    }

    void ACellIsOpenedAlone() {
        Bench bench;
        bench.Show({"/open?s=LCASETICK", "/deny?s=UCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        auto* alone = bench.Column()->Cells()[1]->findChild<QPushButton*>();
        QCOMPARE(alone->text(), u"Open alone"_s);
        QTest::mouseClick(alone, Qt::LeftButton);
        QVERIFY(!bench.Column());
        QTRY_VERIFY(bench.Web().findChildren<CellColumn*>().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(bench.Web().LocationURL(), ToQt(bench.Url("/deny?s=MSFT")),
                                  kPatience);
    }

    void AnyOtherNavigationRemovesTheCells() {
        Bench bench;
        bench.Show({"/deny?s=UCASETICK"});
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        bench.session.ClickLink(3);
        QVERIFY(!bench.Column());
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        QVERIFY(!bench.Column());
        // Back on the page they are there again, and again after a refresh.
        bench.session.ClickLink(19);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!bench.Web().Busy(), kPatience);
        const QPointer<CellColumn> before = bench.Column();
        bench.session.ClickLink(0);
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column() && bench.Column() != before, kPatience);
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
        QTRY_VERIFY_WITH_TIMEOUT(bench.Column(), kPatience);
        const auto live = [&] {
            QString pattern;
            for (const PageCell* cell : bench.Column()->Cells())
                pattern += cell->Pane() ? u'x' : u'-';
            return pattern;
        };
        QCOMPARE(live(), u"xxxxxxxxxxxx---"_s);
        QScrollBar* bar = bench.Column()->verticalScrollBar();
        bar->setValue(bar->maximum());
        QTRY_COMPARE_WITH_TIMEOUT(live(), u"-xxxxxxxxxxx--x"_s, kPatience);
        bar->setValue(0);
        QTRY_COMPARE_WITH_TIMEOUT(live(), u"xxxxxxxxxxxx---"_s, kPatience);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PageCellsTest)
#include "PageCellsTest.moc"
