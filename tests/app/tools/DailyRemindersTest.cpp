#include "app/tools/DailyReminders.h"
#include "app/forms/frmRemind.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "core/tools/reminders.h"
#include "support/FullDisk.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRemindersLink = 45;

} // namespace

// The clock of the tests stands on 21 November 2026.
class DailyRemindersTest : public QObject {
    Q_OBJECT
private:
    static void Set(TestSession& session, const char* key, const char* text) {
        std::string ignored;
        TickerNotes(session.Folder(), ignored, "SET", key, text, kRemindersFile);
    }
    static QString Stored(TestSession& session, const char* key) {
        std::string text;
        TickerNotes(session.Folder(), text, "GET", key, "", kRemindersFile);
        return ToQt(text);
    }
    static std::filesystem::path File(TestSession& session) {
        return session.Folder() / "remind.txt";
    }

    /// Opens the dialog by its link.
    static frmRemind& Open(TestSession& session) {
        session.Start();
        session.ClickLink(kRemindersLink);
        return *session->Reminders().Dialog();
    }

    static void Type(const frmRemind& dialog, const QString& text) {
        dialog.Text1->setFocus();
        dialog.Text1->selectAll();
        for (const QChar c : text) {
            if (c == u'\n')
                QTest::keyClick(dialog.Text1, Qt::Key_Return);
            else
                QTest::keyClick(dialog.Text1, c.toLatin1());
        }
    }

    /// Clicks a day of the shown month.
    static void ClickDay(const frmRemind& dialog, const QDate& day) {
        auto* view = dialog.MonthView1->findChild<QTableView*>();
        const QAbstractItemModel* model = view->model();
        for (int row = 0; row < model->rowCount(); ++row)
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex index = model->index(row, column);
                // The first and the last weeks shown also hold days of the months around it.
                if (model->data(index).toInt() == day.day() && row >= 1 &&
                    (day.day() > 7 || row < 4) && (day.day() < 20 || row > 2)) {
                    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                      view->visualRect(index).center());
                    return;
                }
            }
        QFAIL("the day is not shown");
    }

    static void ClickLine(const frmRemind& dialog, int line) {
        const QRect place = dialog.List1->visualRect(dialog.List1->model()->index(line, 0));
        QTest::mouseClick(dialog.List1->viewport(), Qt::LeftButton, {},
                          QPoint(5, place.center().y()));
    }

    static QList<QDate> MarkedDays(const frmRemind& dialog) {
        QList<QDate> days = dialog.MonthView1->dateTextFormat().keys();
        std::sort(days.begin(), days.end());
        return days;
    }

private Q_SLOTS:
    void TheDialogHasItsCaptionsAndNames() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.windowTitle(), u"Daily Reminders"_s);
        const QStringList captions = {u"Clear &All Reminders"_s, u"&Clear Current Reminder"_s,
                                      u"&Save && Exit"_s};
        for (int i = 0; i < captions.size(); ++i) {
            const auto* button = dialog.findChild<QPushButton*>(u"Command1"_s + QString::number(i));
            QVERIFY(button);
            QCOMPARE(button->text(), captions[i]);
        }
        QVERIFY(dialog.Command1[2]->isDefault());
        QStringList texts;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            texts << label->text();
        QVERIFY(texts.contains(u"Reminder :"_s));
        QVERIFY(texts.contains(u"Summary of Reminders :"_s));
        for (const char* name : {"MonthView1", "Text1", "List1", "Label1"})
            QVERIFY2(dialog.findChild<QWidget*>(QString::fromLatin1(name)), name);
        for (const QToolButton* arrow : dialog.MonthView1->findChildren<QToolButton*>())
            QVERIFY(!arrow->text().isEmpty() || !arrow->accessibleName().isEmpty());
        QCOMPARE(dialog.MonthView1->findChild<QTableView*>()->accessibleName(), u"Days"_s);
    }

    void AReminderForTodayOpensTheDialogAtTheStart() {
        TestSession session;
        Set(session, "11-21-2026", "sell AOL");
        session.Start();
        const frmRemind* dialog = session->Reminders().Dialog();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->MonthView1->selectedDate(), QDate(2026, 11, 21));
        QCOMPARE(dialog->Text1->toPlainText(), u"sell AOL"_s);
    }

    void AReminderForTomorrowDoesNot() {
        TestSession session;
        Set(session, "11-22-2026", "sell AOL");
        session.Start();
        QVERIFY(!session->Reminders().Dialog());
    }

    void AMissingStoreOpensNothingAndSummarizesToALineThatSaysSo() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        QCOMPARE(dialog.List1->Items(), QStringList{u"No reminders have been set..."_s});
        QCOMPARE(dialog.Label1->text(), u"( 0 )"_s);
        ClickLine(dialog, 0);
        QCOMPARE(dialog.MonthView1->selectedDate(), QDate(2026, 11, 21));
    }

    void TheSummaryIsInFileOrderWithTwoLinesAsOneAndItsDaysAreMarked() {
        TestSession session;
        Set(session, "12-31-1999", "one\r\ntwo");
        Set(session, "11-22-2026", "a | b");
        Set(session, "someday", "no date");
        const frmRemind& dialog = Open(session);
        QCOMPARE(dialog.List1->Items(),
                 (QStringList{u"12/31/1999 - one two"_s, u"11/22/2026 - a | b"_s,
                              u"someday - no date"_s}));
        QCOMPARE(dialog.Label1->text(), u"( 3 )"_s);
        QCOMPARE(MarkedDays(dialog), (QList<QDate>{QDate(1999, 12, 31), QDate(2026, 11, 22)}));
    }

    void AFileCutInTheMiddleListsWhatIsWhole() {
        TestSession session;
        WriteWholeFile(File(session), "||11-22-2026||whole|||||\r\n||11-23-2026||cut of");
        const frmRemind& dialog = Open(session);
        QCOMPARE(dialog.List1->Items(), QStringList{u"11/22/2026 - whole"_s});
        QCOMPARE(dialog.Label1->text(), u"( 1 )"_s);
    }

    void ClickingAnotherDaySavesTheFirstBeforeItLoadsTheSecond() {
        TestSession session;
        Set(session, "11-24-2026", "second");
        const frmRemind& dialog = Open(session);
        Type(dialog, u"first"_s);
        ClickDay(dialog, QDate(2026, 11, 24));
        QCOMPARE(dialog.Text1->toPlainText(), u"second"_s);
        QCOMPARE(Stored(session, "11-21-2026"), u"first"_s);
        QCOMPARE(Stored(session, "11-24-2026"), u"second"_s);
        QCOMPARE(dialog.Label1->text(), u"( 2 )"_s);
    }

    void ChoosingAnotherDayByKeyboardSavesToo() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        Type(dialog, u"first"_s);
        QTest::keyClick(dialog.MonthView1->findChild<QTableView*>(), Qt::Key_Right);
        QCOMPARE(dialog.MonthView1->selectedDate(), QDate(2026, 11, 22));
        QCOMPARE(dialog.Text1->toPlainText(), QString());
        QCOMPARE(Stored(session, "11-21-2026"), u"first"_s);
    }

    void APressOnTheCalendarThatChoosesNoDaySavesAsWell() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        Type(dialog, u"first"_s);
        QTest::mousePress(dialog.MonthView1->findChild<QWidget*>(u"qt_calendar_nextmonth"_s),
                          Qt::LeftButton);
        QCOMPARE(Stored(session, "11-21-2026"), u"first"_s);
    }

    void EnteringTheSummarySavesFirstAndTheLineUnderThePointerIsChosen() {
        TestSession session;
        Set(session, "11-21-2026", "today");
        Set(session, "11-22-2026", "next");
        Set(session, "11-23-2026", "last");
        frmRemind& dialog = Open(session);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        Type(dialog, u"edited"_s);
        // The saved record moves to the end of the file; the click means the line as it was.
        ClickLine(dialog, 1);
        QCOMPARE(Stored(session, "11-21-2026"), u"edited"_s);
        QCOMPARE(dialog.MonthView1->selectedDate(), QDate(2026, 11, 22));
        QCOMPARE(dialog.Text1->toPlainText(), u"next"_s);
        QCOMPARE(dialog.List1->Items(), (QStringList{u"11/22/2026 - next"_s, u"11/23/2026 - last"_s,
                                                     u"11/21/2026 - edited"_s}));
        QCOMPARE(dialog.List1->ListIndex(), 0);
    }

    void TheSummaryIsWalkedByKeyboard() {
        TestSession session;
        Set(session, "11-25-2026", "a");
        Set(session, "11-26-2026", "b");
        frmRemind& dialog = Open(session);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        Type(dialog, u"typed"_s);
        dialog.List1->setFocus(Qt::TabFocusReason);
        QCOMPARE(Stored(session, "11-21-2026"), u"typed"_s);
        QCOMPARE(dialog.List1->Count(), 3);
        QTest::keyClick(dialog.List1, Qt::Key_Home);
        QTest::keyClick(dialog.List1, Qt::Key_Down);
        QCOMPARE(dialog.MonthView1->selectedDate(), QDate(2026, 11, 26));
        QCOMPARE(dialog.Text1->toPlainText(), u"b"_s);
    }

    void LinesAreStoredWithTheirEndsAndReadBackAsTheyWere() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        Type(dialog, u"  one\ntwo  "_s);
        QTest::mouseClick(dialog.Command1[2], Qt::LeftButton);
        QCOMPARE(Stored(session, "11-21-2026"), u"one\r\ntwo"_s);
        session.ClickLink(kRemindersLink);
        const frmRemind* again = session->Reminders().Dialog();
        QCOMPARE(again->Text1->toPlainText(), u"one\ntwo"_s);
        QCOMPARE(again->List1->Items(), QStringList{u"11/21/2026 - one two"_s});
    }

    void EveryWayOutSaves_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("Escape") << 1;
        QTest::newRow("close") << 2;
        QTest::newRow("end of the program") << 3;
    }
    void EveryWayOutSaves() {
        QFETCH(int, way);
        TestSession session;
        frmRemind& dialog = Open(session);
        Type(dialog, u"kept"_s);
        switch (way) {
        case 0:
            QTest::mouseClick(dialog.Command1[2], Qt::LeftButton);
            break;
        case 1:
            QTest::keyClick(&dialog, Qt::Key_Escape);
            break;
        case 2:
            dialog.close();
            break;
        default:
            QApplication::closeAllWindows();
        }
        QVERIFY(!session->Reminders().Dialog());
        QCOMPARE(Stored(session, "11-21-2026"), u"kept"_s);
    }

    void LookingWritesNothing() {
        TestSession session;
        Set(session, "11-21-2026", "as it is");
        const auto before = StampOf(File(session));
        frmRemind& dialog = Open(session);
        ClickDay(dialog, QDate(2026, 11, 24));
        dialog.close();
        QVERIFY(StampOf(File(session)) == before);
    }

    void AnEmptiedTextRemovesTheReminder() {
        TestSession session;
        Set(session, "11-21-2026", "old");
        frmRemind& dialog = Open(session);
        dialog.Text1->selectAll();
        QTest::keyClick(dialog.Text1, Qt::Key_Delete);
        dialog.close();
        QCOMPARE(Stored(session, "11-21-2026"), QString());
        session.ClickLink(kRemindersLink);
        QCOMPARE(session->Reminders().Dialog()->Label1->text(), u"( 0 )"_s);
    }

    void ClearCurrentRemovesTheShownDayAlone() {
        TestSession session;
        Set(session, "11-21-2026", "today");
        Set(session, "11-22-2026", "next");
        const frmRemind& dialog = Open(session);
        QTest::mouseClick(dialog.Command1[1], Qt::LeftButton);
        QCOMPARE(dialog.Text1->toPlainText(), QString());
        QCOMPARE(dialog.List1->Items(), QStringList{u"11/22/2026 - next"_s});
        QCOMPARE(MarkedDays(dialog), QList<QDate>{QDate(2026, 11, 22)});
    }

    void ClearAllAsksNothingAndLeavesNothing() {
        TestSession session;
        Set(session, "11-21-2026", "today");
        Set(session, "11-22-2026", "next");
        frmRemind& dialog = Open(session);
        QTest::mouseClick(dialog.Command1[0], Qt::LeftButton);
        QCOMPARE(session.prompts.messages, QStringList());
        QCOMPARE(dialog.List1->Items(), QStringList{u"No reminders have been set..."_s});
        QCOMPARE(dialog.Label1->text(), u"( 0 )"_s);
        QVERIFY(MarkedDays(dialog).isEmpty());
        dialog.close();
        QCOMPARE(Stored(session, "11-21-2026"), QString());
        QCOMPARE(Stored(session, "11-22-2026"), QString());
    }

    void WhatCannotBeSavedIsTold_data() {
        QTest::addColumn<int>("button");
        QTest::newRow("clear all") << 0;
        QTest::newRow("clear current") << 1;
        QTest::newRow("save") << 2;
    }
    void WhatCannotBeSavedIsTold() {
        QFETCH(int, button);
        TestSession session;
        Set(session, "11-21-2026", "old");
        const frmRemind& dialog = Open(session);
        Type(dialog, u"new"_s);
        const std::string before = ReadExistingFile(File(session));
        // The store is moved here when it is cleared, which takes no room on a disk.
        std::filesystem::create_directories(BackupPath(File(session)) / "inside");
        {
            const FullDisk disk(0);
            QTest::mouseClick(dialog.Command1[static_cast<std::size_t>(button)], Qt::LeftButton);
        }
        QVERIFY(session.prompts.messages.contains(
            u"Quorvane: The reminders could not be saved. The disk may be full, or their file not "
            "be writable."_s));
        QCOMPARE(ReadExistingFile(File(session)), before);
    }

    void WhatIsSavedIsNotTold() {
        TestSession session;
        Set(session, "11-20-2026", "twice");
        Set(session, "11-21-2026", "first");
        Set(session, "11-21-2026", "second");
        frmRemind& dialog = Open(session);
        Type(dialog, u"third"_s);
        ClickDay(dialog, {2026, 11, 20});
        QTest::mouseClick(dialog.Command1[1], Qt::LeftButton);
        QTest::mouseClick(dialog.Command1[0], Qt::LeftButton);
        dialog.reject();
        QCOMPARE(session.prompts.messages, QStringList());
    }

    void BarsThatWouldEndATextArePartedAndThatIsTold() {
        TestSession session;
        frmRemind& dialog = Open(session);
        Type(dialog, u"six |||||| and last |"_s);
        ClickDay(dialog, {2026, 11, 20});
        QCOMPARE(session.prompts.messages, QStringList{u"Quorvane: "_s + ToQt(kBarsParted)});
        ClickDay(dialog, {2026, 11, 21});
        QCOMPARE(dialog.Text1->toPlainText(), u"six |||| || and last | "_s);
    }

    void AStoreThatIsTooLargeIsToldByItsName() {
        TestSession session;
        Set(session, "11-21-2026", "today");
        std::filesystem::resize_file(File(session), kLargestStore + 1);
        session.Start();
        QCOMPARE(session.prompts.messages.size(), 1);
        QVERIFY(
            session.prompts.messages.first().contains(u"remind.txt: it is larger than 64 MB"_s));
        QCOMPARE(std::filesystem::file_size(File(session)), kLargestStore + 1);
    }

    void ATextWithBarsStaysReadable() {
        TestSession session;
        frmRemind& dialog = Open(session);
        Type(dialog, u"buy || sell | hold"_s);
        dialog.close();
        session.ClickLink(kRemindersLink);
        QCOMPARE(session->Reminders().Dialog()->Text1->toPlainText(), u"buy || sell | hold"_s);
    }

    void TheLinkOpensOneDialogOnly() {
        TestSession session;
        const frmRemind& dialog = Open(session);
        session->Reminders().Open();
        QCOMPARE(session.Form().findChildren<frmRemind*>().size(), 1);
        QVERIFY(dialog.isVisible());
    }
};

TALLOWMERE_WEB_TEST_MAIN(DailyRemindersTest)
#include "DailyRemindersTest.moc"
