#include "core/quotes/nasdaq_quotes.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"

#include <nlohmann/json.hpp>

namespace tallowmere {

namespace {

bool IsTrue(const nlohmann::json& row, const char* key) {
    const nlohmann::json* member = Member(row, key);
    return member && member->is_boolean() && member->get<bool>();
}

/// The range of a year: "164.08 - 240.10".
void ReadYear(std::string_view range, Quote& quote) {
    constexpr std::string_view kTo = " - ";
    const auto to = range.find(kTo);
    if (to == std::string_view::npos)
        return;
    quote.yearLow = ReadNumber(range.substr(0, to));
    quote.yearHigh = ReadNumber(range.substr(to + kTo.size()));
}

void AddRow(const nlohmann::json& row, SourceAnswer& answer) {
    // The rows of a watchlist hold the price fields themselves, a single answer keeps them apart.
    const nlohmann::json* primary = Member(row, "primaryData");
    const nlohmann::json& prices = primary && primary->is_object() ? *primary : row;
    Quote quote;
    quote.symbol = FromDialect(TextAt(row, "symbol"), Dialect::Nasdaq);
    quote.last = NumberAt(prices, "lastSalePrice").value_or(0);
    if (quote.symbol.empty() || quote.last <= 0)
        return;
    quote.name = TextAt(row, "companyName");
    quote.change = NumberAt(prices, "netChange");
    quote.changePercent = NumberAt(prices, "percentageChange");
    quote.volume = NumberAt(prices, "volume");
    quote.time = ReadUsTime(TextAt(prices, "lastTradeTimestamp")).value_or(0);
    quote.currency = TextAt(prices, "currency");
    quote.delayed = !IsTrue(prices, "isRealTime");
    if (const nlohmann::json* stats = Member(row, "keyStats")) {
        if (const nlohmann::json* previous = Member(*stats, "previousclose"))
            quote.previousClose = NumberAt(*previous, "value");
        if (const nlohmann::json* year = Member(*stats, "fiftyTwoWeekHighLow"))
            ReadYear(TextAt(*year, "value"), quote);
    }
    CompleteChange(quote);
    answer.quotes.push_back(std::move(quote));
}

} // namespace

SourceAnswer ParseNasdaqQuotes(std::string_view body) {
    const auto root = ReadJson(body);
    const nlohmann::json* data = root ? Member(*root, "data") : nullptr;
    if (!data)
        return Failed(SourceFailure::Garbage);
    SourceAnswer answer;
    if (data->is_array())
        for (const auto& row : *data)
            AddRow(row, answer);
    else
        AddRow(*data, answer);
    if (!answer.Holds())
        answer.failure = SourceFailure::Empty;
    return answer;
}

} // namespace tallowmere
