#include "core/quotes/quote_store.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tallowmere;

constexpr std::int64_t kNow = 1795208460;
constexpr std::int64_t kMonth = 30 * 86400;

/// Whether a quote may be shown as one that was received within the last month.
bool IsBelievable(const KeptQuote& kept, std::int64_t now) {
    const Quote& quote = kept.quote;
    return kept.receivedAt <= now && now - kept.receivedAt <= kMonth && !quote.source.empty() &&
           std::isfinite(quote.last) && quote.last > 0 && quote.time >= 0 &&
           quote.time <= now + 300;
}

} // namespace

// What is read of any text can be believed, is written and read again as it was, and is gone when
// it has become too old or the text is cut anywhere.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto quotes = ReadQuotes(text, kNow);
    for (const KeptQuote& kept : quotes)
        if (!IsBelievable(kept, kNow))
            std::abort();
    const std::string written = WriteQuotes(quotes);
    const auto again = ReadQuotes(written, kNow);
    if (again.size() != quotes.size() || WriteQuotes(again) != written)
        std::abort();
    for (std::size_t i = 0; i < quotes.size(); ++i)
        if (again[i].quote.last != quotes[i].quote.last ||
            again[i].quote.time != quotes[i].quote.time ||
            again[i].receivedAt != quotes[i].receivedAt)
            std::abort();
    // A file is whole or it is nothing.
    const std::string_view torn = std::string_view(written).substr(0, size % written.size());
    if (torn.find(']') == std::string_view::npos && !ReadQuotes(torn, kNow).empty())
        std::abort();
    const std::int64_t later = kNow + kMonth + 1;
    if (!ReadQuotes(written, later).empty())
        std::abort();
    return 0;
}
