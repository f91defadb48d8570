#include "core/sites/site_resolver.h"
#include "core/sites/site_table.h"

#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "core/links/portfolio_address.h"
#include "core/links/site_menus.h"
#include "core/links/web_address.h"
#include "core/market/index_strip.h"
#include "shipped_files.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Date kToday{2026, 11, 20};

struct Fixture {
    SiteTable sites = ShippedSites();
    MenuTable menus = MenuTable::Parse(ShippedFile("menus.toml"), "menus.toml");
    TodayTable today = ReadTodayTable(ShippedFile("sites.toml"), "sites.toml");
    SiteResolver resolver{sites, menus, today};

    std::string Page(std::string_view address) const {
        return resolver.Resolve(address, AddressUse::Page).value_or("none");
    }
    std::string Reading(std::string_view address) const {
        return resolver.Resolve(address, AddressUse::Reading).value_or("none");
    }
    std::string Link(int index, std::string_view ticker) const {
        const LinkRow& row = Catalogue()[static_cast<std::size_t>(index)];
        return Page(BuildAddress(row, FormsOf(ticker), sites, kToday));
    }
};

TEST(SiteResolver, HasAWellFormedRowForEveryLinkThatLoadsAPage) {
    const Fixture f;
    EXPECT_THAT(f.today.problems, IsEmpty());
    for (const LinkRow& row : Catalogue()) {
        if (HasAddress(row) && row.action != LinkAction::HomePage) {
            EXPECT_TRUE(f.today.addresses.contains(std::to_string(row.index))) << row.index;
        }
    }
    for (const SiteMenuItem& item : SiteMenuItems()) {
        if (item.kind == MenuItemKind::Ticker) {
            EXPECT_TRUE(f.today.addresses.contains(std::string(item.array) + "." +
                                                   std::to_string(item.index)));
        }
    }
}

TEST(SiteResolver, LeadsEveryLinkWhereItsRowSays) {
    const Fixture f;
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row) || row.action == LinkAction::HomePage)
            continue;
        const auto& target = f.today.addresses.find(std::to_string(row.index))->second;
        const std::string ticker = NeedsTicker(row) ? "Msft" : "";
        const std::string built = BuildAddress(row, FormsOf("Msft"), f.sites, kToday);
        EXPECT_EQ(f.Page(built), FillToday(target, ticker)) << row.index << " " << built;
        EXPECT_EQ(f.Page(WithScheme(built)), FillToday(target, ticker)) << row.index;
    }
}

TEST(SiteResolver, LeadsEveryTickerItemOfTheMenusWhereItsRowSays) {
    const Fixture f;
    for (const SiteMenuItem& item : SiteMenuItems()) {
        if (item.kind != MenuItemKind::Ticker)
            continue;
        const std::string key = std::string(item.array) + "." + std::to_string(item.index);
        const std::string built = SiteMenuAddress(item.array, item.index, "msft", f.sites, f.menus);
        EXPECT_EQ(f.Page(built), FillToday(f.today.addresses.find(key)->second, "MSFT")) << key;
    }
}

TEST(SiteResolver, FillsTheTickerInAsTodaysSiteWantsIt) {
    const Fixture f;
    EXPECT_EQ(f.Link(3, "msft"), "https://finance.yahoo.com/quote/MSFT/");
    EXPECT_EQ(f.Link(3, "brk.b"), "https://finance.yahoo.com/quote/BRK-B/");
    EXPECT_EQ(f.Link(3, "^SPC"), "https://finance.yahoo.com/quote/%5EGSPC/");
    EXPECT_EQ(f.Link(47, "f"), "https://finance.yahoo.com/quote/F/profile/");
    EXPECT_EQ(f.Link(16, "MSFT"), "https://stockanalysis.com/stocks/msft/");
    EXPECT_EQ(f.Link(71, "msft"), "https://www.reddit.com/search/?q=%24MSFT");
    EXPECT_EQ(f.Link(53, ""), "https://www.cnet.com/personal-finance/");
    EXPECT_EQ(f.Page(WithScheme(BuildAddress(Catalogue()[15], FormsOf("A/B"), f.sites, kToday))),
              "https://www.zacks.com/stock/quote/A%2FB");
}

TEST(SiteResolver, FindsAnAddressAsTheEngineWritesIt) {
    const Fixture f;
    EXPECT_EQ(f.Page("http://search.messages.yahoo.com/search/bbs?p=MSFT&r=Business+and+Finance"
                     "%02Stocks%02Technology%02Software+and+Programming%02MSFT&r=y&M=g"),
              "https://www.reddit.com/search/?q=%24MSFT");
    EXPECT_EQ(f.Page("http://investor.cnet.com/Investor/Frontdoor/0,207,,00.html"
                     "?st.ne.nav..invidx%20"),
              "https://www.cnet.com/personal-finance/");
    EXPECT_EQ(f.Page("http://BIZ.yahoo.com/n/m/MSFT.html"),
              "https://finance.yahoo.com/quote/MSFT/news/");
}

TEST(SiteResolver, LeadsThePortfolioToAListOfAllTickers) {
    const Fixture f;
    EXPECT_EQ(f.Page(QueryPortfolioAddress("AOL|YHOO|MSFT|", "1b", f.sites)),
              "https://finance.yahoo.com/quotes/AOL,YHOO,MSFT/");
    EXPECT_EQ(f.Page(QueryPortfolioAddress("AOL|", "", f.sites)),
              "https://finance.yahoo.com/quotes/AOL/");
    EXPECT_EQ(f.Page(SendAllAddress({"AOL", "MSFT"}, "lycos", f.sites)),
              "https://finviz.com/screener.ashx?v=111&t=AOL,MSFT");
    EXPECT_EQ(f.Page(SendAllAddress({"AOL", "MSFT"}, "MSN", f.sites)),
              "https://finviz.com/screener.ashx?v=211&t=AOL,MSFT");
    for (const char* view :
         {"charts", "quotes", "news", "estimates", "stats", "snapshot", "multex", "stkeval"})
        EXPECT_TRUE(f.Page(SendAllAddress({"AOL", "MSFT"}, view, f.sites)).ends_with("AOL,MSFT"))
            << view;
}

TEST(SiteResolver, TellsWhatIsReadFromWhatIsShown) {
    const Fixture f;
    EXPECT_EQ(f.Page("biz.yahoo.com/p/m/msft.html"),
              "https://finance.yahoo.com/quote/MSFT/profile/");
    EXPECT_EQ(f.Reading("biz.yahoo.com/p/m/msft.html"), "portal://biz.yahoo.com/p/m/msft.html");
    const std::string indices = f.sites.Address("quote_server", IndexQuery());
    EXPECT_EQ(f.Reading(indices), "portal://" + indices);
    const std::string portfolio =
        f.sites.Address("portfolio_quotes", "/quotes?symbols=aol+msft&d=1b");
    EXPECT_EQ(f.Reading(portfolio), "portal://" + portfolio);
    EXPECT_EQ(f.Reading("www.bloomberg.com/"), "https://www.bloomberg.com/")
        << "what has no row for reading leads where the page does";
}

TEST(SiteResolver, SendsToThePortalWhatItAnswers) {
    const Fixture f;
    const std::string details = f.sites.Address("quote_server", DetailedIndexQuery());
    EXPECT_EQ(f.Page(details), "portal://" + details);
    EXPECT_EQ(f.Page("http://chart.yahoo.com/c/1y/m/msft.gif"),
              "portal://chart.yahoo.com/c/1y/m/msft.gif");
    EXPECT_EQ(f.Page("http://ichart.yahoo.com/b?s=msft"), "portal://ichart.yahoo.com/b?s=msft");
    EXPECT_EQ(f.Page("http://quote.yahoo.com/q?s=MSFT&d=1y"),
              "https://finance.yahoo.com/quote/MSFT/");
}

TEST(SiteResolver, SendsABrowserOutsideToThePortalsLike) {
    const Fixture f;
    const auto outside = [&](std::string_view address) {
        return f.resolver.Resolve(address, AddressUse::Outside).value_or("none");
    };
    EXPECT_EQ(outside("quote.yahoo.com/q?s=msft&d=2b"), "https://finance.yahoo.com/quote/MSFT/");
    EXPECT_EQ(outside(f.sites.Address("quote_server", DetailedIndexQuery())),
              "https://finance.yahoo.com/markets/world-indices/");
    EXPECT_EQ(outside("https://example.org/"), "none");

    const TodayTable portalOnly =
        ReadTodayTable("[links]\n3 = \"portal:\"\nindex_page = \"portal:\"\n"
                       "quote_page = \"portal:\"\n",
                       "mine.toml");
    const SiteResolver resolver(f.sites, f.menus, portalOnly);
    EXPECT_EQ(resolver.Resolve("quote.yahoo.com/q?s=msft&d=2b", AddressUse::Outside), std::nullopt)
        << "without a page that is like it the address goes as it stands";
}

TEST(SiteResolver, SendsNoPasswordToAnotherSite) {
    const Fixture f;
    const std::string page = f.Page(StreamingPortfolioAddress("me", "secret&{upper}?#", f.sites));
    EXPECT_EQ(page, "https://finance.yahoo.com/portfolios/");
}

TEST(SiteResolver, KnowsTheIndexSymbolsOfTheStreamingService) {
    const Fixture f;
    EXPECT_EQ(f.Page("www.moneynet.com/moneynet/jtickredir.asp?symbol=?.IXIC"),
              "https://www.cnbc.com/quotes/.IXIC");
    EXPECT_EQ(f.Page("www.moneynet.com/moneynet/jtickredir.asp?symbol=msft"),
              "https://www.cnbc.com/quotes/MSFT");
}

TEST(SiteResolver, LeavesAllElseAlone) {
    const Fixture f;
    for (const char* address :
         {"", "https://example.org/", "https://finance.yahoo.com/quote/MSFT/", "about:blank",
          "portal://pages/ycs.htm", "file:///etc/passwd", "quote.yahoo.com/unknown"})
        EXPECT_EQ(f.Page(address), "none") << address;
}

TEST(SiteResolver, LeadsNoAddressOfTodayOnToAnother) {
    const Fixture f;
    for (const auto& [key, target] : f.today.addresses) {
        if (target == kPortalTarget)
            continue;
        const std::string today = FillToday(target, "MSFT");
        const auto again = f.resolver.Resolve(today, AddressUse::Page);
        EXPECT_TRUE(!again || *again == today) << key << ": " << *again;
    }
}

TEST(SiteResolver, LetsTheUsersFileOverrideSingleRows) {
    Fixture f;
    f.today = ReadTodayTable("[links]\n"
                             "3 = \"http://127.0.0.1:8080/{lower}\"\n"
                             "15 = \"\"\n"
                             "[menus.mnuAVLink]\n"
                             "3 = \"https://tv.example/\"\n",
                             "mine.toml", f.today);
    EXPECT_THAT(f.today.problems, IsEmpty());
    f.resolver = SiteResolver(f.sites, f.menus, f.today);
    EXPECT_EQ(f.Link(3, "msft"), "http://127.0.0.1:8080/msft");
    EXPECT_EQ(f.Link(15, "msft"), "none") << "an empty row takes the address away";
    EXPECT_EQ(f.Link(16, "msft"), "https://stockanalysis.com/stocks/msft/");
    EXPECT_EQ(f.Page(f.menus.Address("mnuAVLink", 3)), "https://tv.example/");
}

TEST(SiteResolver, NamesTheLineOfEveryWrongRowAndUsesTheOthers) {
    const Fixture f;
    const TodayTable today = ReadTodayTable("[links]\n"                             // 1
                                            "3 = \"ftp://x.example/\"\n"            // 2
                                            "218 = \"https://x.example/\"\n"        // 3
                                            "15 = 7\n"                              // 4
                                            "16 = \"https://x.example/{ticker}\"\n" // 5
                                            "what is this\n"                        // 6
                                            "34 = \"https://good.example/{first}\"\n"
                                            "[menus]\n"
                                            "mnuBChart = 1\n" // 9
                                            "[menus.mnuHisto]\n"
                                            "6 = \"https://x.example/\"\n", // 11
                                            "mine.toml", f.today);
    std::vector<std::string> places;
    for (const std::string& problem : today.problems)
        places.push_back(problem.substr(0, problem.find(": ")));
    EXPECT_THAT(places, testing::UnorderedElementsAre("mine.toml:2", "mine.toml:3", "mine.toml:4",
                                                      "mine.toml:5", "mine.toml:6", "mine.toml:9",
                                                      "mine.toml:11"));
    const SiteResolver resolver(f.sites, f.menus, today);
    EXPECT_EQ(resolver.Resolve("quote.yahoo.com/q?s=a&d=2b", AddressUse::Page),
              "https://finance.yahoo.com/quote/A/");
    const std::string fool = BuildAddress(Catalogue()[34], FormsOf("MSFT"), f.sites, kToday);
    EXPECT_EQ(resolver.Resolve(fool, AddressUse::Page), "https://good.example/m");
}

} // namespace
} // namespace tallowmere
