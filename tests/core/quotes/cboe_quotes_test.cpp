#include "core/quotes/cboe_quotes.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(CboeQuotes, ReadsOneIndex) {
    const auto answer = ParseCboeQuotes(ResponseFile("cboe/spx.json"));
    ASSERT_EQ(answer.quotes.size(), 1u);
    const Quote& quote = answer.quotes[0];
    EXPECT_EQ(quote.symbol, "^SPC");
    EXPECT_EQ(quote.last, 6011.25);
    EXPECT_EQ(quote.change, 11.25);
    EXPECT_EQ(quote.changePercent, 0.1875);
    EXPECT_EQ(quote.open, 6002.1);
    EXPECT_EQ(quote.previousClose, 6000.0);
    EXPECT_EQ(quote.time, kFridayClose);
    EXPECT_EQ(quote.currency, "");
    EXPECT_TRUE(quote.delayed);
}

TEST(CboeQuotes, ReadsTheListOfIndices) {
    const auto answer = ParseCboeQuotes(ResponseFile("cboe/all_us_indices.json"));
    ASSERT_EQ(answer.quotes.size(), 2u);
    EXPECT_EQ(answer.quotes[0].symbol, "^VIX");
    EXPECT_NEAR(*answer.quotes[0].changePercent, -3.5294, 0.0001);
    EXPECT_EQ(answer.quotes[1].symbol, "^NDX");
    EXPECT_EQ(answer.quotes[1].change, std::nullopt);
}

TEST(CboeQuotes, AcceptsACaretInTheAnswer) {
    const auto answer = ParseCboeQuotes(R"({"data":{"symbol":"^SPX","current_price":1}})");
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "^SPC");
}

TEST(CboeQuotes, TellsEmptyFromGarbage) {
    EXPECT_EQ(ParseCboeQuotes(R"({"data":{},"symbol":"AAPL"})").failure, SourceFailure::Empty);
    EXPECT_EQ(ParseCboeQuotes(R"({"data":null})").failure, SourceFailure::Empty);
    EXPECT_EQ(ParseCboeQuotes(R"({"symbol":"AAPL"})").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseCboeQuotes(ResponseFile("cboe/denied.xml")).failure, SourceFailure::Garbage);
}

} // namespace
} // namespace tallowmere
