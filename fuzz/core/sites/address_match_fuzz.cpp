#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "core/sites/address_match.h"
#include "core/sites/site_table.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// An address that is found is one that the row builds for the ticker: building it again and
/// looking that up finds the same row for the same ticker.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    static const SiteTable sites =
        SiteTable::Parse("[hosts]\ndefault = \"d\"\nquote = \"q\"\nbiz = \"b/f\"\n", "sites.toml");
    static const AddressMatcher matcher(sites);

    const std::string_view address(reinterpret_cast<const char*>(data), size);
    (void)matcher.MatchPath(address);
    const auto match = matcher.Match(address);
    if (!match || match->ticker.find_first_of("% /?&\r") != std::string::npos)
        return 0;
    const LinkRow& row = Catalogue()[static_cast<std::size_t>(match->index)];
    const auto again =
        matcher.Match(BuildAddress(row, FormsOf(match->ticker), sites, {2026, 11, 21}));
    if (!again || again->ticker != match->ticker)
        std::abort();
    return 0;
}
