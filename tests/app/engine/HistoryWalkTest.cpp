#include "app/engine/HistoryWalk.h"

#include "support/PaneBench.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A pane that has been on three pages and is on the last of them.
struct Walker : PaneBench {
    Walker() {
        for (const QString& path : {u"/one"_s, u"/two"_s, u"/three"_s}) {
            server.Serve(path, "<title>page</title>");
            QVERIFY(Show(server.Address(path)));
        }
    }
    void Step(bool isBack) { isBack ? pane.GoBack() : pane.GoForward(); }
};

} // namespace

class HistoryWalkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TwoStepsAreTwoStepsHoweverQuick_data() {
        QTest::addColumn<bool>("stopsFirst");
        QTest::newRow("by themselves") << false;
        QTest::newRow("by clicks, which stop what is being loaded first") << true;
    }
    void TwoStepsAreTwoStepsHoweverQuick() {
        QFETCH(const bool, stopsFirst);
        Walker bench;
        for (int gap = 0; gap < 40; gap += 2) {
            for (const bool isBack : {true, false}) {
                const auto step = [&] {
                    if (stopsFirst)
                        bench.pane.Stop();
                    bench.Step(isBack);
                };
                step();
                QTest::qWait(gap);
                step();
                // The engine names a page before it is there: the page itself is asked. The next
                // step does not wait for its end.
                const QString last = isBack ? u"/one"_s : u"/three"_s;
                QTRY_VERIFY2(bench.Run(u"location.pathname"_s) == last,
                             qPrintable(u"%1 ms apart"_s.arg(gap)));
                QCOMPARE(bench.pane.LocationURL(), bench.server.Address(last));
            }
        }
    }

    void AfterAStopForItsOwnSakeTheShownPageCounts() {
        Walker bench;
        HistoryWalk& walk = bench.Page()->Walk();
        walk.GoBack();
        walk.Interrupt();
        bench.Page()->triggerAction(QWebEnginePage::Stop);
        QTest::qWait(50);
        walk.GoBack();
        QTRY_COMPARE(bench.Run(u"location.pathname"_s).toString(), u"/two"_s);
    }

    void TheNextPageIsNotLeftForAStepThatWasOwed() {
        Walker bench;
        bench.pane.GoBack();
        bench.pane.GoBack();
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/a"_s));
        // Past the ends of the history there is nothing to go to.
        bench.pane.GoForward();
        bench.pane.GoForward();
        QVERIFY(!bench.pane.Busy());
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/a"_s));
    }
};

TALLOWMERE_WEB_TEST_MAIN(HistoryWalkTest)
#include "HistoryWalkTest.moc"
