#include "core/backup/backup_files.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"
#include "core/text/zip_archive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

constexpr std::uint64_t kMega = 1024 * 1024;

TEST(BackupFiles, OnlyTheFilesOfStoresHaveALimit) {
    struct Case {
        std::string name;
        std::optional<std::uint64_t> limit;
    };
    const Case cases[] = {
        {"settings.ini", 16 * kMega},
        {"TickNotes.txt", 64 * kMega},
        {"remind.txt", 64 * kMega},
        {"sites.toml", 16 * kMega},
        {"sources.toml", 16 * kMega},
        {"My Pages.mlnk", 16 * kMega},
        {"\xC3\xA9t\xC3\xA9.mlnk", 16 * kMega},
        {"", {}},
        {".mlnk", {}},
        {"Settings.ini", {}},
        {"undo.txt", {}},
        {"report.html", {}},
        {"settings.ini.bak", {}},
        {"engine/Cookies", {}},
        {"../settings.ini", {}},
        {"/etc/passwd", {}},
        {"../a.mlnk", {}},
        {"a/b.mlnk", {}},
        {"a\\b.mlnk", {}},
        {"\\a.mlnk", {}},
        {"C:a.mlnk", {}},
        {"a\n.mlnk", {}},
        {std::string("a\0.mlnk", 7), {}},
        {std::string(195, 'a') + ".mlnk", 16 * kMega},
        {std::string(196, 'a') + ".mlnk", {}},
    };
    for (const Case& row : cases)
        EXPECT_EQ(BackupFileLimit(row.name), row.limit) << row.name;
}

/// The folders of a user without a profile of his own, with something in each store.
struct User {
    User() {
        WriteWholeFile(places.settingsFile, "[Settings]\nStocks1=AOL|\n");
        WriteWholeFile(places.programFolder / "TickNotes.txt", "||AOL||mine|||||\r\n");
        WriteWholeFile(places.programFolder / "Pages.mlnk", "a page");
        WriteWholeFile(places.programFolder / "report.html", "left out");
        WriteWholeFile(places.programFolder / "undo.txt", "left out");
        WriteWholeFile(places.programFolder / "engine" / "Cookies", "left out");
        WriteWholeFile(places.tables / "sites.toml", "[hosts]\n");
    }
    TemporaryFolder folder;
    StorePlaces places{folder.Path() / "config" / "settings.ini", folder.Path() / "data",
                       folder.Path() / "config"};
    const BackupFiles files{{"settings.ini", "[Settings]\nStocks1=AOL|\n"},
                            {"TickNotes.txt", "||AOL||mine|||||\r\n"},
                            {"Pages.mlnk", "a page"},
                            {"sites.toml", "[hosts]\n"}};
};

TEST(BackupFiles, AStoreLiesWhereTheProgramKeepsIt) {
    const User user;
    EXPECT_EQ(PlaceOf(user.places, "settings.ini"), user.places.settingsFile);
    EXPECT_EQ(PlaceOf(user.places, "sources.toml"), user.places.tables / "sources.toml");
    EXPECT_EQ(PlaceOf(user.places, "remind.txt"), user.places.programFolder / "remind.txt");
    EXPECT_EQ(PlaceOf(user.places, "a.mlnk"), user.places.programFolder / "a.mlnk");
}

TEST(BackupFiles, TheStoresAreReadAndNothingElse) {
    EXPECT_EQ(ReadStores(User().places), User().files);
}

TEST(BackupFiles, ABackupHoldsWhatWasPacked) {
    const User user;
    const auto file = user.folder.Path() / "backup.zip";
    WriteWholeFile(file, PackBackup(user.files, 0));
    EXPECT_EQ(ReadBackup(file), user.files);
}

TEST(BackupFiles, AStoreThatCannotBeReadIsTold) {
    const User user;
    std::filesystem::create_directory(user.places.programFolder / "remind.txt");
    EXPECT_THROW(ReadStores(user.places), RuntimeError);
}

TEST(BackupFiles, AFolderOfAProfileIsABackupToo) {
    const User user;
    const auto other = user.folder.Path() / "other";
    WriteWholeFile(other / "settings.ini", "[Settings]\n");
    WriteWholeFile(other / "sites.toml", "[links]\n");
    EXPECT_EQ(ReadProfileFolder(other),
              (BackupFiles{{"settings.ini", "[Settings]\n"}, {"sites.toml", "[links]\n"}}));
}

TEST(BackupFiles, AnythingElseIsNone) {
    const User user;
    const auto empty = user.folder.Path() / "empty";
    std::filesystem::create_directory(empty);
    EXPECT_THROW(ReadProfileFolder(empty), RuntimeError);
    EXPECT_THROW(ReadProfileFolder(user.folder.Path() / "missing"), RuntimeError);
    const auto file = user.folder.Path() / "other.zip";
    EXPECT_THROW(ReadBackup(file), RuntimeError);
    WriteWholeFile(file, "no archive");
    EXPECT_THROW(ReadBackup(file), RuntimeError);
    WriteWholeFile(file, WriteZip({{"../../settings.ini", "x"}, {"letter.txt", "x"}}, 0));
    EXPECT_THROW(ReadBackup(file), RuntimeError);
}

} // namespace
} // namespace tallowmere
