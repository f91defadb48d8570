#include "core/portal/portal.h"
#include "core/sites/site_table.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::string_view kMarket = "^DJI|Dow|0|40000 39000 39500.25\n"
                                     "MSFT|Microsoft|7433000000|400 410.5 402.25\n"
                                     "BRK.B|Berkshire <B>|1325000000|460 460 460\n";

/// Whether a page holds no script but that of the ticker strip.
bool HasOnlyOwnScripts(std::string_view page) {
    for (auto at = page.find("<script"); at != page.npos; at = page.find("<script", at + 1))
        if (!page.substr(at).starts_with("<script>\nconst run ="))
            return false;
    return true;
}

} // namespace

/// The input is an address; its host ends at the first "/".
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    static const SiteTable sites = SiteTable::Parse(
        "[hosts]\ndefault = \"d\"\nquote = \"q\"\nbiz = \"b/f\"\nportal = \"p\"\n", "sites.toml");
    static const SamplePortal portal(sites, SampleMarket::Parse(kMarket));

    const std::string_view address(reinterpret_cast<const char*>(data), size);
    const auto path = std::min(address.find('/'), address.size());
    const PortalAnswer answer =
        portal.Answer(address.substr(0, path), address.substr(path), {2026, 11, 21});
    // The lists are empty here; everything else says what it is and passes no tag on.
    if (!answer.body.empty() &&
        (answer.body.find("SAMPLE DATA") == std::string::npos || !HasOnlyOwnScripts(answer.body) ||
         answer.body.find('\0') != std::string::npos))
        std::abort();
    return 0;
}
