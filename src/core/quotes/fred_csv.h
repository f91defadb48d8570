#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads a series of the St. Louis Fed: a head that names the series, then a line a day, oldest
/// first, with "." or nothing where there was no trading. Gives the last day as a quote and the
/// last year as a series.
SourceAnswer ParseFredCsv(std::string_view body);

} // namespace tallowmere
