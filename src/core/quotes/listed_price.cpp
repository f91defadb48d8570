#include "core/quotes/listed_price.h"

#include "core/quotes/quote_age.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

bool IsOfSameDay(std::int64_t one, std::int64_t other) {
    const NewYorkClock a = AtNewYork(one);
    const NewYorkClock b = AtNewYork(other);
    return a.day == b.day && a.month == b.month && a.year == b.year;
}

/// The day's prices up to the last one, of which the chart may not know yet.
std::vector<double> DayOf(const PriceSeries* series, const Quote& quote) {
    if (!series || quote.time == 0 || !IsOfSameDay(series->times.back(), quote.time))
        return {};
    std::vector<double> day = series->closes;
    if (quote.time > series->times.back())
        day.push_back(quote.last);
    return day;
}

/// The range of a year: what the source says, else what a chart of the year shows with the day.
void AddYear(const Quote& quote, const PriceSeries* year, ListedPrice& price) {
    price.yearLow = quote.yearLow;
    price.yearHigh = quote.yearHigh;
    if (!year || (price.yearLow && price.yearHigh))
        return;
    const auto [low, high] = std::minmax_element(year->closes.begin(), year->closes.end());
    price.yearLow = std::min(*low, quote.low.value_or(*low));
    price.yearHigh = std::max(*high, quote.high.value_or(*high));
}

} // namespace

std::optional<ListedPrice> FindListedPrice(const SourceSchedule& quotes, std::string_view ticker,
                                           std::int64_t now) {
    const auto kept = quotes.FindQuote(ticker);
    if (!kept.value)
        return std::nullopt;
    const Quote& quote = *kept.value;
    ListedPrice price;
    price.last = quote.last;
    price.change = quote.change;
    price.percent = quote.changePercent;
    price.previous = quote.previousClose;
    price.dayLow = quote.low;
    price.dayHigh = quote.high;
    AddYear(quote, quotes.FindSeries(PriceSpan::Year, ticker).value, price);
    price.volume = quote.volume;
    const std::string_view index = IndexName(quote.symbol);
    price.name = index.empty() ? quote.name : std::string(index);
    price.source = quote.source;
    price.time = quote.time;
    price.doubtful = quote.doubtful;
    if (kept.stale || FreshnessOf(quote.symbol, quote.time, now) != Freshness::Current)
        price.age = quote.time == 0 ? "no time" : AgeText(quote.time, now);
    if (quote.time != 0)
        price.when = ShowTime(quote.time);
    price.origin = (price.when.empty() ? "time not said" : price.when) + ", " + quote.source;
    price.day = DayOf(quotes.FindSeries(PriceSpan::Day, ticker).value, quote);
    return price;
}

} // namespace tallowmere
