#include "core/quotes/list_pace.h"

#include "core/quotes/quote_age.h"
#include "core/quotes/symbol_dialect.h"

#include <algorithm>

namespace tallowmere {

namespace {

/// Who looks every minute is not to miss one by the part of a second.
constexpr std::int64_t kSlack = 5;
constexpr std::int64_t kQuoteInterval = 60 - kSlack;
constexpr std::int64_t kClosedInterval = 600 - kSlack;
constexpr std::int64_t kDayInterval = 1800 - kSlack;

/// How long to wait before a symbol is asked for again; nothing when there is nothing newer.
std::optional<std::int64_t> IntervalOf(PriceSpan span, const std::string& symbol,
                                       const SourceSchedule& quotes, std::int64_t now) {
    std::int64_t time = 0;
    std::int64_t receivedAt = 0;
    if (span == PriceSpan::Quote) {
        const auto kept = quotes.FindQuote(symbol);
        time = kept.value ? kept.value->time : 0;
        receivedAt = kept.receivedAt;
    } else {
        receivedAt = quotes.FindSeries(span, symbol).receivedAt;
    }
    if (!MayBeFollowed(symbol, time, receivedAt, now))
        return std::nullopt;
    if (span == PriceSpan::Day)
        return kDayInterval;
    return IsOpen(now) && !quotes.IsUnknown(symbol) ? kQuoteInterval : kClosedInterval;
}

} // namespace

ListWish ListPace::Next(const SourceSchedule& quotes, const ListInView& list, std::int64_t now) {
    ListWish wish;
    Symbols first = list.seen;
    first.insert(first.end(), list.watched.begin(), list.watched.end());
    Take(PriceSpan::Quote, quotes, first, now, wish.quotes);
    Take(PriceSpan::Quote, quotes, list.others, now, wish.quotes);
    if (list.showsDay)
        Take(PriceSpan::Day, quotes, list.seen, now, wish.days);
    return wish;
}

void ListPace::Take(PriceSpan span, const SourceSchedule& quotes, const Symbols& tickers,
                    std::int64_t now, Symbols& wanted) {
    const std::size_t batch = quotes.BatchOf(span);
    const std::size_t most = batch - std::min(batch, quotes.ListedWaiting(span));
    if (wanted.size() >= most)
        return;
    std::vector<std::pair<std::int64_t, std::string>> due; // with when it was asked for last
    for (const std::string& ticker : tickers) {
        std::string symbol = OwnSymbol(ticker);
        if (symbol.empty() || quotes.IsPending(span, symbol))
            continue;
        const auto asked = m_asked.find({span, symbol});
        const Pause last = asked == m_asked.end() ? Pause() : asked->second;
        if (!last.Holds(now) && IntervalOf(span, symbol, quotes, now))
            due.emplace_back(last.since, std::move(symbol));
    }
    std::ranges::stable_sort(due, {}, &std::pair<std::int64_t, std::string>::first);
    for (auto& entry : due) {
        if (wanted.size() >= most)
            return;
        std::string& symbol = entry.second;
        if (std::ranges::find(wanted, symbol) != wanted.end())
            continue;
        m_asked[{span, symbol}] = {now, *IntervalOf(span, symbol, quotes, now)};
        wanted.push_back(std::move(symbol));
    }
}

} // namespace tallowmere
