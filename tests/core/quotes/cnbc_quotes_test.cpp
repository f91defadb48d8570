#include "core/quotes/cnbc_quotes.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(CnbcQuotes, ReadsABatchWithItsNumbersInWords) {
    const auto answer = ParseCnbcQuotes(ResponseFile("cnbc/batch.json"));
    ASSERT_EQ(answer.quotes.size(), 3u) << "the unknown symbol has a code of its own";
    const Quote& index = answer.quotes[0];
    EXPECT_EQ(index.symbol, "^SPC");
    EXPECT_EQ(index.name, "S&P 500 Index");
    EXPECT_EQ(index.last, 6011.25);
    EXPECT_EQ(index.change, 11.25);
    EXPECT_EQ(index.changePercent, 0.19);
    EXPECT_EQ(index.high, 6020.0);
    EXPECT_EQ(index.previousClose, 6000.0);
    EXPECT_EQ(index.time, kFridayClose);
    EXPECT_FALSE(index.delayed);
    const Quote& yield = answer.quotes[1];
    EXPECT_EQ(yield.symbol, "^TYX");
    EXPECT_EQ(yield.last, 4.512);
    EXPECT_EQ(yield.change, -0.021);
    const Quote& share = answer.quotes[2];
    EXPECT_EQ(share.symbol, "BRK.B");
    EXPECT_EQ(share.change, 0.0);
    EXPECT_EQ(share.open, std::nullopt);
    EXPECT_EQ(share.high, std::nullopt);
    EXPECT_EQ(share.low, std::nullopt);
    EXPECT_EQ(share.volume, 3412876.0);
    EXPECT_EQ(share.yearHigh, 542.07);
    EXPECT_EQ(share.yearLow, 440.1);
    EXPECT_EQ(index.yearHigh, std::nullopt);
    EXPECT_EQ(share.time, kFridayClose) << "a bare date is that day's close";
    EXPECT_TRUE(share.delayed);
}

TEST(CnbcQuotes, ReadsASingleRowThatStandsWithoutAList) {
    const auto answer = ParseCnbcQuotes(ResponseFile("cnbc/single.json"));
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "AAPL");
    EXPECT_EQ(answer.quotes[0].last, 231.5) << "not the price after hours";
    EXPECT_EQ(answer.quotes[0].volume, 41234567.0);
}

TEST(CnbcQuotes, TellsEmptyFromGarbage) {
    EXPECT_EQ(ParseCnbcQuotes(ResponseFile("cnbc/empty.json")).failure, SourceFailure::Empty);
    EXPECT_EQ(ParseCnbcQuotes(R"({"FormattedQuoteResult":{}})").failure, SourceFailure::Empty);
    EXPECT_EQ(ParseCnbcQuotes(R"({"FormattedQuoteResult":{"FormattedQuote":null}})").failure,
              SourceFailure::Empty);
    EXPECT_EQ(ParseCnbcQuotes(ResponseFile("cnbc/truncated.json")).failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseCnbcQuotes("{}").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseCnbcQuotes("").failure, SourceFailure::Garbage);
}

} // namespace
} // namespace tallowmere
