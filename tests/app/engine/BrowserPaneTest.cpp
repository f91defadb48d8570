#include "app/engine/BrowserPane.h"

#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PageReplies.h"
#include "support/PaintedPage.h"
#include "support/PaneBench.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebEngineLoadingInfo>
#include <QWebEngineView>

#include <csignal>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

class BrowserPaneTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void NothingIsStartedBeforeTheFirstNavigation() {
        PaneBench bench;
        bench.pane.GoBack();
        bench.pane.Refresh();
        bench.pane.Stop();
        bench.pane.Navigate(u""_s);
        bench.pane.Navigate(u"  "_s);
        QVERIFY(!bench.Page());
        QVERIFY(bench.before.isEmpty());
        QCOMPARE(bench.pane.LocationURL(), QString());
    }

    // Whether the second step comes before, while or after the page of the first arrives.
    void APageThatEndsLeavesThePaneAsBeforeItsFirstNavigation() {
        PaneBench bench;
        bench.server.Serve(u"/hung"_s, {"<title>hung", Ending::Silent});
        for (const QString& path : {u"/a"_s, u"/hung"_s, u"/a"_s}) {
            bench.pane.Navigate(bench.server.Address(path));
            QVERIFY(bench.Page());
            if (path == u"/a"_s)
                QVERIFY(bench.WaitForEnd());
            QSignalSpy progress(&bench.pane, &BrowserPane::ProgressChange);
            const bool isBusy = bench.pane.Busy();
            bench.pane.EndPage();
            QVERIFY(!bench.Page());
            QVERIFY(!bench.pane.findChild<QWebEngineView*>());
            QVERIFY(!bench.pane.Busy());
            QCOMPARE(progress.size(), isBusy ? 1 : 0);
            QCOMPARE(bench.pane.LocationURL(), QString());
            bench.pane.Refresh();
            bench.pane.GoBack();
            bench.pane.EndPage();
            QVERIFY(!bench.Page());
        }
        // So does one that could not be shown.
        bench.server.close();
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QVERIFY(bench.HasNotice());
        bench.pane.EndPage();
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.pane.LocationURL(), QString());
    }

    void AnAddressIsSeenAsGivenAndAskedOfTheServer() {
        PaneBench bench;
        const QString address = bench.server.Address(u"/a?q=%02x%26q%3dY&s=msft "_s);
        QSignalSpy progress(&bench.pane, &BrowserPane::ProgressChange);
        QSignalSpy status(&bench.pane, &BrowserPane::StatusTextChange);
        bench.pane.Navigate(address);
        QVERIFY(bench.pane.Busy());
        QVERIFY(bench.WaitForEnd());
        QCOMPARE(bench.before, QStringList{address});
        QCOMPARE(bench.server.Requests().value(0), u"GET /a?q=%02x%26q%3DY&s=msft"_s);
        QCOMPARE(bench.pane.LocationURL(), address);
        QCOMPARE(bench.Title(), u"a"_s);
        QCOMPARE(status.first().first().toString(), u"Loading "_s + address);
        QCOMPARE(status.last().first().toString(), address); // the line says where the pane is
        QCOMPARE(progress.first(), (QVariantList{0, 100}));
        QCOMPARE(progress.last(), (QVariantList{0, 0}));
    }

    void AServerThatWantsAPasswordGetsTheUsers() {
        PaneBench bench;
        CannedPage locked{"<title>locked</title>", Ending::Length, 401};
        locked.headers << "WWW-Authenticate: Basic realm=\"the desk\"";
        bench.server.Serve(u"/locked"_s, locked);
        PageReplies replies(bench.pane);
        replies.replies = {{"QuestionYes", u"mary"_s, u"s3cret"_s}};
        QVERIFY(bench.Show(bench.server.Address(u"/locked"_s)));
        // Refused, the password is asked for again, and no answer shows what the server says.
        QCOMPARE(bench.server.CountOf(u"/locked"_s), 2);
        QVERIFY(bench.server.LastHead().contains("Authorization: Basic " +
                                                 QByteArray("mary:s3cret").toBase64()));
        QCOMPARE(replies.asked.size(), 2);
        QVERIFY(replies.asked.first().contains(u"127.0.0.1"_s));
        QVERIFY(replies.asked.first().contains(u"the desk"_s));
        QCOMPARE(bench.Title(), u"locked"_s);
    }

    void ACancelledNavigationLoadsNothing() {
        PaneBench bench;
        bench.isCancelling = true;
        bench.pane.Navigate(bench.server.Address(u"/a"_s));
        QVERIFY(!bench.pane.Busy());
        QVERIFY(!bench.Page());
    }

    void ANavigationThatAReceiverStartsReplacesTheFirst() {
        PaneBench bench;
        const QString second = bench.server.Address(u"/b"_s);
        bool hasReplaced = false;
        connect(&bench.pane, &BrowserPane::BeforeNavigate2, &bench.pane, [&] {
            if (!std::exchange(hasReplaced, true))
                bench.pane.Navigate(second);
        });
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QCOMPARE(bench.pane.LocationURL(), second);
        QCOMPARE(bench.server.CountOf(u"/a"_s), 0);
        QCOMPARE(bench.before.size(), 2);
    }

    void WhatThePageStartsIsSeenOnceAndCanBeCancelled() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        bench.before.clear();
        bench.ClickPage();
        QTRY_COMPARE(bench.Title(), u"b"_s);
        const QString next = u"http://"_s + bench.server.Address(u"/b?x=1"_s);
        QCOMPARE(bench.before, QStringList{next});
        QTRY_COMPARE(bench.pane.LocationURL(), next);

        bench.pane.GoBack();
        QTRY_COMPARE(bench.Title(), u"a"_s);
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/a"_s));
        bench.pane.GoForward();
        QTRY_COMPARE(bench.Title(), u"b"_s);
        QVERIFY(bench.WaitForEnd()); // what is not there yet cannot be loaded again
        bench.pane.Refresh();
        QTRY_COMPARE(bench.server.CountOf(u"/b?x=1"_s), 2);
        QVERIFY(bench.WaitForEnd());
        QCOMPARE(bench.before.size(), 1);

        bench.isCancelling = true;
        bench.Run(u"location = '/a?again'"_s);
        QCOMPARE(bench.before.size(), 2);
        QCOMPARE(bench.server.CountOf(u"/a?again"_s), 0);
        QVERIFY(bench.WaitForEnd());
        QTRY_COMPARE(bench.pane.LocationURL(), next);
    }

    void AServersRedirectIsNotSeenAndTheAddressStaysAsBuilt() {
        PaneBench bench;
        bench.server.Redirect(u"/old"_s, u"/b"_s);
        const QString old = bench.server.Address(u"/old"_s);
        QVERIFY(bench.Show(old));
        QCOMPARE(bench.before, QStringList{old});
        QCOMPARE(bench.Title(), u"b"_s);
        QCOMPARE(bench.pane.LocationURL(), old);
    }

    void ALoadThatIsStoppedLeavesThePaneFreeForTheNext() {
        PaneBench bench;
        bench.server.Serve(u"/silent"_s, CannedPage{{}, Ending::Silent});
        bench.server.Serve(u"/stall"_s, CannedPage{"<title>stall</title>", Ending::Stall});
        for (const QString& path : {u"/silent"_s, u"/stall"_s}) {
            bench.pane.Navigate(bench.server.Address(path));
            QTRY_COMPARE(bench.server.CountOf(path), 1);
            bench.pane.Stop();
            QVERIFY(!bench.pane.Busy());
            bench.pane.Navigate(bench.server.Address(u"/a"_s));
            QTest::qWait(50);
            QVERIFY(bench.WaitForEnd());
            QCOMPARE(bench.Title(), u"a"_s);
            QVERIFY(!bench.HasNotice());
        }
        bench.pane.Navigate(bench.server.Address(u"/silent"_s));
        bench.pane.Stop();
        QVERIFY(!bench.pane.Busy());
    }

    void ALoadThatTakesThePlaceOfAnotherKeepsItsAddressAsBuilt() {
        PaneBench bench;
        bench.server.Serve(u"/hung"_s, {"<title>hung</title>words", Ending::Stall});
        for (const bool isStopped : {false, true}) {
            bench.pane.Navigate(bench.server.Address(u"/hung"_s));
            QVERIFY(Await([&] { return bench.server.CountOf(u"/hung"_s) > 0; }));
            bench.server.Clear();
            if (isStopped)
                bench.pane.Stop();
            const QString built = bench.server.Address(u"/b?x=1"_s);
            QVERIFY(bench.Show(built));
            QVERIFY(Await([&] { return bench.Title() == u"b"_s; }));
            QTRY_COMPARE(bench.pane.LocationURL(), built);
            QVERIFY(!bench.pane.Busy());
        }
    }

    void ALateWordOfThePageBeforeTakesNothingFromTheNext() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QList<QWebEngineLoadingInfo> ends;
        connect(bench.Page(), &QWebEnginePage::loadingChanged, this,
                [&](const QWebEngineLoadingInfo& info) {
                    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
                        ends << info;
                });
        bench.pane.Refresh();
        QTRY_COMPARE(ends.size(), 1);
        QTRY_VERIFY(!bench.pane.Busy());
        bench.pane.Navigate(bench.server.Address(u"/b"_s));
        Q_EMIT bench.Page()->loadingChanged(ends.first());
        QVERIFY(bench.pane.Busy());
        QTRY_COMPARE(bench.Title(), u"b"_s);
        QVERIFY(bench.WaitForEnd());
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/b"_s));
    }

    void TheTextOfAPageIsFoundOnAndBack() {
        PaneBench bench;
        bench.server.Serve(u"/words"_s, "<title>words</title>gold silver gold oil gold");
        QVERIFY(bench.Show(bench.server.Address(u"/words"_s)));
        bench.pane.Find();
        auto* bar = bench.pane.findChild<QWidget*>(u"FindBar"_s);
        auto* text = bench.pane.findChild<QLineEdit*>(u"FindText"_s);
        auto* matches = bench.pane.findChild<QLabel*>(u"FindMatches"_s);
        QVERIFY(bar->isVisible());
        QTest::keyClicks(text, u"gold"_s);
        QTRY_COMPARE(matches->text(), u"1 of 3"_s);
        QTest::keyClick(text, Qt::Key_Return);
        QTRY_COMPARE(matches->text(), u"2 of 3"_s);
        QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(matches->text(), u"1 of 3"_s);
        QTest::keyClicks(text, u"en"_s);
        QTRY_COMPARE(matches->text(), u"Not found"_s);
        QTest::keyClick(text, Qt::Key_Escape);
        QVERIFY(!bar->isVisible());
    }

    void APageIsZoomedWithinBoundsAndTheZoomStays() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        bench.pane.ZoomIn();
        const double larger = bench.Page()->zoomFactor();
        QVERIFY(larger > 1.0);
        QVERIFY(bench.Show(bench.server.Address(u"/b"_s)));
        QCOMPARE(bench.Page()->zoomFactor(), larger);
        for (int step = 0; step < 50; ++step)
            bench.pane.ZoomOut();
        QCOMPARE(bench.Page()->zoomFactor(), 0.25);
        bench.pane.ZoomReset();
        QCOMPARE(bench.Page()->zoomFactor(), 1.0);
    }

    void TheMenuOfAPageOffersNoWindowsThatTheProgramDoesNotHave() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QVERIFY(AwaitPaint(*bench.Page()));
        QTest::mouseClick(bench.pane.windowHandle(), Qt::RightButton, {}, {100, 200});
        QTRY_VERIFY(QApplication::activePopupWidget());
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(menu->actions().contains(bench.Page()->action(QWebEnginePage::Reload)));
        for (const auto action : {QWebEnginePage::ViewSource, QWebEnginePage::OpenLinkInNewTab})
            QVERIFY(!menu->actions().contains(bench.Page()->action(action)));
        menu->close();
    }

    void AGeneratedPageIsShownByItsPath() {
        PaneBench bench;
        const QString path = bench.folder.path() + u"/report.html"_s;
        WriteWholeFile(path.toStdString(), "<title>report</title><body>caf\xE9</body>");
        QVERIFY(bench.Show(path));
        QCOMPARE(bench.Title(), u"report"_s);
        QCOMPARE(bench.Run(u"document.body.innerText"_s).toString(), u"caf\u00E9"_s);
        QCOMPARE(bench.Run(u"location.href"_s).toString(),
                 PortalAddress::Page("report.html").toString());
        QCOMPARE(bench.pane.LocationURL(), path);
        QCOMPARE(bench.before, QStringList{path});

        const QString backslash = bench.folder.path() + u"\\Two words.mlnk"_s;
        const QString file = bench.folder.path() + u"/Two words.mlnk"_s;
        WriteWholeFile(file.toStdString(), "<title>\xC3\xA9</title>");
        QVERIFY(bench.Show(backslash));
        QCOMPARE(bench.Title(), u"\u00E9"_s);
        QCOMPARE(bench.pane.LocationURL(), backslash);
    }

    void NothingElseOfTheFolderCanBeReached() {
        PaneBench bench;
        WriteWholeFile((bench.folder.path() + u"/TickNotes.txt"_s).toStdString(), "secret");
        WriteWholeFile((bench.folder.path() + u"/report.html"_s).toStdString(),
                       "<iframe src='portal://pages/TickNotes.txt'></iframe>"
                       "<iframe src='portal://pages/..%2Freport.html'></iframe>"
                       "<iframe src='file:///etc/hosts'></iframe>");
        QVERIFY(bench.Show(bench.folder.path() + u"/report.html"_s));
        const QString read = u"[...frames].map(f => { try { return f.document.body.innerText }"
                             " catch (e) { return 'x' } }).join('')"_s;
        QVERIFY(!bench.Run(read).toString().contains(u"secret"));
        bench.pane.Navigate(bench.folder.path() + u"/TickNotes.txt"_s);
        QVERIFY(bench.HasNotice());
    }

    void APageOfTheWebCannotShowGeneratedPages() {
        PaneBench bench;
        WriteWholeFile((bench.folder.path() + u"/report.html"_s).toStdString(),
                       "<script>parent.postMessage('shown', '*')</script>");
        bench.server.Serve(u"/spy"_s,
                           "<script>seen = 'nothing'; onmessage = e => seen = e.data</script>"
                           "<iframe src='portal://pages/report.html'></iframe>");
        QVERIFY(bench.Show(bench.server.Address(u"/spy"_s)));
        QTest::qWait(200);
        QCOMPARE(bench.Run(u"seen"_s).toString(), u"nothing"_s);
    }

    void SampleModeAnswersPagesAndImagesWithoutANetwork() {
        PaneBench bench(WebMode::Sample);
        QStringList asked;
        bench.access.SetPortal([&](const std::string& host, const std::string& path) {
            asked << QString::fromStdString(host + path);
            if (path.ends_with(".svg"))
                return PortalAnswer{"image/svg+xml",
                                    "<svg xmlns='http://www.w3.org/2000/svg' width='9'/>"};
            return PortalAnswer{"text/html; charset=utf-8",
                                "<title>\xE2\x82\xAC</title>"
                                "<img src='http://pics.example/p.svg'><a href='/next'>x</a>"};
        });
        const QString host = bench.server.Address({});
        QVERIFY(bench.Show(host + u"/q?s=msft&d=2b"_s));
        QCOMPARE(bench.Title(), u"\u20AC"_s);
        QCOMPARE(bench.pane.LocationURL(), host + u"/q?s=msft&d=2b"_s);
        QVERIFY(asked.contains(host + u"/q?s=msft&d=2b"_s));
        QVERIFY(asked.contains(u"pics.example/p.svg"_s));
        QCOMPARE(bench.Run(u"document.images[0].naturalWidth"_s).toInt(), 9);

        bench.Run(u"document.links[0].click()"_s);
        QTRY_COMPARE(bench.before.size(), 2);
        QVERIFY(bench.WaitForEnd());
        QCOMPARE(bench.before[1], u"http://"_s + host + u"/next"_s);
        QCOMPARE(bench.pane.LocationURL(), u"http://"_s + host + u"/next"_s);
        QVERIFY(bench.server.Requests().isEmpty());
    }

    void LiveModeLoadsWhereTheResolverSaysAndKeepsTheAddress() {
        PaneBench bench(WebMode::Live);
        const std::string today = (u"http://"_s + bench.server.Address(u"/b"_s)).toStdString();
        bench.access.SetResolver([&](const std::string& address, AddressUse) {
            return address == "http://old.invalid/q?s=x" ? today : address;
        });
        QVERIFY(bench.Show(u"old.invalid/q?s=x"_s));
        QCOMPARE(bench.Title(), u"b"_s);
        QCOMPARE(bench.before, QStringList{u"old.invalid/q?s=x"_s});
        QCOMPARE(bench.pane.LocationURL(), u"old.invalid/q?s=x"_s);
    }

    void AWindowThatNobodyAskedForIsDroppedAndAWantedOneOpensInTheTarget() {
        PaneBench bench;
        BrowserPane main(bench.profile, bench.prompts);
        QSignalSpy inMain(&main, &BrowserPane::BeforeNavigate2);
        bench.server.Serve(u"/strip"_s,
                           "<body style='margin:0'><script>window.open('/b?popup')</script>"
                           "<a href='/b?wanted' target='_blank' style='display:block;height:300px'>"
                           "x</a>");
        bench.pane.SetNewWindowTarget(&main);
        QVERIFY(bench.Show(bench.server.Address(u"/strip"_s)));
        QTest::qWait(200);
        bench.ClickPage();
        QTRY_COMPARE(bench.server.CountOf(u"/b?wanted"_s), 1);
        QCOMPARE(inMain.size(), 1);
        QCOMPARE(bench.server.CountOf(u"/b?popup"_s), 0);
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/strip"_s));
    }
};

TALLOWMERE_WEB_TEST_MAIN(BrowserPaneTest)
#include "BrowserPaneTest.moc"
