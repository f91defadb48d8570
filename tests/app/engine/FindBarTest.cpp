#include "app/engine/FindBar.h"

#include "app/engine/FindText.h"
#include "support/PaneBench.h"
#include "support/WebTest.h"

#include <QLineEdit>
#include <QToolButton>
#include <QWebEngineFindTextResult>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kWords = "<title>words</title>gold silver gold oil gold";

struct FindBench : PaneBench {
    FindBench() {
        server.Serve(u"/words"_s, kWords);
        server.Serve(u"/more"_s, kWords);
    }
    bool ShowWords() { return Show(server.Address(u"/words"_s)); }
};

FindBar* Bar(BrowserPane& pane) {
    return pane.findChild<FindBar*>();
}
QLineEdit* Box(BrowserPane& pane) {
    return pane.findChild<QLineEdit*>(u"FindText"_s);
}
QString Matches(BrowserPane& pane) {
    return pane.findChild<QLabel*>(u"FindMatches"_s)->text();
}

} // namespace

class FindBarTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheTextStaysAndIsTypedOver() {
        FindBench bench;
        QVERIFY(bench.ShowWords());
        bench.pane.Find();
        QTest::keyClicks(Box(bench.pane), u"gold"_s);
        QTRY_COMPARE(Matches(bench.pane), u"1 of 3"_s);
        QTest::keyClick(Box(bench.pane), Qt::Key_Escape);
        QVERIFY(!Bar(bench.pane)->isVisible());
        bench.pane.Find();
        QCOMPARE(Box(bench.pane)->text(), u"gold"_s);
        QCOMPARE(Box(bench.pane)->selectedText(), u"gold"_s);
        QCOMPARE(Matches(bench.pane), QString());
        QTest::keyClicks(Box(bench.pane), u"oil"_s);
        QCOMPARE(Box(bench.pane)->text(), u"oil"_s);
        QTRY_COMPARE(Matches(bench.pane), u"1 of 1"_s);
    }

    void AllPanesSearchForTheSameText() {
        FindBench bench;
        QVERIFY(bench.ShowWords());
        BrowserPane other(bench.profile, bench.prompts);
        other.resize(400, 300);
        other.show();
        other.Navigate(bench.server.Address(u"/more"_s));
        QTRY_VERIFY(!other.Busy());
        other.Find();
        bench.pane.Find();
        QTest::keyClicks(Box(bench.pane), u"gold"_s);
        QTRY_COMPARE(Matches(bench.pane), u"1 of 3"_s);
        QCOMPARE(Box(other)->text(), u"gold"_s);
        QCOMPARE(Matches(other), QString());
        other.FindNext();
        QTRY_COMPARE(Matches(other), u"1 of 3"_s);
        QCOMPARE(Matches(bench.pane), u"1 of 3"_s);
        // So does one that is made later.
        BrowserPane later(bench.profile, bench.prompts);
        Bar(later)->Open();
        QCOMPARE(Box(later)->text(), u"gold"_s);
    }

    void ItsControlsAreMadeWhenTheyAreWantedInTheirPlaceForTheTabKey() {
        FindBench bench;
        QWidget window;
        auto* first = new QLineEdit(&window);
        auto* pane = new BrowserPane(bench.profile, bench.prompts, &window);
        auto* last = new QLineEdit(&window);
        QVERIFY(!Box(*pane));
        Bar(*pane)->Open();
        QList<QWidget*> stops;
        for (QWidget* next = first; stops.isEmpty() || next != first;
             next = next->nextInFocusChain())
            if (next->focusPolicy() & Qt::TabFocus && !next->isHidden() &&
                (next->parentWidget() == &window || Bar(*pane)->isAncestorOf(next)))
                stops << next;
        QCOMPARE(stops.size(), 6);
        QCOMPARE(stops[0], first);
        QCOMPARE(stops[1], Box(*pane));
        for (int button = 2; button < 5; ++button)
            QVERIFY(qobject_cast<QToolButton*>(stops[button]));
        QCOMPARE(stops[5], last);
    }

    void TheSearchGoesOnWithoutTheBar() {
        FindBench bench;
        QVERIFY(bench.ShowWords());
        // Without a text the bar opens.
        bench.pane.FindNext();
        QVERIFY(Bar(bench.pane)->isVisible());
        QTest::keyClicks(Box(bench.pane), u"gold"_s);
        QTRY_COMPARE(Matches(bench.pane), u"1 of 3"_s);
        QTest::keyClick(Box(bench.pane), Qt::Key_Escape);
        bench.pane.FindNext();
        QTRY_COMPARE(Matches(bench.pane), u"2 of 3"_s);
        bench.pane.FindNext();
        QTRY_COMPARE(Matches(bench.pane), u"3 of 3"_s);
        bench.pane.FindPrevious();
        bench.pane.FindPrevious();
        QTRY_COMPARE(Matches(bench.pane), u"1 of 3"_s);
        QVERIFY(!Bar(bench.pane)->isVisible());
        // On a page that has no such text the bar says so.
        bench.server.Serve(u"/none"_s, "<title>none</title>tin");
        QVERIFY(bench.Show(bench.server.Address(u"/none"_s)));
        QVERIFY(!Bar(bench.pane)->isVisible());
        bench.pane.FindNext();
        QTRY_VERIFY(Bar(bench.pane)->isVisible());
        QCOMPARE(Matches(bench.pane), u"Not found"_s);
        QVERIFY(!Box(bench.pane)->hasFocus());
    }

    void ABarThatIsClosedStaysClosed() {
        FindBench bench;
        QVERIFY(bench.ShowWords());
        bench.pane.Find();
        QTest::keyClicks(Box(bench.pane), u"nowhere"_s);
        QTest::keyClick(Box(bench.pane), Qt::Key_Escape);
        // Another search is answered after whatever was on its way.
        bool isAnswered = false;
        bench.Page()->findText(u"oil"_s, {},
                               [&](const QWebEngineFindTextResult&) { isAnswered = true; });
        QTRY_VERIFY(isAnswered);
        QVERIFY(!Bar(bench.pane)->isVisible());
    }
};

TALLOWMERE_WEB_TEST_MAIN(FindBarTest)
#include "FindBarTest.moc"
