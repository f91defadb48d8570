#include "core/quotes/yahoo_chart.h"

#include "core/quotes/source_files.h"

#include <nlohmann/json.hpp>

namespace tallowmere {
namespace {

TEST(YahooChart, ReadsTheQuoteOfADay) {
    const auto answer = ParseYahooChart(ResponseFile("yahoo/chart_aapl.json"), PriceSpan::Quote);
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.failure, std::nullopt);
    const Quote& quote = answer.quotes[0];
    EXPECT_EQ(quote.symbol, "AAPL");
    EXPECT_EQ(quote.name, "Apple Inc.");
    EXPECT_EQ(quote.last, 231.5);
    EXPECT_EQ(quote.change, 1.5);
    EXPECT_NEAR(*quote.changePercent, 0.6522, 0.0001);
    EXPECT_EQ(quote.open, 229.25);
    EXPECT_EQ(quote.high, 233.1);
    EXPECT_EQ(quote.low, 228.4);
    EXPECT_EQ(quote.previousClose, 230.0);
    EXPECT_EQ(quote.volume, 41234567.0);
    EXPECT_EQ(quote.yearHigh, 240.1);
    EXPECT_EQ(quote.yearLow, 164.08);
    EXPECT_EQ(quote.time, kFridayClose + 1);
    EXPECT_EQ(quote.currency, "USD");
    EXPECT_TRUE(quote.delayed);
}

TEST(YahooChart, TakesNoPreviousCloseFromBeforeALongerSpan) {
    const auto answer = ParseYahooChart(ResponseFile("yahoo/chart_year.json"), PriceSpan::Year);
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "BRK.B");
    EXPECT_EQ(answer.quotes[0].previousClose, std::nullopt);
    EXPECT_EQ(answer.quotes[0].change, std::nullopt);
    EXPECT_EQ(answer.quotes[0].open, std::nullopt);
}

TEST(YahooChart, LeavesOutTheDaysWithoutAPrice) {
    const auto answer = ParseYahooChart(ResponseFile("yahoo/chart_year.json"), PriceSpan::Year);
    ASSERT_EQ(answer.series.size(), 1u);
    EXPECT_EQ(answer.series[0].symbol, "BRK.B");
    EXPECT_EQ(answer.series[0].span, PriceSpan::Year);
    EXPECT_EQ(answer.series[0].closes, (std::vector<double>{505.5, 508.0, 510.25}));
    EXPECT_EQ(answer.series[0].times,
              (std::vector<std::int64_t>{1794949200, 1795122000, 1795208401}));
}

TEST(YahooChart, SaysThatAnUnknownSymbolHasNothing) {
    EXPECT_EQ(ParseYahooChart(ResponseFile("yahoo/chart_unknown.json"), PriceSpan::Quote).failure,
              SourceFailure::Empty);
}

TEST(YahooChart, CallsAnotherShapeGarbage) {
    const std::string whole = ResponseFile("yahoo/chart_aapl.json");
    for (const std::string& body : {std::string("{}"), std::string("[]"), std::string("null"),
                                    whole.substr(0, 200), std::string(100000, '{')})
        EXPECT_EQ(ParseYahooChart(body, PriceSpan::Quote).failure, SourceFailure::Garbage);
}

TEST(YahooChart, LivesWithMembersOfTheWrongKind) {
    for (
        const char* body :
        {R"({"chart":[]})", R"({"chart":{"result":[null,1,"x",[]]}})",
         R"({"chart":{"result":[{"meta":{"symbol":7,"regularMarketPrice":1}}]}})",
         R"({"chart":{"result":[{"meta":{"symbol":"A","regularMarketPrice":null}}]}})",
         R"({"chart":{"result":[{"meta":{"symbol":"A"},"timestamp":{},"indicators":[]}]}})",
         R"({"chart":{"result":[{"meta":{"symbol":"A"},"timestamp":[1],"indicators":{"quote":[[]]}}]}})"})
        EXPECT_EQ(ParseYahooChart(body, PriceSpan::Quote).failure, SourceFailure::Empty) << body;
}

} // namespace
} // namespace tallowmere
