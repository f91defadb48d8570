#include "core/sites/site_keys.h"
#include "core/sites/site_table.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

#include <set>

namespace tallowmere {
namespace {

using Keys = std::set<std::string, std::less<>>;

TEST(SitesFile, HasARowForEverySiteAndOneForTheOthers) {
    const SiteTable sites = ShippedSites();
    for (const std::string_view key : SiteKeys())
        EXPECT_TRUE(sites.Hosts().contains(key)) << key;
    EXPECT_TRUE(sites.Hosts().contains(std::string_view("default")));
}

TEST(SitesFile, HasNoRowThatNobodyReads) {
    const auto keys = SiteKeys();
    const Keys known(keys.begin(), keys.end());
    const SiteTable sites = ShippedSites();
    for (const auto& [key, host] : sites.Hosts()) {
        EXPECT_TRUE(known.contains(key) || key == "default" || key.starts_with("menu_")) << key;
    }
}

TEST(SitesFile, SharesHostsBetweenPagesOfOneSiteOnly) {
    const std::set<Keys> sharing{
        {"quote", "quote_server", "portfolio_quotes"},
        {"biz", "profile_page"},
        {"moneycentral", "sendall_msn"},
        {"quicken", "sendall_portal"},
        {"quicken_click", "sendall_portal_click"},
        {"lycos_click", "sendall_lycos"},
        {"freert_home", "freert_quotes", "freert_talk"},
        {"stream_redirect", "stream_signup"},
        {"club_alerts", "club_members", "club_pages"},
        {"wallstreetcity", "menu_mnuWSC"},
    };
    std::map<std::string, Keys> keysByHost;
    const SiteTable sites = ShippedSites();
    for (const auto& [key, host] : sites.Hosts())
        keysByHost[host].insert(key);
    for (const auto& [host, keys] : keysByHost)
        EXPECT_TRUE(keys.size() == 1 || sharing.contains(keys)) << host;
}

TEST(SitesFile, HoldsPlainHostsOnly) {
    const SiteTable sites = ShippedSites();
    for (const auto& [key, host] : sites.Hosts()) {
        EXPECT_FALSE(host.empty()) << key;
        EXPECT_EQ(host.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.-"),
                  std::string::npos)
            << key;
    }
}

TEST(SitesFile, SendsThePasswordOfTheStreamingServiceToNobody) {
    EXPECT_TRUE(ShippedSites().Host("stream_applet").ends_with(".example"));
}

} // namespace
} // namespace tallowmere
