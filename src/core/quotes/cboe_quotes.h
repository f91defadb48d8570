#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads an answer of Cboe's delayed quotes: one symbol, or the list of all indices.
SourceAnswer ParseCboeQuotes(std::string_view body);

} // namespace tallowmere
