#include "app/portfolio/TickerCompletion.h"

#include "app/forms/ListBox.h"
#include "core/text/files.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Window : TestSession {
    explicit Window(const char* tickers = "") {
        WriteWholeFile(Data() / "sample_market.txt",
                       "MSFT|Microsoft|1|2.0\nMU|Micron Technology|1|2\n"
                       "INTC|Intel|1|2\nT|AT&T <b>Inc</b>|1|2\n");
        Store("First", "OK");
        Store("Stocks1", tickers);
        Start();
        Form().activateWindow();
        (void)QTest::qWaitForWindowActive(&Form());
        Form().txtStock->setFocus();
    }
    QLineEdit* Box() { return Form().txtStock; }
    /// The offered rows, none when there is no list.
    QStringList Offered() {
        const auto* list = Form().findChild<TextListBox*>(u"lstNames"_s);
        return list && list->isVisible() ? list->Items() : QStringList();
    }
    TextListBox* Names() { return Form().findChild<TextListBox*>(u"lstNames"_s); }
    bool Offers(const QString& row) {
        return QTest::qWaitFor([&] { return Offered().contains(row); });
    }
    void Type(const QString& text) { QTest::keyClicks(Box(), text); }
    void Press(Qt::Key key) { QTest::keyClick(Box(), key); }
    /// Types what is offered something for, and selects the row of a ticker by the keys.
    void SelectByKeys(const QString& text, const QString& row) {
        Type(text);
        QVERIFY(Offers(row));
        for (auto at = Offered().indexOf(row); at >= 0; --at)
            Press(Qt::Key_Down);
        QCOMPARE(Names()->SelectedText(), row);
    }
};

const QString kMicrosoft = u"MSFT  Microsoft"_s;

} // namespace

class TickerCompletionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ANameOffersItsTicker() {
        Window window;
        window.Type(u"micro"_s);
        QVERIFY(window.Offers(kMicrosoft));
        QCOMPARE(window.Names()->accessibleName(), u"Tickers by Name"_s);
        QVERIFY(window.Box()->hasFocus());
        QCOMPARE(window.Names()->ListIndex(), -1);
    }

    void OneCharacterOffersNothing() {
        Window window;
        window.Type(u"m"_s);
        QTest::qWait(0);
        QVERIFY(window.Offered().isEmpty());
    }

    void WhatIsTypedIsEnteredAsItStands() {
        Window window;
        window.Type(u"micro"_s);
        QVERIFY(window.Offers(kMicrosoft));
        window.Press(Qt::Key_Return);
        QCOMPARE(window.Stored("Stocks1"), u"MICRO|"_s);
        QVERIFY(window.Offered().isEmpty());
        QTest::qWait(0);
        QVERIFY(window.Offered().isEmpty());
    }

    void AnEntryThatIsKeptShowsNoListAgain() {
        Window window("MSFT|");
        window.Type(u"msft"_s);
        window.Press(Qt::Key_Return);
        QCOMPARE(window.Box()->text(), u"MSFT"_s);
        QTest::qWait(0);
        QVERIFY(window.Offered().isEmpty());
    }

    void TheKeysSelectAndEnterTakes() {
        Window window("AOL|");
        window.SelectByKeys(u"micro"_s, kMicrosoft);
        window.Press(Qt::Key_Return);
        QCOMPARE(window.Stored("Stocks1"), u"AOL|MSFT|"_s);
        QVERIFY(window.Box()->text().isEmpty());
        QVERIFY(window.Box()->hasFocus());
        QVERIFY(window.Offered().isEmpty());
    }

    void AClickTakes() {
        Window window;
        window.Type(u"ibm, micros"_s);
        QVERIFY(window.Offers(kMicrosoft));
        TextListBox* names = window.Names();
        const auto row = static_cast<int>(window.Offered().indexOf(kMicrosoft));
        QTest::mouseClick(names->viewport(), Qt::LeftButton, {},
                          names->visualRect(names->model()->index(row, 0)).center());
        QCOMPARE(window.Stored("Stocks1"), u"IBM|MSFT|"_s);
        QVERIFY(window.Offered().isEmpty());
    }

    void UpFromTheBoxIsTheLastRowAndOneFurtherTheBoxAgain() {
        Window window;
        window.Type(u"micro"_s);
        QVERIFY(window.Offers(kMicrosoft));
        window.Press(Qt::Key_Up);
        QCOMPARE(window.Names()->ListIndex(), window.Names()->Count() - 1);
        window.Press(Qt::Key_Down);
        QCOMPARE(window.Names()->ListIndex(), -1);
        QCOMPARE(window.Box()->text(), u"MICRO"_s);
    }

    void EscapeSendsTheListAwayAndKeepsTheText() {
        Window window;
        window.SelectByKeys(u"micro"_s, kMicrosoft);
        window.Press(Qt::Key_Escape);
        QVERIFY(window.Offered().isEmpty());
        QCOMPARE(window.Box()->text(), u"MICRO"_s);
        window.Press(Qt::Key_Return);
        QCOMPARE(window.Stored("Stocks1"), u"MICRO|"_s);
    }

    void APressElsewhereOrAnotherFocusSendsTheListAway() {
        Window window("AOL|");
        window.Type(u"micro"_s);
        QVERIFY(window.Offers(kMicrosoft));
        QTest::mouseClick(window.Form().lblPort, Qt::LeftButton);
        QVERIFY(window.Offered().isEmpty());
        window.Box()->setFocus();
        window.Type(u"s"_s);
        QVERIFY(window.Offers(kMicrosoft));
        window.Form().List1->setFocus();
        QVERIFY(window.Offered().isEmpty());
    }

    void DownWithoutAListLeadsIntoTheListOfTickers() {
        Window window("AOL|");
        window.Press(Qt::Key_Down);
        QVERIFY(window.Form().List1->hasFocus());
    }

    void TheListStaysInTheWindow() {
        Window window;
        window.Form().resize(667, 567);
        window.Type(u"in"_s);
        QVERIFY(QTest::qWaitFor([&] { return !window.Offered().isEmpty(); }));
        QVERIFY(window.Form().rect().contains(window.Names()->geometry()));
        QVERIFY(!window.Names()->geometry().intersects(
            QRect(window.Box()->mapTo(&window.Form(), QPoint()), window.Box()->size())));
    }

    void ANameIsNoMarkup() {
        Window window;
        window.Type(u"at"_s);
        QVERIFY(window.Offers(u"T  AT&T <b>Inc</b>"_s));
    }

    void TheNameIsShownOnHoverBelowTheTipOfTheList() {
        Window window("MSFT|NOSUCH|");
        ListBox* list = window.Form().List1;
        list->Choose(0);
        list->setToolTip(u"Ticker : MSFT"_s);
        const auto tipAt = [&](int row) {
            const QPoint place = list->visualRect(list->model()->index(row, 0)).center();
            QHelpEvent help(QEvent::ToolTip, place, list->viewport()->mapToGlobal(place));
            QApplication::sendEvent(list->viewport(), &help);
            return QToolTip::text();
        };
        QCOMPARE(tipAt(0), QString(list->toolTip() + u"\nMSFT: Microsoft"_s));
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        window.Form().SetToolTips(false);
        list->setToolTip({});
        tipAt(0);
        QVERIFY(!QToolTip::isVisible());
    }
};

QTEST_MAIN(TickerCompletionTest)
#include "TickerCompletionTest.moc"
