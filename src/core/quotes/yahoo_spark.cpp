#include "core/quotes/yahoo_spark.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/yahoo_chart.h"

#include <nlohmann/json.hpp>

namespace tallowmere {

namespace {

void AddFlatRow(const nlohmann::json& row, PriceSpan span, SourceAnswer& answer) {
    PriceSeries series;
    series.symbol = FromDialect(TextAt(row, "symbol"), Dialect::Yahoo);
    series.span = span;
    FillSeries(Member(row, "timestamp"), Member(row, "close"), series);
    if (series.symbol.empty() || series.closes.empty())
        return;
    Quote quote;
    quote.symbol = series.symbol;
    quote.last = series.closes.back();
    quote.time = series.times.back();
    quote.previousClose = NumberAt(row, "previousClose");
    if (!quote.previousClose && (span == PriceSpan::Quote || span == PriceSpan::Day))
        quote.previousClose = NumberAt(row, "chartPreviousClose");
    CompleteChange(quote);
    answer.quotes.push_back(std::move(quote));
    answer.series.push_back(std::move(series));
}

void AddNestedResults(const nlohmann::json& results, PriceSpan span, SourceAnswer& answer) {
    for (const auto& result : results) {
        const nlohmann::json* responses = Member(result, "response");
        if (responses && responses->is_array() && !responses->empty())
            AddYahooChartResult(responses->front(), span, answer);
    }
}

} // namespace

SourceAnswer ParseYahooSpark(std::string_view body, PriceSpan span) {
    const auto root = ReadJson(body);
    if (!root || !root->is_object())
        return Failed(SourceFailure::Garbage);
    SourceAnswer answer;
    const nlohmann::json* spark = Member(*root, "spark");
    const nlohmann::json* results = spark ? Member(*spark, "result") : nullptr;
    if (results && results->is_array()) {
        AddNestedResults(*results, span, answer);
    } else if (!results) {
        // A share could be called SPARK: only a "result" in it makes the older form.
        for (const auto& row : *root)
            AddFlatRow(row, span, answer);
    }
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
