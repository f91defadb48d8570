#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads an answer of the Nasdaq quote service, of one symbol ("info") or of several
/// ("watchlist"). Its numbers are texts ("$227.55"), and "N/A" or "--" where it has none.
SourceAnswer ParseNasdaqQuotes(std::string_view body);

} // namespace tallowmere
