#include "app/shell/UndoCommands.h"

#include "app/custom/CustomEditor.h"
#include "app/forms/UndoBar.h"
#include "app/forms/frmCustom.h"
#include "app/forms/frmRemind.h"
#include "app/portfolio/Portfolios.h"
#include "app/tools/DailyReminders.h"
#include "core/custom/custom_link.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/FullDisk.h"
#include "support/LinkDrop.h"
#include "support/UndoUser.h"
#include "support/WebTest.h"

#include <QCalendarWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include <random>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class UndoCommandsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AtFirstThereIsNothingToUndo() {
        UndoUser user;
        QCOMPARE(user.Undo(), u"&Undo"_s);
        QCOMPARE(user.Redo(), u"&Redo"_s);
        QVERIFY(!user.Menus().undo->isEnabled());
        QVERIFY(!user.Menus().redo->isEnabled());
        QVERIFY(user.Bar().isHidden());
    }

    void ADeletedTickerComesBackWithItsNoteAndIsSelected() {
        UndoUser user;
        const auto before = user.Stores();
        user.Select(1);
        QTest::keyClick(user.Form().List1, Qt::Key_Delete);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"IBM"_s}));
        QCOMPARE(user.Undo(), u"&Undo Delete MSFT"_s);
        QCOMPARE(user.Bar().Words(), u"MSFT and its note removed."_s);
        QTest::keyClick(user.Form().List1, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        QCOMPARE(user.Form().List1->SelectedText(), u"MSFT"_s);
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Redo(), u"&Redo Delete MSFT"_s);
        QVERIFY(user.Bar().isHidden());
        QCOMPARE(user.Form().WebStatus->text(), u"Undone: Delete MSFT"_s);
        QTest::keyClick(user.Form().List1, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"IBM"_s}));
        QCOMPARE(user.File("TickNotes.txt"), QByteArray("\r\n"));
    }

    void AHistoryThatCannotBeKeptIsSaidInTheStatusLine() {
        UndoUser user;
        std::filesystem::remove(user.Folder() / "undo.txt");
        std::filesystem::create_directory(user.Folder() / "undo.txt");
        user.Select(1);
        QTest::keyClick(user.Form().List1, Qt::Key_Delete);
        const QString told = u"After a restart nothing can be undone: "_s;
        QVERIFY(user.Form().WebStatus->text().startsWith(told));
        QTest::keyClick(user.Form().List1, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(user.Tickers().size(), 3);
        QVERIFY(user.Form().WebStatus->text().startsWith(told));
    }

    void TheEntryBoxKeepsItsOwnUndo() {
        UndoUser user;
        user.Enter(u"amd"_s);
        QTest::keyClicks(user.Form().txtStock, u"x"_s);
        QTest::keyClick(user.Form().txtStock, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(user.Tickers().size(), 4);
        QCOMPARE(user.Form().txtStock->text(), QString());
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers().size(), 3);
    }

    void EveryCommandOfThePortfoliosCanBeUndone_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<std::function<void(UndoUser&)>>("command");
        const auto row = [](const char* caption, std::function<void(UndoUser&)> command) {
            QTest::newRow(caption) << QString::fromLatin1(caption) << std::move(command);
        };
        row("Add AMD", [](UndoUser& user) { user.Enter(u"amd"_s); });
        row("Add 2 Tickers", [](UndoUser& user) { user.Enter(u"amd ge"_s); });
        row("Delete IBM", [](UndoUser& user) {
            user.Select(2);
            user.Menus().mnuDeleteTick->trigger();
        });
        row("Clear Ticker List", [](UndoUser& user) {
            user.prompts.answers = {true};
            user.Menus().clearList->trigger();
        });
        row("Copy MSFT to Portfolio #2", [](UndoUser& user) {
            user.Select(1);
            user.Menus().mnuCopyPort.items[2]->trigger();
        });
        row("Move MSFT to Portfolio #3", [](UndoUser& user) {
            user.Select(1);
            user.Menus().mnuMovePort.items[3]->trigger();
        });
        row("Copy Portfolio to Portfolio #2",
            [](UndoUser& user) { user.Menus().mnuCopyAllPort.items[2]->trigger(); });
        row("Move Portfolio to Portfolio #2",
            [](UndoUser& user) { user.Menus().mnuMoveAllPort.items[2]->trigger(); });
        row("Rename Portfolio", [](UndoUser& user) {
            user.prompts.inputs = {u"R&D"_s};
            user.Menus().mnuPortOpt[1]->trigger();
        });
        row("Note on AOL", [](UndoUser& user) {
            user.Select(0);
            user.prompts.inputs = {u"first"_s};
            user.Menus().mnuTickNotes->trigger();
        });
        row("Note on MSFT", [](UndoUser& user) {
            user.Select(1);
            user.prompts.inputs = {std::nullopt};
            user.Menus().mnuTickNotes->trigger();
        });
    }

    void EveryCommandOfThePortfoliosCanBeUndone() {
        QFETCH(const QString, caption);
        QFETCH(const std::function<void(UndoUser&)>, command);
        UndoUser user;
        const auto before = user.Stores();
        const QStringList tickers = user.Tickers();
        command(user);
        const auto after = user.Stores();
        const QStringList tickersAfter = user.Tickers();
        QVERIFY(after != before);
        QCOMPARE(user.Undo(), u"&Undo "_s + caption);
        user.Menus().undo->trigger();
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Tickers(), tickers);
        QCOMPARE(user.Form().lblPort->Caption(), u"Tech"_s);
        QVERIFY(!user.Menus().undo->isEnabled());
        QCOMPARE(user.Redo(), u"&Redo "_s + caption);
        user.Menus().redo->trigger();
        QCOMPARE(user.Stores(), after);
        QCOMPARE(user.Tickers(), tickersAfter);
        QVERIFY(!user.Menus().redo->isEnabled());
    }

    void WhatAnEntryAddedToTheListAloneIsUndoneToo() {
        UndoUser user;
        user.Enter(u"amd aol"_s);
        QCOMPARE(user.Tickers().size(), 4);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|IBM|"_s);
        user.Select(0);
        user.Menus().mnuDeleteTick->trigger();
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s, u"AMD"_s}));
        QCOMPARE(user.Undo(), u"&Undo Add AMD"_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers().size(), 3);
    }

    void UndoOutlastsARestart() {
        UndoUser user;
        user.Select(1);
        user.Menus().mnuDeleteTick->trigger();
        user.Enter(u"ge"_s);
        user.Start();
        QCOMPARE(user.Undo(), u"&Undo Add GE"_s);
        user.Menus().undo->trigger();
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        QCOMPARE(user.File("TickNotes.txt"), QByteArray("||MSFT||mine|||||\r\n"));
        user.Start();
        QVERIFY(!user.Menus().undo->isEnabled());
        QCOMPARE(user.Redo(), u"&Redo Delete MSFT"_s);
    }

    void WhatSomethingElseChangedIsNotOverwritten() {
        UndoUser user;
        user.prompts.inputs = {u"Mine"_s};
        user.Menus().mnuPortOpt[1]->trigger();
        user.Select(1);
        user.prompts.inputs = {u"changed"_s};
        user.Menus().mnuTickNotes->trigger();
        std::string ignored;
        TickerNotes(user.Folder(), ignored, "SET", "GE", "by another", kTickerNotesFile);
        user.prompts.messages.clear();
        user.Menus().undo->trigger();
        QCOMPARE(user.prompts.messages,
                 QStringList{u"Quorvane: \"Note on MSFT\" cannot be undone: the notes changed in "
                             "another way since."_s});
        QVERIFY(user.File("TickNotes.txt").contains("||GE||by another"));
        QCOMPARE(user.Undo(), u"&Undo Rename Portfolio"_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Form().lblPort->Caption(), u"Tech"_s);
    }

    void AStepThatCannotBeWrittenStaysAndIsReported() {
        UndoUser user;
        user.Select(1);
        user.Menus().mnuDeleteTick->trigger();
        const auto before = user.Stores();
        {
            const FullDisk disk(0);
            QVERIFY_THROWS_EXCEPTION(std::exception,
                                     user->Controllers().undo->Go(UndoDirection::Back));
        }
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Undo(), u"&Undo Delete MSFT"_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Tickers().size(), 3);
    }

    void LinksComeBackWithTheirColours() {
        UndoUser user;
        SaveCustomLink(user->Settings(), 101, {"http://a/", "Mine", {0x112233, 0x445566}});
        user.Start();
        const ColorPair mine = user.Link(101)->Colors();
        QCOMPARE(mine, (ColorPair{0x112233, 0x445566}));
        const ColorPair unused = user.Link(102)->Colors();
        const auto before = user.Stores();

        QVERIFY(DropLink(user, 101, 102));
        QCOMPARE(user.Undo(), u"&Undo Move Link Mine"_s);
        QCOMPARE(user.Link(102)->Caption(), u"Mine"_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Link(101)->Caption(), u"Mine"_s);
        QCOMPARE(user.Link(101)->Colors(), mine);
        QCOMPARE(user.Link(102)->Caption(), u"< Custom >"_s);
        QCOMPARE(user.Link(102)->Colors(), unused);
        QCOMPARE(user.Stores(), before);
        user.Menus().redo->trigger();
        QCOMPARE(user.Link(102)->Colors(), mine);
        user.Menus().undo->trigger();

        QTest::mouseClick(user.Link(101), Qt::RightButton);
        QMenu& menu = *user.Form().findChild<QMenu*>(u"mnuCustom"_s);
        menu.setActiveAction(menu.findChild<QAction*>(u"mnuCustLnk4"_s));
        QTest::keyClick(&menu, Qt::Key_Return);
        QCOMPARE(user.Link(101)->Caption(), u"< Custom >"_s);
        QCOMPARE(user.Undo(), u"&Undo Reset Link Mine"_s);
        QCOMPARE(user.Bar().Words(), u"Link \"Mine\" removed."_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Link(101)->Colors(), mine);
        QCOMPARE(user.Stores(), before);
    }

    void ALinkThatWasOverwrittenIsTold() {
        UndoUser user;
        SaveCustomLink(user->Settings(), 101, {"http://a/", "Mine", {1, 2}});
        SaveCustomLink(user->Settings(), 102, {"http://b/", "Other", {3, 4}});
        user.Start();
        user.prompts.answers = {true};
        QVERIFY(DropLink(user, 101, 102));
        QCOMPARE(user.Bar().Words(), u"Link \"Other\" removed."_s);
        QCOMPARE(user.prompts.defaults, QList{Prompts::Answer::No});
        user.Menus().undo->trigger();
        QCOMPARE(user.Link(101)->Caption(), u"Mine"_s);
        QCOMPARE(user.Link(102)->Caption(), u"Other"_s);
    }

    void TheEditorsResetComesBackWithThePageOfAMultiLink() {
        UndoUser user;
        WriteWholeFile(user.Folder() / "Two.mlnk", "<html>page</html>");
        SaveCustomLink(user->Settings(), 103, {"MULTILINK:Two.mlnk", "Two", {1, 2}});
        user.Start();
        const auto before = user.Stores();
        user->Editor().Open(103);
        user->Editor().Editor()->Command1->click();
        user->Editor().Editor()->Command2->click();
        QVERIFY(!std::filesystem::exists(user.Folder() / "Two.mlnk"));
        QCOMPARE(user.Bar().Words(), u"Link \"Two\" removed."_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.File("Two.mlnk"), QByteArray("<html>page</html>"));
        QCOMPARE(user.Link(103)->Caption(), u"Two"_s);
        QCOMPARE(user.Stores(), before);
    }

    void AnEditedLinkIsUndone() {
        UndoUser user;
        user->Editor().Open(104);
        user->Editor().Editor()->txtTitle->setText(u"New"_s);
        user->Editor().Editor()->txtURL->setText(u"http://n/"_s);
        user->Editor().Editor()->Command2->click();
        QCOMPARE(user.Undo(), u"&Undo Edit Link New"_s);
        QVERIFY(user.Bar().isHidden());
        user.Menus().undo->trigger();
        QCOMPARE(user.Link(104)->Caption(), u"< Custom >"_s);
        QCOMPARE(user.Stored("CustomT104"), u"<absent>"_s);
    }

    void RemindersComeBack() {
        UndoUser user;
        user->Reminders().Open();
        user->Reminders().Dialog()->Text1->setPlainText(u"call"_s);
        user->Reminders().SetRemind();
        const auto set = user.File("remind.txt");
        QVERIFY(set.contains("call"));
        user->Reminders().Dialog()->Command1[0]->click();
        QVERIFY(user.File("remind.txt").isEmpty());
        user->Reminders().Dialog()->close();
        QCOMPARE(user.Undo(), u"&Undo Clear All Reminders"_s);
        QCOMPARE(user.Bar().Words(), u"All reminders removed."_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.File("remind.txt"), set);
        QVERIFY(user.Undo().startsWith(u"&Undo Reminder of "_s));
        user.Menus().undo->trigger();
        QVERIFY(user.File("remind.txt").isEmpty());
    }

    // What a user does at the windows themselves, in any order.
    void ARandomWalkThroughTheCommandsIsUndoneAndDoneAgain() {
        UndoUser user;
        std::mt19937 random(7);
        const auto below = [&](int most) {
            return static_cast<int>(random() % static_cast<unsigned>(most));
        };
        const auto at = [&](const PortfolioMenu& menu) {
            return menu.items[static_cast<std::size_t>(2 + below(9))];
        };
        const auto before = user.Stores();
        for (int n = 0; n < 90; ++n) {
            user.Select(user.Tickers().isEmpty() ? -1
                                                 : below(static_cast<int>(user.Tickers().size())));
            switch (below(9)) {
            case 0:
            case 1:
            case 2:
                user.Enter(QString(QChar(u'A' + below(20))) + u" QQ"_s + QString::number(n));
                break;
            case 3:
                user.Menus().mnuDeleteTick->trigger();
                break;
            case 4:
                at(user.Menus().mnuCopyPort)->trigger();
                break;
            case 5:
                at(user.Menus().mnuCopyAllPort)->trigger();
                break;
            case 6:
                user.prompts.inputs = {u"note %1"_s.arg(n)};
                user.Menus().mnuTickNotes->trigger();
                break;
            case 7:
                user.prompts.inputs = {u"name %1"_s.arg(n)};
                user.Menus().mnuPortOpt[1]->trigger();
                break;
            default:
                at(user.Menus().mnuMovePort)->trigger();
            }
        }
        const auto after = user.Stores();
        QVERIFY(after != before);
        for (int n = 0; n < 100 && user.Menus().undo->isEnabled(); ++n)
            user.Menus().undo->trigger();
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        for (int n = 0; n < 100 && user.Menus().redo->isEnabled(); ++n)
            user.Menus().redo->trigger();
        QCOMPARE(user.Stores(), after);
        QVERIFY(!user.Menus().redo->isEnabled());
    }
};

TALLOWMERE_WEB_TEST_MAIN(UndoCommandsTest)
#include "UndoCommandsTest.moc"
