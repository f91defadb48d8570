#include "core/quotes/source_table.h"

#include "core/quotes/source_files.h"

#include <algorithm>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Shipped() {
    std::ifstream file(TALLOWMERE_SOURCE_DIR "/data/sources.toml");
    return {std::istreambuf_iterator<char>(file), {}};
}

SourceRow RowOf(const SourceTable& table, std::string_view key) {
    const auto found = std::find_if(table.rows.begin(), table.rows.end(),
                                    [&](const SourceRow& row) { return row.key == key; });
    return found == table.rows.end() ? SourceRow() : *found;
}

std::vector<std::string> Keys(const SourceTable& table) {
    std::vector<std::string> keys;
    for (const SourceRow& row : table.rows)
        keys.push_back(row.key);
    return keys;
}

TEST(SourceTable, ShipsSevenSourcesInOrder) {
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    EXPECT_THAT(table.problems, IsEmpty());
    EXPECT_EQ(table.version, 1);
    EXPECT_THAT(Keys(table), ElementsAre("cnbc", "yahoo-spark", "yahoo-chart", "nasdaq", "cboe",
                                         "treasury", "fred"));
    for (const SourceRow& row : table.rows) {
        EXPECT_TRUE(row.enabled) << row.key;
        EXPECT_GE(row.minInterval, 15) << row.key;
        EXPECT_TRUE(row.request.starts_with("https://")) << row.key;
    }
    EXPECT_EQ(RowOf(table, "yahoo-spark").Host(), RowOf(table, "yahoo-chart").Host());
}

TEST(SourceTable, AsksEachSourceInItsOwnWords) {
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    const auto ask = [&](std::string_view key, PriceSpan span, std::vector<std::string> symbols) {
        return RequestAddress(RowOf(table, key), span, symbols, kFridayClose);
    };
    EXPECT_EQ(ask("cnbc", PriceSpan::Quote, {"^SPC", "^DJI", "BRK.B"}),
              "https://quote.cnbc.com/quote-html-webservice/restQuote/symbolType/symbol?symbols="
              ".SPX%7C.DJI%7CBRK.B&requestMethod=itv&noform=1&partnerId=2&fund=1&exthrs=1"
              "&output=json");
    EXPECT_EQ(ask("yahoo-spark", PriceSpan::Quote, {"AAPL", "BRK.B", "^SPC"}),
              "https://query1.finance.yahoo.com/v8/finance/spark?symbols=AAPL,BRK-B,%5EGSPC"
              "&range=1d&interval=1d");
    EXPECT_EQ(ask("yahoo-chart", PriceSpan::Year, {"AAPL"}),
              "https://query1.finance.yahoo.com/v8/finance/chart/AAPL?range=1y&interval=1d");
    EXPECT_EQ(ask("yahoo-chart", PriceSpan::FiveDays, {"^DJI"}),
              "https://query1.finance.yahoo.com/v8/finance/chart/%5EDJI?range=5d&interval=30m");
    EXPECT_EQ(
        ask("nasdaq", PriceSpan::Quote, {"AAPL", "^IXIC"}),
        "https://api.nasdaq.com/api/quote/watchlist?symbol=aapl%7cstocks&symbol=comp%7cindex");
    EXPECT_EQ(ask("cboe", PriceSpan::Quote, {"^SPC"}),
              "https://cdn.cboe.com/api/global/delayed_quotes/quotes/_SPX.json");
    EXPECT_EQ(ask("fred", PriceSpan::Year, {"^TYX"}),
              "https://fred.stlouisfed.org/graph/fredgraph.csv?id=DGS30");
}

TEST(SourceTable, EscapesWhatASymbolCouldBreakOutWith) {
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    EXPECT_EQ(RequestAddress(RowOf(table, "yahoo-chart"), PriceSpan::Quote, {"A/../B?X=&Y#"},
                             kFridayClose),
              "https://query1.finance.yahoo.com/v8/finance/chart/A%2F..%2FB%3FX%3D%26Y%23"
              "?range=1d&interval=1d");
}

TEST(SourceTable, AsksForLastYearInTheFirstDaysOfJanuary) {
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    const auto yearAsked = [&](std::int64_t now) {
        const std::string address =
            RequestAddress(RowOf(table, "treasury"), PriceSpan::Quote, {"^TYX"}, now);
        return address.substr(address.find(".csv/") + 5, 4);
    };
    constexpr std::int64_t kNewYear = 1798779600;
    EXPECT_EQ(yearAsked(kNewYear), "2026");
    EXPECT_EQ(yearAsked(kNewYear + 4 * 86400), "2026");
    EXPECT_EQ(yearAsked(kNewYear + 5 * 86400), "2027");
}

TEST(SourceTable, LetsAUserChangeSingleValues) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    const SourceTable table = ReadSourceTable("order = [\"fred\"]\n"
                                              "[sources.cnbc]\n"
                                              "enabled = false\n"
                                              "[sources.nasdaq]\n"
                                              "user_agent = \"Mozilla/5.0\"\n",
                                              "mine.toml", base);
    EXPECT_THAT(table.problems, IsEmpty());
    EXPECT_FALSE(RowOf(table, "cnbc").enabled);
    EXPECT_EQ(RowOf(table, "cnbc").batch, 40);
    EXPECT_EQ(RowOf(table, "nasdaq").userAgent, "Mozilla/5.0");
    EXPECT_EQ(Keys(table).front(), "fred");
    EXPECT_EQ(table.rows.size(), 7u);
    EXPECT_EQ(table.version, 1);
}

TEST(SourceTable, AddsASourceOfTheUsersOwn) {
    const SourceTable table = ReadSourceTable("[sources.mine]\n"
                                              "format = \"cnbc\"\n"
                                              "request = \"http://127.0.0.1:8080/q?s={symbols}\"\n",
                                              "mine.toml");
    EXPECT_THAT(table.problems, IsEmpty());
    ASSERT_EQ(table.rows.size(), 1u);
    EXPECT_EQ(table.rows[0].name, "mine");
    EXPECT_EQ(table.rows[0].Host(), "127.0.0.1:8080");
}

TEST(SourceTable, AsksForTheNamesOfCompaniesOnlyWhenTheUserSaysWhoAsks) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    EXPECT_TRUE(base.companies.enabled);
    EXPECT_EQ(base.companies.contact, "");
    EXPECT_EQ(base.companies.request, "https://www.sec.gov/files/company_tickers.json");
    EXPECT_EQ(base.companies.minInterval, 604800);
    const SourceTable table = ReadSourceTable("[companies]\n"
                                              "contact = \"A B a@b.example\"\n"
                                              "min_interval = 1209600\n",
                                              "mine.toml", base);
    EXPECT_THAT(table.problems, IsEmpty());
    EXPECT_EQ(table.companies.contact, "A B a@b.example");
    EXPECT_EQ(table.companies.request, base.companies.request);
    EXPECT_EQ(table.companies.minInterval, 1209600);
    EXPECT_EQ(table.rows.size(), 7u);
}

TEST(SourceTable, TakesNoWrongValueForTheNamesOfCompanies) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    const SourceTable table = ReadSourceTable("[companies]\n"
                                              "contact = \"a\\r\\nCookie: x\"\n"   // 2
                                              "min_interval = 604799\n"            // 3
                                              "request = \"file:///etc/passwd\"\n" // 4
                                              "enabled = 1\n"                      // 5
                                              "batch = 3\n"                        // 6
                                              "timeout = 0\n",                     // 7
                                              "mine.toml", base);
    std::vector<std::string> places;
    for (const std::string& problem : table.problems)
        places.push_back(problem.substr(0, problem.find(": ")));
    EXPECT_THAT(places, testing::UnorderedElementsAre("mine.toml:2", "mine.toml:3", "mine.toml:4",
                                                      "mine.toml:5", "mine.toml:6", "mine.toml:7"));
    EXPECT_EQ(table.companies.contact, "");
    EXPECT_EQ(table.companies.minInterval, 604800);
    EXPECT_EQ(table.companies.request, base.companies.request);
    EXPECT_EQ(table.companies.timeout, 60);
    EXPECT_EQ(ReadSourceTable("companies = 3\n", "x", base).problems.size(), 1u);
}

TEST(SourceTable, NamesTheLineOfEveryWrongValueAndGoesOn) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    const SourceTable table = ReadSourceTable("shoe = 1\n"                          // 1
                                              "order = [\"nobody\"]\n"              // 2
                                              "[sources.cnbc]\n"                    // 3
                                              "batch = 0\n"                         // 4
                                              "min_interval = 14\n"                 // 5
                                              "enabled = \"no\"\n"                  // 6
                                              "format = \"xml\"\n"                  // 7
                                              "gives = [\"quote\", \"decade\"]\n"   // 8
                                              "request = \"file:///etc/passwd\"\n"  // 9
                                              "user_agent = \"a\\r\\nCookie: x\"\n" // 10
                                              "colour = \"red\"\n"                  // 11
                                              "this is no line\n"                   // 12
                                              "daily_cap = 7\n"
                                              "[sources.new]\n" // 14
                                              "batch = 3\n",
                                              "mine.toml", base);
    std::vector<std::string> places;
    for (const std::string& problem : table.problems)
        places.push_back(problem.substr(0, problem.find(": ")));
    EXPECT_THAT(places, testing::UnorderedElementsAre(
                            "mine.toml:1", "mine.toml:2", "mine.toml:4", "mine.toml:5",
                            "mine.toml:6", "mine.toml:7", "mine.toml:8", "mine.toml:9",
                            "mine.toml:10", "mine.toml:11", "mine.toml:12", "mine.toml:14"));
    const SourceRow cnbc = RowOf(table, "cnbc");
    EXPECT_EQ(cnbc.batch, 40);
    EXPECT_EQ(cnbc.minInterval, 15);
    EXPECT_TRUE(cnbc.enabled);
    EXPECT_EQ(cnbc.request, RowOf(base, "cnbc").request);
    EXPECT_EQ(cnbc.dailyCap, 7) << "the lines after a wrong one count";
    EXPECT_EQ(table.rows.size(), 7u);
}

TEST(SourceTable, TakesNoAddressWithoutAFixedHost) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    for (const char* request :
         {"https://?s={symbols}", "https:///x", "https://#", "https://{symbols}/", "cnbc.example/",
          "https://x{year}.example/", "https://a b/", ""}) {
        const SourceTable table = ReadSourceTable(
            std::string("[sources.cnbc]\nrequest = \"") + request + "\"\n", "mine.toml", base);
        EXPECT_EQ(table.problems.size(), 1u) << request;
        EXPECT_EQ(RowOf(table, "cnbc").request, RowOf(base, "cnbc").request) << request;
    }
}

TEST(SourceTable, LivesWithAFileThatIsNoTable) {
    const SourceTable base = ReadSourceTable(Shipped(), "sources.toml");
    EXPECT_EQ(ReadSourceTable("<html>\n", "x", base).rows.size(), 7u);
    EXPECT_EQ(ReadSourceTable("sources = 3\n", "x", base).problems.size(), 1u);
    EXPECT_EQ(ReadSourceTable(std::string(2 << 20, '#'), "x", base).problems.size(), 1u);
    EXPECT_THAT(ReadSourceTable("", "x", base).problems, IsEmpty());
}

TEST(SourceTable, ReadsAnAnswerFromTheOutsideIn) {
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    const SourceRow cnbc = RowOf(table, "cnbc");
    const std::string body = ResponseFile("cnbc/single.json");
    const auto good = ReadSourceAnswer(cnbc, PriceSpan::Quote, {200, "application/json", "", body},
                                       {"AAPL"}, kFridayClose);
    ASSERT_EQ(good.quotes.size(), 1u);
    EXPECT_EQ(good.quotes[0].source, "CNBC");
    EXPECT_EQ(ReadSourceAnswer(cnbc, PriceSpan::Quote, {200, "application/json", "", body},
                               {"MSFT"}, kFridayClose)
                  .failure,
              SourceFailure::Empty)
        << "the symbol is not the one asked for";
    EXPECT_EQ(ReadSourceAnswer(cnbc, PriceSpan::Quote, {200, "application/json", "", body},
                               {"AAPL"}, kFridayClose - 3600)
                  .failure,
              SourceFailure::Empty)
        << "the price would be of the future";
    EXPECT_EQ(ReadSourceAnswer(cnbc, PriceSpan::Quote,
                               {200, "text/html", "", ResponseFile("blocked/robot.html")}, {"AAPL"},
                               kFridayClose)
                  .failure,
              SourceFailure::Blocked);
}

TEST(SourceTable, EachSourceIsReadByTheReaderOfItsFormat) {
    struct Case {
        const char *source, *file, *symbol;
        double last;
        std::int64_t time;
    };
    const Case cases[] = {
        {"yahoo-chart", "yahoo/chart_aapl.json", "AAPL", 231.5, kFridayClose + 1},
        {"yahoo-spark", "yahoo/spark_flat.json", "AAPL", 231.5, kFridayClose + 1},
        {"nasdaq", "nasdaq/info.json", "AAPL", 231.5, kFridayClose + 8 * 60},
        {"cboe", "cboe/spx.json", "^SPC", 6011.25, kFridayClose},
        {"fred", "fred/dgs30.csv", "^TYX", 4.53, kFridayClose - 2 * 86400},
        {"treasury", "treasury/2026.csv", "^TYX", 4.51, kFridayClose - 1800},
    };
    const SourceTable table = ReadSourceTable(Shipped(), "sources.toml");
    for (const Case& c : cases) {
        const SourceRow row = RowOf(table, c.source);
        const SourceAnswer answer =
            ReadSourceAnswer(row, PriceSpan::Quote, {200, "", "", ResponseFile(c.file)}, {c.symbol},
                             kFridayClose + 3600);
        ASSERT_EQ(answer.quotes.size(), 1u) << c.source;
        EXPECT_EQ(answer.failure, std::nullopt) << c.source;
        EXPECT_EQ(answer.quotes[0].symbol, c.symbol) << c.source;
        EXPECT_EQ(answer.quotes[0].last, c.last) << c.source;
        EXPECT_EQ(answer.quotes[0].time, c.time) << c.source;
        EXPECT_EQ(answer.quotes[0].source, row.name);
        for (const PriceSeries& series : answer.series)
            EXPECT_EQ(series.source, row.name);
    }
}

} // namespace
} // namespace tallowmere
