#include "core/sites/today_table.h"

#include "core/links/catalogue.h"
#include "core/links/index_query.h"
#include "core/links/site_menus.h"
#include "core/links/web_address.h"
#include "core/text/bytes.h"
#include "core/text/tolerant_toml.h"

#include <algorithm>

namespace tallowmere {

namespace {

struct OtherPage {
    std::string_view key;
    std::string_view site;
    std::string_view path;
    bool isRead = false;
};

// clang-format off
constexpr OtherPage kOtherPages[] = {
    // Links whose address is not built from a row of the catalogue.
    {"27",              "quote",                "/quotes?symbols={list}&d={any}"},
    {"187",             "stream_applet",        "/moneynet/cgi-bin/applet.cgi?{any}"},
    // Quote pages, from the pages that the program writes.
    {"quote_page",      "quote",                "/q?s={lower}"},
    {"quote_page",      "quote",                "/q?s={lower}&d={any}"},
    {"quote_page",      "quote",                "/q?s={lower}&button=Go"},
    // Images and other parts of pages.
    {"chart_images",    "chart_server_1",       "/c/0b/{any}"},
    {"chart_images",    "chart_server_1",       "/c/1y/{any}"},
    {"chart_images",    "chart_server_1",       "/c/3m/{any}"},
    {"chart_images",    "chart_server_2",       "/v?s={any}"},
    {"chart_images",    "chart_server_2",       "/t?s={any}"},
    {"chart_images",    "chart_server_2",       "/w?s={any}"},
    {"chart_images",    "chart_server_2",       "/b?s={any}"},
    {"logo",            "portal",               "/logo.gif"},
    // All tickers of a portfolio at once.
    {"sendall_lycos",   "sendall_lycos",        "/click?page=quote&company={list}&x=58&y=9"},
    {"sendall_charts",  "sendall_msn",          "/investor/charts/charting.asp?Symbol={list}"},
    {"sendall_charts",  "sendall_portal_click", "/click?bfpage=charts&symbol={list}&period=3MONTH&charttype=HIST&othersymbols="},
    {"sendall_quotes",  "sendall_portal_click", "/click?bfpage=quotes&defview=FULL&symbol={list}"},
    {"sendall_news",    "sendall_portal_click", "/click?bfpage=news&symbol={list}"},
    {"sendall_other",   "sendall_portal_click", "/click?bfpage=estimates&symbol={list}"},
    {"sendall_other",   "sendall_portal",       "/investments/stats/?symbol={list}"},
    {"sendall_other",   "sendall_portal",       "/investments/snapshot/?symbol={list}"},
    {"sendall_other",   "sendall_portal",       "/investments/multex/?symbol={list}"},
    {"sendall_other",   "sendall_portal",       "/investments/stkeval/?symbol={list}"},
    // Services around the links.
    {"freert_home",     "freert_home",          "/"},
    {"stream_signup",   "stream_signup",        "/"},
    {"stream_redirect", "stream_redirect",      "/moneynet/jtickredir.asp?symbol={lower}"},
    {"stream_redirect", "stream_redirect",      "/moneynet/jtickredir.asp?symbol=?{upper}"},
    {"stream_ticker",   "stream_ticker",        "/javaticker.html"},
    {"book_page",       "bookstore",            "/exec/obidos/ASIN/{upper}/"},
    // What the program reads.
    {"read_indices",    "quote_server",         "/q?s={any}",            true},
    {"read_portfolio",  "portfolio_quotes",     "/quotes?symbols={any}", true},
    {"read_profile",    "profile_page",         "/p/{any}",              true},
    {"read_lists",      "maker",                "/rr.html",              true},
    {"read_lists",      "maker",                "/newsites.html",        true},
};
// clang-format on

/// Whether there is a page of this key. "03" is none: nobody would ask for it.
bool IsKnownKey(std::string_view key) {
    for (const LinkRow& row : Catalogue())
        if (HasAddress(row) && std::to_string(row.index) == key)
            return row.action != LinkAction::HomePage;
    return key == "index_page" || key == kOutsideKey ||
           std::any_of(std::begin(kOtherPages), std::end(kOtherPages),
                       [&](const OtherPage& page) { return page.key == key; });
}

bool IsKnownItem(std::string_view array, std::string_view index) {
    const auto items = SiteMenuItems(array);
    return std::any_of(items.begin(), items.end(), [&](const SiteMenuItem& item) {
        return std::to_string(item.index) == index &&
               (item.kind == MenuItemKind::Fixed || item.kind == MenuItemKind::Ticker);
    });
}

/// Whether every brace of an address belongs to a field that can be filled in.
bool HasOnlyKnownFields(std::string_view address) {
    std::string rest(address);
    for (const char* field : {"{upper}", "{lower}", "{first}", "{yahoo}", "{list}"})
        rest = ReplaceAll(rest, field, "");
    return rest.find_first_of("{}") == std::string::npos;
}

void ReadRow(TolerantToml& file, const std::string& key, bool isKnown, const toml::node& value,
             TodayTable& table) {
    const auto address = value.value<std::string>();
    const std::string name = "\"" + key + "\"";
    const std::string flaw = address ? FlawOfToday(*address) : "is not an address in quotes";
    if (!isKnown)
        file.Complain(value, "there is no page " + name);
    else if (!flaw.empty())
        file.Complain(value, name + " " + flaw);
    else
        table.addresses[key] = *address;
}

} // namespace

std::string FlawOfToday(std::string_view address) {
    if (address.empty() || address == kPortalTarget)
        return {};
    if (!IsWebAddress(address))
        return "is no http or https address";
    return HasOnlyKnownFields(address) ? "" : "has a field that is not known";
}

std::pair<std::string, std::string> PlaceOfRow(std::string_view key) {
    const auto dot = key.find('.');
    if (dot == std::string_view::npos)
        return {"links", std::string(key)};
    return {"menus." + std::string(key.substr(0, dot)), std::string(key.substr(dot + 1))};
}

std::vector<TodayRow> TodayRows(const SiteTable& sites, const MenuTable& menus) {
    std::vector<TodayRow> rows;
    rows.push_back({"index_page", sites.Address("quote_server", DetailedIndexQuery())});
    for (const LinkRow& row : Catalogue())
        if (HasAddress(row) && row.action != LinkAction::HomePage)
            rows.push_back({std::to_string(row.index), sites.Address(row.site, row.target)});
    for (const SiteMenuArray& array : SiteMenuArrays())
        for (const SiteMenuItem& item : SiteMenuItems(array.name)) {
            const std::string key = std::string(array.name) + "." + std::to_string(item.index);
            if (item.kind == MenuItemKind::Ticker)
                rows.push_back({key, sites.Address(array.site, item.target)});
            else if (item.kind == MenuItemKind::Fixed)
                rows.push_back({key, std::string(menus.Address(array.name, item.index))});
        }
    for (const OtherPage& page : kOtherPages)
        rows.push_back({std::string(page.key), sites.Address(page.site, page.path), page.isRead});
    return rows;
}

void OverrideToday(TolerantToml& file, TodayTable& table) {
    if (const toml::table* links = file.root["links"].as_table())
        for (const auto& [key, value] : *links)
            ReadRow(file, std::string(key.str()), IsKnownKey(key.str()), value, table);
    const toml::table* menus = file.root["menus"].as_table();
    if (menus == nullptr)
        return;
    for (const auto& [array, items] : *menus) {
        if (!items.is_table()) {
            file.Complain(items, "\"" + std::string(array.str()) + "\" is not a table");
            continue;
        }
        for (const auto& [index, value] : *items.as_table())
            ReadRow(file, std::string(array.str()) + "." + std::string(index.str()),
                    IsKnownItem(array.str(), index.str()), value, table);
    }
}

TodayTable ReadTodayTable(std::string_view text, std::string_view fileName, TodayTable base) {
    TodayTable table = std::move(base);
    TolerantToml file = ReadTolerantly(text, fileName);
    OverrideToday(file, table);
    table.problems.insert(table.problems.end(), file.problems.begin(), file.problems.end());
    return table;
}

} // namespace tallowmere
