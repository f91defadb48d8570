#include "core/sites/site_resolver.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto today = tallowmere::ReadTodayTable(text, "sites.toml");
    for (const auto& [key, address] : today.addresses)
        if (tallowmere::FillToday(address, "A&B").find_first_of("{}") != std::string::npos)
            __builtin_trap();
    return 0;
}
