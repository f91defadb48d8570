#include "core/sites/site_listing.h"

#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "core/links/site_menus.h"
#include "core/sites/site_resolver.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <map>
#include <set>

namespace tallowmere {

namespace {

struct OtherName {
    std::string_view key;
    std::string_view name;
};

// clang-format off
constexpr OtherName kOtherNames[] = {
    {"index_page",      "The six indices in detail"},
    {"quote_page",      "A quote, linked from reports and charts"},
    {"sendall_lycos",   "All tickers: overview"},
    {"sendall_quotes",  "All tickers: comparison"},
    {"sendall_charts",  "All tickers: charts"},
    {"sendall_news",    "All tickers: news"},
    {"sendall_other",   "All tickers: other views"},
    {"freert_home",     "Real-time quotes: sign-up"},
    {"stream_signup",   "Streaming quotes: sign-up"},
    {"stream_redirect", "Streaming quotes: an index"},
    {"stream_ticker",   "The ticker strip"},
    {"book_page",       "A book"},
};
// clang-format on

using Names = std::map<std::string, std::pair<std::string, std::string>, std::less<>>;

const SiteMenu& MenuOf(std::string_view name) {
    const auto menus = SiteMenus();
    return *std::find_if(menus.begin(), menus.end(),
                         [&](const SiteMenu& menu) { return menu.name == name; });
}

/// The way to the items of a menu: the link that pops it up, and submenus.
std::string WayTo(const SiteMenu& menu) {
    if (menu.parent.empty())
        return std::string(Catalogue()[static_cast<std::size_t>(menu.link)].caption);
    return WayTo(MenuOf(menu.parent)) + " > " + std::string(menu.caption);
}

/// The way to the items of each array; those that a heading opens stand behind its own array.
std::map<std::string_view, std::string> WaysToArrays() {
    std::map<std::string_view, std::string> ways;
    for (const SiteMenuArray& array : SiteMenuArrays())
        if (!array.menu.empty())
            ways[array.name] = WayTo(MenuOf(array.menu));
    for (const SiteMenuItem& item : SiteMenuItems())
        if (item.kind == MenuItemKind::Heading)
            ways[item.target] = ways[item.array] + " > " + std::string(item.caption);
    return ways;
}

/// Name and description of every row, by its key.
Names NamesOfRows() {
    Names names;
    for (const LinkRow& row : Catalogue()) {
        const std::string index = std::to_string(row.index);
        names[index] = {index + "  " + std::string(Trim(row.caption)), std::string(row.tooltip)};
    }
    auto ways = WaysToArrays();
    for (const SiteMenuItem& item : SiteMenuItems())
        names[std::string(item.array) + "." + std::to_string(item.index)] = {
            ways[item.array] + " > " + std::string(item.caption), ""};
    for (const OtherName& other : kOtherNames)
        names[std::string(other.key)] = {std::string(other.name), ""};
    return names;
}

std::string Filled(const TodayRow& row, std::string_view ticker, Date date) {
    const TickerForms forms = FormsOf(ticker);
    const std::string path =
        ReplaceAll(ReplaceAll(row.address, "{list}", forms.lower), "{any}", "");
    return FillPath(path, forms, date);
}

} // namespace

std::vector<ListedSite> ListSites(const SiteTable& sites, const MenuTable& menus,
                                  const TodayTable& today, const TodayTable& shipped,
                                  std::string_view ticker, Date date) {
    const auto rowOf = [](const TodayTable& table, const std::string& key) {
        const auto found = table.addresses.find(key);
        return found == table.addresses.end() ? std::string() : found->second;
    };
    const Names names = NamesOfRows();
    std::set<std::string> listed;
    std::vector<ListedSite> list;
    for (const TodayRow& page : TodayRows(sites, menus)) {
        const auto name = names.find(page.key);
        if (page.isRead || name == names.end() || !listed.insert(page.key).second)
            continue;
        ListedSite site{page.key,
                        name->second.first,
                        name->second.second,
                        Filled(page, ticker, date),
                        rowOf(today, page.key),
                        {},
                        rowOf(today, page.key) != rowOf(shipped, page.key)};
        site.today = site.row.empty() ? site.built : FillToday(site.row, ticker);
        list.push_back(std::move(site));
    }
    return list;
}

} // namespace tallowmere
