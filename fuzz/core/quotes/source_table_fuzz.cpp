#include "core/quotes/source_table.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto table = tallowmere::ReadSourceTable(text, "sources.toml");
    for (const auto& row : table.rows) {
        if (row.batch < 1 || row.minInterval < 15 || row.gives.empty() || row.Host().empty())
            __builtin_trap();
        (void)tallowmere::RequestAddress(row, row.gives.front(), {"BRK.B", "^SPC"}, 1795208400);
    }
    return 0;
}
