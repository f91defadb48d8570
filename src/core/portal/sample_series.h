#pragma once

#include "core/portal/market_view.h"
#include "core/portal/sample_market.h"
#include "core/text/date.h"

#include <string>
#include <string_view>
#include <vector>

/// Charts of the sample market.
namespace tallowmere {

constexpr std::string_view kSampleNote = "SAMPLE DATA";

/// The chart of a quote over a period that ends with the last trading day up to `today`. Prices
/// within a day are invented from its closes, the same every time.
Chart SampleChart(const SampleQuote& quote, Period period, Date today);

/// The invented prices of the last day, every five minutes; the first is the close of the day
/// before.
std::vector<double> SampleDay(const SampleQuote& quote);

/// Month and day of the last trading day up to `today`, such as "Nov 20".
std::string LastTradingDayText(Date today);

} // namespace tallowmere
