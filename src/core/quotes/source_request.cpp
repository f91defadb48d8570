#include "core/quotes/cboe_quotes.h"
#include "core/quotes/cnbc_quotes.h"
#include "core/quotes/fred_csv.h"
#include "core/quotes/nasdaq_quotes.h"
#include "core/quotes/quote_rules.h"
#include "core/quotes/source_table.h"
#include "core/quotes/time_text.h"
#include "core/quotes/treasury_csv.h"
#include "core/quotes/yahoo_chart.h"
#include "core/quotes/yahoo_spark.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

struct SpanWords {
    std::string_view range;
    std::string_view interval;
};

/// In the order of PriceSpan.
constexpr SpanWords kSpanWords[] = {{"1d", "1d"}, {"1y", "1d"}, {"5d", "30m"}, {"1d", "5m"}};

/// In the first days of January a year's file has no lines yet: the year before is asked for.
constexpr std::int64_t kYearDelay = 5 * 86400;

SourceAnswer Parse(SourceFormat format, std::string_view body, PriceSpan span) {
    switch (format) {
    case SourceFormat::YahooChart:
        return ParseYahooChart(body, span);
    case SourceFormat::YahooSpark:
        return ParseYahooSpark(body, span);
    case SourceFormat::Cnbc:
        return ParseCnbcQuotes(body);
    case SourceFormat::Nasdaq:
        return ParseNasdaqQuotes(body);
    case SourceFormat::Cboe:
        return ParseCboeQuotes(body);
    case SourceFormat::FredCsv:
        return ParseFredCsv(body);
    case SourceFormat::TreasuryCsv:
        break;
    }
    return ParseTreasuryCsv(body);
}

} // namespace

std::string RequestAddress(const SourceRow& row, PriceSpan span,
                           const std::vector<std::string>& symbols, std::int64_t now) {
    std::string joined;
    for (const std::string& symbol : symbols) {
        const auto spelling = ToDialect(symbol, row.SpelledIn());
        if (!spelling)
            continue;
        const std::string& item = IsIndexSymbol(symbol) ? row.indexItem : row.item;
        joined += joined.empty() ? "" : row.separator;
        joined += ReplaceAll(ReplaceAll(item, "{symbol}", PercentEncode(*spelling)), "{lower}",
                             PercentEncode(ToLower(*spelling)));
    }
    const SpanWords& words = kSpanWords[static_cast<std::size_t>(span)];
    std::string address = ReplaceAll(row.request, "{symbols}", joined);
    address = ReplaceAll(address, "{range}", words.range);
    address = ReplaceAll(address, "{interval}", words.interval);
    return ReplaceAll(address, "{year}", std::to_string(AtNewYork(now - kYearDelay).year));
}

SourceAnswer ReadSourceAnswer(const SourceRow& row, PriceSpan span, const SourceResponse& response,
                              const std::vector<std::string>& symbols, std::int64_t now) {
    if (const auto refusal = Refusal(response))
        return Failed(*refusal);
    SourceAnswer answer = Parse(row.format, response.body, span);
    for (Quote& quote : answer.quotes)
        quote.source = row.name;
    for (PriceSeries& series : answer.series)
        series.source = row.name;
    KeepBelievable(answer, {symbols.begin(), symbols.end()}, now);
    return answer;
}

} // namespace tallowmere
