#include "core/text/files.h"

#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace tallowmere {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
protected:
    std::size_t Count() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.Path()), fs::directory_iterator()));
    }

    TemporaryFolder m_folder;
    fs::path m_file = m_folder.Path() / "file.txt";
};

TEST_F(Files, ReadingAMissingFileLeavesAnEmptyOne) {
    EXPECT_EQ(ReadWholeFile(m_file), "");
    ASSERT_TRUE(fs::exists(m_file));
    EXPECT_EQ(fs::file_size(m_file), 0U);
    EXPECT_EQ(fs::status(m_file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Files, WhatIsWrittenIsReadBack) {
    const std::string content("a\0b\r\n\xff", 6);
    WriteWholeFile(m_file, content);
    EXPECT_EQ(ReadWholeFile(m_file), content);
    WriteWholeFile(m_file, "");
    EXPECT_EQ(ReadWholeFile(m_file), "");
    EXPECT_EQ(Count(), 1U);
}

TEST_F(Files, AFileOfUnknownSizeIsReadToItsEnd) {
    EXPECT_EQ(ReadWholeFile("/proc/self/stat").find(std::to_string(::getpid())), 0U);
}

TEST_F(Files, WhatCannotBeReadIsEmpty) {
    ASSERT_EQ(::mkfifo((m_folder.Path() / "pipe").c_str(), 0600), 0);
    fs::create_symlink("loop", m_folder.Path() / "loop");
    for (const fs::path& path : {m_folder.Path(), m_folder.Path() / "pipe",
                                 m_folder.Path() / "loop", fs::path(), m_file / "below"}) {
        EXPECT_EQ(ReadWholeFile(path), "") << path;
    }
    for (const char* name : {"", "pipe", "loop"})
        EXPECT_THROW(ReadExistingFile(m_folder.Path() / name), RuntimeError) << name;
    EXPECT_EQ(ReadExistingFile(m_file), "");
}

TEST_F(Files, AnErrorNamesTheFile) {
    fs::create_directory(m_file);
    try {
        WriteWholeFile(m_file, "x");
        FAIL() << "a folder was replaced";
    } catch (const RuntimeError& error) {
        EXPECT_NE(std::string(error.what()).find("file.txt"), std::string::npos) << error.what();
    }
    EXPECT_EQ(Count(), 1U);
    EXPECT_THROW(AppendToFile(m_file, "x"), RuntimeError);
    EXPECT_THROW(MoveToBackup(m_file), RuntimeError);
    EXPECT_THROW(WriteWholeFile("", "x"), RuntimeError);
    EXPECT_THROW(AppendToFile("", "x"), RuntimeError);
    EXPECT_THROW(FileLock(""), RuntimeError);
}

TEST_F(Files, FoldersOnTheWayAreMade) {
    WriteWholeFile(m_folder.Path() / "a" / "b" / "c.txt", "x");
    AppendToFile(m_folder.Path() / "d" / "e.txt", "y");
    EXPECT_EQ(ReadWholeFile(m_folder.Path() / "a" / "b" / "c.txt"), "x");
    EXPECT_EQ(ReadWholeFile(m_folder.Path() / "d" / "e.txt"), "y");
    EXPECT_EQ(fs::status(m_folder.Path() / "a" / "b").permissions(), fs::perms::owner_all);
}

TEST_F(Files, AppendingAddsAtTheEnd) {
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        const std::string piece(static_cast<std::size_t>(i * 37 % 100),
                                static_cast<char>('a' + i % 26));
        AppendToFile(m_file, piece);
        expected += piece;
    }
    EXPECT_EQ(ReadWholeFile(m_file), expected);
    AppendToFile(m_file, std::string(10'000, 'z'));
    EXPECT_EQ(ReadWholeFile(m_file), expected + std::string(10'000, 'z'));
    EXPECT_EQ(Count(), 1U);
}

TEST_F(Files, WhatAKilledWriterLeftBehindDoesNotMatter) {
    std::ofstream(m_file.string() + ".tmp") << "half of something longer than the new content";
    WriteWholeFile(m_file, "whole");
    EXPECT_EQ(ReadWholeFile(m_file), "whole");
    EXPECT_EQ(Count(), 1U);
}

TEST_F(Files, ABackupReplacesTheOneBefore) {
    MoveToBackup(m_file);
    for (const char* content : {"one", "two"}) {
        WriteWholeFile(m_file, content);
        MoveToBackup(m_file);
        EXPECT_FALSE(fs::exists(m_file));
        EXPECT_EQ(ReadExistingFile(BackupPath(m_file)), content);
    }
    WriteWholeFile(m_file, "");
    MoveToBackup(m_file);
    EXPECT_FALSE(fs::exists(m_file));
    EXPECT_EQ(ReadExistingFile(BackupPath(m_file)), "two");
}

TEST_F(Files, AStampChangesWithEveryWrite) {
    EXPECT_EQ(StampOf(m_file), std::nullopt);
    WriteWholeFile(m_file, "one");
    const auto stamp = StampOf(m_file);
    ASSERT_TRUE(stamp);
    EXPECT_EQ(StampOf(m_file), stamp);
    WriteWholeFile(m_file, "two");
    EXPECT_NE(StampOf(m_file), stamp);
}

} // namespace
} // namespace tallowmere
