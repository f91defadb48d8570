#pragma once

#include "core/links/address.h"

#include <string>
#include <string_view>

/// The pages of several charts that the program writes itself.
namespace tallowmere {

/// The names under which the pages lie in the program folder.
constexpr std::string_view kSmallChartsFile = "ycs.htm";
constexpr std::string_view kLargeChartsFile = "ycl.htm";

/// The page of three small charts, with its line end.
std::string SmallChartsPage(const TickerForms& forms, const SiteHosts& sites);

/// The page of four large charts, with its line end.
std::string LargeChartsPage(const TickerForms& forms, const SiteHosts& sites);

} // namespace tallowmere
