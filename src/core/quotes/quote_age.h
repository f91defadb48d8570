#pragma once

#include "core/quotes/quote.h"

#include <cstdint>
#include <string>
#include <string_view>

/// How old a price may be. A price does not age while its market is closed, so ages are measured in
/// the minutes in which it was open: Monday to Friday from 9:30 to 16:00 in New York but for the
/// holidays and early ends of the exchange.
namespace tallowmere {

/// What a symbol stands for, as far as it shows: a fund has five letters that end in X.
enum class PriceKind : std::uint8_t { Share, Index, Yield, Fund };

/// The kind of a symbol in the program's form.
PriceKind KindOf(std::string_view ownSymbol);

/// How many minutes shares are traded on the day of a moment in New York: 390, on three days before
/// or after a holiday 210, on weekends and holidays 0.
int TradingMinutes(std::int64_t time);

/// Minutes in which the market was open between two moments (epoch seconds), 0 when `to` is not
/// after `from`. What lies back further than a month counts as a month.
std::int64_t OpenMinutes(std::int64_t from, std::int64_t to);

/// Whether shares are traded at a moment.
bool IsOpen(std::int64_t time);

/// Whether a price that bears a time (0 when it is not said) and was received at `receivedAt` (0
/// for never) can be followed by a newer one at `now`. While the market is closed it cannot, once
/// it is that of the close: it says so, or it came so late that no source has another one.
bool MayBeFollowed(std::string_view ownSymbol, std::int64_t time, std::int64_t receivedAt,
                   std::int64_t now);

/// How much the time that a price bears is worth. Of two answers the one of more worth is taken, of
/// two of the same worth the newer one.
enum class Freshness : std::uint8_t {
    Old,     ///< the market has moved on since: of an earlier day, or of too long ago
    Unknown, ///< without a time
    Current
};

/// What a price of a symbol (in the program's form) with a time is worth at `now`.
Freshness FreshnessOf(std::string_view ownSymbol, std::int64_t time, std::int64_t now);

/// The same of the last price of a chart's span, whose points lie further apart.
Freshness FreshnessOf(const PriceSeries& series, std::int64_t now);

/// An age in a few characters: "5 min", "3 h", "2 d", never less than a minute. Empty for a time
/// that is not said.
std::string AgeText(std::int64_t time, std::int64_t now);

} // namespace tallowmere
