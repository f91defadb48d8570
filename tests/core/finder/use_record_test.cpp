#include "core/finder/use_record.h"

#include "core/text/date.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

constexpr Date kToday{2026, 11, 21};
constexpr Date kTwoWeeksLater{2026, 12, 5};
constexpr Date kFourWeeksLater{2026, 12, 19};

TEST(UseRecord, AUseCountsForHalfAsMuchEveryTwoWeeks) {
    UseRecord record;
    EXPECT_EQ(record.Of("a", kToday), 0);
    record.Note("a", kToday);
    EXPECT_DOUBLE_EQ(record.Of("a", kToday), 1);
    EXPECT_DOUBLE_EQ(record.Of("a", kTwoWeeksLater), 0.5);
    EXPECT_DOUBLE_EQ(record.Of("a", kFourWeeksLater), 0.25);
    record.Note("a", kTwoWeeksLater);
    EXPECT_DOUBLE_EQ(record.Of("a", kTwoWeeksLater), 1.5);
    EXPECT_DOUBLE_EQ(record.Of("a", kFourWeeksLater), 0.75);
}

TEST(UseRecord, AClockThatWasSetBackGivesNothingMoreWorth) {
    UseRecord record;
    record.Note("a", kTwoWeeksLater);
    EXPECT_DOUBLE_EQ(record.Of("a", kToday), 1);
}

TEST(UseRecord, IsReadAsItWasWritten) {
    UseRecord record;
    record.Note("link 15", kToday);
    record.Note("ticker A%B\n", kToday);
    record.Note("ticker A%B\n", kToday);
    EXPECT_EQ(record.Text(), "20778 1000 link%2015\n20778 2000 ticker%20A%25B%0A\n");
    const UseRecord read(record.Text());
    EXPECT_DOUBLE_EQ(read.Of("link 15", kToday), 1);
    EXPECT_DOUBLE_EQ(read.Of("ticker A%B\n", kToday), 2);
    EXPECT_EQ(read.Text(), record.Text());
}

TEST(UseRecord, LinesThatCannotBeReadAreLeftOut) {
    const UseRecord read("20778 1000 a\n"
                         "20778 -1 b\n"
                         "x 1000 c\n"
                         "20778 1000\n"
                         "20778 1000 d e\n"
                         "20778 99999999999999999999 f\n"
                         "\n"
                         "20778 1000 \n"
                         "20778 1000 " +
                         std::string(201, 'g') +
                         "\n"
                         "20778 1000 h\r\n"
                         "20778 1000 i");
    EXPECT_EQ(read.Text(), "20778 1000 a\n20778 1000 h%0D\n");
}

TEST(UseRecord, KeepsWhatCountsMost) {
    UseRecord record;
    for (std::size_t n = 0; n < UseRecord::kMostThings; ++n) {
        record.Note("thing " + std::to_string(n), kTwoWeeksLater);
        record.Note("thing " + std::to_string(n), kTwoWeeksLater);
    }
    record.Note("thing 7", kToday);
    UseRecord other(record.Text());
    other.Note("new", kTwoWeeksLater);
    EXPECT_DOUBLE_EQ(other.Of("new", kTwoWeeksLater), 1);
    std::size_t kept = 0;
    for (std::size_t n = 0; n < UseRecord::kMostThings; ++n)
        kept += other.Of("thing " + std::to_string(n), kTwoWeeksLater) > 0 ? 1 : 0;
    EXPECT_EQ(kept, UseRecord::kMostThings - 1);
    // What came last and counts least goes first.
    other.Note("newer", kTwoWeeksLater);
    EXPECT_EQ(other.Of("new", kTwoWeeksLater), 0);
}

TEST(UseRecord, TakesNoNameThatIsTooLong) {
    UseRecord record;
    record.Note(std::string(201, 'x'), kToday);
    record.Note("", kToday);
    EXPECT_EQ(record.Text(), "");
}

} // namespace
} // namespace tallowmere
