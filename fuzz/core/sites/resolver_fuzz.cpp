#include "core/sites/site_resolver.h"
#include "core/sites/site_table.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace tallowmere;

struct Tables {
    SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"h.example\"\nquote = \"q.example\"\n"
                                       "biz = \"b.example:80/x\"\n",
                                       "sites.toml");
    std::vector<TodayRow> rows = TodayRows(sites, MenuTable());
    SiteResolver resolver = Make();

    SiteResolver Make() {
        TodayTable today;
        for (const TodayRow& row : rows)
            today.addresses[row.key] =
                row.isRead ? std::string(kPortalTarget)
                           : "https://today.example/{upper}/{lower}/{first}/{yahoo}/{list}";
        return SiteResolver(sites, MenuTable(), today);
    }
};

bool IsClean(std::string_view address) {
    for (const char c : address)
        if (static_cast<unsigned char>(c) <= ' ' || c == '"' || c == '<' || c == '>')
            return false;
    return true;
}

} // namespace

// The first byte picks a row whose fixed parts stand before and behind the rest of the input, so
// that rows are reached at all. Whatever stands in for a ticker, the address stays on its site.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Tables tables;
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string& row = tables.rows[data[0] % tables.rows.size()].address;
    const auto first = row.find('{');
    const auto last = row.rfind('}');
    std::string address(text);
    if (first != std::string::npos)
        address = row.substr(0, first) + std::string(text) + row.substr(last + 1);
    for (const std::string& built : {address, std::string(text), "http://" + row}) {
        const auto page = tables.resolver.Resolve(built, AddressUse::Page);
        if (page && (!page->starts_with("https://today.example/") || !IsClean(*page)))
            __builtin_trap();
        const auto read = tables.resolver.Resolve(built, AddressUse::Reading);
        if (page && !read)
            __builtin_trap();
    }
    return 0;
}
