#include "core/quotes/fred_csv.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"
#include "core/text/bytes.h"

namespace tallowmere {

SourceAnswer ParseFredCsv(std::string_view body) {
    constexpr std::int64_t kYear = 366 * 86400;
    const auto lines = Split(body, '\n');
    const auto head = ReadCsvLine(lines.front());
    // The first column was called DATE until 2024.
    if (head.size() != 2 || (head[0] != "observation_date" && head[0] != "DATE"))
        return Failed(SourceFailure::Garbage);

    PriceSeries all;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto fields = ReadCsvLine(lines[i]);
        if (fields.size() != 2)
            continue;
        const auto time = ReadIsoTime(fields[0]);
        const auto value = ReadNumber(fields[1]);
        if (time && value && *value > 0 && (all.times.empty() || *time > all.times.back())) {
            all.times.push_back(*time);
            all.closes.push_back(*value);
        }
    }
    if (all.closes.empty())
        return Failed(SourceFailure::Empty);

    Quote quote;
    quote.symbol = FromDialect(head[1], Dialect::Fred);
    quote.name = IndexName(quote.symbol);
    quote.last = all.closes.back();
    quote.time = all.times.back();
    if (all.closes.size() > 1)
        quote.previousClose = all.closes[all.closes.size() - 2];
    CompleteChange(quote);

    PriceSeries year;
    year.symbol = quote.symbol;
    for (std::size_t i = 0; i < all.times.size(); ++i)
        if (all.times[i] > quote.time - kYear) {
            year.times.push_back(all.times[i]);
            year.closes.push_back(all.closes[i]);
        }
    SourceAnswer answer;
    answer.quotes.push_back(std::move(quote));
    answer.series.push_back(std::move(year));
    return answer;
}

} // namespace tallowmere
