#include "core/finder/use_record.h"

#include "check.h"
#include "core/text/date.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// Whatever a record was read from, what it writes is bounded and read as the same, and a use
// counts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr Date today{2026, 11, 21};
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    UseRecord record(input);
    const std::string text = record.Text();
    Check(static_cast<std::size_t>(std::ranges::count(text, '\n')) <= UseRecord::kMostThings);
    Check(UseRecord(text).Text() == text);
    const std::string_view name = input.substr(0, 100);
    const double before = record.Of(name, today);
    record.Note(name, today);
    Check(name.empty() ||
          (record.Of(name, today) >= 1 && record.Of(name, today) >= before - 0.001));
    return 0;
}
