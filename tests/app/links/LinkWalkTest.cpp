#include "app/links/LinkWalk.h"

#include "app/links/LinkDispatch.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLineEdit>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A window with three tickers, of which none is selected.
struct Walker : TestSession {
    explicit Walker(const char* tickers = "AOL|IBM|MSFT|") {
        Store("First", "OK");
        Store("Stocks1", tickers);
        Store("CustomT103", "Third");
        Store("Custom103", "own.example/c?s=LCASETICK");
        Start();
        navigations.emplace(Form());
        Form().List1->SetListIndex(-1);
        Form().activateWindow();
    }
    void Activate() { QVERIFY(QTest::qWaitForWindowActive(&Form())); }
    void Press(Qt::Key key) { QTest::keyClick(Form().focusWidget(), key, Qt::ControlModifier); }
    QString Selected() { return Form().List1->SelectedText(); }
    QString Status() { return Form().WebStatus->text(); }
    std::optional<Navigations> navigations;
};

QString Lycos(const QString& ticker) {
    return u"Web: h.example/click?page=quote&company="_s + ticker + u"&x=58&y=9"_s;
}

} // namespace

class LinkWalkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void DownOpensTheLastLinkForTheNextTickerAndUpForTheOneBefore() {
        Walker user;
        user.Activate();
        user.Form().List1->setFocus();
        user.Press(Qt::Key_Down);
        QCOMPARE(user.Selected(), u"AOL"_s);
        QCOMPARE(user.navigations->last(), Lycos(u"AOL"_s));
        user.Press(Qt::Key_Down);
        user.Press(Qt::Key_Down);
        QCOMPARE(user.Selected(), u"MSFT"_s);
        QCOMPARE(user.navigations->last(), Lycos(u"MSFT"_s));
        QCOMPARE(user.navigations->size(), 3);
        // The list ends, and says so.
        user.Press(Qt::Key_Down);
        QCOMPARE(user.Selected(), u"MSFT"_s);
        QCOMPARE(user.navigations->size(), 3);
        QCOMPARE(user.Status(), u"MSFT is the last ticker of the list"_s);
        user.Press(Qt::Key_Up);
        QCOMPARE(user.Selected(), u"IBM"_s);
        QCOMPARE(user.navigations->last(), Lycos(u"IBM"_s));
        user.Press(Qt::Key_Up);
        user.Press(Qt::Key_Up);
        QCOMPARE(user.Selected(), u"AOL"_s);
        QCOMPARE(user.Status(), u"AOL is the first ticker of the list"_s);
        QCOMPARE(user.navigations->size(), 5);
        // The tip of the list is that of the ticker, as after a click on it.
        QVERIFY(user.Form().List1->toolTip().startsWith(u"Ticker : AOL"_s));
    }

    void UpBeginsAtTheEndWhenNoTickerIsSelected() {
        Walker user;
        user.Activate();
        user.Press(Qt::Key_Up);
        QCOMPARE(user.Selected(), u"MSFT"_s);
        QCOMPARE(user.navigations->last(), Lycos(u"MSFT"_s));
    }

    void TheLinkIsTheOneThatWasUsedLast() {
        Walker user;
        user.Activate();
        user.Form().List1->SetListIndex(0);
        user->Dispatch().Click(103);
        QCOMPARE(user.navigations->last(), u"Web: own.example/c?s=aol"_s);
        user.Press(Qt::Key_Down);
        QCOMPARE(user.navigations->last(), u"Web: own.example/c?s=ibm"_s);
    }

    void RightAndLeftWalkThroughTheLinksOfTheArea() {
        Walker user;
        user.Activate();
        user.Form().List1->SetListIndex(1);
        // The boards stand as 1, 71, 2, 21, 68, 91, 183, 194, 79.
        user->Dispatch().Click(1);
        QStringList walked{user.navigations->last()};
        for (const int link : {71, 2, 21, 68, 91, 183, 194, 79}) {
            user.Press(Qt::Key_Right);
            QCOMPARE(user->Dispatch().LastLink(), link);
            QVERIFY2(user.navigations->last().contains(u"ibm"_s, Qt::CaseInsensitive),
                     qPrintable(user.navigations->last()));
            walked << user.navigations->last();
        }
        QCOMPARE(walked.removeDuplicates(), 0);
        user.Press(Qt::Key_Right);
        QCOMPARE(user->Dispatch().LastLink(), 79);
        QCOMPARE(user.Status(), u"FRT is the last link of its area"_s);
        user.Press(Qt::Key_Left);
        QCOMPARE(user->Dispatch().LastLink(), 194);
        user->Dispatch().Click(1);
        user.Press(Qt::Key_Left);
        QCOMPARE(user->Dispatch().LastLink(), 1);
        QCOMPARE(user.Status(), u"YH is the first link of its area"_s);
    }

    void MenusAndUnusedSlotsArePassedOver() {
        Walker user;
        user.Activate();
        user.Form().List1->SetListIndex(0);
        user->Dispatch().Click(103);
        // No other slot is used.
        user.Press(Qt::Key_Right);
        QCOMPARE(user.Status(), u"Third is the last link of its area"_s);
        user.Press(Qt::Key_Left);
        QCOMPARE(user.Status(), u"Third is the first link of its area"_s);
        QCOMPARE(user.navigations->size(), 1);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(user.prompts.messages.isEmpty());
    }

    void WithoutATickerTheFirstOneIsTaken() {
        Walker user;
        user.Activate();
        user.Press(Qt::Key_Left);
        QCOMPARE(user.Selected(), u"AOL"_s);
        QVERIFY(user->Dispatch().LastLink() != LinkDispatch::kDefaultLink);
        QVERIFY(user.navigations->last().contains(u"aol"_s, Qt::CaseInsensitive));
    }

    void AnEmptyListIsSaid() {
        Walker user("");
        user.Activate();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left}) {
            user.Form().WebStatus->clear();
            user.Press(key);
            QCOMPARE(user.Status(), u"There is no ticker in the list"_s);
        }
        QVERIFY(user.navigations->isEmpty());
        QVERIFY(user.prompts.messages.isEmpty());
    }

    void InTheEmptyEntryBoxTheKeysAreTheWalk() {
        Walker user;
        user.Activate();
        user.Form().txtStock->setFocus();
        user.Press(Qt::Key_Right);
        QCOMPARE(user.navigations->size(), 1);
        user.Press(Qt::Key_Left);
        QCOMPARE(user.navigations->size(), 2);
        QCOMPARE(user->Dispatch().LastLink(), LinkDispatch::kDefaultLink);
    }

    void InATextTheKeysMoveTheCursor() {
        Walker user;
        user.Activate();
        QLineEdit& box = *user.Form().txtStock;
        box.setFocus();
        QTest::keyClicks(&box, u"amd nvda"_s);
        user.Press(Qt::Key_Left);
        QCOMPARE(box.cursorPosition(), 4);
        user.Press(Qt::Key_Right);
        QCOMPARE(box.cursorPosition(), 8);
        QVERIFY(user.navigations->isEmpty());
        // Down and Up are the walk here too.
        user.Press(Qt::Key_Down);
        QCOMPARE(user.navigations->last(), Lycos(u"AOL"_s));
        QCOMPARE(box.text(), u"AMD NVDA"_s);
        QCOMPARE(user.Form().focusWidget(), &box);
    }
};

TALLOWMERE_WEB_TEST_MAIN(LinkWalkTest)
#include "LinkWalkTest.moc"
