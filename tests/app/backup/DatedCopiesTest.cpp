#include "app/backup/DatedCopies.h"

#include "app/backup/BackupControllers.h"
#include "core/backup/backup_files.h"
#include "support/UndoUser.h"

#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct CopyUser : UndoUser {
    DatedCopies& Copies() { return *(*this)->Controllers().backup.copies; }
    std::filesystem::path Copy(const char* name) const { return Folder() / "backups" / name; }
    CopyOutcome Make() {
        QSignalSpy done(&Copies(), &DatedCopies::Done);
        Copies().Make();
        if (!done.wait())
            throw std::runtime_error("no copy came to its end");
        return done.first().first().value<CopyOutcome>();
    }
};

} // namespace

class DatedCopiesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AStartMakesNoneButHasOneDue() {
        CopyUser user;
        QVERIFY(user.Copies().Due().isActive());
        QVERIFY(!std::filesystem::exists(user.Copy("")));
    }

    void ACopyHoldsTheStoresOfTheDay() {
        CopyUser user;
        QCOMPARE(user.Make(), CopyOutcome::Made);
        QVERIFY(!user.Copies().Due().isActive());
        const BackupFiles files = ReadBackup(user.Copy("2026-11-21.zip"));
        QCOMPARE(files.at("TickNotes.txt"), "||MSFT||mine|||||\r\n");
        QCOMPARE(user.Make(), CopyOutcome::Same);
    }

    void ACommandMakesOneDue() {
        CopyUser user;
        user.Make();
        user.Select(2);
        user.Menus().mnuDeleteTick->trigger();
        QVERIFY(user.Copies().Due().isActive());
        user.clock.now = user.clock.now.addDays(1);
        QCOMPARE(user.Make(), CopyOutcome::Made);
        QVERIFY(std::filesystem::exists(user.Copy("2026-11-21.zip")));
        QVERIFY(std::filesystem::exists(user.Copy("2026-11-22.zip")));
    }

    void ACopyThatCannotBeMadeIsToldOnce() {
        CopyUser user;
        WriteWholeFile(user.Folder() / "backups", "in the way");
        QSignalSpy failed(&user.Copies(), &DatedCopies::Failed);
        QCOMPARE(user.Make(), CopyOutcome::Left);
        QVERIFY(user.Form().WebStatus->text().startsWith(u"No copy of your data was made: "_s));
        user.Make();
        QCOMPARE(failed.size(), 1);
    }

    void TheEndDoesNotWaitForOne() {
        CopyUser user;
        WriteWholeFile(user.Folder() / "Large.mlnk", std::string(8'000'000, 'x'));
        user.Copies().Make();
        user.End();
        QVERIFY(!std::filesystem::exists(user.Folder() / "backups" / "2026-11-22.zip"));
        // It is there whole or not at all.
        if (std::filesystem::exists(user.Copy("2026-11-21.zip")))
            QVERIFY(ReadBackup(user.Copy("2026-11-21.zip")).contains("Large.mlnk"));
    }
};

QTEST_MAIN(DatedCopiesTest)
#include "DatedCopiesTest.moc"
