#include "core/quotes/yahoo_spark.h"

#include "core/quotes/source_answer_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tallowmere::CheckSourceAnswer(data, size, [](std::string_view body) {
        return tallowmere::ParseYahooSpark(body, tallowmere::PriceSpan::Quote);
    });
}
