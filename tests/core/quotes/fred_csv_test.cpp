#include "core/quotes/fred_csv.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(FredCsv, TakesTheLastDayThatHasAValue) {
    const auto answer = ParseFredCsv(ResponseFile("fred/dgs30.csv"));
    ASSERT_EQ(answer.quotes.size(), 1u);
    const Quote& quote = answer.quotes[0];
    EXPECT_EQ(quote.symbol, "^TYX");
    EXPECT_EQ(quote.last, 4.53);
    EXPECT_EQ(quote.previousClose, 4.50);
    EXPECT_NEAR(*quote.change, 0.03, 1e-9);
    EXPECT_EQ(quote.time, kFridayClose - 2 * 86400);
    EXPECT_TRUE(quote.delayed);
}

TEST(FredCsv, GivesTheLastYearAsASeries) {
    const auto answer = ParseFredCsv(ResponseFile("fred/dgs30.csv"));
    ASSERT_EQ(answer.series.size(), 1u);
    EXPECT_EQ(answer.series[0].closes, (std::vector<double>{4.50, 4.53}))
        << "the value of more than a year ago is left out";
}

TEST(FredCsv, ReadsTheHeadOfOlderFilesAndTheirLineEnds) {
    const auto answer = ParseFredCsv(ResponseFile("fred/old_head.csv"));
    ASSERT_EQ(answer.quotes.size(), 1u);
    EXPECT_EQ(answer.quotes[0].symbol, "^SPC");
    EXPECT_EQ(answer.quotes[0].last, 6011.25);
    EXPECT_EQ(answer.quotes[0].change, 11.25);
}

TEST(FredCsv, TellsEmptyFromGarbage) {
    EXPECT_EQ(ParseFredCsv(ResponseFile("fred/empty.csv")).failure, SourceFailure::Empty);
    EXPECT_EQ(ParseFredCsv("observation_date,SP500\n2026-11-20,-1\n").failure,
              SourceFailure::Empty);
    EXPECT_EQ(ParseFredCsv("").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseFredCsv("Date,Open,High\n").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseFredCsv(ResponseFile("blocked/consent.html")).failure, SourceFailure::Garbage);
}

} // namespace
} // namespace tallowmere
