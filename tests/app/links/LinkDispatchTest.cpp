#include "app/links/LinkDispatch.h"
#include "app/custom/CustomEditor.h"
#include "app/engine/BrowserPane.h"
#include "core/links/address.h"
#include "core/sites/site_table.h"
#include "core/text/files.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QClipboard>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class LinkDispatchTest : public QObject {
    Q_OBJECT
private:
    /// A window with MSFT selected.
    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Store("Stocks1", "MSFT|IBM|");
            Start();
            navigations.emplace(Form());
        }
        std::optional<Navigations> navigations;
    };

private Q_SLOTS:
    void ATickerLinkLoadsItsAddressInWeb_data() {
        QTest::addColumn<int>("link");
        QTest::addColumn<QString>("address");
        QTest::newRow("Y!") << 3 << u"h.example/q?s=msft&d=2b"_s;
        QTest::newRow("Zacks") << 15
                               << u"h.example/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100"_s;
        QTest::newRow("P") << 47 << u"h.example/p/m/msft.html"_s;
        QTest::newRow("NMSV") << 198
                              << u"h.example/asp/TDResp.asp?TradeType=1&TotalType=m&SymbolType=1&"
                                 "Issue=msft&SortBy=1&Month=11-1-2026"_s;
        QTest::newRow("CNET keeps its blank")
            << 53 << u"h.example/Investor/Frontdoor/0,207,,00.html?st.ne.nav..invidx "_s;
    }

    void ATickerLinkLoadsItsAddressInWeb() {
        QFETCH(int, link);
        QFETCH(QString, address);
        Window window;
        window.ClickLink(link);
        QCOMPARE(*window.navigations, QStringList{u"Web: "_s + address});
    }

    void EveryCatalogueAddressIsLoadedAsBuilt() {
        Window window;
        window.Store("FRT", "Done");
        const SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"h.example\"\n", "t");
        int clicked = 0;
        for (const LinkRow& row : Catalogue()) {
            if (row.action != LinkAction::Ticker && row.action != LinkAction::Fixed &&
                row.action != LinkAction::AccountGated)
                continue;
            window.navigations->clear();
            window.ClickLink(row.index);
            const QString pane = OpensInSecondPane(row) ? u"WebB: "_s : u"Web: "_s;
            QString expected =
                pane + ToQt(BuildAddress(row, FormsOf("MSFT"), sites, {2026, 11, 21}));
            // The streaming service's lookup is sent on to its redirect page.
            expected.replace(u"/scripts/stocklookup"_s, u"/moneynet/jtickredir.asp"_s);
            QCOMPARE(*window.navigations, QStringList{expected});
            ++clicked;
        }
        QVERIFY(clicked > 100);
    }

    void WithoutATickerALinkThatNeedsOneAsksForIt() {
        Window window;
        window.Form().List1->SetListIndex(-1);
        window.ClickLink(3);
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: Select a Ticker"_s});
        QVERIFY(window.navigations->isEmpty());
    }

    void FixedAddressesNeedNoTicker() {
        Window window;
        window.Form().List1->SetListIndex(-1);
        window.ClickLink(44);
        QCOMPARE(*window.navigations, QStringList{u"Web: h.example/"_s});
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void ABrokerShowsTheSecondPaneAndAnyOtherLinkHidesItAgain() {
        Window window;
        window.ClickLink(8);
        QCOMPARE(*window.navigations, QStringList{u"WebB: h.example/"_s});
        QVERIFY(!window.Form().WebB->isHidden());
        QVERIFY(window.Form().Web->isHidden());
        window.ClickLink(3);
        QVERIFY(window.Form().WebB->isHidden());
        QVERIFY(!window.Form().Web->isHidden());
    }

    void MoreBrokersIsAMenuOfTheFirstPane() {
        Window window;
        QSignalSpy menus(&window->Dispatch(), &LinkDispatch::MenuRequested);
        window->Dispatch().Click(89);
        QCOMPARE(menus.size(), 1);
        QCOMPARE(menus[0][0].toString(), u"mnuOLBrokers"_s);
        QVERIFY(window.Form().WebB->isHidden());
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }

    void MoreBrokersBringsTheFirstPaneBackBeforeItsMenu() {
        Window window;
        window.ClickLink(8);
        QVERIFY(window.Form().Web->isHidden());
        bool isFirstInFront = false;
        connect(&window->Dispatch(), &LinkDispatch::MenuRequested, &window.Form(), [&] {
            isFirstInFront = !window.Form().Web->isHidden() && window.Form().WebB->isHidden();
        });
        window.ClickLink(89);
        QVERIFY(isFirstInFront);
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }

    void MoreBrokersForASeparateBrowserLeavesTheBrokersPageInFront() {
        Window window;
        window.ClickLink(8);
        QTest::mouseClick(window.Link(89), Qt::RightButton);
        QVERIFY(!window.Form().WebB->isHidden());
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }

    void TheLastLinkIsRepeatedByADoubleClickOnTheTicker() {
        Window window;
        window.ClickLink(15);
        QCOMPARE(window.Form().List1->toolTip(), u"Ticker : MSFT, DoubleClick opens Zacks"_s);
        window.Form().List1->SetListIndex(1);
        window.navigations->clear();
        QTest::keyClick(window.Form().List1, Qt::Key_Return);
        QCOMPARE(*window.navigations,
                 QStringList{u"Web: h.example/cgi-bin/AW/DoInquiry.zcom?ticker=IBM&type=100"_s});
    }

    void WithoutAnEarlierLinkADoubleClickOpensLycos() {
        Window window;
        QListView* list = window.Form().List1;
        const QPoint first = list->visualRect(list->model()->index(0, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(window.navigations->size(), 1);
        QVERIFY(window.navigations->first().endsWith(u"&company=MSFT&x=58&y=9"_s));
    }

    void TheAccountIsOfferedOnce() {
        Window window;
        window.ClickLink(30);
        QCOMPARE(window.prompts.messages.size(), 1);
        QVERIFY(window.prompts.messages[0].startsWith(u"Quorvane: "_s));
        QVERIFY(window.prompts.messages[0].endsWith(
            u"you need to setup an account with their service.  If you need to setup an account, "
            "click Yes."_s));
        QCOMPARE(window.Stored("FRT"), u"Done"_s);
        QCOMPARE(*window.navigations,
                 QStringList{u"Web: h.example/rt/frt/quotes?symbol=MSFT&type=Quote"_s});
        window.ClickLink(79);
        QCOMPARE(window.prompts.messages.size(), 1);
        QCOMPARE(window.navigations->last(), u"Web: h.example/rt/frt/stocktalk?symbol=MSFT"_s);
    }

    void WhoWantsAnAccountSeesTheServiceFirst() {
        Window window;
        window.prompts.answers = {true};
        window.ClickLink(79);
        QCOMPARE(
            *window.navigations,
            (QStringList{u"Web: h.example/"_s, u"Web: h.example/rt/frt/stocktalk?symbol=MSFT"_s}));
        QCOMPARE(window.Stored("FRT"), u"Done"_s);
    }

    void TheHomePageFinderReadsTheProfilePage() {
        Window window;
        window.portal = [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html",
                                "<html><a href=\"http://x/\">News</a> <a "
                                "href=\"http://www.msft.example\">Home Page</a></html>"};
        };
        window.ClickLink(28);
        QCOMPARE(window.asked.count(u"h.example/p/m/msft.html"_s), 1);
        QCOMPARE(*window.navigations, QStringList{u"Web: http://www.msft.example"_s});
        QCOMPARE(window.Form().windowTitle(), u"MSFT - http://www.msft.example"_s);
    }

    void OfTwoSearchesForAHomePageTheLaterWins() {
        Window window;
        window.portal = [&](const std::string&, const std::string& path) {
            if (path == "/p/m/msft.html") {
                window.Enter(u"ibm"_s);
                window.Form().List1->SetListIndex(window.Form().List1->Count() - 1);
                window.ClickLink(28);
            }
            return PortalAnswer{"text/html",
                                "<html><a href=\"http://of" + path + "\">Home Page</a></html>"};
        };
        window.ClickLink(28);
        QCOMPARE(*window.navigations, QStringList{u"Web: http://of/p/i/ibm.html"_s});
        QCOMPARE(window.Form().windowTitle(), u"IBM - http://of/p/i/ibm.html"_s);
    }

    void AProfileWithoutAHomePageSaysSo() {
        Window window;
        window.portal = [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", "<html>nothing</html>"};
        };
        window.ClickLink(28);
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: Website Not Found"_s});
        QVERIFY(window.navigations->isEmpty());
    }

    void TheWizardWatchesTheLastTickerLink() {
        Window window;
        QSignalSpy watches(&window->Dispatch(), &LinkDispatch::WatchRequested);
        window.ClickLink(61);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"Quorvane: You must select a ticker symbol and a research link from "
                             "below before using this feature."_s});
        window.ClickLink(3);
        window.ClickLink(61);
        QCOMPARE(watches.size(), 1);
        QCOMPARE(watches[0][0].toString(), u"MSFT|h.example/q?s=msft&d=2b"_s);
        for (QWidget* other : QApplication::topLevelWidgets())
            if (other != &window.Form())
                other->close();
    }

    void TheStreamingPortfolioNeedsALogin() {
        Window window;
        window.ClickLink(187);
        QCOMPARE(window.prompts.messages.size(), 1);
        QVERIFY(window.prompts.messages[0].contains(u"'Setup--Help'"_s));
        QCOMPARE(window.navigations->size(), 1);
        window->UserAccounts().streamLogin = u"me"_s;
        window->UserAccounts().streamPassword = u"secret"_s;
        window.ClickLink(187);
        QCOMPARE(window.navigations->last(),
                 u"Web: h.example/moneynet/cgi-bin/applet.cgi?CUSTID=me&PASSWORD=secret"_s);
    }

    void AlertMonitoringAsksAndLoadsTheAlerts() {
        Window window;
        QSignalSpy started(&window->Dispatch(), &LinkDispatch::AlertsStarted);
        window.ClickLink(51);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"TM Alerts: Do you want to start TM Alert Monitoring ?"_s});
        QCOMPARE(started.size(), 0);
        window.prompts.answers = {true};
        window.ClickLink(51);
        QCOMPARE(started.size(), 1);
        QCOMPARE(*window.navigations,
                 (QStringList{u"Web: h.example/alerts.htm"_s, u"Web: h.example/alerts.htm"_s}));
    }

    void ChartPagesAreWrittenIntoTheProgramFolder() {
        Window window;
        window.ClickLink(6);
        window.ClickLink(175);
        const std::string small = ReadWholeFile(window.Folder() / "ycs.htm");
        const std::string large = ReadWholeFile(window.Folder() / "ycl.htm");
        QVERIFY(small.find("/q?s=MSFT&amp;d=1y") != std::string::npos);
        QVERIFY(small.find("<h3>") == std::string::npos);
        QVERIFY(large.find("<h3>3 Month</h3>") != std::string::npos);
        QVERIFY(small.ends_with("</body></html>\r\n"));
        QCOMPARE(window.navigations->size(), 2);
        QVERIFY(window.navigations->first().endsWith(u"ycs.htm"_s));
    }

    void TheAddressOfThePageIsCopied() {
        TestSession session;
        session.Start();
        QTRY_VERIFY(!session.Form().Web->LocationURL().isEmpty());
        session.ClickLink(43);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 u"h.example/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s);
    }

    void WhileRecordingLinksYieldTheirPlaceholders() {
        Window window;
        window->Recorded().templateMode = true;
        window.Form().List1->SetListIndex(-1);
        window.ClickLink(3);
        QVERIFY(window.navigations->isEmpty());
        QVERIFY2(window->Recorded().multiLinkPage.contains(
                     u"SRC=\"h.example/q?s=LCASETICK&d=2b\"></IFRAME>\r\n"_s),
                 qPrintable(window->Recorded().multiLinkPage));
    }

    void AnUnusedSlotOpensTheEditor() {
        Window window;
        QSignalSpy editors(&window->Dispatch(), &LinkDispatch::EditorRequested);
        QTimer::singleShot(0, [] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                dialog->close();
        });
        window->Dispatch().Click(105);
        QCOMPARE(editors.size(), 1);
        QCOMPARE(window->Editor().Slot(), 105);
    }

    void ACustomLinkIsExpandedOrLoadedAsItStands() {
        Window window;
        window.Store("Custom101", "my.example/LEFTONE/LCASETICK?UCASETICK");
        window.Store("Custom102", "my.example/plain");
        window.Link(101)->SetCaption(u"Mine"_s);
        window.Link(102)->SetCaption(u"Plain"_s);
        window.ClickLink(101);
        QCOMPARE(window.navigations->takeLast(), u"Web: my.example/m/msft?MSFT"_s);
        window.Form().List1->SetListIndex(-1);
        window.ClickLink(102);
        QCOMPARE(window.navigations->takeLast(), u"Web: my.example/plain"_s);
        window.ClickLink(101);
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: Select a Ticker..."_s});
        QVERIFY(window.navigations->isEmpty());
    }
};

TALLOWMERE_WEB_TEST_MAIN(LinkDispatchTest)
#include "LinkDispatchTest.moc"
