#include "core/quotes/quote_rules.h"

#include "core/quotes/source_text.h"
#include "core/quotes/time_text.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <cmath>

namespace tallowmere {

namespace {

/// Clocks of people's machines run ahead or behind a little.
constexpr std::int64_t kClockTolerance = 300;

bool IsBelievable(const Quote& quote, std::int64_t now) {
    return std::isfinite(quote.last) && quote.last > 0 && quote.time >= 0 &&
           quote.time <= now + kClockTolerance;
}

bool IsBelievable(const PriceSeries& series, std::int64_t now) {
    return !series.closes.empty() && series.closes.size() == series.times.size() &&
           series.times.front() >= 0 && series.times.back() <= now + kClockTolerance &&
           std::is_sorted(series.times.begin(), series.times.end()) &&
           std::all_of(series.closes.begin(), series.closes.end(),
                       [](double close) { return std::isfinite(close) && close > 0; });
}

/// Leaves the prices of the last day of a chart of one day. Nothing when that day has a single one:
/// those are the prices of days, whatever was asked for.
void KeepItsDay(PriceSeries& series) {
    if (series.span != PriceSpan::Day || series.times.empty())
        return;
    const auto isOfLastDay = [last = AtNewYork(series.times.back())](std::int64_t time) {
        const NewYorkClock clock = AtNewYork(time);
        return clock.day == last.day && clock.month == last.month && clock.year == last.year;
    };
    auto first = series.times.end();
    while (first != series.times.begin() && isOfLastDay(*std::prev(first)))
        --first;
    if (series.times.end() - first < 2)
        first = series.times.end();
    const auto count = first - series.times.begin();
    series.times.erase(series.times.begin(), first);
    series.closes.erase(series.closes.begin(), series.closes.begin() + count);
}

/// Removes the rows that are not believed, were not asked for or stand there a second time.
template <typename Row>
void KeepAsked(std::vector<Row>& rows, const std::set<std::string>& asked, std::int64_t now) {
    std::set<std::string> seen;
    std::erase_if(rows, [&](const Row& row) {
        return !asked.contains(row.symbol) || !IsBelievable(row, now) ||
               !seen.insert(row.symbol).second;
    });
}

} // namespace

void CompleteChange(Quote& quote) {
    if (!quote.change && quote.previousClose)
        quote.change = quote.last - *quote.previousClose;
    if (!quote.previousClose && quote.change)
        quote.previousClose = quote.last - *quote.change;
    if (!quote.changePercent && quote.change && quote.previousClose && *quote.previousClose > 0)
        quote.changePercent = *quote.change / *quote.previousClose * 100;
}

std::optional<SourceFailure> Refusal(const SourceResponse& response) {
    const std::string type = ToLower(response.contentType);
    const auto first = response.body.find_first_not_of(" \t\r\n");
    const bool isMarkup = first != std::string::npos && response.body[first] == '<';
    // A content network answers an unknown file this way, and would go on answering known ones.
    if (response.status == 403 && isMarkup && Contains(response.body, "<Code>AccessDenied</Code>"))
        return SourceFailure::Empty;
    if (response.status == 401 || response.status == 403 || response.status == 429)
        return SourceFailure::Blocked;
    // An unknown symbol comes with 404 and a body that says so.
    if (response.status != 200 && response.status != 404)
        return SourceFailure::Unreachable;
    if (response.body.size() > kMaximumAnswer)
        return SourceFailure::Garbage;
    const bool isPage = isMarkup || Contains(type, "html") || Contains(type, "xml");
    if (isPage)
        return response.status == 404 ? SourceFailure::Garbage : SourceFailure::Blocked;
    if (first == std::string::npos || type.starts_with("image/") || type.starts_with("audio/") ||
        type.starts_with("video/") || type.starts_with("font/"))
        return SourceFailure::Garbage;
    return std::nullopt;
}

void KeepBelievable(SourceAnswer& answer, const std::set<std::string>& asked, std::int64_t now) {
    if (answer.failure)
        return;
    KeepAsked(answer.quotes, asked, now);
    KeepAsked(answer.series, asked, now);
    for (PriceSeries& series : answer.series)
        KeepItsDay(series);
    std::erase_if(answer.series, [](const PriceSeries& series) { return series.times.empty(); });
    for (Quote& quote : answer.quotes)
        quote.doubtful = quote.changePercent && std::abs(*quote.changePercent) >= 50;
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
}

} // namespace tallowmere
