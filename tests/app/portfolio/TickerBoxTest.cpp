#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerMarks.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/FullDisk.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QContextMenuEvent>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class TickerBoxTest : public QObject {
    Q_OBJECT
private:
    struct Window : TestSession {
        explicit Window(const char* tickers) {
            Store("First", "OK");
            Store("Stocks1", tickers);
            Start();
            navigations.emplace(Form());
        }
        std::optional<Navigations> navigations;
    };
    static QStringList Tickers(const char* list) {
        return QString::fromLatin1(list).split(u'|', Qt::SkipEmptyParts);
    }
    /// Opens the ticker menu with the right button.
    static void OpenMenu(TestSession& window) {
        QTest::mouseClick(window.Form().List1->viewport(), Qt::RightButton, {}, {5, 5});
        QWidget* menu = QApplication::activePopupWidget();
        QCOMPARE(menu, window.Form().menus->mnuRightTick);
        menu->close();
    }

private Q_SLOTS:
    void TheMenuKeyAndShiftF10OpenTheMenuOfTheTicker() {
        Window window("MSFT|IBM|");
        ListBox* list = window.Form().List1;
        const auto closeMenu = [&] {
            QWidget* menu = QApplication::activePopupWidget();
            QCOMPARE(menu, window.Form().menus->mnuRightTick);
            menu->close();
        };
        QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
        closeMenu();
        QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(list, &key);
        closeMenu();
    }

    void TypingIsUpperCasedWhereTheCaretStands() {
        Window window("");
        QLineEdit* box = window.Form().txtStock;
        QTest::keyClicks(box, u"msft"_s);
        QCOMPARE(box->text(), u"MSFT"_s);
        box->setCursorPosition(1);
        QTest::keyClicks(box, u"x"_s);
        QCOMPARE(box->text(), u"MXSFT"_s);
        QCOMPARE(box->cursorPosition(), 2);
    }

    void TextThatIsPutThereByOtherMeansIsUpperCasedToo() {
        Window window("");
        window.Form().txtStock->setText(u"ibm\r\nmsft\tintc"_s);
        QCOMPARE(window.Form().txtStock->text(), u"IBM  MSFT INTC"_s);
        QTest::keyClick(window.Form().txtStock, Qt::Key_Return);
        QCOMPARE(window.Stored("Stocks1"), u"IBM|MSFT|INTC|"_s);
    }

    void AListOfAnySizeIsEnteredWhole() {
        Window window("");
        QString entry;
        QString stored;
        for (int i = 0; i < 10'000; ++i) {
            entry += u"t%1,"_s.arg(i);
            stored += u"T%1|"_s.arg(i);
        }
        window.Form().txtStock->setText(entry);
        QTest::keyClick(window.Form().txtStock, Qt::Key_Return);
        QCOMPARE(window.Form().List1->Count(), 10'000);
        QCOMPARE(window.Stored("Stocks1"), stored);
    }

    void SeveralTickersAreEnteredAtOnce() {
        Window window("");
        window.Enter(u"ibm, msft  intc"_s);
        QCOMPARE(window.Form().List1->Items(), Tickers("IBM|MSFT|INTC"));
        QCOMPARE(window.Stored("Stocks1"), u"IBM|MSFT|INTC|"_s);
        QVERIFY(window.Form().txtStock->text().isEmpty());
    }

    void AKnownLastTickerLeavesTheBoxAndTheStoreAlone() {
        Window window("MSFT|");
        window.Enter(u"ibm msft"_s);
        QCOMPARE(window.Form().List1->Items(), Tickers("MSFT|IBM"));
        QCOMPARE(window.Form().txtStock->text(), u"IBM MSFT"_s);
        QCOMPARE(window.Stored("Stocks1"), u"MSFT|"_s);
    }

    void ATickerStoredInLowerCaseIsAnotherOne() {
        Window window("ibm|");
        window.Enter(u"ibm"_s);
        QCOMPARE(window.Form().List1->Items(), Tickers("ibm|IBM"));
    }

    void TheToolTipFollowsTheSelection() {
        Window window("MSFT|IBM|");
        QListView* list = window.Form().List1;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(1, 0)).center());
        QCOMPARE(list->toolTip(), u"Ticker : IBM, DoubleClick opens LYCOS"_s);
        window.Form().List1->SetListIndex(-1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          QPoint(5, list->viewport()->height() - 2));
        QCOMPARE(list->toolTip(), u"Ticker List"_s);
    }

    void WithToolTipsOffTheToolTipStays() {
        Window window("MSFT|");
        window->Form().SetToolTips(false);
        window.Form().List1->setToolTip(u"as it was"_s);
        QListView* list = window.Form().List1;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(0, 0)).center());
        QCOMPARE(list->toolTip(), u"as it was"_s);
    }

    void NothingSelectedMeansNothingOpenedOrDeleted() {
        Window window("MSFT|");
        window.Form().List1->SetListIndex(-1);
        QTest::keyClick(window.Form().List1, Qt::Key_Return);
        QTest::keyClick(window.Form().List1, Qt::Key_Delete);
        QTest::mouseDClick(window.Form().List1->viewport(), Qt::LeftButton, {},
                           QPoint(5, window.Form().List1->viewport()->height() - 2));
        QVERIFY(window.navigations->isEmpty());
        QCOMPARE(window.Form().List1->Count(), 1);
        QCOMPARE(window.Stored("Stocks1"), u"MSFT|"_s);
    }

    void TheTickerMenuNamesTheTickerAndShowsItsNote() {
        Window window("MSFT|");
        std::string ignored;
        TickerNotes(window.Folder(), ignored, "SET", "MSFT", "watch R&D", "\\TickNotes.txt");
        OpenMenu(window);
        const MainMenus& menus = *window.Form().menus;
        QCOMPARE(menus.mnuDeleteTick->text(), u"Delete MSFT"_s);
        QCOMPARE(menus.mnuMoveit()->text(), u"Move MSFT to :"_s);
        QCOMPARE(menus.mnuCopyTo()->text(), u"Copy MSFT to :"_s);
        QCOMPARE(menus.mnuTickNote->menuAction()->text(), u"Notes on MSFT"_s);
        QCOMPARE(menus.mnuTickNotes->text(), u"watch R&&D"_s);
        QCOMPARE(menus.mnuCopyIt->text(), u"Copy Portfolio #1"_s);
        QVERIFY(menus.mnuDeleteTick->isEnabled());
        QVERIFY(!menus.mnuMoveAllPort.items[1]->isEnabled());
        QVERIFY(menus.mnuMoveAllPort.items[2]->isEnabled());
        QVERIFY(!menus.mnuCopyAllPort.items[1]->isEnabled());
    }

    void WithoutATickerTheMenuIsDisabled() {
        Window window("");
        OpenMenu(window);
        const MainMenus& menus = *window.Form().menus;
        QCOMPARE(menus.mnuMoveit()->text(), u"Move to :"_s);
        QCOMPARE(menus.mnuCopyTo()->text(), u"Copy to :"_s);
        QCOMPARE(menus.mnuTickNote->menuAction()->text(), u"Note"_s);
        for (const QAction* item : {menus.mnuDeleteTick, menus.mnuMoveit(), menus.mnuCopyTo(),
                                    menus.mnuTickNote->menuAction(), menus.mnuCopyIt,
                                    menus.mnuMoveAll(), menus.mnuCopyAllPorts()})
            QVERIFY(!item->isEnabled());
    }

    void ANoteThatCannotBeSavedIsToldAndTheOldOneStays() {
        Window window("MSFT|");
        OpenMenu(window);
        window.prompts.inputs = {u"old"_s, u"new"_s};
        window.Form().menus->mnuTickNotes->trigger();
        const auto file = window.Folder() / "TickNotes.txt";
        const std::string before = ReadExistingFile(file);
        window.prompts.messages.clear();
        {
            const FullDisk disk(0);
            window.Form().menus->mnuTickNotes->trigger();
        }
        QCOMPARE(window.prompts.messages.size(), 2);
        QVERIFY(window.prompts.messages.last().startsWith(
            u"Quorvane: The note on MSFT could not be saved."_s));
        QCOMPARE(ReadExistingFile(file), before);
        QCOMPARE(window.Form().menus->mnuTickNotes->text(), u"old"_s);
    }

    void BarsThatWouldEndANoteArePartedAndThatIsTold() {
        Window window("MSFT|");
        OpenMenu(window);
        window.prompts.inputs = {u"up ||||| down"_s};
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(window.prompts.messages.last(), u"Quorvane: "_s + ToQt(kBarsParted));
        std::string note;
        TickerNotes(window.Folder(), note, "GET", "MSFT", "", kTickerNotesFile);
        QCOMPARE(note, "up |||| | down");
    }

    void ANoteIsEditedAndCancelRemovesIt() {
        Window window("MSFT|");
        OpenMenu(window);
        window.prompts.inputs = {u"first note"_s, u"second"_s, std::nullopt};
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(window.prompts.messages,
                 QStringList{u"Ticker Notes: Enter a personal note on MSFT\r\nClicking 'Cancel' "
                             "will remove the note"_s});
        QCOMPARE(ReadWholeFile(window.Folder() / "TickNotes.txt"), "||MSFT||first note|||||\r\n");
        QCOMPARE(window.Form().menus->mnuTickNotes->text(), u"first note"_s);
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(window.prompts.presets, (QStringList{QString(), u"first note"_s}));
        std::string note;
        TickerNotes(window.Folder(), note, "GET", "MSFT", "", "\\TickNotes.txt");
        QCOMPARE(note, "second");
        window.Form().menus->mnuTickNotes->trigger();
        TickerNotes(window.Folder(), note, "GET", "MSFT", "", "\\TickNotes.txt");
        QCOMPARE(note, "");
    }

    void TheRightButtonSelectsTheTickerUnderItAndNothingElsewhere() {
        Window window("AOL|MSFT|IBM|");
        ListBox* list = window.Form().List1;
        list->SetListIndex(0);
        const auto press = [&](const QPoint& at) {
            QTest::mouseClick(list->viewport(), Qt::RightButton, {}, at);
            QWidget* menu = QApplication::activePopupWidget();
            QCOMPARE(menu, window.Form().menus->mnuRightTick);
            menu->close();
        };
        const QRect last = list->visualRect(list->model()->index(2, 0));
        press(last.center());
        QCOMPARE(list->SelectedText(), u"IBM"_s);
        QCOMPARE(window.Form().menus->mnuDeleteTick->text(), u"Delete IBM"_s);
        QVERIFY(list->toolTip().startsWith(u"Ticker : IBM, "_s));
        press(last.center() + QPoint(0, 2 * last.height()));
        QCOMPARE(list->SelectedText(), u"IBM"_s);
        QCOMPARE(window.Form().menus->mnuDeleteTick->text(), u"Delete IBM"_s);
    }

    void TheStatusLineSaysWhatAnEntryDid() {
        Window window("MSFT|");
        const QLabel* status = window.Form().WebStatus;
        window.Enter(u"amd"_s);
        QCOMPARE(status->text(), u"AMD added."_s);
        window.Enter(u"'ge'; msft"_s);
        QCOMPARE(status->text(), u"GE added; MSFT is in the list already."_s);
        QCOMPARE(window.Form().txtStock->text(), u"'GE'; MSFT"_s);
        QCOMPARE(window.Form().List1->Items(), (QStringList{u"MSFT"_s, u"AMD"_s, u"GE"_s}));
    }

    void DownInTheEntryBoxLeadsToTheTickerThatWasEnteredLast() {
        Window window("AOL|MSFT|");
        ListBox* list = window.Form().List1;
        QTest::keyClick(window.Form().txtStock, Qt::Key_Down);
        QCOMPARE(list->SelectedText(), u"AOL"_s);
        window.Enter(u"ge amd"_s);
        QTest::keyClick(window.Form().txtStock, Qt::Key_Down);
        QCOMPARE(list->SelectedText(), u"AMD"_s);
        window.Enter(u"msft"_s);
        QTest::keyClick(window.Form().txtStock, Qt::Key_Down);
        QCOMPARE(list->SelectedText(), u"MSFT"_s);
        // With a modifier the key is the box's own.
        list->SetListIndex(0);
        QTest::keyClick(window.Form().txtStock, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(list->SelectedText(), u"AOL"_s);
    }

    void ANoteKeepsItsLinesAndTheMenuShowsTheFirst() {
        Window window("AOL|MSFT|");
        window.Form().List1->SetListIndex(1);
        OpenMenu(window);
        window.prompts.inputs = {u"first\n\nthird\n"_s, u"first\n\nthird"_s};
        window.Form().menus->mnuTickNotes->trigger();
        const QByteArray stored = "first\r\n \r\nthird";
        std::string note;
        TickerNotes(window.Folder(), note, "GET", "AOL", "", kTickerNotesFile);
        QCOMPARE(note, stored.toStdString());
        QCOMPARE(window.Form().menus->mnuTickNotes->text(), u"first\u2026"_s);
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(window.prompts.presets.last(), u"first\n\nthird"_s);
        QCOMPARE(window.prompts.messages.filter(u"Quorvane"_s), QStringList());
        TickerNotes(window.Folder(), note, "GET", "AOL", "", kTickerNotesFile);
        QCOMPARE(note, stored.toStdString());
    }

    void ATickerWithANoteIsMarkedAndShowsIt() {
        Window window("AOL|MSFT|");
        const ListBox& list = *window.Form().List1;
        QCOMPARE(list.MarkOf(0).sign, QString());
        OpenMenu(window);
        window.prompts.inputs = {u"one\ntwo"_s, std::nullopt};
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(list.MarkOf(0).sign, u"\u270E"_s);
        QCOMPARE(list.MarkOf(0).hint, u"AOL: one\ntwo"_s);
        QCOMPARE(list.MarkOf(0).meaning, u"has a note"_s);
        QCOMPARE(list.MarkOf(1).sign, QString());
        QCOMPARE(list.model()->index(0, 0).data(Qt::ToolTipRole).toString(), u"AOL: one\ntwo"_s);
        window.Form().SetToolTips(false);
        QCOMPARE(list.MarkOf(0).hint, QString());
        QCOMPARE(list.MarkOf(0).sign, u"\u270E"_s);
        window.Form().menus->mnuTickNotes->trigger();
        QCOMPARE(list.MarkOf(0).sign, QString());
        window.Form().menus->undo->trigger();
        QCOMPARE(list.MarkOf(0).sign, u"\u270E"_s);
    }

    void ATickerThatNoSourceKnowsIsMarked() {
        Window window("AOL|NOSUCH|");
        const ListBox& list = *window.Form().List1;
        window->Controllers().portfolio.marks->SetUnknown(
            [](const std::string& ticker) { return ticker == "NOSUCH"; });
        QCOMPARE(list.MarkOf(0).sign, QString());
        QCOMPARE(list.MarkOf(1).sign, u"?"_s);
        QCOMPARE(list.MarkOf(1).meaning, u"not known to the sources of quotes"_s);
        QCOMPARE(list.MarkOf(1).hint, u"No source of quotes knows NOSUCH."_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(TickerBoxTest)
#include "TickerBoxTest.moc"
