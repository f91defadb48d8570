#pragma once

#include "core/quotes/quote.h"

#include <nlohmann/json_fwd.hpp>

#include <string_view>

namespace tallowmere {

/// Reads an answer of the portal's chart service: one symbol with its prices over `span`.
SourceAnswer ParseYahooChart(std::string_view body, PriceSpan span);

/// Adds one element of a chart result (an object with "meta", "timestamp" and "indicators") to
/// `answer`; an element without a symbol or a price adds nothing.
void AddYahooChartResult(const nlohmann::json& result, PriceSpan span, SourceAnswer& answer);

/// The prices of parallel lists of times and closes. Pairs with a missing or impossible price are
/// left out; lists of different lengths end with the shorter one.
void FillSeries(const nlohmann::json* times, const nlohmann::json* closes, PriceSeries& series);

} // namespace tallowmere
