#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "core/links/site_menus.h"
#include "core/links/web_address.h"
#include "core/sites/site_resolver.h"
#include "core/sites/site_table.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>

namespace tallowmere {
namespace {

std::string Shipped(const char* name) {
    std::ifstream file(std::string(TALLOWMERE_SOURCE_DIR "/data/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Tables {
    SiteTable sites = SiteTable::Parse(Shipped("sites.toml"), "sites.toml");
    MenuTable menus = MenuTable::Parse(Shipped("menus.toml"), "menus.toml");
    TodayTable today = ReadTodayTable(Shipped("sites.toml"), "sites.toml");
    SiteResolver resolver{sites, menus, today};
};

std::vector<std::string> BuiltAddresses(const Tables& tables) {
    std::vector<std::string> addresses;
    const TickerForms forms = FormsOf("MSFT");
    for (const LinkRow& row : Catalogue())
        if (HasAddress(row))
            addresses.push_back(WithScheme(BuildAddress(row, forms, tables.sites, {2026, 11, 20})));
    for (const SiteMenuItem& item : SiteMenuItems())
        if (item.kind == MenuItemKind::Ticker)
            addresses.push_back(WithScheme(
                SiteMenuAddress(item.array, item.index, "msft", tables.sites, tables.menus)));
    return addresses;
}

/// Times are of one address.
void Resolve(benchmark::State& state, const Tables& tables,
             const std::vector<std::string>& addresses) {
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(tables.resolver.Resolve(addresses[next], AddressUse::Page));
        next = next + 1 == addresses.size() ? 0 : next + 1;
    }
}

void AllRows(benchmark::State& state) {
    const Tables tables;
    Resolve(state, tables, BuiltAddresses(tables));
}
BENCHMARK(AllRows);

void NoneOfOurs(benchmark::State& state) {
    const Tables tables;
    Resolve(state, tables,
            {"https://www.example.org/",
             "https://finance.yahoo.com/quote/MSFT/key-statistics?p=MSFT",
             "https://cdn.example.net/assets/scripts/bundle.4f1c0e.js?v=20261120&lang=en-US",
             "http://quote.yahoo.com/q/unknown/path/that/starts/like/ours?s=msft&d=9z&more=1",
             "https://images.example.com/a%20picture%20with%20escapes%2Fand%3Fmore.png"});
}
BENCHMARK(NoneOfOurs);

} // namespace
} // namespace tallowmere
