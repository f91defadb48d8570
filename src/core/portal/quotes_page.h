#pragma once

#include "core/portal/market_view.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// The page of the quotes of a portfolio, which the condensed page is cut from: a table per ticker
/// with its figures and a chart of one day ("1b"), five days ("2b") or a year ("0b"), or for any
/// other view code a table with a row per ticker. `chartServer1` and `chartServer2` are the
/// addresses of the hosts of the long and the short charts, with their scheme.
std::string QuotesPage(const MarketView& market, const std::vector<std::string>& symbols,
                       std::string_view viewCode, std::string_view chartServer1,
                       std::string_view chartServer2);

} // namespace tallowmere
