#pragma once

#include "core/portal/market_view.h"

#include <string>
#include <string_view>
#include <vector>

/// Pieces of the portal's pages for people.
namespace tallowmere {

/// Name and ticker, the last price with its change, a table of figures and the chart of a period.
std::string QuoteBlock(const MarketView& market, const ShownQuote& quote, Period period);

/// A table with a row per ticker: last price, change, volume, capitalisation. Unknown tickers have
/// a row that says so.
std::string QuoteTable(const MarketView& market, const std::vector<std::string>& symbols);

/// The market indices, and the shares of the strip that rose and fell most.
std::string MarketBlock(const MarketView& market);

/// Links to the pages about one ticker.
std::string SiblingLinks(const MarketView& market, std::string_view symbol);

/// The path of the page of quotes of a ticker.
std::string QuotePath(std::string_view symbol);

/// A text about a change in the colour of its direction.
std::string ColouredChange(const std::optional<double>& change, std::string_view text);

/// The last price in an element of its own, marked when it is stale.
std::string LastPrice(const ShownQuote& quote, std::string_view element);

/// A cell of a table whose rows break where the window is narrow; the head of its column is said in
/// the cell then. `value` is HTML.
std::string NamedCell(std::string_view name, std::string_view value);

/// The 52-week range, with its source if that is another one than the quote's.
std::string YearRange(const ShownQuote& quote);

/// Two ends of a range, "-" when one is not known.
std::string RangeText(const std::optional<double>& low, const std::optional<double>& high);

} // namespace tallowmere
