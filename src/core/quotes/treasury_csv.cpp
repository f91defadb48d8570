#include "core/quotes/treasury_csv.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <map>

namespace tallowmere {

namespace {

/// The yields are taken from bids at half past three in New York.
constexpr int kHour = 15;
constexpr int kMinute = 30;

} // namespace

SourceAnswer ParseTreasuryCsv(std::string_view body) {
    const auto lines = Split(body, '\n');
    const auto head = ReadCsvLine(lines.front());
    if (head.size() < 2 || head[0] != "Date")
        return Failed(SourceFailure::Garbage);

    std::map<std::int64_t, std::vector<std::string>> days;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        auto fields = ReadCsvLine(lines[i]);
        if (const auto time = ReadUsDate(fields.front(), kHour, kMinute))
            days.emplace(*time, std::move(fields));
    }

    SourceAnswer answer;
    for (std::size_t column = 1; column < head.size(); ++column) {
        const std::string symbol = FromDialect(head[column], Dialect::Treasury);
        if (!IsIndexSymbol(symbol))
            continue;
        PriceSeries series;
        series.symbol = symbol;
        for (const auto& [time, fields] : days) {
            const auto value =
                column < fields.size() ? ReadNumber(fields[column]) : std::optional<double>();
            if (value && *value > 0) {
                series.times.push_back(time);
                series.closes.push_back(*value);
            }
        }
        if (series.closes.empty())
            continue;
        Quote quote;
        quote.symbol = symbol;
        quote.name = IndexName(symbol);
        quote.last = series.closes.back();
        quote.time = series.times.back();
        if (series.closes.size() > 1)
            quote.previousClose = series.closes[series.closes.size() - 2];
        CompleteChange(quote);
        answer.quotes.push_back(std::move(quote));
        answer.series.push_back(std::move(series));
    }
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
