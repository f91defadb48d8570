#pragma once

#include "core/sites/site_table.h"
#include "core/sites/today_table.h"
#include "core/text/date.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// A page that a row of the table of sites can lead elsewhere, as it is shown to people.
struct ListedSite {
    std::string key;         ///< of the row
    std::string name;        ///< of the link, with its number, or the way through the menus
    std::string description; ///< the tooltip of a link
    std::string built;       ///< the address as it is built
    std::string row;         ///< today's address with its fields; empty for none
    std::string today;       ///< today's address filled in, "portal:", or as built
    bool isOwn = false;      ///< the row is the user's own
};

/// Every link, every menu item and the other pages for people that have an address of their own,
/// once each. Addresses are those for `ticker`. `shipped` are the rows without the user's.
std::vector<ListedSite> ListSites(const SiteTable& sites, const MenuTable& menus,
                                  const TodayTable& today, const TodayTable& shipped,
                                  std::string_view ticker, Date date);

} // namespace tallowmere
