#include "core/quotes/nasdaq_quotes.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(NasdaqQuotes, ReadsOneSymbol) {
    const auto answer = ParseNasdaqQuotes(ResponseFile("nasdaq/info.json"));
    ASSERT_EQ(answer.quotes.size(), 1u);
    const Quote& quote = answer.quotes[0];
    EXPECT_EQ(quote.symbol, "AAPL");
    EXPECT_EQ(quote.name, "Apple Inc. Common Stock");
    EXPECT_EQ(quote.last, 231.5);
    EXPECT_EQ(quote.change, 1.5);
    EXPECT_EQ(quote.changePercent, 0.65);
    EXPECT_EQ(quote.previousClose, 230.0) << "worked out from the change";
    EXPECT_EQ(quote.volume, 41234567.0);
    EXPECT_EQ(quote.yearLow, 164.08);
    EXPECT_EQ(quote.yearHigh, 240.1);
    EXPECT_EQ(quote.time, kFridayClose + 8 * 60);
    EXPECT_FALSE(quote.delayed);
}

TEST(NasdaqQuotes, ReadsAWatchlist) {
    const auto answer = ParseNasdaqQuotes(ResponseFile("nasdaq/watchlist.json"));
    ASSERT_EQ(answer.quotes.size(), 2u) << "the row without a price is left out";
    EXPECT_EQ(answer.quotes[0].symbol, "^IXIC");
    EXPECT_EQ(answer.quotes[0].last, 19801.44);
    EXPECT_EQ(answer.quotes[0].change, -20.06);
    EXPECT_EQ(answer.quotes[1].symbol, "BRK.B");
    EXPECT_EQ(answer.quotes[1].change, 0.0);
    EXPECT_EQ(answer.quotes[1].yearLow, std::nullopt);
    EXPECT_EQ(answer.quotes[1].changePercent, 0.0);
    EXPECT_EQ(answer.quotes[1].time, kFridayClose);
    EXPECT_TRUE(answer.quotes[1].delayed);
}

TEST(NasdaqQuotes, TellsEmptyFromGarbage) {
    EXPECT_EQ(ParseNasdaqQuotes(ResponseFile("nasdaq/unknown.json")).failure, SourceFailure::Empty);
    EXPECT_EQ(ParseNasdaqQuotes(R"({"data":[]})").failure, SourceFailure::Empty);
    EXPECT_EQ(ParseNasdaqQuotes(R"({"data":{"symbol":"A","primaryData":null}})").failure,
              SourceFailure::Empty);
    EXPECT_EQ(ParseNasdaqQuotes("{}").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseNasdaqQuotes("[1,2").failure, SourceFailure::Garbage);
}

} // namespace
} // namespace tallowmere
