#include "core/sites/site_table.h"
#include "core/text/runtime_error.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const auto sites = tallowmere::SiteTable::Parse(text, "sites.toml");
        (void)sites.Address("quote", "/q");
        (void)sites.Program("mail");
    } catch (const tallowmere::RuntimeError&) {
        return 0;
    }
    return 0;
}
