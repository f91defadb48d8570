#include "core/quotes/cnbc_quotes.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"

#include <nlohmann/json.hpp>

namespace tallowmere {

namespace {

void AddRow(const nlohmann::json& row, SourceAnswer& answer) {
    Quote quote;
    quote.symbol = FromDialect(TextAt(row, "symbol"), Dialect::Cnbc);
    quote.last = NumberAt(row, "last").value_or(0);
    // Any code but 0 says that the symbol is unknown.
    if (quote.symbol.empty() || quote.last <= 0 || NumberAt(row, "code").value_or(0) != 0)
        return;
    quote.name = TextAt(row, "name");
    quote.change = NumberAt(row, "change");
    quote.changePercent = NumberAt(row, "change_pct");
    quote.open = NumberAt(row, "open");
    quote.high = NumberAt(row, "high");
    quote.low = NumberAt(row, "low");
    quote.previousClose = NumberAt(row, "previous_day_closing");
    quote.volume = NumberAt(row, "volume");
    if (!quote.volume)
        quote.volume = NumberAt(row, "volume_alt");
    quote.yearHigh = NumberAt(row, "yrhiprice");
    quote.yearLow = NumberAt(row, "yrloprice");
    quote.time = ReadIsoTime(TextAt(row, "last_time")).value_or(0);
    quote.currency = TextAt(row, "currencyCode");
    quote.delayed = TextAt(row, "realTime") != "true";
    CompleteChange(quote);
    answer.quotes.push_back(std::move(quote));
}

} // namespace

SourceAnswer ParseCnbcQuotes(std::string_view body) {
    const auto root = ReadJson(body);
    const nlohmann::json* result = root ? Member(*root, "FormattedQuoteResult") : nullptr;
    if (!result)
        return Failed(SourceFailure::Garbage);
    SourceAnswer answer;
    if (const nlohmann::json* rows = Member(*result, "FormattedQuote")) {
        if (rows->is_array())
            for (const auto& row : *rows)
                AddRow(row, answer);
        else
            AddRow(*rows, answer);
    }
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
