#include "core/shell/command_keys.h"

#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandKeysOf : public testing::Test {
protected:
    void Store(std::string_view command, std::string_view value) {
        m_store.SaveSetting("Shortcuts", command, value);
    }
    std::vector<std::string> Of(std::string_view command) const {
        return ChordsOf(m_store).find(command)->second;
    }
    const CommandRow* Holder(std::string_view chord, std::string_view command) const {
        return HolderOf(chord, *FindCommand(command), ChordsOf(m_store));
    }
    void Give(std::string_view command, const std::vector<std::string>& chords) {
        m_store.ChangeSettings(GiveChords(*FindCommand(command), chords, ChordsOf(m_store)));
    }
    std::string Stored(std::string_view command) const {
        return m_store.GetSetting("Shortcuts", command, "<absent>");
    }

    TemporaryFolder m_folder;
    SettingsStore m_store{m_folder.Path() / "settings.ini"};
};

TEST_F(CommandKeysOf, AreThoseOfTheTableAtFirst) {
    EXPECT_EQ(ChordsOf(m_store), ShippedChords());
    EXPECT_THAT(Of("link0"), ElementsAre("F5", "Ctrl+R"));
    EXPECT_THAT(Of("about"), IsEmpty());
    EXPECT_FALSE(ChordsOf(m_store).contains("mnuMoveAll"));
    EXPECT_FALSE(ChordsOf(m_store).contains("mnuCopyIt"));
}

TEST_F(CommandKeysOf, AreThoseOfTheUserWhereThereAreAny) {
    Store("link0", "  ctrl+k  f9 ");
    EXPECT_THAT(Of("link0"), ElementsAre("Ctrl+K", "F9"));
    Store("link0", "");
    EXPECT_THAT(Of("link0"), IsEmpty());
    EXPECT_THAT(Of("undo"), ElementsAre("Ctrl+Z"));
}

TEST_F(CommandKeysOf, AreThoseOfTheTableWhereTheStoredOnesAreDamaged) {
    for (const char* damaged : {"x", "Ctrl+", "Ctrl+K Nonsense", "Ctrl+C", "\x80\xFF", "Alt+P"}) {
        Store("link0", damaged);
        EXPECT_THAT(Of("link0"), ElementsAre("F5", "Ctrl+R")) << damaged;
    }
}

TEST_F(CommandKeysOf, AChordThatWasGivenLeavesTheCommandThatHadItByTheTable) {
    Store("about", "Ctrl+F");
    EXPECT_THAT(Of("about"), ElementsAre("Ctrl+F"));
    EXPECT_THAT(Of("findInPage"), IsEmpty());
    Store("findInPage", "Ctrl+F");
    // Both were changed: the upper row of the table has it.
    EXPECT_THAT(Of("findInPage"), ElementsAre("Ctrl+F"));
    EXPECT_THAT(Of("about"), IsEmpty());
}

TEST_F(CommandKeysOf, CommandsOfDifferentWindowsDoNotMeet) {
    // Saving the watched page has no place in the main window, which saves its own.
    EXPECT_EQ(Holder("Ctrl+S", "undo"), FindCommand("savePage"));
    EXPECT_EQ(Holder("Ctrl+S", "mnuExport"), nullptr);
    EXPECT_EQ(Holder("Ctrl+S", "savePage"), nullptr);
    EXPECT_NE(Holder("Ctrl+S", "findInPage"), nullptr);
    EXPECT_EQ(Holder("Ctrl+F", "findInPage"), nullptr);
    EXPECT_EQ(Holder("Ctrl+F", "undo"), FindCommand("findInPage"));
    EXPECT_EQ(Holder("Ctrl+Shift+F11", "undo"), nullptr);
    Store("undo", "Ctrl+S");
    EXPECT_THAT(Of("undo"), ElementsAre("Ctrl+S"));
    EXPECT_THAT(Of("savePage"), IsEmpty());
    EXPECT_THAT(Of("mnuExport"), ElementsAre("Ctrl+S"));
}

TEST_F(CommandKeysOf, WhatIsTakenOverIsTakenFromTheOther) {
    Give("about", {"Ctrl+R"});
    EXPECT_EQ(Stored("about"), "Ctrl+R");
    EXPECT_EQ(Stored("link0"), "F5");
    EXPECT_THAT(Of("link0"), ElementsAre("F5"));
    Give("about", {});
    // That is what the table says, so nothing is stored; the other stays as it was made.
    EXPECT_EQ(Stored("about"), "<absent>");
    EXPECT_EQ(Stored("link0"), "F5");
    Give("link0", {"F5", "Ctrl+R"});
    EXPECT_EQ(Stored("link0"), "<absent>");
}

TEST_F(CommandKeysOf, AChordOfTwoWindowsIsTakenFromTheCommandsOfBoth) {
    Store("undo", "Ctrl+S");
    Give("findInPage", {"Ctrl+S", "F3"});
    EXPECT_EQ(Stored("undo"), "");
    EXPECT_EQ(Stored("mnuExport"), "");
    EXPECT_THAT(Of("findInPage"), ElementsAre("Ctrl+S", "F3"));
}

TEST(CommandChordsText, IsReadAndWritten) {
    EXPECT_THAT(ReadChords("F3 f3 ctrl+g"), testing::Optional(ElementsAre("F3", "Ctrl+G")));
    EXPECT_THAT(ReadChords(""), testing::Optional(IsEmpty()));
    EXPECT_EQ(ReadChords("F3 x"), std::nullopt);
    EXPECT_EQ(StoredChords({"F3", "Ctrl+G"}), "F3 Ctrl+G");
    EXPECT_EQ(StoredChords({}), "");
}

} // namespace
} // namespace tallowmere
