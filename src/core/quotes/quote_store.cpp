#include "core/quotes/quote_store.h"

#include "core/quotes/quote_rules.h"
#include "core/quotes/source_text.h"

#include <nlohmann/json.hpp>

namespace tallowmere {

namespace {

using nlohmann::json;

constexpr std::int64_t kLongestKept = 30 * 86400;

struct Figure {
    const char* key;
    std::optional<double> Quote::*value;
};

// clang-format off
constexpr Figure kFigures[] = {
    {"change",   &Quote::change},
    {"percent",  &Quote::changePercent},
    {"open",     &Quote::open},
    {"high",     &Quote::high},
    {"low",      &Quote::low},
    {"previous", &Quote::previousClose},
    {"volume",   &Quote::volume},
    {"yearHigh", &Quote::yearHigh},
    {"yearLow",  &Quote::yearLow},
};
// clang-format on

bool FlagAt(const json& row, const char* key) {
    const json* flag = Member(row, key);
    return flag && flag->is_boolean() && flag->get<bool>();
}

KeptQuote ReadRow(const json& row) {
    KeptQuote kept;
    Quote& quote = kept.quote;
    quote.symbol = TextAt(row, "symbol");
    quote.name = TextAt(row, "name");
    quote.currency = TextAt(row, "currency");
    quote.source = TextAt(row, "source");
    quote.last = NumberAt(row, "last").value_or(0);
    quote.time = SecondsAt(row, "time");
    quote.delayed = FlagAt(row, "delayed");
    for (const Figure& figure : kFigures)
        quote.*figure.value = NumberAt(row, figure.key);
    kept.receivedAt = SecondsAt(row, "received");
    return kept;
}

json WriteRow(const KeptQuote& kept) {
    const Quote& quote = kept.quote;
    json row = {{"symbol", quote.symbol},     {"name", quote.name},
                {"currency", quote.currency}, {"source", quote.source},
                {"last", quote.last},         {"time", quote.time},
                {"delayed", quote.delayed},   {"received", kept.receivedAt}};
    for (const Figure& figure : kFigures)
        if (const auto& value = quote.*figure.value)
            row[figure.key] = *value;
    return row;
}

} // namespace

std::string WriteQuotes(const std::vector<KeptQuote>& quotes) {
    std::string text = "[";
    for (const KeptQuote& kept : quotes)
        text.append(text.size() == 1 ? "\n" : ",\n")
            .append(WriteRow(kept).dump(-1, ' ', false, json::error_handler_t::replace));
    return text + "\n]\n";
}

std::vector<KeptQuote> ReadQuotes(std::string_view text, std::int64_t now) {
    std::vector<KeptQuote> quotes;
    const auto rows = ReadJson(text);
    if (!rows || !rows->is_array())
        return quotes;
    for (const json& row : *rows) {
        KeptQuote kept = ReadRow(row);
        const bool isRecent = kept.receivedAt <= now && now - kept.receivedAt <= kLongestKept;
        if (!isRecent || kept.quote.source.empty())
            continue;
        // The same rules as when it came from its source.
        SourceAnswer answer;
        answer.quotes.push_back(std::move(kept.quote));
        KeepBelievable(answer, {answer.quotes.front().symbol}, now);
        for (Quote& quote : answer.quotes)
            quotes.push_back({std::move(quote), kept.receivedAt});
    }
    return quotes;
}

} // namespace tallowmere
