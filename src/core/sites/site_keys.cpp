#include "core/sites/site_keys.h"

#include "core/links/catalogue.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

// Sites that no row of the catalogue names: what is read by machine has its own key, so that it
// can be sent elsewhere while the pages for people stay where they are.
// clang-format off
constexpr std::array<std::string_view, 22> kOtherSites{
    "bookstore",            // the books of the menu of books
    "chart_server_1",       // 1-year and 3-month chart images
    "chart_server_2",       // 5-day and 1-day chart images
    "club_members",         // the page of the club that is read at the start
    "freert_home",          // where an account for real-time quotes is opened
    "maker",                // the lists of books and of new sites
    "menu_mnuBChart",       // the menus whose entries hold the ticker
    "menu_mnuHisto",
    "menu_mnuIQCChrt",
    "menu_mnuWSC",
    "portal",               // front page and logo at the head of the pages that we write
    "portfolio_quotes",     // the quotes of the condensed page
    "quote",                // quote pages for people
    "quote_server",         // the page that the strip of indices reads
    "sendall_lycos",        // all tickers at once, by site
    "sendall_msn",
    "sendall_portal",
    "sendall_portal_click",
    "stream_applet",        // the streaming portfolio
    "stream_redirect",      // where the streaming service's stock lookup is sent
    "stream_signup",        // where an account with the streaming service is opened
    "stream_ticker",        // the page of the ticker strip
};
// clang-format on

} // namespace

std::vector<std::string_view> SiteKeys() {
    std::vector<std::string_view> keys(kOtherSites.begin(), kOtherSites.end());
    for (const LinkRow& row : Catalogue()) {
        if (HasAddress(row))
            keys.push_back(row.site);
    }
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

} // namespace tallowmere
