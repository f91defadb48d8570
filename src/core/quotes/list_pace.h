#pragma once

#include "core/quotes/source_schedule.h"

/// What the list of tickers, and what goes with it, asks the sources for, and when.
namespace tallowmere {

/// The tickers of a list, and others that go with them, in any spelling.
struct ListInView {
    std::vector<std::string> seen;   ///< in the rows that can be seen, from the top
    std::vector<std::string> others; ///< in the rest of the list
    bool showsDay = false;           ///< whether a line of the day is shown
    /// Wanted like those that can be seen, without their day, wherever they stand.
    std::vector<std::string> watched = {};
};

/// Symbols to want of the sources now, in the program's form.
struct ListWish {
    std::vector<std::string> quotes;
    std::vector<std::string> days; ///< over the day
};

/// Remembers what was asked for: the price of each ticker in sight or watched about once a minute,
/// its day every half hour, and what room a request has left goes to the tickers out of sight,
/// those first that have waited longest. No more is wanted while a request's worth waits to be
/// sent. What nothing newer can be had of is left out; while the market is closed the rest is
/// asked for every ten minutes.
class ListPace {
public:
    /// What to want at `now` (epoch seconds) of a list that somebody sees: a request's worth of
    /// each at most.
    ListWish Next(const SourceSchedule& quotes, const ListInView& list, std::int64_t now);

private:
    using Key = std::pair<PriceSpan, std::string>;
    using Symbols = std::vector<std::string>;

    void Take(PriceSpan span, const SourceSchedule& quotes, const Symbols& tickers,
              std::int64_t now, Symbols& wanted);

    std::map<Key, Pause> m_asked;
};

} // namespace tallowmere
