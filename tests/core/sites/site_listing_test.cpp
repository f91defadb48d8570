#include "core/sites/site_listing.h"
#include "core/sites/site_table.h"

#include "core/links/catalogue.h"
#include "core/links/site_menus.h"
#include "core/sites/site_resolver.h"
#include "shipped_files.h"

#include <gmock/gmock.h>

#include <map>

namespace tallowmere {
namespace {

struct Shipped {
    SiteTable sites = ShippedSites();
    MenuTable menus = MenuTable::Parse(ShippedFile("menus.toml"), "menus.toml");
    TodayTable today = ReadTodayTable(ShippedFile("sites.toml"), "sites.toml");

    std::map<std::string, ListedSite> List(const TodayTable& inForce) const {
        std::map<std::string, ListedSite> byKey;
        for (const ListedSite& site :
             ListSites(sites, menus, inForce, today, "brk.b", {2026, 11, 21}))
            EXPECT_TRUE(byKey.emplace(site.key, site).second) << site.key << " is listed twice";
        return byKey;
    }
};

TEST(SiteListing, HasEveryLinkAndMenuItemThatOpensAnAddress) {
    const Shipped shipped;
    const auto list = shipped.List(shipped.today);
    for (const LinkRow& row : Catalogue()) {
        const bool opens = HasAddress(row) && row.action != LinkAction::HomePage;
        EXPECT_EQ(list.contains(std::to_string(row.index)),
                  opens || row.index == 27 || row.index == 187)
            << row.index;
    }
    for (const SiteMenuItem& item : SiteMenuItems()) {
        const bool opens = item.kind == MenuItemKind::Fixed || item.kind == MenuItemKind::Ticker;
        EXPECT_EQ(list.contains(std::string(item.array) + "." + std::to_string(item.index)), opens)
            << item.array << item.index;
    }
    for (const auto& [key, site] : list) {
        EXPECT_FALSE(site.name.empty()) << key;
        EXPECT_FALSE(site.built.empty()) << key;
        EXPECT_EQ(site.built.find_first_of("{}"), std::string::npos) << site.built;
        EXPECT_EQ(site.today.find_first_of("{}"), std::string::npos) << site.today;
        EXPECT_FALSE(site.isOwn) << key;
    }
}

TEST(SiteListing, SaysWhatIsBuiltAndWhereItLeads) {
    const Shipped shipped;
    auto list = shipped.List(shipped.today);
    EXPECT_EQ(list["3"].name, "3  Y!");
    EXPECT_EQ(list["3"].description, "Full Yahoo! Quote");
    EXPECT_EQ(list["3"].built, "quote.yahoo.com/q?s=brk.b&d=2b");
    EXPECT_EQ(list["3"].row, "https://finance.yahoo.com/quote/{yahoo}/");
    EXPECT_EQ(list["3"].today, "https://finance.yahoo.com/quote/BRK-B/");
    EXPECT_EQ(list["192"].name, "192  IT");
    EXPECT_EQ(list["33"].built,
              "www.edgar-online.com/bin/esearch/default.asp?query=brk.b&qt=1&date=2026");
    EXPECT_EQ(list["index_page"].today, "portal:");
    EXPECT_EQ(list["mnuBChart.16"].name, "BIG > All Data");
    EXPECT_EQ(list["mnuWSCC.1"].name, "WSC > Charts > Standard Chart");
    EXPECT_EQ(list["mnuBankin.2"].name, "Personal Finance > Banking > Quicken");
    EXPECT_EQ(list["mnuAVLink.3"].built, "https://www.bloomberg.com/live");
    EXPECT_EQ(list["mnuAVLink.3"].row, "");
    EXPECT_EQ(list["mnuAVLink.3"].today, "https://www.bloomberg.com/live")
        << "without a row a page leads where it was built";
}

TEST(SiteListing, TellsTheUsersRowsFromTheOthers) {
    const Shipped shipped;
    auto list =
        shipped.List(ReadTodayTable("[links]\n3 = \"https://own.example/{first}\"\n15 = \"\"\n"
                                    "[menus.mnuAVLink]\n3 = \"https://tv.example/\"\n",
                                    "mine.toml", shipped.today));
    EXPECT_TRUE(list["3"].isOwn);
    EXPECT_EQ(list["3"].today, "https://own.example/b");
    EXPECT_TRUE(list["15"].isOwn);
    EXPECT_EQ(list["15"].today, list["15"].built);
    EXPECT_TRUE(list["mnuAVLink.3"].isOwn);
    EXPECT_FALSE(list["16"].isOwn);
}

TEST(SiteListing, LeadsWhatItListsWhereItSays) {
    const Shipped shipped;
    const SiteResolver resolver(shipped.sites, shipped.menus, shipped.today);
    for (const auto& [key, site] : shipped.List(shipped.today)) {
        // For one ticker the list of all is the page of link 185.
        if (site.row.empty() || site.row == kPortalTarget || key == "sendall_lycos")
            continue;
        EXPECT_EQ(resolver.Resolve(site.built, AddressUse::Page), site.today) << key;
    }
}

TEST(SiteListing, KnowsWhereARowStandsInAFile) {
    using Place = std::pair<std::string, std::string>;
    EXPECT_EQ(PlaceOfRow("3"), Place("links", "3"));
    EXPECT_EQ(PlaceOfRow("index_page"), Place("links", "index_page"));
    EXPECT_EQ(PlaceOfRow("mnuBChart.16"), Place("menus.mnuBChart", "16"));
}

TEST(SiteListing, SaysWhatIsWrongWithAnAddress) {
    for (const char* good : {"", "portal:", "https://x.example/", "HTTP://x.example/{upper}{list}"})
        EXPECT_EQ(FlawOfToday(good), "") << good;
    for (const char* bad :
         {"x.example/", "ftp://x.example/", "https://", "https://x.example/a b",
          "javascript:alert(1)", "portal:x", " https://x.example/", "file:///etc"})
        EXPECT_EQ(FlawOfToday(bad), "is no http or https address") << bad;
    for (const char* bad :
         {"https://x.example/{any}", "https://x.example/{", "https://x.example/}"})
        EXPECT_EQ(FlawOfToday(bad), "has a field that is not known") << bad;
}

} // namespace
} // namespace tallowmere
