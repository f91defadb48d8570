#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads an answer of the CNBC quote service: a list of rows, or a single row that stands without
/// a list. Its numbers are texts ("1,234.50", "+0.7%").
SourceAnswer ParseCnbcQuotes(std::string_view body);

} // namespace tallowmere
