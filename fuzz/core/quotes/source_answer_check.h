#pragma once

#include "core/quotes/quote_rules.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace tallowmere {

/// Stops the fuzzer unless the answer that `parse` makes of the bytes can be relied on: whatever a
/// source sends, it holds rows or a failure, never both, and what is kept of it can be shown.
template <typename Parse>
int CheckSourceAnswer(const std::uint8_t* data, std::size_t size, Parse parse) {
    constexpr std::int64_t kNow = 1795208400; // in November 2026, as the seeds are
    SourceAnswer answer = parse(std::string_view(reinterpret_cast<const char*>(data), size));
    if (answer.Holds() == answer.failure.has_value())
        __builtin_trap();
    std::set<std::string> asked;
    for (const Quote& quote : answer.quotes)
        asked.insert(quote.symbol);
    for (const PriceSeries& series : answer.series)
        asked.insert(series.symbol);
    KeepBelievable(answer, asked, kNow);
    for (const Quote& quote : answer.quotes)
        if (!(quote.last > 0) || quote.time < 0)
            __builtin_trap();
    for (const PriceSeries& series : answer.series)
        if (series.times.size() != series.closes.size() || series.closes.empty())
            __builtin_trap();
    return 0;
}

} // namespace tallowmere
