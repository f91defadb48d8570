#pragma once

#include "text/date.h"
#include "webdata/chart_svg.h"
#include "webdata/sample_market.h"
#include "webdata/sample_series.h"

#include <string>
#include <string_view>
#include <vector>

/// Pieces of the portal's pages for people.
namespace tallowmere {

/// Name and ticker, the last price with its change, a table of figures and the chart of a period.
std::string QuoteBlock(const SampleQuote& quote, Period period, Date today);

/// A table with a row per ticker: last price, change, volume, capitalisation. Unknown tickers have
/// a row that says so.
std::string QuoteTable(const SampleMarket& market, const std::vector<std::string>& symbols);

/// The market indices, and the shares that rose and fell most.
std::string MarketBlock(const SampleMarket& market);

/// Links to the pages about one ticker on the same host.
std::string SiblingLinks(std::string_view symbol);

/// The path of the page of quotes of a ticker.
std::string QuotePath(std::string_view symbol);

/// A change with its sign in the colour of its direction.
std::string ColouredChange(double change, std::string_view text);

} // namespace tallowmere
