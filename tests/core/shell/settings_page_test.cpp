// The page docs/settings.md says what the code does: row by row, in both directions.
#include "core/portal/generated_pages.h"
#include "core/shell/commands.h"
#include "core/shell/setting_keys.h"
#include "core/text/bytes.h"
#include "core/tools/color_areas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace tallowmere {
namespace {

using testing::ElementsAreArray;

std::string ReadSource(const std::filesystem::path& path) {
    std::ifstream file(TALLOWMERE_SOURCE_DIR / path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The rows of the tables under a heading, without their heads.
std::vector<std::string> Rows(std::string_view heading) {
    std::istringstream page(ReadSource("docs/settings.md"));
    std::vector<std::string> rows;
    bool isHere = false;
    bool isBody = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## "))
            isHere = line == "## " + std::string(heading);
        isBody = line.starts_with('|') && (isBody || line.starts_with("|---"));
        if (isHere && isBody && !line.starts_with("|---"))
            rows.push_back(line);
    }
    EXPECT_FALSE(rows.empty()) << heading;
    return rows;
}

/// The texts between backquotes in the first cells of the rows under a heading.
std::set<std::string> Names(std::string_view heading) {
    std::set<std::string> names;
    const std::regex quoted("`([^`]+)`");
    for (const std::string& row : Rows(heading)) {
        const std::string cell = row.substr(0, row.find('|', 1));
        for (std::sregex_iterator name(cell.begin(), cell.end(), quoted), end; name != end; ++name)
            names.insert((*name)[1]);
    }
    return names;
}

std::string Quoted(std::string_view text) {
    return text.empty() ? "" : "`" + std::string(text) + "`";
}

std::string KindWords(SettingKind kind) {
    switch (kind) {
    case SettingKind::Text:
        return "text";
    case SettingKind::Boolean:
        return "True or False";
    case SettingKind::Integer:
        return "whole number";
    case SettingKind::Portfolio:
        return "1 to 10";
    case SettingKind::Color:
        return "colour";
    case SettingKind::Single:
        return "number";
    }
    return "";
}

std::string KeyWords(const SettingKey& row) {
    const std::string prefix(row.prefix);
    if (row.first == 0)
        return Quoted(prefix);
    const std::string first = Quoted(prefix + std::to_string(row.first));
    return row.last == kNoLastNumber ? first + " and on"
                                     : first + " to " + Quoted(prefix + std::to_string(row.last));
}

std::string ColorWords(const std::optional<std::uint32_t>& color) {
    if (!color)
        return "";
    std::ostringstream hex;
    hex << "`0x" << std::hex << std::uppercase << std::setw(6) << std::setfill('0') << *color
        << '`';
    return hex.str();
}

TEST(SettingsPage, HasEveryKeyOfTheTable) {
    std::vector<std::string> expected;
    for (const SettingKey& row : kSettingKeys)
        expected.push_back("| " + Quoted(row.section) + " | " + KeyWords(row) + " | " +
                           KindWords(row.kind) + " | " + Quoted(row.defaultText) + " | " +
                           std::string(row.meaning) + " |");
    EXPECT_THAT(Rows("The keys"), ElementsAreArray(expected));
}

TEST(SettingsPage, HasEveryColour) {
    std::vector<std::string> expected;
    for (const ColorArea& area : kColorAreas)
        expected.push_back("| " + Quoted(area.entry) + " | " +
                           (area.hasText ? Quoted(TextColorKey(area.code)) : "") + " | " +
                           ColorWords(area.text) + " | " + Quoted(BackgroundColorKey(area.code)) +
                           " | " + ColorWords(area.background) + " |");
    EXPECT_THAT(Rows("The colours"), ElementsAreArray(expected));
}

TEST(SettingsPage, HasEveryCommandWhoseShortcutsMayBeChanged) {
    std::vector<std::string> expected;
    for (const CommandRow& row : Commands())
        if (TakesShortcut(row))
            expected.push_back("| " + Quoted(row.name) + " | " + SpokenCaption(row.caption) +
                               " | " + SpokenMenu(row.menu) + " |");
    EXPECT_THAT(Rows("The keyboard shortcuts"), ElementsAreArray(expected));
}

TEST(SettingsPage, NamesEveryFileThatTheSourcesName) {
    std::set<std::string> told = Names("The user's files");
    told.merge(Names("What ships with the program"));
    // Told in the row of their folder.
    told.insert({"settings.ini", "help/index.html", "before-restore.zip"});
    const std::regex fileName(R"~("(?:\\\\)?([A-Za-z_-]+\.(?:txt|ini|html?|toml|lock|zip))")~");
    std::set<std::string> inSources;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(TALLOWMERE_SOURCE_DIR "/src")) {
        if (!entry.is_regular_file())
            continue;
        const std::string source = ReadSource(entry.path());
        for (std::sregex_iterator name(source.begin(), source.end(), fileName), end; name != end;
             ++name)
            inSources.insert((*name)[1]);
    }
    const bool isWhole = std::filesystem::exists(TALLOWMERE_SOURCE_DIR "/src/app");
    EXPECT_GE(inSources.size(), isWhole ? 10U : 5U);
    for (const std::string& name : inSources)
        EXPECT_TRUE(told.contains(name)) << name;
    // And the other way round: what the page names as one plain file is in the sources, if both
    // halves of them are there.
    if (!isWhole)
        return;
    for (const std::string& name : told) {
        if (name.find_first_of("<*/") == std::string::npos && Contains(name, ".")) {
            EXPECT_TRUE(inSources.contains(name)) << name;
        }
    }
}

TEST(SettingsPage, NamesTheGeneratedPagesAndNoOthers) {
    for (const std::string& name : Names("The user's files")) {
        if (name.ends_with(".html") || name.ends_with(".htm")) {
            EXPECT_TRUE(IsGeneratedPageName(name)) << name;
        }
    }
    EXPECT_TRUE(Names("The user's files").contains("<title>.mlnk"));
    EXPECT_TRUE(IsGeneratedPageName("My pages.mlnk"));
}

TEST(SettingsPage, NamesFilesThatShip) {
    for (const std::string& name : Names("What ships with the program"))
        EXPECT_TRUE(std::filesystem::exists(TALLOWMERE_SOURCE_DIR "/data/" + name)) << name;
}

} // namespace
} // namespace tallowmere
