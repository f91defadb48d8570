#include "core/portal/live_portal.h"
#include "core/sites/site_table.h"

#include "core/links/portfolio_address.h"
#include "core/market/index_strip.h"
#include "core/portfolio/condensed_page.h"
#include "core/quotes/source_files.h"
#include "core/text/bytes.h"
#include "shipped_files.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kSources = R"(
[sources.quotes]
name = "Quotes Inc"
format = "cnbc"
request = "https://quotes.example/{symbols}"
separator = "|"
batch = 40
[sources.charts]
name = "Charts Inc"
format = "yahoo-chart"
request = "https://charts.example/{symbols}"
gives = ["year", "five-days", "day"]
)";

std::string CnbcRow(std::string_view symbol, std::string_view last, std::string_view change,
                    std::string_view name = "Some Company") {
    return "{\"symbol\":\"" + std::string(symbol) + "\",\"name\":\"" + std::string(name) +
           "\",\"last\":\"" + std::string(last) + "\",\"change\":\"" + std::string(change) +
           "\",\"volume\":\"1,200,000\",\"last_time\":\"2026-11-20T16:00:00.000-0500\","
           "\"realTime\":\"true\"}";
}

class LivePortalTest : public testing::Test {
protected:
    LivePortalTest() {
        m_rows = {{".NYA", CnbcRow(".NYA", "21,000.50", "-12.25")},
                  {".SPX", CnbcRow(".SPX", "6,011.25", "+11.25")},
                  {".OEX", CnbcRow(".OEX", "2,950.00", "UNCH")},
                  {"US30Y", CnbcRow("US30Y", "4.512%", "-0.021")},
                  {".DJI", CnbcRow(".DJI", "44,500.75", "+100.00")},
                  {".IXIC", CnbcRow(".IXIC", "19,801.44", "-20.06")},
                  {"MSFT", CnbcRow("MSFT", "420.75", "-0.25", "Microsoft Corp")},
                  {"BRK.B", CnbcRow("BRK.B", "510.25", "+1.00", "Berkshire <b>")}};
    }

    /// The answer of the stand-in sources to a request.
    SourceResponse Response(const std::string& address) const {
        if (m_isDown)
            return {};
        if (Contains(address, "charts.example"))
            return {200, "application/json", "", ResponseFile("yahoo/chart_year.json")};
        std::string rows;
        for (const auto symbol : Split(std::string_view(address).substr(23), '|'))
            if (const auto row = m_rows.find(symbol); row != m_rows.end())
                rows += (rows.empty() ? "" : ",") + row->second;
        return {200, "application/json", "",
                "{\"FormattedQuoteResult\":{\"FormattedQuote\":[" + rows + "]}}"};
    }

    /// Fetches what the page needs and gives the page.
    PortalAnswer Load(std::string_view address) {
        const auto slash = address.find('/');
        const auto host = address.substr(0, slash);
        const auto path = address.substr(slash);
        for (const WantedPrices& wanted : m_portal.Needs(host, path))
            m_schedule.Want(wanted.span, wanted.symbols, m_now);
        while (const auto request = m_schedule.Next(m_now)) {
            ++m_requests;
            m_schedule.Answer(request->id, Response(request->address), m_now);
        }
        return m_portal.Answer(host, path, m_schedule, m_now);
    }

    std::string Get(std::string_view address) { return Load(address).body; }

    std::map<std::string, std::string, std::less<>> m_rows;
    SiteTable m_sites = ShippedSites();
    LivePortal m_portal{m_sites, {"the books", "the sites"}};
    SourceSchedule m_schedule{ReadSourceTable(kSources, "sources.toml")};
    std::int64_t m_now = kFridayClose + 60;
    bool m_isDown = false;
    int m_requests = 0;
};

TEST_F(LivePortalTest, AnswersTheStripInItsOwnFormat) {
    const std::string page = Get("quote.yahoo.com" + IndexQuery());
    EXPECT_TRUE(IsCompleteIndexPage(page));
    EXPECT_THAT(ReadIndexPage(page),
                ElementsAre("NYSE : 21,000.50 -12.25", "S&P 500 : 6,011.25 +11.25",
                            "S&P 100 : 2,950.00 0.00", "30Y-TSY : 4.51 -0.02",
                            "DJIA : 44,500.75 +100.00", "NAS/NMS : 19,801.44 -20.06"));
    EXPECT_EQ(ReadIndexNote(page, IndexTable()[4]), "Nov 20, 2026 4:00 PM ET, Quotes Inc");
    EXPECT_THAT(page, AllOf(HasSubstr("Quotes Inc"), HasSubstr("Nov 20, 2026 4:00 PM ET"),
                            Not(HasSubstr("SAMPLE")), Not(HasSubstr("stale"))));
    EXPECT_EQ(m_requests, 1);
}

TEST_F(LivePortalTest, SaysWhichIndexHasNoValue) {
    m_rows.erase(".OEX");
    EXPECT_THAT(ReadIndexPage(Get("quote.yahoo.com" + IndexQuery())),
                ElementsAre("NYSE : 21,000.50 -12.25", "S&P 500 : 6,011.25 +11.25",
                            "S&P 100 : N/A -", "30Y-TSY : 4.51 -0.02", "DJIA : 44,500.75 +100.00",
                            "NAS/NMS : 19,801.44 -20.06"));
}

TEST_F(LivePortalTest, LetsTheStripKeepItsTextsWithoutANetwork) {
    m_isDown = true;
    const std::string page = Get("quote.yahoo.com" + IndexQuery());
    EXPECT_TRUE(IsCompleteIndexPage(page));
    EXPECT_THAT(ReadIndexPage(page), IsEmpty());
    EXPECT_THAT(page, AllOf(HasSubstr("No source of quotes can be reached."),
                            HasSubstr("Quotes Inc (no answer since the start)")));
    EXPECT_THAT(Get("ichart.yahoo.com/b?s=msft"),
                AllOf(HasSubstr("no prices"), HasSubstr("No source of quotes can be")));
    EXPECT_THAT(Get("quote.yahoo.com" + DetailedIndexQuery()),
                HasSubstr("Charts Inc, Quotes Inc (no answer since the start)."));
}

TEST_F(LivePortalTest, KeepsTheNameThatAnEarlierSourceTold) {
    Get("quote.yahoo.com/q?s=msft");
    m_rows["MSFT"] = CnbcRow("MSFT", "421.75", "+1", "");
    m_now += 60;
    EXPECT_THAT(Get("quote.yahoo.com/q?s=msft"),
                AllOf(HasSubstr("Microsoft Corp (MSFT)"), HasSubstr("421.75")));
}

TEST_F(LivePortalTest, HeadsAQuoteWithoutANameByItsTicker) {
    m_rows["MSFT"] = CnbcRow("MSFT", "421.75", "+1", "");
    EXPECT_THAT(Get("quote.yahoo.com/q?s=msft"), HasSubstr("<h2>MSFT</h2>"));
}

TEST_F(LivePortalTest, SaysSinceWhenAQuoteIsStaleAndGoesOnWhenTheNetworkReturns) {
    Get("quote.yahoo.com" + IndexQuery());
    m_isDown = true;
    m_now += 600;
    std::string page = Get("quote.yahoo.com" + IndexQuery());
    EXPECT_THAT(page, AllOf(HasSubstr("stale since Nov 20, 2026 4:01 PM ET"),
                            HasSubstr("Quotes Inc (last answer Nov 20, 2026 4:01 PM ET)")));
    EXPECT_THAT(ReadIndexPage(page), SizeIs(6));
    m_isDown = false;
    m_now += 600;
    page = Get("quote.yahoo.com" + IndexQuery());
    EXPECT_THAT(page, AllOf(Not(HasSubstr("stale")), Not(HasSubstr("Could not be reached"))));
}

TEST_F(LivePortalTest, ShowsDetailsOfTheIndicesWithTheirCharts) {
    const std::string page = Get("quote.yahoo.com" + DetailedIndexQuery());
    EXPECT_THAT(page, AllOf(HasSubstr("NYSE Composite"), HasSubstr("6,011.25"),
                            HasSubstr("Quotes delayed"), HasSubstr("Quotes Inc")));
    EXPECT_EQ(CountOccurrences(page, "<svg "), 6U);
}

TEST_F(LivePortalTest, AnswersThePortfolioThatTheCondensedPageIsCutFrom) {
    const std::vector<std::string> tickers{"MSFT", "BRK.B", "NOSUCH", "^SPC"};
    const auto condensed =
        CondensedPage(Get(CondensedAddress(CondensedQuery(tickers), "1b", m_sites)), m_sites);
    ASSERT_TRUE(condensed.has_value());
    EXPECT_EQ(CountOccurrences(*condensed, "<table border=0"), 4U);
    for (const char* shown :
         {"<b>420.75</b>", "<b>510.25</b>", "<b>6011.25</b>", "Microsoft Corp", "Quotes Inc",
          "Nov 20 2026 4:00 PM ET", "No source that can be reached has this ticker.",
          "Berkshire &lt;b&gt;"})
        EXPECT_THAT(*condensed, HasSubstr(shown));
    for (const char* removed : {"More Info", "Div Date", "Ex-Div", "Yield", "SAMPLE", "latest"})
        EXPECT_THAT(*condensed, Not(HasSubstr(removed)));
    EXPECT_EQ(m_requests, 1);
}

TEST_F(LivePortalTest, FetchesAThousandTickersInWholeBatches) {
    std::string symbols;
    for (int i = 0; i < 1000; ++i)
        symbols += "t" + std::to_string(i) + "+";
    const std::string page = Get("quote.yahoo.com/quotes?d=1b&symbols=" + symbols);
    EXPECT_EQ(m_requests, 25);
    EXPECT_EQ(CountOccurrences(page, "<table border=1"), 1000U);
}

TEST_F(LivePortalTest, NamesASearchThatLeadsToTheCompany) {
    EXPECT_EQ(
        FindHomePage(Get("biz.yahoo.com/p/m/msft.html")),
        "https://duckduckgo.com/?q=Microsoft%20Corp%20investor%20relations%20official%20site");
    EXPECT_EQ(FindHomePage(Get("biz.yahoo.com/p/n/nosuch.html")), "");
    EXPECT_EQ(FindHomePage(Get("biz.yahoo.com/p/^/%5edji.html")), "");
}

TEST_F(LivePortalTest, DrawsTheChartsFromThePricesOfTheirSpan) {
    const PortalAnswer answer = Load("chart.yahoo.com/c/1y/b/brk.b.gif");
    EXPECT_EQ(answer.type, "image/svg+xml");
    EXPECT_THAT(answer.body,
                AllOf(StartsWith("<svg "), HasSubstr("BRK.B 1 year<"), HasSubstr("Charts Inc"),
                      HasSubstr("Nov 20, 2026 4:00 PM ET"), HasSubstr("510.25")));
    EXPECT_THAT(Get("ichart.yahoo.com/b?s=brk.b"), HasSubstr("BRK.B 1 day<"));
    EXPECT_THAT(Get("ichart.yahoo.com/b?s=nosuch"), HasSubstr("no prices"));
    EXPECT_THAT(Get("finance.yahoo.com/logo.gif"),
                AllOf(StartsWith("<svg "), HasSubstr(">Quorvane<")));
}

TEST_F(LivePortalTest, CutsThreeMonthsOutOfTheYear) {
    std::string times;
    std::string closes;
    for (int day = 364; day >= 0; --day) {
        times += std::to_string(kFridayClose - day * 86400) + (day > 0 ? "," : "");
        closes += std::to_string(1000 - day) + (day > 0 ? "," : "");
    }
    SourceResponse year{200, "application/json", "",
                        R"({"chart":{"result":[{"meta":{"symbol":"MSFT"},"timestamp":[)" + times +
                            R"(],"indicators":{"quote":[{"close":[)" + closes + "]}]}}]}}"};
    m_schedule.Want(PriceSpan::Year, {"MSFT"}, m_now);
    m_schedule.Answer(m_schedule.Next(m_now)->id, year, m_now);
    const auto chart = [&](const char* path) {
        return m_portal.Answer("chart.yahoo.com", path, m_schedule, m_now).body;
    };
    EXPECT_THAT(chart("/c/1y/m/msft.gif"), HasSubstr("636.00"));
    EXPECT_THAT(chart("/c/3m/m/msft.gif"), AllOf(HasSubstr("908.00"), Not(HasSubstr("636.00")),
                                                 HasSubstr("Sep 1<"), HasSubstr("3 months")));
}

TEST_F(LivePortalTest, ShowsAQuoteWithLinksThatLeadOn) {
    const std::string page = Get("quote.yahoo.com/q?s=MSFT&d=5d");
    EXPECT_THAT(page, AllOf(HasSubstr("Microsoft Corp (MSFT)"), HasSubstr("420.75"),
                            HasSubstr("1.2M"), HasSubstr("Nov 20, 2026 4:00 PM ET, Quotes Inc"),
                            HasSubstr("href=\"http://biz.yahoo.com/n/m/msft.html\"")));
}

TEST_F(LivePortalTest, SaysWhatEachPageNeeds) {
    const auto needs = [&](std::string_view path) {
        std::vector<std::string> texts;
        for (const WantedPrices& wanted : m_portal.Needs("h", path))
            for (const std::string& symbol : wanted.symbols)
                texts.push_back(std::to_string(static_cast<int>(wanted.span)) + symbol);
        return texts;
    };
    EXPECT_THAT(needs("/q?s=^spc+^gspc+^dji"), ElementsAre("0^SPC", "0^DJI"));
    EXPECT_THAT(needs("/quotes?symbols=msft+brk-b&d=2b"), ElementsAre("0MSFT", "0BRK.B"));
    EXPECT_THAT(needs("/c/3m/m/msft.gif"), ElementsAre("1MSFT"));
    EXPECT_THAT(needs("/v?s=msft"), ElementsAre("2MSFT"));
    EXPECT_THAT(needs("/t?s=msft"), ElementsAre("3MSFT"));
    EXPECT_THAT(needs("/p/m/msft.html"), ElementsAre("0MSFT", "1MSFT"));
    EXPECT_THAT(needs("/q?s=msft&d=1d"), ElementsAre("0MSFT", "3MSFT"));
    EXPECT_THAT(needs("/rr.html"), IsEmpty());
    EXPECT_THAT(needs("/elsewhere?s=msft"), IsEmpty());
    std::string many = "/quotes?d=1b&symbols=";
    for (int i = 0; i < 5000; ++i)
        many += "t" + std::to_string(i) + "+";
    EXPECT_THAT(needs(many), SizeIs(2000));
}

TEST_F(LivePortalTest, RunsATickerStripOfTheIndicesAndTheTickers) {
    m_portal.SetStripTickers({"MSFT"});
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html"),
                AllOf(HasSubstr("^DJI"), HasSubstr("44,500.75"), HasSubstr("MSFT"),
                      HasSubstr("target=\"_blank\""), HasSubstr("Quotes Inc")));
}

TEST_F(LivePortalTest, AnswersNothingElse) {
    EXPECT_EQ(Get("www.quorvane.example/rr.html"), "the books");
    EXPECT_EQ(Get("www.quorvane.example/newsites.html"), "the sites");
    for (const char* address : {"quote.yahoo.com/", "quote.yahoo.com/q", "www.x.example/a?b=<c>",
                                "www.zacks.com/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100"})
        EXPECT_THAT(Get(address), HasSubstr("No page here")) << address;
    EXPECT_EQ(m_requests, 0);
}

TEST_F(LivePortalTest, ShowsNoControlCharactersOfAnAddress) {
    EXPECT_THAT(Get("quote.yahoo.com/q?s=msft+%00%01+%3Cscript"),
                AllOf(HasSubstr("420.75"), Not(HasSubstr(std::string(1, '\0'))),
                      Not(HasSubstr("\x01")), Not(HasSubstr("<script"))));
}

TEST_F(LivePortalTest, PassesNoTagOfASourceOn) {
    m_rows["EVIL"] = CnbcRow("EVIL", "1", "0", "<script>alert(1)</script>");
    for (const char* address : {"quote.yahoo.com/q?s=evil", "quote.yahoo.com/q?s=evil+msft",
                                "quote.yahoo.com/quotes?symbols=evil&d=1b",
                                "quote.yahoo.com/quotes?symbols=evil&d=", "h/p/e/evil.html"})
        EXPECT_THAT(Get(address), AllOf(HasSubstr("&lt;script&gt;"), Not(HasSubstr("<script"))))
            << address;
}

TEST_F(LivePortalTest, SaysThatAQuoteMayBeDelayedWhereItDoesNotSayByHowMuch) {
    m_rows[".NYA"] = ReplaceAll(CnbcRow(".NYA", "21,000.50", "-12.25"), "\"true\"", "\"false\"");
    const std::string address = "quote.yahoo.com" + IndexQuery();
    EXPECT_EQ(ReadIndexNote(Get(address), IndexTable()[0]),
              "Nov 20, 2026 4:00 PM ET, Quotes Inc, may be delayed");
    m_now = kFridayClose + 2 * 86400 + 20 * 3600;
    EXPECT_EQ(ReadIndexNote(Get(address), IndexTable()[0]),
              "Nov 20, 2026 4:00 PM ET, Quotes Inc, stale: 2 d old");
}

TEST_F(LivePortalTest, SaysHowOldAStaleIndexIsAndThatOfAnEarlierDay) {
    EXPECT_EQ(ReadIndexAge(Get("quote.yahoo.com" + IndexQuery()), IndexTable()[1]), "");
    // Monday noon: the source still tells Friday's close.
    m_now = kFridayClose + 2 * 86400 + 20 * 3600;
    std::string page = Get("quote.yahoo.com" + IndexQuery());
    EXPECT_EQ(ReadIndexAge(page, IndexTable()[1]), "2 d");
    EXPECT_EQ(ReadIndexNote(page, IndexTable()[1]),
              "Nov 20, 2026 4:00 PM ET, Quotes Inc, stale: 2 d old");
    EXPECT_THAT(Get("ticker.stream.example/javaticker.html"),
                AllOf(HasSubstr("<span class=\"old\" title=\"Nov 20"), HasSubstr("(2 d)")));
    EXPECT_THAT(Get("quote.yahoo.com" + DetailedIndexQuery()), HasSubstr("class=\"old\">6,011.25"));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=msft"), HasSubstr("class=\"old\">420.75"));
}

TEST_F(LivePortalTest, SaysThatASourceTellsNoTime) {
    m_rows["MSFT"] = R"({"symbol":"MSFT","name":"M","last":"7.00","change":"1"})";
    EXPECT_THAT(Get("quote.yahoo.com/q?s=msft"),
                AllOf(HasSubstr("class=\"old\">7.00"), HasSubstr("time not said, Quotes Inc")));
}

TEST_F(LivePortalTest, SaysInTheStripWhyThereAreNoQuotes) {
    m_isDown = true;
    const std::string page = Get("quote.yahoo.com" + IndexQuery());
    for (const IndexRow& row : IndexTable())
        EXPECT_EQ(ReadIndexNote(page, row), "No source of quotes can be reached.");
    m_isDown = false;
    m_rows.erase(".OEX");
    m_now += 600;
    EXPECT_EQ(ReadIndexNote(Get("quote.yahoo.com" + IndexQuery()), IndexTable()[2]),
              "No source that can be reached has this ticker.");
}

TEST_F(LivePortalTest, NamesBothSourcesOfOnePage) {
    Get("chart.yahoo.com/c/1y/b/brk.b.gif");
    EXPECT_THAT(Get("quote.yahoo.com/q?s=brk.b"),
                AllOf(HasSubstr("4:00 PM ET, Quotes Inc"),
                      HasSubstr("<small class=\"quiet\">Charts Inc</small>")));
    EXPECT_THAT(Get("quote.yahoo.com/q?s=brk.b+msft&d=t"),
                HasSubstr("<small class=\"quiet\">Charts Inc</small>"));
    EXPECT_THAT(Get("quote.yahoo.com/quotes?symbols=brk.b&d=1b"),
                HasSubstr("Quotes Inc; 52-week range: Charts Inc)"));
}

TEST_F(LivePortalTest, DrawsNoChartOfOneDayFromThePricesOfDays) {
    // The stand-in answers with a price a day, whatever span it is asked for.
    const std::string chart = Get("ichart.yahoo.com/b?s=brk.b");
    EXPECT_THAT(chart, AllOf(HasSubstr("BRK.B 1 day<"), HasSubstr("no prices"),
                             Not(HasSubstr("<polyline"))));
    EXPECT_THAT(Get("chart.yahoo.com/c/1y/b/brk.b.gif"), HasSubstr("<polyline"));
}

TEST_F(LivePortalTest, SaysThatTheSourcesWereNotAskedForAPageOfTheWeb) {
    Get("quote.yahoo.com/q?s=msft");
    const auto page = [&](const char* path) {
        return m_portal.Answer("quote.yahoo.com", path, m_schedule, m_now, false).body;
    };
    EXPECT_THAT(page("/q?s=msft"),
                AllOf(HasSubstr("420.75"), HasSubstr("A page of the web led here")));
    EXPECT_THAT(page("/q?s=aol"), HasSubstr("The sources were not asked"));
}

TEST_F(LivePortalTest, KnowsThePageThatLoadsItself) {
    EXPECT_TRUE(LivePortal::LoadsItself("/javaticker.html"));
    EXPECT_TRUE(LivePortal::LoadsItself("/javaticker.html?s=msft"));
    EXPECT_FALSE(LivePortal::LoadsItself("/q?s=msft&d=/javaticker.html"));
}

} // namespace
} // namespace tallowmere
