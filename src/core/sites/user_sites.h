#pragma once

#include "core/sites/site_table.h"
#include "core/sites/today_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// Tables of sites with the rows of a user's own file over theirs.
struct OverriddenSites {
    SiteTable sites;
    TodayTable today;
    std::vector<std::string> problems; ///< "<file>:<line>: <what is wrong>", in the order of lines
    bool isReadable = true;            ///< false for a file of which nothing can be read
};

/// Puts the rows of a user's file over those of the given tables, row by row. A row that is wrong
/// is told and left out; a file that is no table at all changes nothing.
OverriddenSites OverrideSites(const SiteTable& sites, const TodayTable& today,
                              std::string_view text, std::string_view fileName);

} // namespace tallowmere
