#include "core/quotes/yahoo_spark.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(YahooSpark, ReadsTheMapOfSymbols) {
    const auto answer = ParseYahooSpark(ResponseFile("yahoo/spark_flat.json"), PriceSpan::Quote);
    ASSERT_EQ(answer.quotes.size(), 2u) << "the symbol without prices is left out";
    EXPECT_EQ(answer.quotes[0].symbol, "AAPL");
    EXPECT_EQ(answer.quotes[0].last, 231.5) << "the empty last close is passed over";
    EXPECT_EQ(answer.quotes[0].time, kFridayClose + 1);
    EXPECT_EQ(answer.quotes[0].change, 1.5);
    EXPECT_EQ(answer.quotes[1].symbol, "^SPC");
    EXPECT_EQ(answer.quotes[1].previousClose, 6000.0) << "the close before the chart stands in";
    EXPECT_EQ(answer.quotes[1].change, 11.25);
    ASSERT_EQ(answer.series.size(), 2u);
    EXPECT_EQ(answer.series[0].closes, (std::vector<double>{230.0, 231.5}));
}

TEST(YahooSpark, ReadsTheOlderForm) {
    const auto answer = ParseYahooSpark(ResponseFile("yahoo/spark_nested.json"), PriceSpan::Quote);
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "MSFT");
    EXPECT_EQ(answer.quotes[0].last, 420.75);
    EXPECT_EQ(answer.quotes[0].change, -0.25);
}

TEST(YahooSpark, IsEmptyWithoutResults) {
    EXPECT_EQ(ParseYahooSpark("{}", PriceSpan::Quote).failure, SourceFailure::Empty);
    EXPECT_EQ(ParseYahooSpark(ResponseFile("yahoo/spark_limited.json"), PriceSpan::Quote).failure,
              SourceFailure::Empty);
}

TEST(YahooSpark, ReadsAShareThatIsCalledLikeTheOlderForm) {
    const auto answer = ParseYahooSpark(
        R"({"spark":{"symbol":"SPARK","timestamp":[1795208400],"close":[2.5]}})", PriceSpan::Quote);
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "SPARK");
}

TEST(YahooSpark, CallsAnotherShapeGarbage) {
    for (const char* body : {"[]", "\"x\"", "{\"A\":", ""})
        EXPECT_EQ(ParseYahooSpark(body, PriceSpan::Quote).failure, SourceFailure::Garbage) << body;
}

} // namespace
} // namespace tallowmere
