#include "core/quotes/listed_price.h"

#include "core/quotes/quote_age.h"
#include "core/quotes/time_text.h"

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
    price.doubtful = quote.doubtful;
    if (kept.stale || FreshnessOf(quote.symbol, quote.time, now) != Freshness::Current)
        price.age = quote.time == 0 ? "no time" : AgeText(quote.time, now);
    price.origin = (quote.time == 0 ? "time not said" : ShowTime(quote.time)) + ", " + quote.source;
    price.time = quote.time;
    price.day = DayOf(quotes.FindSeries(PriceSpan::Day, ticker).value, quote);
    return price;
}

} // namespace tallowmere
