#include "app/market/Timers.h"
#include "app/engine/BrowserPane.h"
#include "app/links/LinkDispatch.h"
#include "app/market/ActiveEdges.h"
#include "support/LoopbackServer.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenu>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class TimersTest : public QObject {
    Q_OBJECT
private:
    static constexpr int kSoon = 5;

    /// A window whose club pages the test writes.
    struct Club : TestSession {
        Club() {
            Store("First", "OK");
            portal = [this](const std::string&, const std::string& path) {
                const auto page = pages.find(path);
                return PortalAnswer{"text/html", page == pages.end() ? "page" : page->second};
            };
            Start();
            navigations.emplace(Form());
            prompts.answers = {true};
            ClickLink(kAlertsLink);
        }
        std::map<std::string, std::string> pages{{"/members/quickbites.shtml", "one"},
                                                 {"/members/alacarte.shtml", "two"},
                                                 {"/members/maincourse.shtml", "three"}};
        std::optional<Navigations> navigations;

        QTimer& Timer2() { return (**this).ClubAndRefresh().Timer2; }
        void TickAgain() {
            QSignalSpy ticks(&Timer2(), &QTimer::timeout);
            Timer2().start(kSoon);
            QVERIFY(ticks.wait());
            Timer2().stop();
        }
        bool IsMarked(int link) { return Link(link)->Colors() == ColorPair{0, 0xC0FFC0}; }
        void FirstTick() {
            QTRY_COMPARE(Timer2().interval(), 60000);
            QTRY_COMPARE(asked.count(u"h.example/members/maincourse.shtml"_s), 1);
        }
    };

    struct Edges : TestSession {
        explicit Edges(bool on) {
            Store("First", "OK");
            Store("ActiveEdge", on ? "True" : "False");
            Start();
            Form().Web->Stop();
        }
        QTimer& TimAE() { return (**this).Edges().timAE; }
        void Move(int x) { Q_EMIT Form().PointerMoved(x, 15000); }
        /// Lets `timAE` run out.
        void Expire() {
            QSignalSpy ticks(&TimAE(), &QTimer::timeout);
            TimAE().setInterval(kSoon);
            QVERIFY(ticks.wait());
            TimAE().setInterval(kEdgeInterval);
        }
        bool LeftShown() {
            QList<QWidget*> left{Form().fraLeft, Form().List1, Form().txtStock, Form().Label1};
            for (std::size_t n = 1; n <= 10; ++n)
                left << Form().lblListNum[n];
            const bool shown = !left.first()->isHidden();
            for (const QWidget* control : std::as_const(left))
                if (control->isHidden() == shown)
                    qFatal("the left side is shown in part");
            return shown;
        }
        bool RightShown() { return !Form().fraRight->isHidden(); }
    };

private Q_SLOTS:
    void AlertsStartOnlyOnYes() {
        TestSession window;
        window.Store("First", "OK");
        window.Start();
        Navigations navigations(window.Form());
        window.ClickLink(kAlertsLink);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"TM Alerts: Do you want to start TM Alert Monitoring ?"_s});
        QVERIFY(!window->ClubAndRefresh().Timer2.isActive());
        window.prompts.answers = {true};
        window.ClickLink(kAlertsLink);
        QVERIFY(window->ClubAndRefresh().Timer2.isActive());
        QCOMPARE(window->ClubAndRefresh().Timer2.interval(), 1);
    }

    void TheFirstTickTakesTheSnapshotsAndMarksNothing() {
        Club window;
        window.FirstTick();
        QVERIFY(window.Link(51)->width() >= PixelsFromTwips(795));
        QCOMPARE(window.Link(51)->minimumWidth(), window.Link(51)->maximumWidth());
        for (const int link : {58, 59, 60})
            QVERIFY(!window.IsMarked(link));
    }

    void AChangedPageMarksItsLinkForGood() {
        Club window;
        window.FirstTick();
        window.TickAgain();
        QVERIFY(!window.IsMarked(59));
        window.pages["/members/alacarte.shtml"] = "two!";
        window.TickAgain();
        QVERIFY(!window.IsMarked(58));
        QVERIFY(window.IsMarked(59));
        QVERIFY(!window.IsMarked(60));
        window.TickAgain();
        QVERIFY(window.IsMarked(59));
    }

    void APageThatFailsDiffersFromTheOneBefore() {
        Club window;
        window.FirstTick();
        window.pages["/members/maincourse.shtml"] = "";
        window.TickAgain();
        QVERIFY(window.IsMarked(60));
        QVERIFY(window.prompts.messages.size() == 1); // the question at the start
    }

    void APageThatGrowsIsComparedToItsLastByte() {
        Club window;
        window.FirstTick();
        std::string page(8 * 1024 * 1024, 'x');
        window.pages["/members/alacarte.shtml"] = page;
        window.TickAgain();
        QVERIFY(window.IsMarked(59));
        window.ClickLink(59); // takes the mark away
        QVERIFY(!window.IsMarked(59));
        window.TickAgain();
        QVERIFY(!window.IsMarked(59));
        page += 'y';
        window.pages["/members/alacarte.shtml"] = page;
        window.TickAgain();
        QVERIFY(window.IsMarked(59));
        QVERIFY(!window.IsMarked(58));
    }

    void OpeningAMarkedLinkGivesItsLabelTheColoursOfItsAreaAgain() {
        Club window;
        window.Settings().SaveSetting("Colors", "bTLB", "255");
        window.FirstTick();
        window.pages["/members/quickbites.shtml"] = "new";
        window.TickAgain();
        QVERIFY(window.IsMarked(58));
        window.ClickLink(58);
        QCOMPARE(window.Link(58)->Colors(), (ColorPair{0x800000, 255}));
        QCOMPARE(window.navigations->last(), u"Web: h.example/members/quickbites.shtml"_s);
    }

    void EveryFifthTickReloadsThePage() {
        LoopbackServer server;
        TestSession window(server.Address({}), WebMode::Direct);
        window.Store("First", "OK");
        window.Store("AutoRefresh", "True");
        window.Store("DefaultWeb", qPrintable(u"A"_s + server.Address(u"/page"_s)));
        server.Serve(u"/page"_s, "<p>page</p>");
        window.Start();
        QTimer& timer = window->ClubAndRefresh().Timer3;
        QVERIFY(timer.isActive());
        QCOMPARE(timer.interval(), 60000);
        QVERIFY(window.Form().menus->mnuRefresh->isChecked());
        QTRY_COMPARE(server.CountOf(u"/page"_s), 1);
        QTRY_VERIFY(!window.Form().Web->Busy());
        timer.stop();
        QSignalSpy ticks(&timer, &QTimer::timeout);
        const auto tick = [&](int count) {
            for (int i = 0; i < count; ++i) {
                timer.start(kSoon);
                QVERIFY(ticks.wait());
                timer.stop();
            }
        };
        tick(4);
        QVERIFY(!window.Form().Web->Busy());
        QCOMPARE(server.CountOf(u"/page"_s), 1);
        tick(1);
        QTRY_COMPARE(server.CountOf(u"/page"_s), 2);
        QTRY_VERIFY(!window.Form().Web->Busy());
        tick(4);
        QCOMPARE(server.CountOf(u"/page"_s), 2);
        tick(1);
        QTRY_COMPARE(server.CountOf(u"/page"_s), 3);
    }

    void TheMenuItemSwitchesAutomaticRefreshAndWritesIt() {
        TestSession window;
        window.Store("First", "OK");
        window.Start();
        QAction* item = window.Form().menus->mnuRefresh;
        QVERIFY(!item->isChecked());
        QVERIFY(!window->ClubAndRefresh().Timer3.isActive());
        item->trigger();
        QVERIFY(window->ClubAndRefresh().Timer3.isActive());
        QCOMPARE(window.Stored("AutoRefresh"), u"True"_s);
        item->trigger();
        QVERIFY(!window->ClubAndRefresh().Timer3.isActive());
        QCOMPARE(window.Stored("AutoRefresh"), u"False"_s);
    }

    void WithActiveEdgesEverythingIsHiddenAtTheStart() {
        Edges window(true);
        QVERIFY(!window.LeftShown());
        QVERIFY(!window.RightShown());
    }

    void ThePointerAtTheRightEdgeShowsTheRightSide() {
        Edges window(true);
        window.Move(15000 - 300);
        QVERIFY(!window.RightShown());
        window.Move(15000 - 299);
        QVERIFY(window.RightShown());
        QVERIFY(!window.LeftShown());
        QVERIFY(window.TimAE().isActive());
        QCOMPARE(window.TimAE().interval(), 3000);
    }

    void ThePointerAtTheLeftEdgeShowsTheLeftSideAndAllTenNumbers() {
        Edges window(true);
        window.Move(90);
        QVERIFY(!window.LeftShown());
        window.Move(89);
        QVERIFY(window.LeftShown());
        QVERIFY(!window.RightShown());
        QVERIFY(window.TimAE().isActive());
        window.Move(14900);
        QVERIFY(!window.LeftShown());
        QVERIFY(window.RightShown());
    }

    void WithoutActiveEdgesThePointerChangesNothing() {
        Edges window(false);
        for (const int x : {0, 5000, 14999})
            window.Move(x);
        QVERIFY(window.LeftShown());
        QVERIFY(window.RightShown());
        QVERIFY(!window.TimAE().isActive());
    }

    void TheTimerHidesBothSidesAndAllTenNumbers() {
        Edges window(true);
        window.Move(0);
        QVERIFY(window.LeftShown());
        window.Expire();
        QVERIFY(!window.LeftShown());
        QVERIFY(!window.RightShown());
        QVERIFY(!window.TimAE().isActive());
    }

    void WhileThePanelsAreHeldTheyStayAndTheTimerRuns() {
        Edges window(true);
        window.Move(0);
        window->Edges().Hold(true);
        window.Expire();
        QVERIFY(window.LeftShown());
        QVERIFY(window.TimAE().isActive());
        window->Edges().Hold(false);
        window.Expire();
        QVERIFY(!window.LeftShown());
    }

    void APressedLabelHoldsThePanels() {
        Edges window(true);
        window.Move(0);
        QTest::mousePress(window.Link(45), Qt::LeftButton);
        window.Expire();
        QVERIFY(window.LeftShown());
        QTest::mouseRelease(window.Link(45), Qt::LeftButton, {}, {-50, -50});
        window.Expire();
        QVERIFY(!window.LeftShown());
    }

    void AnOpenMenuHoldsThePanels() {
        Edges window(true);
        window.Move(0);
        QMenu* menu = window.Form().menus->mnuRightTick;
        menu->popup({10, 10});
        window.Expire();
        QVERIFY(window.LeftShown());
        menu->close();
        window.Expire();
        QVERIFY(!window.LeftShown());
    }

    void AHalfTypedTickerHoldsThePanels() {
        Edges window(true);
        window.Move(0);
        window.Form().txtStock->setFocus();
        QTest::keyClicks(window.Form().txtStock, u"MS"_s);
        window.Expire();
        QVERIFY(window.LeftShown());
        window.Form().txtStock->clear();
        window.Expire();
        QVERIFY(!window.LeftShown());
    }

    void WithTheSwitchOffTheTimerOnlyStops() {
        Edges window(true);
        window.Move(0);
        window->Edges().Switch(false);
        window.TimAE().start();
        window.Expire();
        QVERIFY(window.LeftShown());
        QVERIFY(!window.TimAE().isActive());
    }

    void APageThatLoadsMakesThePanelsGiveWay() {
        Edges window(true);
        window.Move(0);
        Navigations navigations(window.Form());
        window.Form().Web->Navigate(u"h.example/x"_s);
        QVERIFY(!window.LeftShown());
    }
};

TALLOWMERE_WEB_TEST_MAIN(TimersTest)
#include "TimersTest.moc"
