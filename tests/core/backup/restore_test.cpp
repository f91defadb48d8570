#include "core/backup/restore.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"
#include "support/FullDisk.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

const std::set<BackupPart> kParts{BackupPart::Portfolios, BackupPart::Notes, BackupPart::Reminders,
                                  BackupPart::MultiLinks, BackupPart::Sites};

struct User {
    User() {
        WriteWholeFile(places.settingsFile, "[Settings]\nStocks1=A|\n");
        WriteWholeFile(folder.Path() / "TickNotes.txt", "||A||old|||||\r\n");
        WriteWholeFile(folder.Path() / "Gone.mlnk", "page");
    }
    void Take(const BackupFiles& files) {
        Restore(places, settings, PlanRestore(ReadStores(places), files, kParts));
    }
    bool IsPending() const { return std::filesystem::exists(RestoreFile(places)); }

    TemporaryFolder folder;
    StorePlaces places{folder.Path() / "settings.ini", folder.Path(), folder.Path()};
    SettingsStore settings{places.settingsFile};
    const BackupFiles before{{"settings.ini", "[Settings]\nStocks1=A|\n"},
                             {"TickNotes.txt", "||A||old|||||\r\n"},
                             {"Gone.mlnk", "page"}};
    const BackupFiles backup{{"settings.ini", "[Settings]\nStocks1=B|\n"},
                             {"TickNotes.txt", "||A||young|||||\r\n"},
                             {"New.mlnk", "page"},
                             {"sites.toml", "[hosts]\n"}};
};

TEST(Restore, AllStoresHoldWhatTheBackupHolds) {
    User user;
    user.Take(user.backup);
    EXPECT_EQ(ReadStores(user.places), user.backup);
    EXPECT_FALSE(user.IsPending());
    EXPECT_EQ(user.settings.GetSetting("Settings", "Stocks1", ""), "B|");
    EXPECT_FALSE(FinishRestore(user.places));
}

TEST(Restore, APlanOfNothingDoesNothing) {
    User user;
    user.Take(user.before);
    EXPECT_EQ(ReadStores(user.places), user.before);
    EXPECT_FALSE(user.IsPending());
}

TEST(Restore, AStoreThatCannotBeWrittenLeavesAllAsTheyWere) {
    User user;
    std::filesystem::create_directories(user.folder.Path() / "remind.txt" / "in the way");
    RestorePlan plan = PlanRestore(user.before, user.backup, kParts);
    plan.files["remind.txt"] = "||01-01-2027||x|||||\r\n";
    EXPECT_THROW(Restore(user.places, user.settings, plan), RuntimeError);
    std::filesystem::remove_all(user.folder.Path() / "remind.txt");
    EXPECT_EQ(ReadStores(user.places), user.before);
    EXPECT_FALSE(user.IsPending());
}

TEST(Restore, AFullDiskLeavesAllAsTheyWere) {
    User user;
    BackupFiles backup = user.backup;
    // It packs well: what does not fit is the store, not what is written before it.
    backup["remind.txt"] = "||01-01-2027||" + std::string(200'000, 'x') + "|||||\r\n";
    {
        const FullDisk disk(20'000);
        EXPECT_THROW(user.Take(backup), RuntimeError);
    }
    EXPECT_EQ(ReadStores(user.places), user.before);
    EXPECT_FALSE(user.IsPending());
    {
        const FullDisk disk(10);
        EXPECT_THROW(user.Take(user.backup), RuntimeError);
    }
    EXPECT_EQ(ReadStores(user.places), user.before);
    EXPECT_FALSE(user.IsPending());
}

TEST(Restore, WhatAnEndOfTheProgramCutIsFinishedByTheNextStart) {
    const User reference;
    const RestorePlan plan = PlanRestore(reference.before, reference.backup, kParts);
    // As many of its files as were written by then; the settings are the first.
    for (std::size_t written = 0; written <= plan.files.size(); ++written) {
        User user;
        User done;
        done.Take(done.backup);
        std::size_t n = 0;
        for (const auto& [name, content] : plan.files)
            if (n++ < written) {
                const auto from = PlaceOf(done.places, name);
                const auto to = PlaceOf(user.places, name);
                std::filesystem::remove(to);
                if (!content.empty())
                    std::filesystem::copy_file(from, to);
            }
        WriteWholeFile(RestoreFile(user.places), PackBackup(plan.files, 0));
        EXPECT_TRUE(FinishRestore(user.places));
        EXPECT_EQ(ReadStores(user.places), user.backup) << written;
        EXPECT_FALSE(user.IsPending());
    }
}

TEST(Restore, WhatCannotBeFinishedIsToldAndTriedAgain) {
    User user;
    const RestorePlan plan = PlanRestore(user.before, user.backup, kParts);
    WriteWholeFile(RestoreFile(user.places), PackBackup(plan.files, 0));
    std::filesystem::create_directories(user.folder.Path() / "sites.toml" / "in the way");
    EXPECT_THROW(FinishRestore(user.places), RuntimeError);
    EXPECT_TRUE(user.IsPending());
    std::filesystem::remove_all(user.folder.Path() / "sites.toml");
    EXPECT_TRUE(FinishRestore(user.places));
    EXPECT_EQ(ReadStores(user.places), user.backup);
}

} // namespace
} // namespace tallowmere
