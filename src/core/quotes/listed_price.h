#pragma once

#include "core/quotes/source_schedule.h"

namespace tallowmere {

/// What the list and the table of tickers show of a price.
struct ListedPrice {
    double last = 0;
    std::optional<double> change, percent, previous;
    std::optional<double> dayLow, dayHigh, yearLow, yearHigh;
    std::optional<double> volume, marketCap, priceEarnings, yield; ///< the last in percent
    std::string name;                                              ///< of the company or index
    std::string source;
    std::string when;        ///< its time for people; empty when not said
    std::int64_t time = 0;   ///< the same in epoch seconds, 0 when not said
    std::string age;         ///< in a few characters when the price is stale, else empty
    std::string origin;      ///< its time and its source
    bool doubtful = false;   ///< moved by half or more in a day
    std::vector<double> day; ///< the prices of its day, oldest first; empty when not known

    bool operator==(const ListedPrice&) const = default;
};

/// The price of a ticker in any spelling among the quotes at hand at `now` (epoch seconds); none
/// when there is none.
std::optional<ListedPrice> FindListedPrice(const SourceSchedule& quotes, std::string_view ticker,
                                           std::int64_t now);

} // namespace tallowmere
