#include "app/forms/UndoBar.h"

#include "support/UndoUser.h"
#include "support/WebTest.h"

#include <QPushButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class UndoBarTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void CancelInTheBoxOfANoteIsToldInTheBar() {
        UndoUser user;
        user.Select(1);
        user.prompts.inputs = {std::nullopt};
        user.Menus().mnuTickNotes->trigger();
        QVERIFY(user.Bar().isVisible());
        QCOMPARE(user.Bar().Words(), u"Note on MSFT removed."_s);
        auto* link = user.Bar().findChild<QPushButton*>();
        QCOMPARE(link->text(), u"Undo"_s);
        QVERIFY(link->focusPolicy() & Qt::TabFocus);
        QTest::keyClick(link, Qt::Key_Space);
        QCOMPARE(user.File("TickNotes.txt"), QByteArray("||MSFT||mine|||||\r\n"));
        QVERIFY(user.Bar().isHidden());
        QVERIFY(user.Form().List1->hasFocus());
        // Where there is no note, none was removed.
        user.Select(0);
        user.prompts.inputs = {std::nullopt};
        user.Menus().mnuTickNotes->trigger();
        QVERIFY(user.Bar().isHidden());
    }

    void TheBarGoesAfterTenSecondsUnlessItIsNeeded() {
        UndoUser user;
        user.Select(2);
        user.Menus().mnuDeleteTick->trigger();
        QVERIFY(user.Bar().isVisible());
        QCOMPARE(user.Bar().Words(), u"IBM removed."_s);
        QCOMPARE(user.Bar().Seconds.interval(), 10'000);
        QVERIFY(user.Bar().Seconds.isActive());
        auto* link = user.Bar().findChild<QPushButton*>();
        link->setFocus();
        user.Bar().Seconds.start(0);
        QTRY_VERIFY(user.Bar().Seconds.interval() == 10'000);
        QVERIFY(user.Bar().isVisible());
        user.Form().List1->setFocus();
        user.Bar().Seconds.start(0);
        QTRY_VERIFY(user.Bar().isHidden());
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers().size(), 3);
    }

    void TheNextCommandTakesTheBarAway() {
        UndoUser user;
        user.Select(2);
        user.Menus().mnuDeleteTick->trigger();
        QVERIFY(user.Bar().isVisible());
        user.Enter(u"ge"_s);
        QVERIFY(user.Bar().isHidden());
    }

    void TheBarTakesItsPlaceFromTheListAndMovesNothingElse() {
        UndoUser user;
        user.Form().resize(667, 567);
        QCoreApplication::processEvents();
        const QRect list = user.Form().List1->geometry();
        const QRect left = user.Form().fraLeft->geometry();
        const QRect web = user.Form().fraRight->geometry();
        user.Select(2);
        user.Menus().mnuDeleteTick->trigger();
        QCOMPARE(user.Form().fraLeft->geometry(), left);
        QCOMPARE(user.Form().fraRight->geometry(), web);
        QCOMPARE(user.Form().List1->geometry().topLeft(), list.topLeft());
        QVERIFY(!user.Bar().geometry().intersects(user.Form().List1->geometry()));
        QVERIFY(user.Form().List1->height() >= 2 * user.Form().List1->fontMetrics().height() ||
                user.Form().List1->geometry() == list);
        user.Bar().Dismiss();
        QCOMPARE(user.Form().List1->geometry(), list);
    }

    void AfterNoToTheQuestionTheBarStillOffersTheTickerOfTheFirstClick() {
        UndoUser user;
        user.Select(2);
        QTest::mouseClick(user.Form().Label1, Qt::LeftButton);
        QTest::mouseDClick(user.Form().Label1, Qt::LeftButton);
        QCOMPARE(user.prompts.messages.size(), 1);
        QVERIFY(user.Bar().isVisible());
        QCOMPARE(user.Bar().Words(), u"IBM removed."_s);
        user.Bar().findChild<QPushButton*>()->click();
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
    }
};

TALLOWMERE_WEB_TEST_MAIN(UndoBarTest)
#include "UndoBarTest.moc"
