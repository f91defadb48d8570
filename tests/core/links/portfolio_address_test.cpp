#include "core/links/portfolio_address.h"
#include "core/sites/site_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using Tickers = std::vector<std::string>;

SiteTable OneHost() {
    return SiteTable::Parse("[hosts]\ndefault = \"h.example\"\n", "sites");
}

TEST(QueryPortfolioAddress, JoinsTheLowerCasedTickers) {
    struct Case {
        std::string_view stored, view, address;
    };
    for (const Case& c : {
             Case{"AOL|YHOO|MSFT|", "1b", "h.example/quotes?symbols=aol+yhoo+msft&d=1b"},
             {"AOL|", "", "h.example/quotes?symbols=aol&d="},
             {"AOL|YHOO", "0b", "h.example/quotes?symbols=aol+yhoo&d=0b"},
             {"", "2b", "h.example/quotes?symbols=&d=2b"},
             {"|", "2b", "h.example/quotes?symbols=&d=2b"},
         })
        EXPECT_EQ(QueryPortfolioAddress(c.stored, c.view, OneHost()), c.address);
}

TEST(SendAllAddress, FollowsTheRuleOfEachSite) {
    const Tickers three{"AOL", "YHOO", "MSFT"};
    struct Case {
        std::string_view site, address;
    };
    // clang-format off
    for (const Case& c : {
        Case{"MSN",   "h.example/investor/charts/charting.asp?Symbol=AOL+YHOO+MSFT"},
        {"stats",     "h.example/investments/stats/?symbol=AOL%20YHOO%20MSFT"},
        {"snapshot",  "h.example/investments/snapshot/?symbol=AOL%20YHOO%20MSFT"},
        {"multex",    "h.example/investments/multex/?symbol=AOL%20YHOO%20MSFT"},
        {"stkeval",   "h.example/investments/stkeval/?symbol=AOL%20YHOO%20MSFT"},
        {"msn",       "h.example/investments/msn/?symbol=AOL%20YHOO%20MSFT"},
    })
        EXPECT_EQ(SendAllAddress(three, c.site, OneHost()), c.address) << c.site;

    for (const Case& c : {
        Case{"lycos", "company=AOL%20YHOO%20MSFT&x=58&y=9"},
        {"quotes",    "bfpage=quotes&defview=FULL&symbol=AOL%20YHOO%20MSFT"},
        {"charts",    "bfpage=charts&symbol=AOL+YHOO+MSFT&period=3MONTH&charttype=HIST&othersymbols="},
        {"estimates", "bfpage=estimates&symbol=AOL%20YHOO%20MSFT"},
        {"news",      "bfpage=news&symbol=AOL%20YHOO%20MSFT"},
    })
        EXPECT_THAT(SendAllAddress(three, c.site, OneHost()),
                    testing::EndsWith(std::string(c.address))) << c.site;
    // clang-format on
}

TEST(SendAllAddress, HoldsNothingInThePlaceOfAnEmptyList) {
    EXPECT_EQ(SendAllAddress({}, "MSN", OneHost()),
              "h.example/investor/charts/charting.asp?Symbol=");
    EXPECT_EQ(SendAllAddress({}, "stats", OneHost()), "h.example/investments/stats/?symbol=");
    EXPECT_THAT(SendAllAddress({}, "lycos", OneHost()), testing::EndsWith("company=&x=58&y=9"));
}

TEST(SendAllAddress, HoldsNoSeparatorForOneTicker) {
    for (const std::string_view site : {"lycos", "MSN", "quotes", "charts", "news", "stats"}) {
        const std::string address = SendAllAddress({"F"}, site, OneHost());
        EXPECT_THAT(address, testing::Not(testing::HasSubstr("%20"))) << site;
        EXPECT_THAT(address, testing::Not(testing::HasSubstr("+"))) << site;
        EXPECT_THAT(address, testing::HasSubstr("=F")) << site;
    }
}

TEST(SendAllAddress, UsesTheHostOfEachSite) {
    const SiteTable sites = SiteTable::Parse("[hosts]\n"
                                             "sendall_lycos = \"a\"\n"
                                             "sendall_msn = \"b\"\n"
                                             "sendall_portal = \"c\"\n"
                                             "sendall_portal_click = \"d\"\n",
                                             "sites");
    for (const auto& [site, host] :
         {std::pair{"lycos", "a/"}, {"MSN", "b/"}, {"stats", "c/"}, {"quotes", "d/"}})
        EXPECT_THAT(SendAllAddress({"F"}, site, sites), testing::StartsWith(host));
}

TEST(StreamingPortfolioAddress, HoldsUserAndPassword) {
    EXPECT_EQ(StreamingPortfolioAddress("joe", "se cret", OneHost()),
              "h.example/moneynet/cgi-bin/applet.cgi?CUSTID=joe&PASSWORD=se cret");
}

TEST(FindHomePage, TakesTheLastLinkBeforeTheCaption) {
    struct Case {
        std::string_view page, address;
    };
    for (const Case& c : {
             Case{R"(<a href="http://a.example">A</a> <a href="http://b.example/x">Home Page</a>)",
                  "http://b.example/x"},
             {R"(<a href=http://b.example>Home Page</a><a href="http://c.example">C</a>)",
              "http://b.example"},
             {R"(<a href="http://a.example">Home Page</a><a href="http://b.example">Home Page</a>)",
              "http://a.example"},
             {R"(<a href="http://a.example"><b></b>Home Page</a>)", "http://a.example"},
             {R"(<a href="">Home Page</a>)", ""},
         })
        EXPECT_EQ(FindHomePage(c.page), c.address) << c.page;
}

TEST(FindHomePage, FindsNothingOnAPageThatNamesNone) {
    for (const std::string_view page :
         {"", "<a href=\"http://a.example\">Website</a>",
          "<a href=\"http://a.example\">home page</a>", "Home Page</a>", ">Home Page</a>",
          ">Home Page</a><a href=\"http://a.example\">"})
        EXPECT_EQ(FindHomePage(page), "") << page;
}

} // namespace
} // namespace tallowmere
