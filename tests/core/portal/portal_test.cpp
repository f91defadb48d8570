#include "core/portal/portal.h"
#include "core/sites/site_table.h"

#include "core/links/address.h"
#include "core/links/catalogue.h"
#include "core/links/portfolio_address.h"
#include "core/links/server_lists.h"
#include "core/market/index_strip.h"
#include "core/portfolio/condensed_page.h"
#include "core/text/bytes.h"
#include "shipped_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr Date kToday{2026, 11, 21};

class Portal : public testing::Test {
protected:
    static constexpr std::string_view kSmallMarket = "^NYA|NYSE|0|100 99.5\n"
                                                     "^SPC|S&P 500|0|10000 12345.678\n"
                                                     "^OEX|S&P 100|0|50 50.25\n"
                                                     "^TYX|Yield|0|45 45\n"
                                                     "^DJI|Dow|0|40000 38999.9\n"
                                                     "^IXIC|Nasdaq|0|1 2\n";

    SampleMarket m_market = SampleMarket::Parse(ShippedFile("sample_market.txt"));
    SiteTable m_sites = ShippedSites();
    SamplePortal m_portal{
        m_sites, m_market, {ShippedFile("rr.html"), ShippedFile("newsites.html")}};

    std::string Get(std::string_view address) const {
        const auto path = std::min(address.find('/'), address.size());
        return m_portal.Answer(address.substr(0, path), address.substr(path), kToday).body;
    }
};

TEST_F(Portal, AnswersEveryAddressOfTheCatalogueWithAPageAboutIt) {
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row))
            continue;
        const std::string address = BuildAddress(row, FormsOf("MSFT"), m_sites, kToday);
        const std::string page = Get(address);
        EXPECT_THAT(page, HasSubstr("SAMPLE DATA")) << address;
        EXPECT_THAT(page, HasSubstr(EscapeHtml(Trim(row.caption)))) << address;
        EXPECT_THAT(page, HasSubstr(EscapeHtml(row.tooltip))) << address;
        EXPECT_THAT(page, HasSubstr(EscapeHtml(address))) << address;
        EXPECT_THAT(page, HasSubstr("</html>")) << address;
        if (NeedsTicker(row)) {
            EXPECT_THAT(page, AllOf(HasSubstr("MSFT"), HasSubstr("Microsoft"), HasSubstr("<svg")))
                << address;
        }
    }
}

TEST_F(Portal, FindsPagesByTheirPathWhenTheirHostsAreUnknown) {
    const SiteTable noSites = SiteTable::Parse("", "sites.toml");
    const SamplePortal portal(noSites, m_market);
    EXPECT_THAT(portal.Answer("", "/cgi-bin/tipsheet?ticker=IBM", kToday).body,
                AllOf(HasSubstr("Thomson Investors Network"), HasSubstr("International Business")));
}

TEST_F(Portal, AnswersTheStripOfIndices) {
    const SamplePortal portal(m_sites, SampleMarket::Parse(kSmallMarket));
    const std::string page = portal.Answer("quote.yahoo.com", IndexQuery(), kToday).body;
    EXPECT_TRUE(IsCompleteIndexPage(page));
    EXPECT_THAT(ReadIndexPage(page),
                ElementsAre("NYSE : 99.50 -0.50", "S&P 500 : 12,345.68 +2,345.68",
                            "S&P 100 : 50.25 +0.25", "30Y-TSY : 45.00 0.00",
                            "DJIA : 38,999.90 -1,000.10", "NAS/NMS : 2.00 +1.00"));
    EXPECT_THAT(page, HasSubstr("SAMPLE DATA"));
}

TEST_F(Portal, AnswersTheStripWhenAnEngineEscapedItsQuery) {
    EXPECT_EQ(ReadIndexPage(Get("quote.yahoo.com" + ReplaceAll(IndexQuery(), "^", "%5E"))).size(),
              6U);
}

TEST_F(Portal, ShowsDetailsOfTheIndices) {
    EXPECT_THAT(Get("quote.yahoo.com" + DetailedIndexQuery()),
                AllOf(HasSubstr("52-week range"), HasSubstr("NYSE Composite"),
                      HasSubstr("Quotes delayed"), HasSubstr("SAMPLE DATA")));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=^DJI&d=t"), HasSubstr("Dow Jones Industrial Average"));
}

TEST_F(Portal, AnswersThePortfolioThatTheCondensedPageIsCutFrom) {
    for (const char* view : {"1b", "2b", "0b"}) {
        const std::vector<std::string> tickers{"MSFT", "^DJI", "NOSUCH", "BRK.B", "T", "AOL", "A"};
        const std::string page = Get(CondensedAddress(CondensedQuery(tickers), view, m_sites));
        const auto condensed = CondensedPage(page, m_sites);
        ASSERT_TRUE(condensed.has_value());
        // Three to a row: 3, 3 and 1.
        EXPECT_EQ(CountOccurrences(*condensed, "<tr height=15>"), 3U);
        EXPECT_EQ(CountOccurrences(*condensed, "<td witdh=5>"), 4U);
        EXPECT_EQ(CountOccurrences(*condensed, "<table border=0"), 7U);
        for (const std::string& ticker : tickers)
            EXPECT_THAT(*condensed, HasSubstr("<b>" + ticker + "</b>"));
        EXPECT_THAT(*condensed, HasSubstr("SAMPLE DATA"));
        for (const char* removed : {"More Info", "Small", "Div Date", "Ex-Div", "Yield", "4:00PM",
                                    "Avg Vol", "Prev Cls", "rowspan", "Quotes delayed", "\"/q?s="})
            EXPECT_THAT(*condensed, Not(HasSubstr(removed)));
        for (const char* kept : {"AvgVol", "PrevCls", "E/Sh", "MktCap", "52-week&nbsp;<br>", "P/E",
                                 "http://quote.yahoo.com/q?s=msft"})
            EXPECT_THAT(*condensed, HasSubstr(kept));
    }
}

TEST_F(Portal, ShowsThePortfolioWithAChartPerTicker) {
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=msft+t&d=1b"),
                AllOf(HasSubstr("src=\"http://ichart.yahoo.com/t?s=msft\""),
                      HasSubstr("src=\"http://ichart.yahoo.com/t?s=t\"")));
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=msft&d=2b"),
                HasSubstr("src=\"http://ichart.yahoo.com/v?s=msft\""));
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=msft&d=0b"),
                HasSubstr("src=\"http://chart.yahoo.com/c/0b/m/msft.gif\""));
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=msft+t&d="),
                AllOf(Not(HasSubstr("<img")), HasSubstr("Microsoft"), HasSubstr(">T<")));
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=&d=1b"), HasSubstr("SAMPLE DATA"));
}

TEST_F(Portal, NamesHomePagesThatItAnswersToo) {
    for (const char* ticker : {"msft", "brk.b"}) {
        const std::string path =
            std::string("biz.yahoo.com/p/") + ticker[0] + "/" + ticker + ".html";
        const std::string home = FindHomePage(Get(path));
        ASSERT_THAT(home, StartsWith("http://www."));
        EXPECT_THAT(Get(home.substr(7)), AllOf(HasSubstr("SAMPLE DATA"), HasSubstr(ToUpper(ticker)),
                                               HasSubstr("Home page of the sample company")));
    }
    EXPECT_EQ(FindHomePage(Get("biz.yahoo.com/p/m/msft.html")), "http://www.msft.company.example/");
    EXPECT_EQ(FindHomePage(Get("biz.yahoo.com/p/x/xyzzy.html")), "");
    EXPECT_EQ(FindHomePage(Get("biz.yahoo.com/p/^/%5edji.html")), "");
}

TEST_F(Portal, DrawsTheChartsOfTheChartPages) {
    struct Case {
        std::string_view address, title, width;
    };
    for (const Case& c : {
             Case{"chart.yahoo.com/c/0b/m/msft.gif", "MSFT 1 year", "192"},
             {"chart.yahoo.com/c/1y/m/msft.gif", "MSFT 1 year", "512"},
             {"chart.yahoo.com/c/3m/m/msft.gif", "MSFT 3 months", "512"},
             {"ichart.yahoo.com/v?s=msft", "MSFT 5 days", "192"},
             {"ichart.yahoo.com/t?s=msft", "MSFT 1 day", "192"},
             {"ichart.yahoo.com/w?s=msft", "MSFT 5 days", "512"},
             {"ichart.yahoo.com/b?s=msft", "MSFT 1 day", "512"},
         }) {
        const auto slash = c.address.find('/');
        const PortalAnswer answer =
            m_portal.Answer(c.address.substr(0, slash), c.address.substr(slash), kToday);
        EXPECT_EQ(answer.type, "image/svg+xml");
        EXPECT_THAT(answer.body, AllOf(StartsWith("<svg "), HasSubstr(std::string(c.title) + "<"),
                                       HasSubstr("width=\"" + std::string(c.width) + "\""),
                                       HasSubstr("SAMPLE DATA")))
            << c.address;
    }
    EXPECT_THAT(Get("ichart.yahoo.com/b?s=xyzzy"), HasSubstr("no prices"));
    EXPECT_THAT(Get("finance.yahoo.com/logo.gif"), StartsWith("<svg "));
}

TEST_F(Portal, ShowsAQuoteOverThePeriodAskedFor) {
    EXPECT_THAT(Get("quote.yahoo.com/q?s=MSFT&d=1y"), HasSubstr(">MSFT 1 year<"));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=MSFT&d=3m"), HasSubstr(">MSFT 3 months<"));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=MSFT&d=5d"), HasSubstr(">MSFT 5 days<"));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=MSFT&d=1d"), HasSubstr(">MSFT 1 day<"));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=MSFT"), HasSubstr("Microsoft"));
}

TEST_F(Portal, ShowsAllTickersOfAPortfolioThatIsSentToOneSite) {
    for (const char* site : {"lycos", "MSN", "quotes", "charts", "news", "stats", "snapshot",
                             "estimates", "multex", "stkeval"})
        EXPECT_THAT(Get(SendAllAddress({"MSFT", "IBM", "T"}, site, m_sites)),
                    AllOf(HasSubstr("Microsoft"), HasSubstr("International Business"),
                          HasSubstr("AT&amp;T"), HasSubstr("SAMPLE DATA")))
            << site;
}

TEST_F(Portal, ShowsTheSymbolThatTheStreamingServiceWasSentOnWith) {
    EXPECT_THAT(Get("www.moneynet.com/moneynet/jtickredir.asp?symbol=?.DJI"),
                HasSubstr("Dow Jones Industrial Average"));
    EXPECT_THAT(Get("www.moneynet.com/moneynet/jtickredir.asp?symbol=msft"),
                HasSubstr("Microsoft"));
}

TEST_F(Portal, NeverShowsThePasswordOfTheStreamingService) {
    const std::string page = Get(StreamingPortfolioAddress("me", "secret", m_sites));
    EXPECT_THAT(page,
                AllOf(HasSubstr("SAMPLE DATA"), HasSubstr("Dow Jones"), Not(HasSubstr("secret"))));
}

TEST_F(Portal, RunsATickerStripWhoseLinksOpenNewWindows) {
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html?s=msft+NOSUCH"),
                AllOf(HasSubstr("SAMPLE DATA"), HasSubstr("^DJI"), HasSubstr(">MSFT</a>"),
                      HasSubstr(">NOSUCH</a> no price"), HasSubstr("target=\"_blank\"")));
}

TEST_F(Portal, TheTickerStripHoldsTheIndicesAloneForAnEmptyPortfolio) {
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html?s="),
                AllOf(HasSubstr("^NYA"), HasSubstr("^IXIC"), Not(HasSubstr(">MSFT</a>"))));
}

TEST_F(Portal, TheTickerStripRestsForThoseWhoWantNothingToMove) {
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html"),
                HasSubstr("prefers-reduced-motion: reduce"));
}

TEST_F(Portal, TheTickerStripGoesByOneAtATimeWhenThatIsAskedFor) {
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html?s=msft&rest=1"),
                AllOf(HasSubstr(">MSFT</a>"), HasSubstr("\" data-rests>")));
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html?s=msft"),
                Not(HasSubstr("\" data-rests>")));
}

TEST_F(Portal, HandsOutTheListsAsTheyAre) {
    EXPECT_EQ(Get("www.quorvane.example/rr.html"), ShippedFile("rr.html"));
    EXPECT_EQ(Get("www.quorvane.example/folder/newsites.html"), ShippedFile("newsites.html"));
    const SamplePortal bare(m_sites, m_market);
    EXPECT_EQ(bare.Answer("www.quorvane.example", "/rr.html", kToday).body, "");
}

TEST_F(Portal, SaysWhichAddressItDoesNotKnow) {
    EXPECT_THAT(
        Get("nowhere.example/some/page?x=<1>"),
        AllOf(HasSubstr("nowhere.example/some/page?x=&lt;1&gt;"), HasSubstr("SAMPLE DATA")));
    EXPECT_THAT(Get("finance.yahoo.com/"), HasSubstr("Finance portal"));
}

TEST_F(Portal, SaysThatATickerIsUnknownOnEveryPage) {
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row) || !NeedsTicker(row))
            continue;
        EXPECT_THAT(Get(BuildAddress(row, FormsOf("XYZZY"), m_sites, kToday)),
                    AllOf(HasSubstr("XYZZY"), HasSubstr("no prices for this ticker"),
                          HasSubstr("SAMPLE DATA")))
            << row.index;
    }
}

TEST_F(Portal, AnswersHostileAddressesCleanly) {
    const std::string script = "<script>alert(1)</script>\"'";
    const std::string nul("\0\x01\x7F", 3);
    const std::vector<std::string> hostile{script,
                                           "\xFF\xFE" + nul,
                                           std::string(1'000'000, 'A'),
                                           std::string(1'000'000, '%'),
                                           "%00%3Cscript%3E%22",
                                           "../../../etc/passwd"};
    std::vector<std::string> addresses{"", "/", "?", "%", "\"", nul, "host", "host/%"};
    for (const std::string& text : hostile) {
        for (const char* start :
             {"", "h/", "h/q?s=", "h/q?s=^", "h/quotes?d=1b&symbols=", "h/p/m/", "h/c/0b/m/",
              "h/b?s=", "h/moneynet/jtickredir.asp?symbol=", "h/click?symbol="})
            addresses.push_back(start + text);
        addresses.push_back("biz.yahoo.com/p/m/" + text + ".html");
        addresses.push_back("chart.yahoo.com/c/1y/m/" + text + ".gif");
        addresses.push_back("quote.yahoo.com/q?s=" + text + "&d=2b");
        addresses.push_back("quote.yahoo.com/q?s=" + text + "&d=t");
        addresses.push_back("www." + text + ".company.example/");
    }
    for (const std::string& address : addresses) {
        const std::string page = Get(address);
        const std::string shown = address.substr(0, 100);
        EXPECT_THAT(page, HasSubstr("SAMPLE DATA")) << shown;
        EXPECT_EQ(page.find("<script"), std::string::npos) << shown;
        EXPECT_EQ(page.find_first_of(nul), std::string::npos) << shown;
        EXPECT_LT(page.size(), 4'100'000U) << shown;
    }
}

TEST_F(Portal, ShowsAManyTimesRepeatedTickerWithoutEnd) {
    std::string symbols;
    for (int count = 0; count < 1000; ++count)
        symbols += "msft+";
    const std::string page = Get("quote.yahoo.com/quotes?d=1b&symbols=" + symbols);
    EXPECT_EQ(CountOccurrences(page, "<table border=1"), 1000U);
}

TEST(PortalLists, AreReadByTheProgram) {
    const auto books = ReadBookList(ShippedFile("rr.html"));
    EXPECT_GE(books.size(), 10U);
    for (const ServerEntry& book : books) {
        // The check digit of a book number: the weighted digits add up to a multiple of eleven.
        ASSERT_EQ(book.target.size(), 10U) << book.caption;
        int sum = 0;
        for (std::size_t at = 0; at < 10; ++at)
            sum +=
                (10 - static_cast<int>(at)) * (book.target[at] == 'X' ? 10 : book.target[at] - '0');
        EXPECT_EQ(sum % 11, 0) << book.caption;
    }
    const auto sites = ReadNewSites(ShippedFile("newsites.html"));
    EXPECT_GE(sites.size(), 10U);
    for (const ServerEntry& site : sites)
        EXPECT_THAT(site.target, StartsWith("http")) << site.caption;
}

TEST_F(Portal, ThePriceOfATickerIsThatOfItsQuotePage) {
    const auto price = m_portal.PriceOf("msft", kToday);
    ASSERT_TRUE(price);
    const SampleQuote& quote = *m_market.Find("MSFT");
    EXPECT_EQ(price->last, quote.closes.back());
    EXPECT_NEAR(*price->change, quote.closes.back() - quote.closes[quote.closes.size() - 2], 1e-9);
    EXPECT_EQ(price->age, "");
    EXPECT_EQ(price->origin, "Nov 20, SAMPLE DATA");
    ASSERT_GT(price->day.size(), 2u);
    EXPECT_NEAR(price->day.back(), price->last, 1e-9);
    EXPECT_EQ(price->name, quote.name);
    EXPECT_EQ(price->source, "SAMPLE DATA");
    EXPECT_EQ(price->when, "Nov 20");
    EXPECT_LE(*price->yearLow, *price->dayLow);
    EXPECT_GE(*price->yearHigh, *price->dayHigh);
    EXPECT_EQ(price->marketCap, quote.shares * price->last);
    EXPECT_GT(*price->volume, 0);
    EXPECT_GT(*price->priceEarnings, 0);
    EXPECT_FALSE(m_portal.PriceOf("^IXIC", kToday)->marketCap) << "an index has none";
    EXPECT_TRUE(m_portal.PriceOf("^IXIC", kToday));
    EXPECT_FALSE(m_portal.PriceOf("NOSUCH", kToday));
    EXPECT_FALSE(m_portal.PriceOf("", kToday));
}

} // namespace
} // namespace tallowmere
