#include "app/engine/HistoryWalk.h"

#include "support/PaneBench.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class HistoryWalkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TwoStepsAreTwoStepsHoweverQuick() {
        PaneBench bench;
        for (const QString& path : {u"/one"_s, u"/two"_s, u"/three"_s}) {
            bench.server.Serve(path, "<title>page</title>");
            QVERIFY(bench.Show(bench.server.Address(path)));
        }
        for (int gap = 0; gap < 40; gap += 2) {
            for (const bool isBack : {true, false}) {
                const auto step = [&] { isBack ? bench.pane.GoBack() : bench.pane.GoForward(); };
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

    // So does a click on a link: it stops what is being loaded first.
    void AStepThatStopsTheOneBeforeCountsFromWhereThatWasToLead() {
        PaneBench bench;
        for (const QString& path : {u"/one"_s, u"/two"_s, u"/three"_s}) {
            bench.server.Serve(path, "<title>page</title>");
            QVERIFY(bench.Show(bench.server.Address(path)));
        }
        for (int gap = 0; gap < 40; gap += 4) {
            for (const bool isBack : {true, false}) {
                const auto step = [&] {
                    bench.pane.Stop();
                    isBack ? bench.pane.GoBack() : bench.pane.GoForward();
                };
                step();
                QTest::qWait(gap);
                step();
                const QString last = isBack ? u"/one"_s : u"/three"_s;
                QTRY_VERIFY2(bench.Run(u"location.pathname"_s) == last,
                             qPrintable(u"%1 ms apart"_s.arg(gap)));
            }
        }
    }

    void TheNextPageIsNotLeftForAStepThatWasOwed() {
        PaneBench bench;
        for (const QString& path : {u"/one"_s, u"/two"_s, u"/three"_s}) {
            bench.server.Serve(path, "<title>page</title>");
            QVERIFY(bench.Show(bench.server.Address(path)));
        }
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
