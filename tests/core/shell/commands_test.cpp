#include "core/shell/commands.h"

#include "core/links/catalogue.h"
#include "core/shell/command_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <tuple>

namespace tallowmere {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Commands, EachHasANameOfItsOwnAndACaption) {
    std::set<std::string_view> names;
    for (const CommandRow& row : Commands()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_FALSE(row.caption.empty()) << row.name;
        EXPECT_EQ(FindCommand(row.name), &row) << row.name;
    }
    EXPECT_EQ(FindCommand("none"), nullptr);
}

TEST(Commands, EachThatTakesAShortcutSaysWhatItDoes) {
    for (const CommandRow& row : Commands()) {
        EXPECT_EQ(row.words.empty(), !TakesShortcut(row)) << row.name;
        if (!TakesShortcut(row)) {
            EXPECT_EQ(row.keys, "") << row.name;
        }
    }
}

TEST(Commands, AClickOnALinkIsNamedAfterIt) {
    for (const CommandRow& row : Commands()) {
        if (row.link == kNotALink)
            continue;
        EXPECT_EQ(row.name, "link" + std::to_string(row.link));
        EXPECT_LT(static_cast<std::size_t>(row.link), Catalogue().size());
    }
}

TEST(Commands, TheRowsOfAMenuStandTogetherInTheirGroups) {
    std::set<CommandMenu> over;
    const CommandRow* last = nullptr;
    for (const CommandRow& row : Commands()) {
        if (last && last->menu != row.menu)
            over.insert(last->menu);
        else if (last) {
            EXPECT_GE(row.group, last->group) << row.name;
        }
        EXPECT_FALSE(over.contains(row.menu)) << row.name;
        last = &row;
    }
}

TEST(Commands, NoLetterOpensTwoMenusAndNoLetterChoosesTwoCommandsOfAMenu) {
    // The window of the table has no menu bar whose letters its own could take.
    std::set<std::tuple<CommandMenu, bool, char>> letters;
    for (const MenuRow& menu : Menus())
        EXPECT_TRUE(letters.insert({menu.in, false, AccessLetter(menu.caption)}).second)
            << menu.caption;
    for (const CommandRow& row : Commands())
        if (const char letter = AccessLetter(row.caption);
            letter != 0 && row.kind != CommandKind::Submenu) {
            const bool isOfTable = row.places == kTableWindow;
            EXPECT_TRUE(letters.insert({row.menu, isOfTable, letter}).second) << row.name;
        }
}

TEST(Commands, EveryShippedShortcutIsUsableAndLeadsToOneCommandInEachPlace) {
    const CommandChords shipped = ShippedChords();
    for (const CommandRow& row : Commands()) {
        const auto chords = ReadChords(row.keys);
        ASSERT_TRUE(chords) << row.name;
        EXPECT_EQ(StoredChords(*chords), row.keys) << row.name;
        for (const std::string& chord : *chords)
            EXPECT_EQ(HolderOf(chord, row, shipped), nullptr) << row.name << " " << chord;
    }
}

TEST(Commands, HaveTheKeysThatPeopleExpect) {
    struct Case {
        std::string_view name, chord;
    };
    const CommandChords shipped = ShippedChords();
    for (const Case& c : {Case{"closeTab", "Ctrl+W"},
                          {"link0", "Ctrl+R"},
                          {"link0", "F5"},
                          {"openAddress", "Ctrl+L"},
                          {"findInPage", "Ctrl+F"},
                          {"findAnything", "Ctrl+K"},
                          {"undo", "Ctrl+Z"},
                          {"zoomIn", "Ctrl++"},
                          {"help", "F1"}})
        EXPECT_THAT(shipped.find(c.name)->second, Contains(std::string(c.chord))) << c.name;
}

TEST(Commands, CaptionsAreSpokenWithoutTheirMarks) {
    struct Case {
        std::string_view caption, spoken;
        char letter;
    };
    for (const Case& c : {Case{"&Undo", "Undo", 'U'},
                          {"Smart &Navigate...", "Smart Navigate", 'N'},
                          {"&Setup && Help...", "Setup & Help", 'S'},
                          {"Move to :", "Move to", 0},
                          {"a && &b", "a & b", 'B'},
                          {"open&", "open", 0},
                          {"", "", 0}}) {
        EXPECT_EQ(SpokenCaption(c.caption), c.spoken) << c.caption;
        EXPECT_EQ(AccessLetter(c.caption), c.letter) << c.caption;
    }
    EXPECT_EQ(SpokenMenu(CommandMenu::Select), "Portfolio > Select");
    EXPECT_EQ(SpokenMenu(CommandMenu::Page), "Page");
    EXPECT_EQ(SpokenMenu(CommandMenu::None), "");
}

std::string ReadText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What looks like a shortcut in a text.
std::vector<std::string> ShortcutsIn(const std::string& text) {
    static const std::regex shortcut(R"((Ctrl|Alt|Meta)\+[^\s+]|\bF([1-9]|1[12])\b|)"
                                     R"(QKeySequence::(Close|Save|Find|Print|Refresh|Undo|Redo)|)"
                                     R"(Qt::(CTRL|ALT|META|Key_F([2-9]|1[12])))");
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), shortcut), end; match != end; ++match)
        found.push_back(match->str());
    return found;
}

TEST(Commands, AreTheOnlyPlaceWhereAShortcutIsWritten) {
    EXPECT_THAT(ShortcutsIn("a Ctrl+L and F5, QKeySequence::Close"),
                ElementsAre("Ctrl+L", "F5", "QKeySequence::Close"));
    const std::filesystem::path root = TALLOWMERE_SOURCE_DIR;
    // The table; how chords are written, and which no command may have.
    const std::set<std::string> exceptions = {"commands.cpp", "key_chord.cpp", "key_chord.h"};
    std::vector<std::filesystem::path> paths;
    for (const char* folder : {"src", "data/help"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder))
            if (const auto& path = entry.path(); path.extension() == ".cpp" ||
                                                 path.extension() == ".h" ||
                                                 path.extension() == ".html")
                if (!exceptions.contains(path.filename().string()))
                    paths.push_back(path);
    EXPECT_GT(paths.size(), 100U);
    for (const auto& path : paths)
        EXPECT_THAT(ShortcutsIn(ReadText(path)), IsEmpty()) << path;
}

} // namespace
} // namespace tallowmere
