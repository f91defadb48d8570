#include "app/links/LinkSweep.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/TabRow.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneTabs.h"
#include "app/links/RecordingState.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

QString Tickers(int count) {
    QString list;
    for (int n = 1; n <= count; ++n)
        list += u"T%1|"_s.arg(n);
    return list;
}

/// A window whose links lead to a server on this machine; the last link is 3, "/q?s=msft&d=2b".
struct Sweeper {
    explicit Sweeper(const QString& tickers) : session(server.Address({}), WebMode::Direct) {
        server.ServeEverything({"<title>page</title>"});
        session.Store("First", "OK");
        session.Store("Stocks1", FromQt(tickers).c_str());
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/first"_s))).c_str());
        session.Start();
        Form().List1->SetListIndex(0);
        session->Dispatch().Click(3);
    }
    frmMain& Form() { return session.Form(); }
    void Trigger() { Form().menus->At("sweep")->trigger(); }
    QString Status() { return Form().WebStatus->text(); }
    qsizetype Tabs() { return Form().FurtherPanes().size(); }
    qsizetype Asked(const QString& ticker) {
        return server.CountOf(u"/q?s=%1&d=2b"_s.arg(ticker.toLower()));
    }
    LoopbackServer server;
    TestSession session;
};

} // namespace

class LinkSweepTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void OpensATabForEachTicker() {
        Sweeper user(Tickers(5));
        QTRY_COMPARE(user.Asked(u"T1"_s), 1);
        user.Trigger();
        QTRY_COMPARE(user.Status(), u"The sweep opened 5 tabs"_s);
        QCOMPARE(user.Tabs(), 5);
        QVERIFY(user.session.prompts.messages.isEmpty());
        for (int n = 1; n <= 5; ++n) {
            QCOMPARE(user.Asked(u"T%1"_s.arg(n)), n == 1 ? 2 : 1);
            QCOMPARE(user.Form().FurtherPanes()[n - 1]->LocationURL(),
                     user.server.Address(u"/q?s=t%1&d=2b"_s.arg(n)));
        }
        // The page in front and the selected ticker stay.
        QVERIFY(!user.Form().Web->isHidden());
        QCOMPARE(user.Form().List1->SelectedText(), u"T1"_s);
    }

    void AFewAreLoadedAtATime() {
        Sweeper user(Tickers(9));
        QTRY_VERIFY(!user.Form().Web->Busy());
        user.server.ServeEverything({"", CannedPage::Ending::Silent});
        user.Trigger();
        QTRY_COMPARE(user.Asked(u"T3"_s), 1);
        QCOMPARE(user.Tabs(), 3);
        QCOMPARE(user.Status(), u"Sweep: T3, 3 of 9"_s);
        // One is there or given up: the next one begins.
        user.Form().FurtherPanes()[1]->Stop();
        QTRY_COMPARE(user.Asked(u"T4"_s), 1);
        QCOMPARE(user.Tabs(), 4);
        // A tab that is closed is one less that loads.
        Q_EMIT user.Form().tabRow->CloseRequested(1);
        QTRY_COMPARE(user.Asked(u"T5"_s), 1);
        QCOMPARE(user.Tabs(), 4);
        QCOMPARE(user.Asked(u"T6"_s), 0);

        // The command again ends it; what is open stays, and what it waited for begins nothing.
        user.Trigger();
        QCOMPARE(user.Status(), u"The sweep ended after 5 of 9 tickers"_s);
        for (BrowserPane* pane : user.Form().FurtherPanes())
            pane->Stop();
        QTRY_VERIFY(std::ranges::none_of(user.Form().FurtherPanes(), &BrowserPane::Busy));
        QCoreApplication::processEvents();
        QCOMPARE(user.Tabs(), 4);
        QCOMPARE(user.Asked(u"T6"_s), 0);
    }

    void OthersMayBeOpenedMeanwhile() {
        Sweeper user(Tickers(4));
        QTRY_VERIFY(!user.Form().Web->Busy());
        user.server.ServeEverything({"", CannedPage::Ending::Silent});
        user.Trigger();
        QTRY_COMPARE(user.Asked(u"T3"_s), 1);
        // Another link, and another tab: the sweep goes on with its own.
        user.session->Dispatch().Click(47);
        QCOMPARE(user.session->Dispatch().LastLink(), 47);
        QTest::mouseClick(user.session.Link(177), Qt::MiddleButton);
        QCOMPARE(user.Tabs(), 4);
        user.Form().FurtherPanes()[3]->Stop();
        QCoreApplication::processEvents();
        QCOMPARE(user.Tabs(), 4);
        user.Form().FurtherPanes()[0]->Stop();
        QTRY_COMPARE(user.Asked(u"T4"_s), 1);
    }

    void ManyTabsAreAskedAbout() {
        Sweeper user(Tickers(LinkSweep::kMostUnasked + 1));
        user.Trigger();
        QCOMPARE(user.session.prompts.messages, QStringList{u"Quorvane: Open Y! in 11 tabs?"_s});
        QCOMPARE(user.session.prompts.defaults, QList{Prompts::Answer::No});
        QCOMPARE(user.Tabs(), 0);
        user.session.prompts.answers << true;
        user.Trigger();
        QTRY_COMPARE(user.Status(), u"The sweep opened 11 tabs"_s);
    }

    void ThereAreNoMoreTabsThanThereIsRoomFor() {
        Sweeper user(Tickers(60));
        QTRY_VERIFY(!user.Form().Web->Busy());
        QTest::mouseClick(user.session.Link(3), Qt::MiddleButton);
        user.session.prompts.answers << true;
        user.Trigger();
        QCOMPARE(user.session.prompts.messages,
                 QStringList{u"Quorvane: Open Y! in 39 tabs?\n\nThe list has 60 tickers; there is "
                             "no room for more tabs."_s});
        QTRY_COMPARE_WITH_TIMEOUT(user.Status(), u"The sweep opened 39 tabs"_s, 60'000);
        QCOMPARE(user.Tabs(), PaneTabs::kMostTabs);
        user.Trigger();
        QCOMPARE(user.Status(), u"There is no room for further tabs"_s);
        QCOMPARE(user.session.prompts.messages.size(), 1);
    }

    void WhatHasNoPagePerTickerIsNotSwept() {
        Sweeper user(Tickers(3));
        user.session.Store("CustomT101", "Plain");
        user.session.Store("Custom101", "own.example/c");
        user.session.Store("CustomT102", "Several");
        user.session.Store("Custom102", "MULTILINK:x.mlnk");
        user.session.Store("CustomT103", "Chart");
        user.session.Store("Custom103", "own.example/UCASETICK");
        const LinkDispatch& dispatch = user.session->Dispatch();
        for (const int link : {3, 79, 103})
            QVERIFY2(dispatch.HasPagePerTicker(link), qPrintable(QString::number(link)));
        // Menus, pages that need no ticker, charts that are written to one file, tools.
        for (const int link : {49, 46, 101, 102, 104, 19, 66, 211})
            QVERIFY2(!dispatch.HasPagePerTicker(link), qPrintable(QString::number(link)));
        user.session->Dispatch().Click(46);
        user.Trigger();
        QCOMPARE(user.Status(), u"CBS has no page of its own for each ticker"_s);
        QCOMPARE(user.Tabs(), 0);
    }

    void ThereIsNoneWithoutTickersOrWhilePagesAreRecorded() {
        Sweeper user({});
        user.Trigger();
        QCOMPARE(user.Status(), u"There is no ticker in the list"_s);
        Sweeper recorder(Tickers(2));
        recorder.session->Recorded().templateMode = true;
        recorder.Trigger();
        QCOMPARE(recorder.Status(), u"There is no sweep while a multi-link is recorded"_s);
        QCOMPARE(recorder.Tabs(), 0);
    }

    void ATickerThatIsInTheListTwiceOpensOnce() {
        Sweeper user(u"AAA|BBB|AAA|"_s);
        user.Trigger();
        QTRY_COMPARE(user.Status(), u"The sweep opened 2 tabs"_s);
    }

    void TheWindowMayBeClosedMeanwhile() {
        Sweeper user(Tickers(9));
        user.server.ServeEverything({"", CannedPage::Ending::Silent});
        user.Trigger();
        QTRY_COMPARE(user.Tabs(), 3);
        user.session.End();
    }
};

TALLOWMERE_WEB_TEST_MAIN(LinkSweepTest)
#include "LinkSweepTest.moc"
