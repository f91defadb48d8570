#pragma once

#include "core/portal/market_view.h"

#include <string>
#include <vector>

namespace tallowmere {

/// The page of several symbols that the strip of indices reads: per symbol its anchor, its last
/// value and its change. A symbol without a value says so in their place, unless none has one: the
/// strip then keeps what it shows.
std::string IndexPage(const MarketView& market, const std::vector<std::string>& symbols);

/// The same symbols for people, with details.
std::string DetailedIndexPage(const MarketView& market, const std::vector<std::string>& symbols);

} // namespace tallowmere
