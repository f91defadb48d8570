#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads an answer of the portal's service for many symbols at once, in either of its forms: a map
/// from symbol to lists, or a "spark" object that holds chart results.
SourceAnswer ParseYahooSpark(std::string_view body, PriceSpan span);

} // namespace tallowmere
