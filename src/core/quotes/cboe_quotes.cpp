#include "core/quotes/cboe_quotes.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"

#include <nlohmann/json.hpp>

namespace tallowmere {

namespace {

void AddRow(const nlohmann::json& row, std::string symbol, SourceAnswer& answer) {
    // Indices are asked for with a line below and now and then answered with a caret.
    if (symbol.starts_with('^'))
        symbol.front() = '_';
    Quote quote;
    quote.symbol = FromDialect(symbol, Dialect::Cboe);
    quote.last = NumberAt(row, "current_price").value_or(0);
    if (quote.symbol.empty() || quote.last <= 0)
        return;
    quote.change = NumberAt(row, "price_change");
    quote.changePercent = NumberAt(row, "price_change_percent");
    quote.open = NumberAt(row, "open");
    quote.high = NumberAt(row, "high");
    quote.low = NumberAt(row, "low");
    quote.previousClose = NumberAt(row, "prev_day_close");
    quote.volume = NumberAt(row, "volume");
    quote.time = ReadIsoTime(TextAt(row, "last_trade_time")).value_or(0);
    quote.currency = IsIndexSymbol(quote.symbol) ? "" : "USD";
    CompleteChange(quote);
    answer.quotes.push_back(std::move(quote));
}

} // namespace

SourceAnswer ParseCboeQuotes(std::string_view body) {
    const auto root = ReadJson(body);
    const nlohmann::json* data = root ? Member(*root, "data") : nullptr;
    if (!data)
        return Failed(SourceFailure::Garbage);
    SourceAnswer answer;
    if (data->is_array()) {
        for (const auto& row : *data)
            AddRow(row, TextAt(row, "symbol"), answer);
    } else {
        const std::string outer = TextAt(*root, "symbol");
        AddRow(*data, outer.empty() ? TextAt(*data, "symbol") : outer, answer);
    }
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
