#include "core/shell/undo_recorder.h"

#include "core/custom/custom_link.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/setting_keys.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"
#include "core/tools/color_areas.h"
#include "core/tools/reminders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace tallowmere {
namespace {

constexpr auto kBack = UndoDirection::Back;
constexpr auto kForth = UndoDirection::Forth;
const UndoFiles kFiles{"TickNotes.txt", "remind.txt"};

/// Where a write need not wait for a disk, if there is such a place: the walks write very often.
std::filesystem::path FastPlace() {
    const std::filesystem::path memory = "/dev/shm";
    std::error_code error;
    return std::filesystem::is_directory(memory, error) ? memory
                                                        : std::filesystem::temp_directory_path();
}

/// The stores of a user with some tickers, notes and links, and what records their changes.
struct Stores {
    explicit Stores(bool keepsHistory = true, std::size_t most = UndoHistory::kMostSteps)
        : mostSteps(most), history(keepsHistory ? folder.Path() / "undo.txt" : "") {
        WriteWholeFile(folder.Path() / "settings.ini",
                       "[Settings]\nFirst=OK\nStocks1=AOL|MSFT|\nPortName1=Tech\n");
        Restart();
    }

    void Restart() {
        recorder.reset();
        settings.emplace(folder.Path() / "settings.ini");
        recorder.emplace(*settings, folder.Path(), kFiles, history, mostSteps);
    }

    std::map<std::string, std::string> Content() const {
        std::map<std::string, std::string> content;
        for (const char* file : {"settings.ini", "TickNotes.txt", "remind.txt", "Page.mlnk"})
            if (std::filesystem::exists(folder.Path() / file))
                content[file] = ReadExistingFile(folder.Path() / file);
        return content;
    }

    std::string Stored(std::string_view key) const {
        return settings->GetSetting(kSettingsSection, key, "(absent)");
    }

    void Store(const std::string& key, const std::string& value) {
        recorder->Run("Set " + key, [&] { settings->SaveSetting(kSettingsSection, key, value); });
    }

    void Note(const std::string& ticker, const std::string& note) {
        recorder->Run("Note on " + ticker,
                      [&] { ReplaceNote(folder.Path(), ticker, note, kTickerNotesFile); });
    }

    TemporaryFolder folder{FastPlace()};
    std::size_t mostSteps;
    std::filesystem::path history;
    std::optional<SettingsStore> settings;
    std::optional<UndoRecorder> recorder;
};

TEST(UndoRecorder, TakesACommandBackAndDoesItAgain) {
    Stores stores;
    const auto before = stores.Content();
    stores.recorder->Run("Delete MSFT", [&] {
        stores.settings->SaveSettings(kSettingsSection, {{"Stocks1", "AOL|"}, {"Stocks2", ""}});
        ReplaceNote(stores.folder.Path(), "MSFT", "gone", kTickerNotesFile);
    });
    const auto after = stores.Content();
    EXPECT_EQ(stores.recorder->Next(kBack)->caption, "Delete MSFT");
    EXPECT_EQ(stores.recorder->Next(kForth), nullptr);

    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Content(), before);
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    EXPECT_EQ(stores.recorder->Next(kForth)->caption, "Delete MSFT");
    EXPECT_EQ(stores.recorder->Go(kForth).refusal, "");
    EXPECT_EQ(stores.Content(), after);
}

TEST(UndoRecorder, ACommandThatChangesNothingIsNoStep) {
    Stores stores;
    int announced = 0;
    stores.recorder->SetListener([&](const UndoStep*) { ++announced; });
    stores.Store("Stocks1", "AOL|MSFT|");
    stores.Note("AOL", "");
    stores.recorder->Run("Away and back", [&] {
        stores.settings->SaveSetting(kSettingsSection, "Stocks1", "");
        stores.settings->SaveSetting(kSettingsSection, "Stocks1", "AOL|MSFT|");
    });
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    EXPECT_EQ(announced, 0);
}

TEST(UndoRecorder, WhatIsWrittenOutsideOfACommandIsNoStep) {
    Stores stores;
    stores.settings->SaveSetting(kSettingsSection, "TickerList", "2");
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    stores.Store("PortName2", "New");
    stores.settings->SaveSetting(kSettingsSection, "TickerList", "3");
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Stored("PortName2"), "(absent)");
    EXPECT_EQ(stores.Stored("TickerList"), "3");
}

TEST(UndoRecorder, ACommandInsideOfAnotherIsPartOfIt) {
    Stores stores;
    const auto before = stores.Content();
    stores.recorder->Run("Both", [&] {
        stores.Store("PortName1", "A");
        stores.Note("AOL", "B");
        stores.recorder->TellRemoved("All of it removed.");
    });
    EXPECT_EQ(stores.recorder->Next(kBack)->caption, "Both");
    EXPECT_EQ(stores.recorder->Next(kBack)->removed, "All of it removed.");
    stores.recorder->Go(kBack);
    EXPECT_EQ(stores.Content(), before);
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
}

TEST(UndoRecorder, WhatACommandDidBeforeItFailedCanBeTakenBack) {
    Stores stores;
    EXPECT_THROW(stores.recorder->Run("Half",
                                      [&] {
                                          stores.Store("PortName1", "A");
                                          throw RuntimeError("no more");
                                      }),
                 RuntimeError);
    stores.recorder->Go(kBack);
    EXPECT_EQ(stores.Stored("PortName1"), "Tech");
    stores.Store("PortName1", "B");
    EXPECT_EQ(stores.recorder->Next(kBack)->caption, "Set PortName1");
}

TEST(UndoRecorder, TellsOfEachStepThatIsRecorded) {
    Stores stores;
    std::vector<std::string> told;
    stores.recorder->SetListener(
        [&](const UndoStep* step) { told.push_back(step ? step->removed : "(none)"); });
    stores.recorder->Run("Delete", [&] {
        stores.recorder->TellRemoved("AOL removed.");
        stores.settings->SaveSetting(kSettingsSection, "Stocks1", "MSFT|");
    });
    stores.Store("PortName1", "A");
    stores.recorder->Go(kBack);
    stores.recorder->Go(kForth);
    EXPECT_EQ(told, (std::vector<std::string>{"AOL removed.", "", "(none)", "(none)"}));
}

TEST(UndoRecorder, OutlastsARestart) {
    Stores stores;
    const auto before = stores.Content();
    stores.Store("PortName1", "A");
    stores.Note("AOL", "B");
    const auto after = stores.Content();
    stores.Restart();
    stores.recorder->Go(kBack);
    stores.Restart();
    EXPECT_EQ(stores.recorder->Next(kForth)->caption, "Note on AOL");
    stores.recorder->Go(kBack);
    EXPECT_EQ(stores.Content(), before);
    stores.Restart();
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    stores.recorder->Go(kForth);
    stores.recorder->Go(kForth);
    EXPECT_EQ(stores.Content(), after);
}

TEST(UndoRecorder, ADamagedHistoryIsNone) {
    Stores stores;
    stores.Store("PortName1", "A");
    WriteWholeFile(stores.history, "Tallowmere undo 1\nnonsense");
    stores.Restart();
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    EXPECT_EQ(stores.recorder->Problem(), "What was done before cannot be undone any more: " +
                                              stores.history.string() + " is damaged.");
    stores.Store("PortName1", "B");
    EXPECT_NE(stores.recorder->Next(kBack), nullptr);
    EXPECT_EQ(stores.recorder->Problem(), "");
}

TEST(UndoRecorder, AHistoryThatCannotBeKeptIsTold) {
    Stores stores;
    std::filesystem::create_directory(stores.history);
    stores.Restart();
    EXPECT_TRUE(
        stores.recorder->Problem().starts_with("What was done before cannot be undone any more: "));
    stores.Store("PortName1", "A");
    EXPECT_TRUE(stores.recorder->Problem().starts_with("After a restart nothing can be undone: "));
    // In this run it can.
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Stored("PortName1"), "Tech");
}

TEST(UndoRecorder, ACommandOnAFileThatIsTooLargeIsNoStepAndThatIsTold) {
    Stores stores;
    const auto notes = stores.folder.Path() / "TickNotes.txt";
    WriteWholeFile(notes, "");
    std::filesystem::resize_file(notes, 64 * kMegabyte + 1);
    int told = 0;
    stores.recorder->SetListener([&](const UndoStep* step) { told += step == nullptr ? 1 : 0; });
    stores.recorder->Run("Note", [&] { AppendToFile(notes, "x"); });
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(stores.recorder->Problem().starts_with("This cannot be undone: "));
    EXPECT_EQ(stores.recorder->Next(kBack), nullptr);
    // What leaves that file alone has nothing to do with it.
    stores.Store("PortName1", "A");
    EXPECT_EQ(stores.recorder->Problem(), "");
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(told, 2);
}

TEST(UndoRecorder, AHistoryThatNamesAFileElsewhereLeavesThatFileAlone) {
    Stores stores;
    const auto inside = stores.folder.Path() / "profile";
    const auto outside = stores.folder.Path() / "outside.txt";
    WriteWholeFile(outside, "theirs");
    UndoHistory history;
    history.Record({"Evil", "", {*MakeUndoChange("", "../outside.txt", "mine", "theirs")}});
    WriteWholeFile(inside / "undo.txt", history.Text());
    UndoRecorder recorder(*stores.settings, inside, kFiles, inside / "undo.txt");
    ASSERT_NE(recorder.Next(kBack), nullptr);
    EXPECT_EQ(recorder.Go(kBack).refusal,
              "\"Evil\" cannot be undone: ../outside.txt changed in another way since.");
    EXPECT_EQ(ReadExistingFile(outside), "theirs");
}

TEST(UndoRecorder, RefusesWhatSomethingElseChangedAndGoesOnWithTheStepBefore) {
    Stores stores;
    stores.Store("PortName1", "A");
    stores.Note("AOL", "mine");
    SettingsStore other(stores.folder.Path() / "settings.ini");
    std::string ignored;
    TickerNotes(stores.folder.Path(), ignored, "SET", "IBM", "theirs", kTickerNotesFile);
    const auto before = stores.Content();
    EXPECT_EQ(stores.recorder->Go(kBack).refusal,
              "\"Note on AOL\" cannot be undone: the notes changed in another way since.");
    EXPECT_EQ(stores.Content(), before);
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Stored("PortName1"), "Tech");
    other.SaveSetting(kSettingsSection, "PortName1", "Theirs");
    EXPECT_EQ(stores.recorder->Go(kForth).refusal, "\"Set PortName1\" cannot be done again: the "
                                                   "name of portfolio 1 changed in another way "
                                                   "since.");
    EXPECT_EQ(stores.Stored("PortName1"), "Theirs");
    EXPECT_EQ(stores.recorder->Next(kForth), nullptr);
}

TEST(UndoRecorder, AStepThatFitsInPartIsNotDoneAtAll) {
    Stores stores;
    stores.recorder->Run("Both", [&] {
        stores.Store("PortName1", "A");
        stores.Note("AOL", "mine");
    });
    std::string ignored;
    TickerNotes(stores.folder.Path(), ignored, "KILL", "", "", kTickerNotesFile);
    EXPECT_NE(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Stored("PortName1"), "A");
}

TEST(UndoRecorder, AStoreThatCannotBeWrittenKeepsAllAsItIsAndTheStepToo) {
    Stores stores;
    stores.recorder->Run("Both", [&] {
        stores.Store("PortName1", "A");
        stores.Note("AOL", "mine");
    });
    stores.Note("AOL", "mine again");
    const auto before = stores.Content();
    const auto away = stores.folder.Path() / "TickNotes.txt.tmp";
    std::filesystem::create_directory(away);
    EXPECT_THROW(stores.recorder->Go(kBack), RuntimeError);
    EXPECT_EQ(stores.Content(), before);
    std::filesystem::remove(away);
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    std::filesystem::create_directory(stores.folder.Path() / "settings.ini.tmp");
    EXPECT_THROW(stores.recorder->Go(kBack), RuntimeError);
    std::filesystem::remove(stores.folder.Path() / "settings.ini.tmp");
    EXPECT_EQ(stores.recorder->Go(kBack).refusal, "");
    EXPECT_EQ(stores.Stored("PortName1"), "Tech");
}

TEST(UndoRecorder, AFileThatOnlyOneCommandChangesComesBackToo) {
    Stores stores;
    WriteWholeFile(stores.folder.Path() / "Page.mlnk", "page");
    const auto before = stores.Content();
    stores.recorder->Run("Reset link",
                         [&] { std::filesystem::remove(stores.folder.Path() / "Page.mlnk"); },
                         {"Page.mlnk"});
    EXPECT_FALSE(std::filesystem::exists(stores.folder.Path() / "Page.mlnk"));
    stores.recorder->Go(kBack);
    EXPECT_EQ(stores.Content(), before);
}

/// Random commands over all stores, each as the program itself would write.
class Walk {
public:
    Walk(Stores& stores, unsigned seed) : m_stores(stores), m_random(seed) {}

    void Step() {
        SettingsStore& settings = *m_stores.settings;
        const auto& folder = m_stores.folder.Path();
        m_stores.recorder->Run("Step", [&] {
            std::string ignored;
            switch (Below(15)) {
            case 0:
            case 1:
                return settings.SaveSetting("Settings", Key("Stocks", 10),
                                            Stored("Stocks", 10).append(Ticker()).append("|"));
            case 2:
                return settings.SaveSettings(
                    "Settings",
                    {{Key("Stocks", 10), ""}, {Key("Stocks", 10), Stored("Stocks", 10) + "IBM|"}});
            case 3:
                return settings.SaveSetting("Settings", Key("PortName", 10), " Name\t" + Ticker());
            case 4:
            case 5:
                return ReplaceNote(folder, Ticker(), Words(), kTickerNotesFile);
            case 6:
                return RemoveNotes(folder, {Ticker(), Ticker(), Ticker()}, kTickerNotesFile);
            case 7:
                return ReplaceNote(folder, DayKey({2026, 1 + Below(12), 1 + Below(9)}), Words(),
                                   kRemindersFile);
            case 8:
                return SaveCustomLink(settings, Slot(),
                                      {"http://h/" + Words(), Ticker(), {Color(), Color()}});
            case 9:
                return Below(2) ? MoveCustomLink(settings, Slot(), Slot())
                                : ResetCustomLink(settings, Slot());
            case 10:
                return settings.SaveSetting("Colors", ColorKey(), std::to_string(Color()));
            case 11:
                return SaveColumns(settings, Slot(), Below(5));
            case 12:
            case 13: {
                // No command takes out a key and brings it back.
                std::set<std::string> keys;
                for (int n = Below(8); n >= 0; --n)
                    keys.insert(ColorKey());
                std::vector<SettingChange> changes;
                for (const std::string& key : keys)
                    changes.push_back(
                        {"Colors", key,
                         Below(3) ? std::nullopt : std::optional(std::to_string(Color()))});
                std::shuffle(changes.begin(), changes.end(), m_random);
                return settings.ChangeSettings(changes);
            }
            default:
                if (Below(10) == 0)
                    TickerNotes(folder, ignored, "KILL", "", "",
                                Below(2) ? kTickerNotesFile : kRemindersFile);
                else
                    SaveLinkColors(settings, Slot(), {Color(), Color()});
            }
        });
    }

private:
    int Below(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most)); }
    int Slot() { return 101 + Below(12); }
    std::uint32_t Color() { return static_cast<std::uint32_t>(m_random() % 0xFFFFFF); }
    std::string ColorKey() {
        return "f" + std::string(kColorAreas[static_cast<std::size_t>(Below(14))].code);
    }
    std::string Ticker() { return std::string(1, static_cast<char>('A' + Below(20))) + "X"; }
    std::string Words() {
        std::string words(static_cast<std::size_t>(Below(60)), 'w');
        return Below(3) == 0 ? words + "\r\n\r\n|| two" : words;
    }
    std::string Key(const char* prefix, int most) {
        return prefix + std::to_string(1 + Below(most));
    }
    std::string Stored(const char* prefix, int most) {
        return m_stores.settings->GetSetting("Settings", Key(prefix, most), "");
    }

    Stores& m_stores;
    std::mt19937 m_random;
};

int GoAll(Stores& stores, UndoDirection direction) {
    int steps = 0;
    for (; stores.recorder->Next(direction); ++steps) {
        const auto outcome = stores.recorder->Go(direction);
        if (!outcome.refusal.empty())
            ADD_FAILURE() << outcome.refusal;
    }
    return steps;
}

// No history keeps so many steps; nothing but the number differs.
TEST(UndoRecorder, TenThousandRandomCommandsAreTakenBackAndDoneAgainByteForByte) {
    Stores stores(false, 10'000);
    const auto before = stores.Content();
    Walk walk(stores, 15);
    for (int n = 0; n < 10'000; ++n)
        walk.Step();
    const auto after = stores.Content();
    ASSERT_NE(after, before);
    const int undone = GoAll(stores, kBack);
    EXPECT_GT(undone, 9'000);
    EXPECT_EQ(stores.Content(), before);
    EXPECT_EQ(GoAll(stores, kForth), undone);
    EXPECT_EQ(stores.Content(), after);
}

TEST(UndoRecorder, AHundredStepsAreTakenBackAndDoneAgainOverRestarts) {
    Stores stores;
    Walk walk(stores, 16);
    for (int span = 0; span < 3; ++span) {
        for (int n = 0; n < 60; ++n)
            walk.Step();
        while (GoAll(stores, kBack) > 0)
            ;
        const auto before = stores.Content();
        std::map<std::string, std::string> after;
        for (int recorded = 0; recorded < 100; ++recorded) {
            const auto last = stores.Content();
            while (stores.Content() == last)
                walk.Step();
            if (recorded % 30 == 0)
                stores.Restart();
        }
        after = stores.Content();
        stores.Restart();
        EXPECT_EQ(GoAll(stores, kBack), 100);
        EXPECT_EQ(stores.Content(), before);
        stores.Restart();
        EXPECT_EQ(GoAll(stores, kForth), 100);
        EXPECT_EQ(stores.Content(), after);
    }
}

} // namespace
} // namespace tallowmere
