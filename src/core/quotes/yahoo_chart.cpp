#include "core/quotes/yahoo_chart.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tallowmere {

namespace {

/// The first element of the list `key` of the object or list element that holds prices.
const nlohmann::json* PriceList(const nlohmann::json& result, const char* key) {
    const nlohmann::json* indicators = Member(result, "indicators");
    const nlohmann::json* quotes = indicators ? Member(*indicators, "quote") : nullptr;
    return quotes && quotes->is_array() && !quotes->empty() ? Member(quotes->front(), key)
                                                            : nullptr;
}

std::optional<double> FirstNumber(const nlohmann::json* list) {
    if (list && list->is_array() && !list->empty() && list->front().is_number())
        return list->front().get<double>();
    return std::nullopt;
}

} // namespace

void FillSeries(const nlohmann::json* times, const nlohmann::json* closes, PriceSeries& series) {
    if (!times || !closes || !times->is_array() || !closes->is_array())
        return;
    const auto count = std::min(times->size(), closes->size());
    for (std::size_t i = 0; i < count; ++i) {
        const auto& time = (*times)[i];
        const auto& close = (*closes)[i];
        if (time.is_number_integer() && close.is_number() && close.get<double>() > 0) {
            series.times.push_back(time.get<std::int64_t>());
            series.closes.push_back(close.get<double>());
        }
    }
}

void AddYahooChartResult(const nlohmann::json& result, PriceSpan span, SourceAnswer& answer) {
    const nlohmann::json* meta = Member(result, "meta");
    if (!meta || TextAt(*meta, "symbol").empty())
        return;
    PriceSeries series;
    series.symbol = FromDialect(TextAt(*meta, "symbol"), Dialect::Yahoo);
    series.span = span;
    series.currency = TextAt(*meta, "currency");
    FillSeries(Member(result, "timestamp"), PriceList(result, "close"), series);

    Quote quote;
    quote.symbol = series.symbol;
    quote.last = NumberAt(*meta, "regularMarketPrice").value_or(0);
    quote.name = TextAt(*meta, "longName");
    if (quote.name.empty())
        quote.name = TextAt(*meta, "shortName");
    quote.high = NumberAt(*meta, "regularMarketDayHigh");
    quote.low = NumberAt(*meta, "regularMarketDayLow");
    quote.volume = NumberAt(*meta, "regularMarketVolume");
    quote.yearHigh = NumberAt(*meta, "fiftyTwoWeekHigh");
    quote.yearLow = NumberAt(*meta, "fiftyTwoWeekLow");
    quote.time = SecondsAt(*meta, "regularMarketTime");
    quote.currency = series.currency;
    quote.previousClose = NumberAt(*meta, "previousClose");
    // Over longer spans the first is not today's and the second is from before the span.
    if (span == PriceSpan::Quote || span == PriceSpan::Day) {
        quote.open = FirstNumber(PriceList(result, "open"));
        if (!quote.previousClose)
            quote.previousClose = NumberAt(*meta, "chartPreviousClose");
    }
    CompleteChange(quote);

    if (quote.last > 0)
        answer.quotes.push_back(std::move(quote));
    if (!series.closes.empty())
        answer.series.push_back(std::move(series));
}

SourceAnswer ParseYahooChart(std::string_view body, PriceSpan span) {
    const auto root = ReadJson(body);
    const nlohmann::json* chart = root ? Member(*root, "chart") : nullptr;
    if (!chart)
        return Failed(SourceFailure::Garbage);
    SourceAnswer answer;
    const nlohmann::json* results = Member(*chart, "result");
    if (results && results->is_array())
        for (const auto& result : *results)
            AddYahooChartResult(result, span, answer);
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
