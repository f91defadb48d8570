#include "core/portfolio/keyed_store.h"
#include "core/shell/settings_store.h"
#include "core/text/child_process.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

namespace tallowmere {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNotes = "\\TickNotes.txt";
constexpr rlim_t kLimit = 100'000;

template <typename Action>
bool Throws(Action action) {
    try {
        action();
    } catch (const RuntimeError&) {
        return true;
    }
    return false;
}

std::size_t CountOfFiles(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

/// No file grows beyond the limit, as if the disk were full.
void LimitFiles() {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kLimit, kLimit};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

/// An ordinary user: the administrator may write anywhere.
bool DropPrivileges() {
    constexpr uid_t kNobody = 65534;
    return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

TEST(FullDisk, ReplacingAFileKeepsTheOldContent) {
    TemporaryFolder folder;
    const fs::path file = folder.Path() / "file";
    WriteWholeFile(file, "old");
    EXPECT_EQ(RunInChild([&]() -> std::string {
                  LimitFiles();
                  return Throws([&] { WriteWholeFile(file, std::string(kLimit + 1, 'x')); })
                             ? "refused"
                             : "written";
              }),
              "refused");
    EXPECT_EQ(ReadExistingFile(file), "old");
    EXPECT_EQ(CountOfFiles(folder.Path()), 1U);
}

TEST(FullDisk, AnAppendThatDoesNotFitIsCutBack) {
    // The first size leaves room for a part of the record in the last page of the file; the
    // second record would reach into another page.
    for (const std::size_t size : {kLimit - 20, kLimit - 1'700}) {
        TemporaryFolder folder;
        const fs::path file = folder.Path() / "TickNotes.txt";
        const std::string old(size, 'x');
        WriteWholeFile(file, old);
        const std::string note(size == kLimit - 20 ? 30 : 2'000, 'n');
        EXPECT_EQ(RunInChild([&]() -> std::string {
                      LimitFiles();
                      std::string result;
                      TickerNotes(folder.Path(), result, "SET", "MSFT", note, kNotes);
                      return Throws([&] { AppendToFile(file, NoteRecord("MSFT", note)); })
                                 ? "refused"
                                 : "written";
                  }),
                  "refused");
        EXPECT_EQ(ReadExistingFile(file), old);
        EXPECT_EQ(CountOfFiles(folder.Path()), 1U);
    }
}

TEST(FullDisk, ASettingThatDoesNotFitLeavesTheOthers) {
    TemporaryFolder folder;
    const fs::path file = folder.Path() / "settings.ini";
    SettingsStore(file).SaveSetting("Settings", "A", "1");
    EXPECT_EQ(RunInChild([&]() -> std::string {
                  LimitFiles();
                  SettingsStore store(file);
                  const bool refused =
                      Throws([&] { store.SaveSetting("Settings", "A", std::string(kLimit, 'x')); });
                  return refused ? "refused, still " + store.GetSetting("Settings", "A", "lost")
                                 : "written";
              }),
              "refused, still 1");
    EXPECT_EQ(ReadExistingFile(file), "[Settings]\nA=1\n");
}

TEST(FullDisk, NoRecordIsLostOrTornOnATinyFileSystem) {
    TemporaryFolder folder;
    const std::string result = RunInChild([&]() -> std::string {
        const char* path = folder.Path().c_str();
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", path, "tmpfs", 0, "size=64k") != 0)
            return "cannot mount";
        const fs::path file = folder.Path() / "TickNotes.txt";
        std::string expected;
        bool full = false;
        for (int i = 0; !full && i < 10'000; ++i) {
            const std::string record = NoteRecord("T" + std::to_string(i), std::string(90, 'n'));
            full = Throws([&] { AppendToFile(file, record); });
            if (!full)
                expected += record;
            if (ReadExistingFile(file) != expected)
                return "torn by record " + std::to_string(i);
        }
        if (!full)
            return "never full";
        // Room for nothing: a rewrite is refused, and what is there stays.
        std::ofstream(folder.Path() / "rest") << std::string(65'536, 'x');
        std::string note;
        TickerNotes(folder.Path(), note, "REMOVE", "T0", "", kNotes);
        if (ReadExistingFile(file) != expected)
            return "torn by REMOVE";
        SettingsStore store(folder.Path() / "settings.ini");
        if (!Throws([&] { store.SaveSetting("Settings", "A", "1"); }))
            return "a setting was written to a full disk";
        fs::remove(folder.Path() / "rest");
        TickerNotes(folder.Path(), note, "GET", "T0", "", kNotes);
        return note == std::string(90, 'n') ? "whole" : "lost";
    });
    if (result == "cannot mount")
        GTEST_SKIP() << "only an administrator can mount a tiny file system";
    EXPECT_EQ(result, "whole");
}

TEST(ReadOnlyFolder, IsReadAndNeverHarmed) {
    TemporaryFolder folder;
    const fs::path settings = folder.Path() / "settings.ini";
    const fs::path notes = folder.Path() / "TickNotes.txt";
    std::ofstream(settings) << "[Settings]\nA=1\n";
    std::ofstream(notes) << "||MSFT||note|||||\r\n";
    fs::permissions(folder.Path(), fs::perms(0555));
    fs::permissions(settings, fs::perms(0444));
    fs::permissions(notes, fs::perms(0444));
    EXPECT_EQ(RunInChild([&]() -> std::string {
                  if (!DropPrivileges())
                      return "privileges stay";
                  SettingsStore store(settings);
                  if (!Throws([&] { store.SaveSetting("Settings", "A", "2"); }))
                      return "a setting was written";
                  std::string note;
                  for (const char* operation : {"SET", "REMOVE", "KILL"})
                      TickerNotes(folder.Path(), note, operation, "MSFT", "other", kNotes);
                  TickerNotes(folder.Path(), note, "GET", "MSFT", "", kNotes);
                  return store.GetSetting("Settings", "A", "lost") + " " + note;
              }),
              "1 note");
    fs::permissions(folder.Path(), fs::perms::owner_all);
    EXPECT_EQ(ReadExistingFile(settings), "[Settings]\nA=1\n");
    EXPECT_EQ(ReadExistingFile(notes), "||MSFT||note|||||\r\n");
}

TEST(UnreadableFile, IsNeverReplaced) {
    TemporaryFolder folder;
    const fs::path settings = folder.Path() / "settings.ini";
    const fs::path notes = folder.Path() / "TickNotes.txt";
    std::ofstream(settings) << "[Settings]\nA=1\n";
    std::ofstream(notes) << "||MSFT||note|||||\r\n";
    fs::permissions(folder.Path(), fs::perms(0777));
    fs::permissions(settings, fs::perms::none);
    fs::permissions(notes, fs::perms::none);
    EXPECT_EQ(RunInChild([&]() -> std::string {
                  if (!DropPrivileges())
                      return "privileges stay";
                  SettingsStore store(settings);
                  if (!Throws([&] { store.SaveSetting("Settings", "A", "2"); }))
                      return "a setting was written";
                  std::string note;
                  for (const char* operation : {"SET", "REMOVE", "GET"})
                      TickerNotes(folder.Path(), note, operation, "MSFT", "other", kNotes);
                  return store.GetSetting("Settings", "A", "default") + note;
              }),
              "default");
    fs::permissions(settings, fs::perms::owner_read);
    fs::permissions(notes, fs::perms::owner_read);
    EXPECT_EQ(ReadExistingFile(settings), "[Settings]\nA=1\n");
    EXPECT_EQ(ReadExistingFile(notes), "||MSFT||note|||||\r\n");
}

TEST(ReadOnlyFile, IsNotReplacedBehindItsOwnersBack) {
    TemporaryFolder folder;
    const fs::path file = folder.Path() / "file";
    std::ofstream(file) << "old";
    fs::permissions(folder.Path(), fs::perms(0777));
    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(RunInChild([&]() -> std::string {
                  if (!DropPrivileges())
                      return "privileges stay";
                  return Throws([&] { WriteWholeFile(file, "new"); }) ? "refused" : "written";
              }),
              "refused");
    EXPECT_EQ(ReadExistingFile(file), "old");
}

TEST(LockedFile, IsTakenAtOnceOrNotAtAll) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "store";
    {
        const FileLock held(path);
        EXPECT_EQ(FileLock::Try(path), nullptr);
    }
    EXPECT_NE(FileLock::Try(path), nullptr);
    EXPECT_NE(FileLock::Try(path), nullptr) << "the one before was let go";
}

TEST(LockedFile, WhatStandsInItMeansNothing) {
    const TemporaryFolder folder;
    for (const std::string_view content : {"", "garbage", "1\nprogram\nanother-host\n"}) {
        WriteWholeFile(folder.Path() / "store.lock", content);
        EXPECT_NE(FileLock::Try(folder.Path() / "store"), nullptr) << content;
    }
}

TEST(LockedFile, WhatIsNoFileInItsPlaceIsAnError) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() / "store.lock");
    EXPECT_THROW(FileLock::Try(folder.Path() / "store"), RuntimeError);
    EXPECT_THROW(FileLock(folder.Path() / "store"), RuntimeError);
    std::filesystem::create_symlink("loop.lock", folder.Path() / "loop.lock");
    EXPECT_THROW(FileLock::Try(folder.Path() / "loop"), RuntimeError);
}

TEST(LargeFile, IsReadUpToItsLimitAndNamedBeyondIt) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "file";
    WriteWholeFile(path, "x");
    std::filesystem::resize_file(path, kMegabyte);
    EXPECT_EQ(ReadExistingFile(path, kMegabyte).size(), kMegabyte);
    std::filesystem::resize_file(path, kMegabyte + 1);
    try {
        ReadExistingFile(path, kMegabyte);
        FAIL() << "it was read";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.what(), "Cannot read " + path.string() + ": it is larger than 1 MB");
    }
    EXPECT_EQ(ReadExistingFile(path).size(), kMegabyte + 1);
}

TEST(LargeFile, SettingsBeyondAllReasonAreNeitherReadNorReplaced) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "settings.ini";
    SettingsStore settings(path);
    settings.SaveSetting("Settings", "Stocks1", "AOL|");
    const auto limit = 16 * kMegabyte;
    std::filesystem::resize_file(path, limit + 1);
    EXPECT_EQ(settings.GetSetting("Settings", "Stocks1", "none"), "none");
    EXPECT_THROW(settings.SaveSetting("Settings", "Stocks1", "MSFT|"), RuntimeError);
    EXPECT_EQ(std::filesystem::file_size(path), limit + 1);
}

} // namespace
} // namespace tallowmere
