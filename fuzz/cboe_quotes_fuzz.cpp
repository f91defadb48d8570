#include "webdata/cboe_quotes.h"
#include "webdata/quote_rules.h"

#include <cstddef>
#include <cstdint>

// Whatever a source sends, an answer holds rows or a failure, never both, and what is kept of it
// can be shown.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view body(reinterpret_cast<const char*>(data), size);
    tallowmere::SourceAnswer answer = tallowmere::ParseCboeQuotes(body);
    if (answer.Holds() == answer.failure.has_value())
        __builtin_trap();
    std::set<std::string> asked;
    for (const auto& quote : answer.quotes)
        asked.insert(quote.symbol);
    for (const auto& series : answer.series)
        asked.insert(series.symbol);
    tallowmere::KeepBelievable(answer, asked, 1795208400);
    for (const auto& quote : answer.quotes)
        if (!(quote.last > 0) || quote.time < 0)
            __builtin_trap();
    for (const auto& series : answer.series)
        if (series.times.size() != series.closes.size() || series.closes.empty())
            __builtin_trap();
    return 0;
}
