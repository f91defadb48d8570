#include "app/backup/Backups.h"

#include "app/backup/BackupControllers.h"
#include "app/backup/DatedCopies.h"
#include "app/forms/frmRestore.h"
#include "core/backup/backup_files.h"
#include "core/custom/multi_link.h"
#include "core/shell/undo_recorder.h"
#include "core/tools/reminders.h"
#include "support/ModalDialog.h"
#include "support/UndoUser.h"

#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct BackupUser : UndoUser {
    BackupUser() { outside.mkpath(u"."_s); }
    QString File(const QString& name) const { return outside.filePath(name); }
    QString MakeBackup(const BackupFiles& files, const QString& name = u"other.zip"_s) {
        WriteWholeFile(ToPath(File(name)), PackBackup(files, 0));
        return File(name);
    }
    /// Chooses a file in the menu's box and works with the window that then appears.
    void Restore(const QString& file, const std::function<void(frmRestore&)>& use) {
        prompts.files << file;
        WithDialog<frmRestore>([this] { Menus().At("restore")->trigger(); }, use);
    }
    static void Accept(frmRestore& window) { QTest::mouseClick(window.cmdRestore, Qt::LeftButton); }
    BackupFiles Stored() const {
        return ReadStores({Folder() / "settings.ini", Folder(), Folder()});
    }

    QTemporaryDir temporary;
    QDir outside{temporary.path()};
};

QTreeWidgetItem* Row(frmRestore& window, const QString& part) {
    for (int row = 0; row < window.lstChanges->topLevelItemCount(); ++row)
        if (window.lstChanges->topLevelItem(row)->text(frmRestore::Part).startsWith(part))
            return window.lstChanges->topLevelItem(row);
    throw std::runtime_error("there is no such row");
}

QStringList Counts(frmRestore& window, const QString& part) {
    const QTreeWidgetItem* row = Row(window, part);
    return {row->text(frmRestore::New), row->text(frmRestore::Changed),
            row->text(frmRestore::Gone)};
}

} // namespace

class BackupsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void EverythingGoesIntoOneArchive() {
        BackupUser user;
        user.prompts.files << user.File(u"mine.zip"_s);
        user.Menus().At("backUp")->trigger();
        const BackupFiles files = ReadBackup(ToPath(user.File(u"mine.zip"_s)));
        QCOMPARE(QByteArray::fromStdString(files.at("TickNotes.txt")),
                 QByteArray("||MSFT||mine|||||\r\n"));
        QVERIFY(files.at("settings.ini").find("Stocks1=AOL|MSFT|IBM|") != std::string::npos);
        QVERIFY(!files.contains("undo.txt"));
        QVERIFY(user.prompts.messages.last().endsWith(u"/tallowmere-2026-11-21.zip"_s));
        QCOMPARE(user.Form().WebStatus->text(), u"Backed up to "_s + user.File(u"mine.zip"_s));
    }

    void ABackupThatCannotBeWrittenIsTold() {
        BackupUser user;
        user.prompts.files << user.File(u"."_s);
        user.Menus().At("backUp")->trigger();
        QVERIFY(user.prompts.messages.last().startsWith(u"Quorvane: Cannot "_s));
    }

    void WhatWouldChangeIsShownAndNothingIsDoneWithoutAYes() {
        BackupUser user;
        const BackupFiles before = user.Stored();
        const QString file = user.MakeBackup({
            {"settings.ini", "[Settings]\nStocks1=GE|\nPortName1=Tech\nStocks3=AMD|\n"},
            {"TickNotes.txt", "||MSFT||other|||||\r\n||GE||new|||||\r\n"},
        });
        user.Restore(file, [](frmRestore& window) {
            QCOMPARE(Counts(window, u"Portfolios"_s), (QStringList{u"1"_s, u"1"_s, u"1"_s}));
            QCOMPARE(Row(window, u"Portfolios"_s)->child(0)->text(frmRestore::Part),
                     u"Portfolio 3"_s);
            QCOMPARE(Counts(window, u"Notes"_s), (QStringList{u"1"_s, u"1"_s, QString()}));
            QCOMPARE(Row(window, u"Reminders"_s)->text(frmRestore::Part),
                     u"Reminders (no change)"_s);
            QTest::mouseClick(window.cmdCancel, Qt::LeftButton);
        });
        QVERIFY(user.Stored() == before);
        QCOMPARE(user.Undo(), u"&Undo"_s);
    }

    void ARestoreIsShownAtOnceAndIsOneStepOfUndo() {
        BackupUser user;
        WriteWholeFile(user.Folder() / "Old.mlnk", "a page");
        const BackupFiles before = user.Stored();
        const QString file = user.MakeBackup({
            {"settings.ini", "[Settings]\nStocks1=GE|AMD|\nPortName1=Best\nPortLabels=False\n"
                             "Tips=False\nCustom101=http://a.example/\nCustomT101=Mine\n"},
            {"TickNotes.txt", "||GE||new|||||\r\n"},
            {"New.mlnk", "another"},
        });
        const QString link = user.Link(101)->Caption();
        user.Restore(file, BackupUser::Accept);
        QCOMPARE(user.Tickers(), (QStringList{u"GE"_s, u"AMD"_s}));
        QCOMPARE(user.Form().lblPort->Caption(), u"Best"_s);
        QVERIFY(user.Form().lblPort->isHidden());
        QVERIFY(!user.Form().ShowsToolTips());
        QCOMPARE(user.Link(101)->Caption(), u"Mine"_s);
        QVERIFY(user.Stored().contains("New.mlnk") && !user.Stored().contains("Old.mlnk"));
        QCOMPARE(user.Form().WebStatus->text(), u"Restored from other.zip"_s);
        QVERIFY(user.Bar().isVisible());

        QCOMPARE(user.Undo(), u"&Undo Restore other.zip"_s);
        user.Menus().undo->trigger();
        QVERIFY(user.Stored() == before);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        QVERIFY(!user.Form().lblPort->isHidden());
        QVERIFY(user.Form().ShowsToolTips());
        QCOMPARE(user.Link(101)->Caption(), link);
        user.Menus().redo->trigger();
        QCOMPARE(user.Tickers(), (QStringList{u"GE"_s, u"AMD"_s}));
    }

    void OnlyCheckedPartsAreTaken() {
        BackupUser user;
        const QString file = user.MakeBackup({
            {"settings.ini", "[Settings]\nStocks1=GE|\n"},
            {"TickNotes.txt", "||GE||new|||||\r\n"},
        });
        user.Restore(file, [](frmRestore& window) {
            Row(window, u"Portfolios"_s)->setCheckState(frmRestore::Part, Qt::Unchecked);
            BackupUser::Accept(window);
        });
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        QCOMPARE(user.UndoUser::File("TickNotes.txt"), QByteArray("||GE||new|||||\r\n"));
    }

    void WhatTheBackupHasNothingOfStaysUnlessItIsChecked() {
        BackupUser user;
        const QString file = user.MakeBackup({{"settings.ini", "[Settings]\nStocks1=GE|\n"}});
        user.Restore(file, [](frmRestore& window) {
            QCOMPARE(Row(window, u"Notes"_s)->checkState(frmRestore::Part), Qt::Unchecked);
            BackupUser::Accept(window);
        });
        QCOMPARE(user.UndoUser::File("TickNotes.txt"), QByteArray("||MSFT||mine|||||\r\n"));
        user.Restore(file, [](frmRestore& window) {
            QVERIFY(!window.cmdRestore->isEnabled());
            Row(window, u"Notes"_s)->setCheckState(frmRestore::Part, Qt::Checked);
            BackupUser::Accept(window);
        });
        QVERIFY(!user.Stored().contains("TickNotes.txt"));
    }

    void ATableThatStartsAProgramIsNotTakenUnseen() {
        BackupUser user;
        const QString file = user.MakeBackup({{"sites.toml", "[programs]\nmail = \"evil\"\n"}});
        user.Restore(file, [](frmRestore& window) {
            const QTreeWidgetItem* row = Row(window, u"Table of sites"_s);
            QCOMPARE(row->checkState(frmRestore::Part), Qt::Unchecked);
            QVERIFY(row->isExpanded());
            QCOMPARE(row->child(0)->text(frmRestore::Part),
                     u"It starts a program of this machine: evil"_s);
        });
    }

    void AllOfBeforeIsKeptInAnArchive() {
        BackupUser user;
        const BackupFiles before = user.Stored();
        user.Restore(user.MakeBackup({{"settings.ini", "[Settings]\nStocks1=GE|\n"}}),
                     BackupUser::Accept);
        QVERIFY(ReadBackup(user.Folder() / "backups" / "before-restore.zip") == before);
    }

    void WhatIsNoBackupIsToldAndChangesNothing() {
        BackupUser user;
        const BackupFiles before = user.Stored();
        WriteWholeFile(ToPath(user.File(u"bad.zip"_s)), "no archive");
        user.prompts.files << user.File(u"bad.zip"_s);
        user.Menus().At("restore")->trigger();
        QVERIFY(user.prompts.messages.last().contains(u"is no backup that can be read"_s));
        QVERIFY(user.Stored() == before);
    }

    void AStoreThatCannotBeWrittenLeavesEverythingAsItWas() {
        BackupUser user;
        const BackupFiles before = user.Stored();
        const QString file = user.MakeBackup(
            {{"settings.ini", "[Settings]\nStocks1=GE|\n"}, {"sources.toml", "x = 1\n"}});
        user.Restore(file, [&](frmRestore& window) {
            QDir(PathToQt(user.Folder())).mkpath(u"sources.toml/in the way"_s);
            BackupUser::Accept(window);
        });
        QVERIFY(user.prompts.messages.last().contains(u"sources.toml"_s));
        QDir(PathToQt(user.Folder() / "sources.toml")).removeRecursively();
        QVERIFY(user.Stored() == before);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
    }

    void TheFolderOfAProfileIsImported() {
        BackupUser user;
        WriteWholeFile(ToPath(user.File(u"settings.ini"_s)), "[Settings]\nStocks1=GE|\n");
        user.prompts.files << user.temporary.path();
        WithDialog<frmRestore>([&] { user.Menus().At("importProfile")->trigger(); },
                               BackupUser::Accept);
        QCOMPARE(user.Tickers(), QStringList{u"GE"_s});
    }

    void NothingIsDoneWhenNoFileIsChosen() {
        BackupUser user;
        const BackupFiles before = user.Stored();
        for (QAction* command : {user.Menus().At("backUp"), user.Menus().At("restore"),
                                 user.Menus().At("importProfile")})
            command->trigger();
        QVERIFY(user.Stored() == before);
        QCOMPARE(user.prompts.messages.size(), 3);
    }
};

QTEST_MAIN(BackupsTest)
#include "BackupsTest.moc"
