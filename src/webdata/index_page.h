#pragma once

#include "text/date.h"
#include "webdata/sample_market.h"

#include <string>
#include <vector>

namespace tallowmere {

/// The page of several symbols that the strip of indices reads: per symbol its anchor, its last
/// value and its change.
std::string IndexPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                      Date today);

/// The same symbols for people, with details.
std::string DetailedIndexPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                              Date today);

} // namespace tallowmere
