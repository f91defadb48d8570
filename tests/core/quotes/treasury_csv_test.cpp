#include "core/quotes/treasury_csv.h"

#include "core/quotes/source_files.h"

#include <algorithm>

namespace tallowmere {
namespace {

TEST(TreasuryCsv, ReadsTheColumnsByTheirNames) {
    const auto answer = ParseTreasuryCsv(ResponseFile("treasury/2026.csv"));
    ASSERT_EQ(answer.quotes.size(), 3u) << "5, 10 and 30 years";
    const auto find = [&](std::string_view symbol) {
        return *std::find_if(answer.quotes.begin(), answer.quotes.end(),
                             [&](const Quote& q) { return q.symbol == symbol; });
    };
    EXPECT_EQ(find("^FVX").last, 3.88);
    EXPECT_EQ(find("^TNX").last, 4.12);
    EXPECT_EQ(find("^TYX").last, 4.51);
    EXPECT_EQ(find("^TYX").previousClose, 4.53);
    EXPECT_NEAR(*find("^TYX").change, -0.02, 1e-9);
    EXPECT_EQ(find("^TYX").time, kFridayClose - 1800);
}

TEST(TreasuryCsv, GivesTheDaysOldestFirst) {
    const auto answer = ParseTreasuryCsv(ResponseFile("treasury/2026.csv"));
    ASSERT_EQ(answer.series.size(), 3u);
    EXPECT_EQ(answer.series.back().symbol, "^TYX");
    EXPECT_EQ(answer.series.back().closes, (std::vector<double>{4.53, 4.51}));
}

TEST(TreasuryCsv, IsEmptyInTheFirstDaysOfAYear) {
    EXPECT_EQ(ParseTreasuryCsv(ResponseFile("treasury/january.csv")).failure, SourceFailure::Empty);
}

TEST(TreasuryCsv, LivesWithShortLinesAndMissingValues) {
    const auto answer =
        ParseTreasuryCsv("Date,\"10 Yr\",\"30 Yr\"\n11/20/2026,4.12\n11/19/2026,N/A,4.53\nx\n\n");
    ASSERT_EQ(answer.quotes.size(), 2u);
    EXPECT_EQ(answer.quotes[0].last, 4.12);
    EXPECT_EQ(answer.quotes[1].last, 4.53);
    EXPECT_EQ(answer.quotes[1].change, std::nullopt);
}

TEST(TreasuryCsv, CallsAnotherShapeGarbage) {
    EXPECT_EQ(ParseTreasuryCsv("").failure, SourceFailure::Garbage);
    EXPECT_EQ(ParseTreasuryCsv("observation_date,DGS30\n").failure, SourceFailure::Garbage);
}

} // namespace
} // namespace tallowmere
