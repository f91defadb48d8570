#include "core/shell/settings_store.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tallowmere {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class Settings : public testing::Test {
protected:
    void Write(std::string_view content) {
        fs::create_directories(m_file.parent_path());
        std::ofstream(m_file, std::ios::binary) << content;
    }

    TemporaryFolder m_folder;
    fs::path m_file = m_folder.Path() / "config" / "tallowmere" / "settings.ini";
    SettingsStore m_store{m_file};
};

TEST_F(Settings, AnAbsentKeyGivesTheDefaultOfItsReader) {
    EXPECT_EQ(m_store.GetSetting("Colors", "bCUST", "1"), "1");
    EXPECT_EQ(m_store.GetSetting("Colors", "bCUST", "2"), "2");
    EXPECT_FALSE(fs::exists(m_file.parent_path()));
}

TEST_F(Settings, ASavedValueIsReadBackByAnotherStore) {
    m_store.SaveSetting("Settings", "Stocks1", "AOL|YHOO|MSFT|");
    m_store.SaveSetting("Settings", "Stocks2", "");
    EXPECT_EQ(m_store.GetSetting("Settings", "Stocks1", "x"), "AOL|YHOO|MSFT|");
    const SettingsStore other(m_file);
    EXPECT_EQ(other.GetSetting("Settings", "stocks1", "x"), "AOL|YHOO|MSFT|");
    EXPECT_EQ(other.GetSetting("Settings", "Stocks2", "x"), "");
    EXPECT_EQ(other.GetSetting("Settings", "Stocks3", "x"), "x");
}

TEST_F(Settings, FileAndFolderAreTheirOwnersAlone) {
    m_store.SaveSetting("Settings", "MNP", "secret");
    const auto access = [](const fs::path& path) { return fs::status(path).permissions(); };
    EXPECT_EQ(access(m_file), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(access(m_file.parent_path()), fs::perms::owner_all);
    EXPECT_EQ(access(m_file.parent_path().parent_path()), fs::perms::owner_all);
    fs::permissions(m_file, fs::perms::all);
    m_store.SaveSetting("Settings", "MNP", "other");
    EXPECT_EQ(access(m_file), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Settings, SeesWhatAnotherProgramWrites) {
    m_store.SaveSetting("Settings", "A", "1");
    EXPECT_EQ(m_store.GetSetting("Settings", "A", ""), "1");
    SettingsStore other(m_file);
    other.SaveSetting("Settings", "A", "2");
    other.SaveSetting("Settings", "B", "3");
    EXPECT_EQ(m_store.GetSetting("Settings", "A", ""), "2");
    m_store.SaveSetting("Settings", "A", "4");
    EXPECT_EQ(m_store.GetSetting("Settings", "B", ""), "3");
    fs::remove(m_file);
    EXPECT_EQ(m_store.GetSetting("Settings", "A", "gone"), "gone");
}

TEST_F(Settings, SeveralValuesAreWrittenTogether) {
    m_store.SaveSetting("Settings", "NAV1", "old");
    m_store.SaveSetting("Colors", "bTE", "1");
    m_store.SaveSettings("Settings", {{"NAV1", "new"}, {"NAV2", "old"}, {"MNP", " x "}});
    EXPECT_EQ(m_store.GetSetting("Settings", "NAV1", "-"), "new");
    EXPECT_EQ(m_store.GetSetting("Settings", "NAV2", "-"), "old");
    EXPECT_EQ(m_store.GetSetting("Settings", "MNP", "-"), " x ");
    EXPECT_EQ(m_store.GetSetting("Colors", "bTE", "-"), "1");
    m_store.SaveSettings("Settings", {});
    EXPECT_EQ(m_store.GetSetting("Settings", "NAV1", "-"), "new");
}

TEST_F(Settings, AnUnchangedValueIsNotWrittenAgain) {
    m_store.SaveSetting("Settings", "A", "1");
    const auto stamp = StampOf(m_file);
    m_store.SaveSetting("Settings", "A", "1");
    EXPECT_EQ(StampOf(m_file), stamp);
}

TEST_F(Settings, ADamagedFileIsKeptOnceBeforeItIsReplaced) {
    const std::string damaged = std::string(512, '\0') + "\n[Settings]\nFirst=OK\n";
    Write(damaged);
    EXPECT_EQ(m_store.GetSetting("Settings", "First", ""), "OK");
    EXPECT_FALSE(fs::exists(BackupPath(m_file)));
    m_store.SaveSetting("Settings", "Tips", "True");
    m_store.SaveSetting("Settings", "Tips", "False");
    EXPECT_EQ(ReadExistingFile(BackupPath(m_file)), damaged);
    EXPECT_EQ(ReadExistingFile(m_file), "[Settings]\nFirst=OK\nTips=False\n");
}

TEST_F(Settings, AZeroedFileHoldsNoKeysAndIsKept) {
    Write(std::string(4096, '\0'));
    EXPECT_EQ(m_store.GetSetting("Settings", "First", "none"), "none");
    m_store.SaveSetting("Settings", "First", "OK");
    EXPECT_EQ(ReadExistingFile(m_file), "[Settings]\nFirst=OK\n");
    EXPECT_EQ(ReadExistingFile(BackupPath(m_file)), std::string(4096, '\0'));
}

TEST_F(Settings, AFolderInItsPlaceIsNeverReplaced) {
    fs::create_directories(m_file / "inside");
    EXPECT_EQ(m_store.GetSetting("Settings", "A", "default"), "default");
    EXPECT_THROW(m_store.SaveSetting("Settings", "A", "1"), RuntimeError);
    EXPECT_TRUE(fs::is_directory(m_file / "inside"));
}

TEST_F(Settings, AFileThatLeadsElsewhereStaysALink) {
    Write("");
    const fs::path real = m_folder.Path() / "real.ini";
    fs::rename(m_file, real);
    fs::create_symlink(real, m_file);
    m_store.SaveSetting("Settings", "A", "1");
    EXPECT_TRUE(fs::is_symlink(m_file));
    EXPECT_EQ(ReadExistingFile(real), "[Settings]\nA=1\n");
}

TEST_F(Settings, TenMegabyteLinesAreReadAndKept) {
    const std::string line = "Custom101=" + std::string(10'000'000, 'x') + "\n";
    Write("[Settings]\n" + line);
    m_store.SaveSetting("Settings", "A", "1");
    EXPECT_EQ(m_store.GetSetting("Settings", "Custom101", "").size(), 10'000'000U);
    EXPECT_EQ(ReadExistingFile(m_file), "[Settings]\n" + line + "A=1\n");
}

} // namespace
} // namespace tallowmere
