#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

/// What the settings store holds: the one table of its keys. The keys of section "Colors" are
/// those of the colour areas, each "f" (text) or "b" (background) and the area's code; those of
/// section "Shortcuts" are the names of commands.
namespace tallowmere {

class SettingsStore;

inline constexpr std::string_view kSettingsSection = "Settings";
inline constexpr std::string_view kColorsSection = "Colors";

/// How the text of a value is to be read.
enum class SettingKind { Text, Boolean, Integer, Portfolio, Color, Single };

struct SettingKey {
    std::string_view section;
    std::string_view prefix; ///< the key, or what its number is appended to
    int first, last;         ///< the numbers; 0 and 0: the key has none
    SettingKind kind;
    std::string_view defaultText; ///< "{n}" stands for the number
    std::string_view meaning;
};

inline constexpr int kNoLastNumber = std::numeric_limits<int>::max();

// clang-format off
inline constexpr SettingKey kSettingKeys[] = {
    {"Settings", "Stocks",        1,  10, SettingKind::Text,      "",               "tickers of portfolio n, each followed by a bar"},
    {"Settings", "PortName",      1,  10, SettingKind::Text,      "Portfolio #{n}", "name of portfolio n"},
    {"Settings", "PortLabels",    0,   0, SettingKind::Boolean,   "True",           "the caption of the portfolio is shown"},
    {"Settings", "TickerList",    0,   0, SettingKind::Portfolio, "1",              "portfolio that was current at the last close"},
    {"Settings", "AutoRefresh",   0,   0, SettingKind::Boolean,   "False",          "the page is reloaded by itself"},
    {"Settings", "ActiveEdge",    0,   0, SettingKind::Boolean,   "False",          "the side panels hide when not in use"},
    {"Settings", "WSCTick",       0,   0, SettingKind::Boolean,   "False",          "the streaming ticker strip is shown"},
    {"Settings", "MNL",           0,   0, SettingKind::Text,      "",               "login name for the streaming ticker"},
    {"Settings", "MNP",           0,   0, SettingKind::Text,      "",               "password for the streaming ticker"},
    {"Settings", "Tips",          0,   0, SettingKind::Boolean,   "True",           "tool tips are shown"},
    {"Settings", "DefaultWeb",    0,   0, SettingKind::Text,      "",               "start page: pane letter and address"},
    {"Settings", "Firewall",      0,   0, SettingKind::Text,      "",               "proxy server of the transfers"},
    {"Settings", "PROXY",         0,   0, SettingKind::Integer,   "0",              "1: the transfers use the proxy server"},
    {"Settings", "SAVersion",     0,   0, SettingKind::Boolean,   "False",          "the user is a member of the discussion club"},
    {"Settings", "First",         0,   0, SettingKind::Text,      "",               "OK once the program was started"},
    {"Settings", "FRT",           0,   0, SettingKind::Text,      "",               "Done once an account for real-time quotes was offered"},
    {"Settings", "OldEngine",     0,   0, SettingKind::Text,      "",               "security patches of the web engine whose age is not told any more"},
    {"Settings", "TextSize",      0,   0, SettingKind::Text,      "Normal",         "size of captions, headings and rows: Small, Normal or Large"},
    {"Settings", "ListLast",      0,   0, SettingKind::Boolean,   "True",           "the ticker list shows the last price"},
    {"Settings", "ListChange",    0,   0, SettingKind::Boolean,   "True",           "the ticker list shows the change of the price"},
    {"Settings", "ListPercent",   0,   0, SettingKind::Boolean,   "True",           "the ticker list shows the change in percent"},
    {"Settings", "ListDay",       0,   0, SettingKind::Boolean,   "True",           "the ticker list shows a line of the day"},
    {"Settings", "CookieSites",   0,   0, SettingKind::Text,      "",               "sites that may use cookies across sites, each followed by a bar"},
    {"Settings", "KeepPages",     0,   0, SettingKind::Boolean,   "False",          "the pages and watch windows come back at the next start"},
    {"Settings", "Custom",      101, 170, SettingKind::Text,      "",               "target of custom link n"},
    {"Settings", "CustomT",     101, 170, SettingKind::Text,      "< Custom >",     "caption of custom link n"},
    {"Settings", "CustomF",     101, 170, SettingKind::Color,     "0",              "text colour of custom link n, 0: that of its area"},
    {"Settings", "CustomB",     101, 170, SettingKind::Color,     "0",              "background of custom link n, 0: that of its area"},
    {"Settings", "CustomC",     101, 170, SettingKind::Integer,   "0",              "columns in which the pages of multi-link n are laid out, 0: all on one page"},
    {"Settings", "NAV",           1, kNoLastNumber, SettingKind::Text, "",          "entry n of the smart-navigate list, newest first"},
    {"Table",    "Columns",       0,   0, SettingKind::Text,      "",               "columns of the portfolio table from the left, each with its width and a bar; a minus before one that is not shown"},
    {"Table",    "Sort",          0,   0, SettingKind::Text,      "",               "column by which the portfolio table is sorted, blank, up or down; empty: as the portfolios are"},
    {"Table",    "All",           0,   0, SettingKind::Boolean,   "False",          "the portfolio table shows all portfolios"},
    {"Zoom",     "Sites",         0,   0, SettingKind::Text,      "",               "sites whose pages are shown larger or smaller, the latest first: site, blank, percent and a bar"},
    {"Pages",    "First",         0,   0, SettingKind::Text,      "",               "address of the research page at the last close, if it is kept"},
    {"Pages",    "Second",        0,   0, SettingKind::Text,      "",               "the same of the broker page"},
    {"Pages",    "Front",         0,   0, SettingKind::Integer,   "0",              "the tab that was in front, counted from 0"},
    {"Pages",    "Tab",           1, kNoLastNumber, SettingKind::Text, "",          "address in further tab n"},
    {"Pages",    "TabTitle",      1, kNoLastNumber, SettingKind::Text, "",          "title of further tab n"},
    {"Pages",    "Watch",         1, kNoLastNumber, SettingKind::Text, "",          "address in watch window n"},
    {"Pages",    "WatchTitle",    1, kNoLastNumber, SettingKind::Text, "",          "ticker of watch window n"},
    {"Pages",    "WatchSeconds",  1, kNoLastNumber, SettingKind::Text, "",          "seconds that watch window n waits"},
    {"Pages",    "WatchTells",    1, kNoLastNumber, SettingKind::Text, "",          "True when watch window n tells of changes of its page"},
    {"Pages",    "WatchPart",     1, kNoLastNumber, SettingKind::Text, "",          "the part of the page that watch window n looks at, as a selector of style sheets; empty for all of it"},
    {"frmMain",  "Top",           0,   0, SettingKind::Single,    "50",             "window position in twips"},
    {"frmMain",  "Left",          0,   0, SettingKind::Single,    "50",             "window position in twips"},
    {"frmMain",  "Height",        0,   0, SettingKind::Single,    "8500",           "window height in twips"},
    {"frmMain",  "Width",         0,   0, SettingKind::Single,    "10000",          "window width in twips"},
    {"frmMain",  "LeftWidth",     0,   0, SettingKind::Integer,   "0",              "width of the left panel in pixels, 0: as designed"},
    {"frmMain",  "RightWidth",    0,   0, SettingKind::Integer,   "0",              "width of the right panel in pixels, 0: as designed"},
    {"frmMain",  "PortfolioHeight", 0, 0, SettingKind::Integer,   "0",              "height of the portfolio controls with their list in pixels, 0: as designed"},
    {"frmMain",  "LeftFolded",    0,   0, SettingKind::Boolean,   "False",          "the left panel is folded away"},
    {"frmMain",  "RightFolded",   0,   0, SettingKind::Boolean,   "False",          "the right panel is folded away"},
};
// clang-format on

/// The row of a key of the table, none when it has no such key.
const SettingKey* FindSettingKey(std::string_view section, std::string_view key);

/// The default of a key, colours included; empty for a key that has none.
std::string DefaultOf(std::string_view section, std::string_view key);

/// Why a stored value cannot be read as its row asks, empty when it can.
std::string CheckValue(SettingKind kind, std::string_view value);
std::string CheckValue(const SettingKey& row, std::string_view value);

/// The stored value of a key, or its default when it is absent or cannot be read.
std::string UsableSetting(const SettingsStore& store, std::string_view section,
                          std::string_view key);

/// A stored value that cannot be read.
struct SettingProblem {
    std::string section, key, value, problem;
};

/// Every value of the store that cannot be read; for the one report at the start.
std::vector<SettingProblem> CheckSettings(const SettingsStore& store);

/// That report in words, a line for every such value; empty when all can be read.
std::string DamagedSettingsText(const SettingsStore& store);

} // namespace tallowmere
