#pragma once

#include "links/address.h"

#include <string>

/// The pages of several charts that the program writes itself.
namespace tallowmere {

/// The page of three small charts, with its line end; it is written as "ycs.htm".
std::string SmallChartsPage(const TickerForms& forms, const SiteTable& sites);

/// The page of four large charts, with its line end; it is written as "ycl.htm".
std::string LargeChartsPage(const TickerForms& forms, const SiteTable& sites);

} // namespace tallowmere
