#include "core/sites/address_match.h"
#include "core/sites/site_table.h"

#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

constexpr Date kToday{2026, 11, 21};

bool IsSought(const LinkRow& row) {
    return HasAddress(row) && row.action != LinkAction::HomePage;
}

TEST(AddressMatch, FindsEveryRowOfTheCatalogueAndItsTicker) {
    const SiteTable sites = ShippedSites();
    const AddressMatcher matcher(sites);
    for (const std::string_view ticker : {"MSFT", "T", "BRK.B", "^DJI"}) {
        for (const LinkRow& row : Catalogue()) {
            if (!IsSought(row))
                continue;
            const std::string address = BuildAddress(row, FormsOf(ticker), sites, kToday);
            const AddressMatch expected{row.index,
                                        NeedsTicker(row) ? std::string(ticker) : std::string()};
            EXPECT_EQ(matcher.Match(address), expected) << address;
            EXPECT_EQ(matcher.Match("https://" + address), expected) << address;
        }
    }
}

TEST(AddressMatch, FindsTheProfilePageAsTheLinkThatOpensIt) {
    const AddressMatcher matcher(ShippedSites());
    EXPECT_EQ(matcher.Match("biz.yahoo.com/p/m/msft.html"), (AddressMatch{47, "MSFT"}));
}

TEST(AddressMatch, LooksPastWhatAnEngineChangesInAnAddress) {
    const SiteTable sites =
        SiteTable::Parse("[hosts]\ndefault = \"Portal.Example:8080\"\n", "sites.toml");
    const AddressMatcher matcher(sites);
    struct Case {
        std::string_view address;
        int index;
        std::string_view ticker;
    };
    for (const Case& c : {
             Case{"portal.example:8080/q?s=msft&d=2b", 3, "MSFT"},
             {"http://PORTAL.EXAMPLE:8080/q?s=MsFt&d=2b", 3, "MSFT"},
             {"portal.example:8080/q?s=%5Edji&d=2b", 3, "^DJI"},
             {"portal.example:8080/q?s=a%26b&d=2b", 3, "A&B"},
             {"portal.example:8080/q?s=&d=2b", 3, ""},
             {"portal.example:8080/Investor/Frontdoor/0,207,,00.html?st.ne.nav..invidx", 53, ""},
             {"portal.example:8080/Investor/Frontdoor/0,207,,00.html?st.ne.nav..invidx%20", 53, ""},
             {"portal.example:8080?action=q&board=msft", 1, "MSFT"},
             {"portal.example:8080/track?to=%2Fsearch%3Fpage%3Dnews%26q%3Dmsft", 215, "MSFT"},
         })
        EXPECT_EQ(matcher.Match(c.address), (AddressMatch{c.index, std::string(c.ticker)}))
            << c.address;
}

TEST(AddressMatch, TellsRowsApartByTheirFixedEnds) {
    const AddressMatcher matcher(ShippedSites());
    const std::string search = "www.siliconinvestor.com/stocktalk/searchresults.gsp?s=msft&domain=";
    EXPECT_EQ(matcher.Match(search + "Titles"), (AddressMatch{2, "MSFT"}));
    EXPECT_EQ(matcher.Match(search + "full"), (AddressMatch{21, "MSFT"}));
}

TEST(AddressMatch, FindsTheSamePathOnTwoHosts) {
    const AddressMatcher matcher(ShippedSites());
    EXPECT_EQ(matcher.Match("www.411stocks.com/stocks.asp?symbol=msft"),
              (AddressMatch{173, "MSFT"}));
    EXPECT_EQ(matcher.Match("www.earningswhispers.com/stocks.asp?symbol=msft"),
              (AddressMatch{176, "MSFT"}));
}

TEST(AddressMatch, FindsNothingInOtherAddresses) {
    const AddressMatcher matcher(ShippedSites());
    for (const std::string_view address : {
             "", "/", "://",
             "www.other.example/q?s=msft&d=2b", // not the host of a site
             "quote.yahoo.com/q?s=msft&d=1y",   // another end
             "quote.yahoo.com/q?s=msft",        // no end
             "quote.yahoo.com/Q?s=msft&d=2b",   // paths are told apart by case
             "biz.yahoo.com/n/x/msft.html",     // not the first letter
             "biz.yahoo.com/n/msft.html",       // no first letter
             "www.edgar-online.com/bin/esearch/default.asp?query=msft&qt=1&date=soon",
             "www.datek.com/accounts", // below a home page
             "search.messages.yahoo.com/search/bbs?p=A&r=Business+and+Finance%02Stocks%02Technology"
             "%02Software+and+Programming%02B&r=y&M=g", // two tickers
         })
        EXPECT_EQ(matcher.Match(address), std::nullopt) << address;
}

TEST(AddressMatch, FindsAPathWhateverTheHostButNoHomePage) {
    const AddressMatcher matcher(SiteTable::Parse("", "sites.toml"));
    EXPECT_EQ(matcher.Match("quote.yahoo.com/q?s=msft&d=2b"), std::nullopt);
    EXPECT_EQ(matcher.MatchPath("/q?s=msft&d=2b"), (AddressMatch{3, "MSFT"}));
    EXPECT_EQ(matcher.MatchPath("/data/marketdata.htx"), (AddressMatch{46, ""}));
    EXPECT_EQ(matcher.MatchPath("/"), std::nullopt);
    EXPECT_EQ(matcher.MatchPath(""), std::nullopt);
}

TEST(AddressMatch, TakesHostsWithASchemeAPortAndAFolder) {
    const AddressMatcher matcher(SiteTable::Parse(
        "[hosts]\nquote = \"https://mine.example:8443/copy\"\nzacks = \"mine.example:8443\"\n",
        "sites.toml"));
    EXPECT_EQ(matcher.Match("https://mine.example:8443/copy/q?s=msft&d=2b"),
              (AddressMatch{3, "MSFT"}));
    EXPECT_EQ(matcher.Match("mine.example:8443/q?s=msft&d=2b"), std::nullopt);
    EXPECT_EQ(matcher.Match("mine.example:8443/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100"),
              (AddressMatch{15, "MSFT"}));
    EXPECT_TRUE(matcher.KnowsHost("Mine.example:8443"));
    EXPECT_FALSE(matcher.KnowsHost("mine.example"));
    EXPECT_FALSE(matcher.KnowsHost(""));
}

} // namespace
} // namespace tallowmere
