#include "app/portfolio/ListOrder.h"

#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "support/Await.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

class Window : public TestSession {
public:
    std::map<std::string, double> percents;

    explicit Window(const char* tickers) {
        Store("First", "OK");
        Store("Stocks1", tickers);
        Store("Stocks2", "XXX|");
        prices = [this](const std::string& ticker) -> std::optional<ListedPrice> {
            if (!percents.contains(ticker))
                return std::nullopt;
            ListedPrice price;
            price.last = 10;
            price.percent = percents[ticker];
            return price;
        };
        Start();
    }
    ~Window() { End(); } // before the prices go

    TickerListBox& List() { return *Form().List1; }
    QString Shown() { return List().Items().join(u'|'); }
    void Command(const char* name) { Form().menus->At(name)->trigger(); }
    QString UndoCaption() { return Form().menus->undo->text(); }

    /// Drags a row onto a control, as the window system tells it; whether that takes it.
    bool Drop(int row, QWidget* target, QPoint at, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        const std::unique_ptr<QMimeData> mime(
            List().model()->mimeData({List().model()->index(row, 0)}));
        const Qt::DropAction actions = keys & Qt::ControlModifier ? Qt::CopyAction : Qt::MoveAction;
        QDragEnterEvent enter(at, actions, mime.get(), Qt::LeftButton, keys);
        QCoreApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return false;
        QDragMoveEvent move(at, actions, mime.get(), Qt::LeftButton, keys);
        QCoreApplication::sendEvent(target, &move);
        QDropEvent drop(at, actions, mime.get(), Qt::LeftButton, keys);
        QCoreApplication::sendEvent(target, &drop);
        return drop.isAccepted();
    }
    bool DropOnNumber(int row, int number, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        Chip* label = Form().lblListNum.at(static_cast<std::size_t>(number));
        return Drop(row, label, label->rect().center(), keys);
    }
};

} // namespace

class ListOrderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheSelectedTickerMovesByKeysAndStaysSelected() {
        Window window("AAA|BBB|CCC|");
        window.Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window.Form()));
        window.List().setFocus();
        window.List().SetListIndex(0);
        QTest::keyClick(&window.List(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(window.Shown(), u"BBB|AAA|CCC"_s);
        QCOMPARE(window.Stored("Stocks1"), u"BBB|AAA|CCC|"_s);
        QCOMPARE(window.List().SelectedText(), u"AAA"_s);
        QTest::keyClick(&window.List(), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(&window.List(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(window.Shown(), u"BBB|CCC|AAA"_s);
        QTest::keyClick(&window.List(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(window.Shown(), u"BBB|AAA|CCC"_s);
        QCOMPARE(window.UndoCaption(), u"&Undo Move AAA in the List"_s);
        window.Form().menus->undo->trigger();
        QCOMPARE(window.Shown(), u"BBB|CCC|AAA"_s);
        QCOMPARE(window.List().SelectedText(), u"AAA"_s);
        window.List().SetListIndex(-1);
        window.Command("moveUp");
        window.Command("moveDown");
        QCOMPARE(window.Shown(), u"BBB|CCC|AAA"_s);
    }

    void SortingBySymbolIsOneStepAndKeepsTheSelection() {
        Window window("MSFT|aol|IBM|");
        window.List().SetListIndex(2);
        window.Command("sortBySymbol");
        QCOMPARE(window.Shown(), u"aol|IBM|MSFT"_s);
        QCOMPARE(window.Stored("Stocks1"), u"aol|IBM|MSFT|"_s);
        QCOMPARE(window.List().SelectedText(), u"IBM"_s);
        QCOMPARE(window.UndoCaption(), u"&Undo Sort by Symbol"_s);
        window.Form().menus->undo->trigger();
        QCOMPARE(window.Shown(), u"MSFT|aol|IBM"_s);
        QCOMPARE(window.List().SelectedText(), u"IBM"_s);
        // A ticker that is added stands at the end: it was sorted once.
        window.Command("sortBySymbol");
        window.Enter(u"AAA"_s);
        QCOMPARE(window.Shown(), u"aol|IBM|MSFT|AAA"_s);
    }

    void SortingByChangeNeedsPrices() {
        Window window("AAA|BBB|CCC|DDD|");
        window.Command("sortByChange");
        QCOMPARE(window.Shown(), u"AAA|BBB|CCC|DDD"_s);
        QCOMPARE(window.Form().WebStatus->text(), u"No change of a price is known yet."_s);
        window.percents = {{"AAA", -1.0}, {"CCC", 2.5}, {"DDD", 0.0}};
        QVERIFY(Await([&] {
            window->Ports().List().RefreshQuotes();
            return window.List().MarkOf(0).meaning.startsWith(u"10.00");
        }));
        window.Command("sortByChange");
        QCOMPARE(window.Shown(), u"CCC|DDD|AAA|BBB"_s);
        QCOMPARE(window.UndoCaption(), u"&Undo Sort by Change"_s);
    }

    void ATickerDroppedOnANumberMovesToThatPortfolio() {
        Window window("AAA|BBB|CCC|");
        window.List().SetListIndex(0);
        QVERIFY(window.DropOnNumber(1, 2));
        QCOMPARE(window.Shown(), u"AAA|CCC"_s);
        QCOMPARE(window.Stored("Stocks1"), u"AAA|CCC|"_s);
        QCOMPARE(window.Stored("Stocks2"), u"XXX|BBB|"_s);
        QCOMPARE(window.UndoCaption(), u"&Undo Move BBB to Portfolio #2"_s);
        window.Form().menus->undo->trigger();
        QCOMPARE(window.Shown(), u"AAA|BBB|CCC"_s);
        QCOMPARE(window.Stored("Stocks2"), u"XXX|"_s);
    }

    void WithControlItIsCopied() {
        Window window("AAA|BBB|");
        QVERIFY(window.DropOnNumber(1, 2, Qt::ControlModifier));
        QCOMPARE(window.Shown(), u"AAA|BBB"_s);
        QCOMPARE(window.Stored("Stocks2"), u"XXX|BBB|"_s);
        QCOMPARE(window.UndoCaption(), u"&Undo Copy BBB to Portfolio #2"_s);
    }

    void TheNumberOfTheListItselfTakesNothing() {
        Window window("AAA|BBB|");
        QVERIFY(!window.DropOnNumber(1, 1));
        QTest::mouseClick(window.Form().lblListNum[2], Qt::LeftButton);
        QVERIFY(!window.DropOnNumber(0, 2));
        QVERIFY(window.DropOnNumber(0, 1));
        QCOMPARE(window.Stored("Stocks1"), u"AAA|BBB|XXX|"_s);
    }

    void ATickerDroppedBetweenOthersMovesThere() {
        Window window("AAA|BBB|CCC|");
        QVERIFY(QTest::qWaitForWindowExposed(&window.Form()));
        window.List().SetListIndex(2);
        const QRect first = window.List().visualRect(window.List().model()->index(0, 0));
        QVERIFY(window.Drop(2, window.List().viewport(), first.topLeft() + QPoint(20, 0)));
        QCOMPARE(window.Shown(), u"CCC|AAA|BBB"_s);
        QCOMPARE(window.Stored("Stocks1"), u"CCC|AAA|BBB|"_s);
        QCOMPARE(window.List().SelectedText(), u"CCC"_s);
        const QRect last = window.List().visualRect(window.List().model()->index(2, 0));
        QVERIFY(window.Drop(0, window.List().viewport(), last.bottomLeft() + QPoint(20, 30)));
        QCOMPARE(window.Shown(), u"AAA|BBB|CCC"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(ListOrderTest)
#include "ListOrderTest.moc"
