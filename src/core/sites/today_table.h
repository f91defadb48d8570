#pragma once

#include "core/links/menu_table.h"
#include "core/sites/site_table.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Where the pages of the catalogue live today: a row each, in the tables [links] and [menus] of
/// the table of sites.
namespace tallowmere {

struct TolerantToml;

/// What a row of the table is about.
struct TodayRow {
    std::string key;     ///< "3" for a link, "mnuBChart.1" for a menu item, a word for other pages
    std::string address; ///< as built, with fields; see AddressTree
    bool isRead = false; ///< read by the program, not shown
};

/// The table of a user's file that a row stands in, and its key there.
std::pair<std::string, std::string> PlaceOfRow(std::string_view key);

/// Every page that the program builds an address for and that has moved or can move: the links, the
/// items of the menus, and the pages that are built elsewhere.
std::vector<TodayRow> TodayRows(const SiteTable& sites, const MenuTable& menus);

/// The value that stands for the built-in portal.
constexpr std::string_view kPortalTarget = "portal:";

/// The key of what a browser outside of the program opens where the built-in portal answers inside.
constexpr std::string_view kOutsideKey = "outside";

/// Today's addresses by key. An address holds {upper}, {lower} and {first}, {yahoo} for the finance
/// portal's spelling of the ticker (BRK-B), or {list} for several tickers joined by commas.
struct TodayTable {
    std::map<std::string, std::string, std::less<>> addresses;
    std::vector<std::string> problems; ///< "<file>:<line>: <what is wrong>"; such rows are left out
};

/// Reads the tables [links] and [menus] of a text on top of `base`: a row replaces the one with the
/// same key, an empty address takes it away.
TodayTable ReadTodayTable(std::string_view text, std::string_view fileName, TodayTable base = {});

/// What is wrong with an address of today, in words; empty for a good one.
std::string FlawOfToday(std::string_view address);

/// The same as ReadTodayTable for a text that was read already; what is wrong is noted in `file`.
void OverrideToday(TolerantToml& file, TodayTable& table);

} // namespace tallowmere
