#include "app/engine/PageRest.h"

#include "support/PaneBench.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using State = QWebEnginePage::LifecycleState;

/// A pane with a page that counts, has a box to type into, and is higher than the pane.
struct RestBench : PaneBench {
    RestBench() {
        server.Serve(u"/counts"_s, "<title>counts</title><body style='height:3000px'><input id=box>"
                                   "<script>let n = 0; setInterval(() => ++n, 10)</script>");
        ready = Show(server.Address(u"/counts"_s));
        Rest().SetPatience(50ms);
    }
    PageRest& Rest() { return *pane.findChild<PageRest*>(); }
    State Now() { return Page()->lifecycleState(); }
    /// Counts without waking the page: it is asked past the pane.
    int Count() { return Run(u"n"_s).toInt(); }
    bool ready = false;
};

} // namespace

class PageRestTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void APageThatIsUnseenRestsAndIsAsItWasWhenItIsSeenAgain() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.Run(u"box.value = 'typed'; scrollTo(0, 700)"_s);
        bench.pane.hide();
        QTRY_COMPARE(bench.Now(), State::Frozen);
        bench.pane.show();
        QTRY_COMPARE(bench.Now(), State::Active);
        QCOMPARE(bench.Run(u"box.value + scrollY"_s).toString(), u"typed700"_s);
        const int count = bench.Count();
        QTRY_VERIFY(bench.Count() > count);
    }

    void ItsScriptStandsStill() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.Run(u"let last = performance.now(), gap = 0; setInterval(() => {"
                  "  const now = performance.now(); gap = Math.max(gap, now - last); last = now"
                  "}, 10)"_s);
        bench.pane.hide();
        QTRY_COMPARE(bench.Now(), State::Frozen);
        // Even unseen the engine lets a script run once a second.
        QTest::qWait(2500);
        bench.pane.show();
        QTRY_VERIFY(bench.Run(u"gap"_s).toInt() > 2000);
    }

    void APageThatIsSeenDoesNotRest() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.pane.hide();
        bench.Rest().SetPatience(500ms);
        bench.pane.show();
        QTest::qWait(700);
        QCOMPARE(bench.Now(), State::Active);
    }

    void ALoadWakesThePage() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.pane.hide();
        QTRY_COMPARE(bench.Now(), State::Frozen);
        bench.Rest().SetPatience(1s);
        QVERIFY(bench.Show(bench.server.Address(u"/b"_s)));
        QCOMPARE(bench.Title(), u"b"_s);
        QTRY_COMPARE(bench.Now(), State::Frozen);
        bench.pane.Refresh();
        QVERIFY(bench.WaitForEnd());
        QTRY_COMPARE(bench.server.CountOf(u"/b"_s), 2);
        QTRY_COMPARE(bench.Now(), State::Frozen);
        bench.pane.GoBack();
        QTRY_COMPARE(bench.Title(), u"counts"_s);
    }

    void APageThatIsLongInComingIsNotStopped() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.pane.hide();
        QTRY_COMPARE(bench.Now(), State::Frozen);
        CannedPage late{"<title>late</title>"};
        late.ending = CannedPage::Ending::Stall;
        bench.server.Serve(u"/late"_s, late);
        bench.pane.Navigate(bench.server.Address(u"/late"_s));
        QTest::qWait(500);
        QVERIFY(bench.pane.Busy());
        QCOMPARE(bench.Now(), State::Active);
    }

    void WhoAsksThePageWakesIt() {
        RestBench bench;
        QVERIFY(bench.ready);
        bench.pane.hide();
        QTRY_COMPARE(bench.Now(), State::Frozen);
        QString text;
        QVERIFY(bench.pane.AskPage([&](QWebEnginePage& page) {
            page.runJavaScript(u"document.title"_s,
                               [&](const QVariant& title) { text = title.toString(); });
        }));
        QTRY_COMPARE(text, u"counts"_s);
        QTRY_COMPARE(bench.Now(), State::Frozen);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PageRestTest)
#include "PageRestTest.moc"
