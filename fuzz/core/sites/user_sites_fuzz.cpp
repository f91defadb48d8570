#include "core/sites/user_sites.h"
#include "core/text/runtime_error.h"
#include "core/text/toml_edit.h"

#include <cstdlib>

using namespace tallowmere;

namespace {

constexpr std::string_view kAddress = "https://today.example/{upper}";

/// A row that was written is read again, one that was taken out is not, and neither changes more.
void CheckEdits(std::string_view text, const OverriddenSites& before) {
    try {
        const std::string with = SetTomlRow(text, "links", "3", kAddress);
        const OverriddenSites after = OverrideSites({}, {}, with, "f");
        if (after.today.addresses.find("3")->second != kAddress ||
            after.sites.Hosts() != before.sites.Hosts())
            std::abort();
        const std::string without = RemoveTomlRow(with, "links", "3");
        if (OverrideSites({}, {}, without, "f").today.addresses.contains("3"))
            std::abort();
    } catch (const RuntimeError&) {
        return; // what cannot be changed without damage is refused
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const OverriddenSites sites = OverrideSites({}, {}, text, "f");
    if (!sites.isReadable && sites.problems.empty())
        std::abort();
    CheckEdits(text, sites);
    return 0;
}
