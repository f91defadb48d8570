#include "core/quotes/quote_store.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// What is read of any text is written and read again as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    constexpr std::int64_t now = 1795208460;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto quotes = ReadQuotes(text, now);
    const std::string written = WriteQuotes(quotes);
    if (ReadQuotes(written, now).size() != quotes.size() ||
        WriteQuotes(ReadQuotes(written, now)) != written)
        std::abort();
    return 0;
}
