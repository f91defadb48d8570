#include "core/portfolio/keyed_store.h"
#include "core/shell/settings_store.h"
#include "core/shell/settings_text.h"
#include "core/text/child_process.h"
#include "core/text/files.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace tallowmere {
namespace {

constexpr std::string_view kNotes = "\\TickNotes.txt";

/// A long run of changes to notes and settings, each known by its number.
struct Change {
    explicit Change(int number)
        : kind(number % 3), key("K" + std::to_string(number / 3 % 17)),
          // Now and then a note that takes more than a page of the file.
          text(std::to_string(number) +
               std::string(static_cast<std::size_t>(number % 40 == 1 ? 5'000 : number % 100),
                           '.')) {}
    int kind;
    std::string key, text;
};

/// What the files hold when all changes up to some number are made.
struct Content {
    std::string notes, settings;
    bool operator==(const Content&) const = default;

    void Make(const Change& change) {
        if (change.kind == 0)
            notes = RemoveNote(notes, change.key).value_or(notes);
        else if (change.kind == 1)
            notes += NoteRecord(change.key, change.text);
        else
            settings = ChangeSettingsText(settings, "Settings", change.key, change.text);
    }
};

class KilledWriter : public testing::Test {
protected:
    /// Makes one change after another and tells the number of each that is done.
    [[noreturn]] void Write(int number, int report) {
        SettingsStore settings(m_settings);
        for (;; ++number) {
            const Change change(number);
            std::string result;
            if (change.kind == 2)
                settings.SaveSetting("Settings", change.key, change.text);
            else
                TickerNotes(m_folder.Path(), result, change.kind == 0 ? "REMOVE" : "SET",
                            change.key, change.text, kNotes);
            if (::write(report, &number, sizeof number) != sizeof number)
                ::_exit(1);
        }
    }

    /// Lets a writer begin with change `number` and kills it some time after its start, or after
    /// its first change; gives the last change that it told.
    int WriteAndKill(int number, bool afterFirst, std::chrono::microseconds after) {
        int ends[2];
        if (::pipe(ends) != 0)
            throw std::runtime_error("no pipe");
        const pid_t writer = ::fork();
        if (writer == 0) {
            ::close(ends[0]);
            Write(number, ends[1]);
        }
        ::close(ends[1]);
        int last = number - 1;
        if (afterFirst) {
            EXPECT_EQ(::read(ends[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
        }
        std::this_thread::sleep_for(after);
        ::kill(writer, SIGKILL);
        int status = 0;
        ::waitpid(writer, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        while (::read(ends[0], &last, sizeof last) == sizeof last) {
        }
        ::close(ends[0]);
        return last;
    }

    Content Read() const {
        return {ReadExistingFile(m_folder.Path() / "TickNotes.txt"), ReadExistingFile(m_settings)};
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_settings = m_folder.Path() / "settings.ini";
};

TEST_F(KilledWriter, LosesNothingThatItToldAndTearsNoFile) {
    std::mt19937 random(std::random_device{}());
    Content content;
    int next = 0;
    for (int round = 0; round < 200; ++round) {
        const std::chrono::microseconds after(random() % 30'000);
        const int last = WriteAndKill(next, round % 2 == 0, after);
        for (; next <= last; ++next)
            content.Make(Change(next));
        // The change that the kill met is made or not, but nothing in between.
        Content withNext = content;
        withNext.Make(Change(next));
        const Content found = Read();
        ASSERT_TRUE(found == content || found == withNext)
            << "after change " << last << ", killed after " << after.count() << " microseconds";
        if (found == withNext) {
            content = withNext;
            ++next;
        }
    }
    EXPECT_GE(next, 100) << "the writers were killed before they did anything";
    RecordProperty("changes", next);
    // A killed writer may leave one temporary file each; they do not pile up.
    const auto files = std::distance(std::filesystem::directory_iterator(m_folder.Path()),
                                     std::filesystem::directory_iterator());
    EXPECT_LE(files, 5);
}

TEST(TwoWriters, OfDifferentKeysLoseNothing) {
    constexpr int kKeys = 60;
    constexpr int kWriters = 2;
    TemporaryFolder folder;
    const auto file = folder.Path() / "settings.ini";
    pid_t writers[kWriters];
    for (int writer = 0; writer < kWriters; ++writer) {
        writers[writer] = ::fork();
        if (writers[writer] == 0) {
            SettingsStore store(file);
            for (int i = 0; i < kKeys; ++i)
                store.SaveSetting(i % 2 ? "Settings" : "Colors",
                                  std::to_string(writer) + "-" + std::to_string(i), "value");
            for (int i = 0; i < kKeys; ++i)
                AppendToFile(folder.Path() / "TickNotes.txt",
                             NoteRecord(std::to_string(writer), std::string(100, 'n')));
            ::_exit(0);
        }
    }
    for (const pid_t writer : writers) {
        int status = 1;
        ::waitpid(writer, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const SettingsStore store(file);
    for (int writer = 0; writer < kWriters; ++writer)
        for (int i = 0; i < kKeys; ++i)
            EXPECT_EQ(store.GetSetting(i % 2 ? "Settings" : "Colors",
                                       std::to_string(writer) + "-" + std::to_string(i), "lost"),
                      "value");
    const auto record = NoteRecord("0", std::string(100, 'n')).size();
    EXPECT_EQ(ReadExistingFile(folder.Path() / "TickNotes.txt").size(), record * kKeys * kWriters);
}

} // namespace
} // namespace tallowmere
