#include "core/quotes/nasdaq_quotes.h"

#include "core/quotes/source_answer_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tallowmere::CheckSourceAnswer(data, size, tallowmere::ParseNasdaqQuotes);
}
