#include "core/market/watch.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(WatchTarget, IsSplitAtItsFirstBar) {
    const WatchTarget target = SplitWatchTarget("BIG - IBM|http://a.test/?x=1|2");
    EXPECT_EQ(target.caption, "BIG - IBM");
    EXPECT_EQ(target.address, "http://a.test/?x=1|2");
    EXPECT_EQ(WatchCaption(target), "BIG - IBM - Watch Wizard");
}

TEST(WatchTarget, WithoutABarAllOfItIsTheAddress) {
    const WatchTarget target = SplitWatchTarget("http://a.test/");
    EXPECT_EQ(target.address, "http://a.test/");
    EXPECT_EQ(WatchCaption(target), " - Watch Wizard");
    EXPECT_EQ(SplitWatchTarget("").address, "");
}

TEST(WatchTarget, EmptyPartsStayEmpty) {
    EXPECT_EQ(SplitWatchTarget("|http://a.test/").caption, "");
    EXPECT_EQ(SplitWatchTarget("Quote|").address, "");
}

TEST(WatchTarget, ABarInACaptionDoesNotReachTheAddress) {
    const WatchTarget target = SplitWatchTarget(JoinWatchTarget("Mine|all", "http://a.test/|"));
    EXPECT_EQ(target.caption, "Mine all");
    EXPECT_EQ(target.address, "http://a.test/|");
}

TEST(WatchSeconds, TheBoxTakesDigitsBackspaceAndTab) {
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(IsSecondsKey(code), code == 8 || code == 9 || (code >= 48 && code <= 57)) << code;
}

struct SecondsCase {
    std::string_view text;
    std::string_view settled;
    int seconds;
};

class Seconds : public testing::TestWithParam<SecondsCase> {};

TEST_P(Seconds, BelowThirtyBecomeThirty) {
    EXPECT_EQ(SettledSeconds(GetParam().text), GetParam().settled) << GetParam().text;
    EXPECT_EQ(WatchSeconds(GetParam().text), GetParam().seconds) << GetParam().text;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, Seconds, testing::Values(
    SecondsCase{"5",                    "30",                   5},
    SecondsCase{"0",                    "30",                   0},
    SecondsCase{"",                     "30",                   0},
    SecondsCase{"29",                   "30",                   29},
    SecondsCase{"30",                   "30",                   30},
    SecondsCase{"60",                   "60",                   60},
    SecondsCase{"007",                  "30",                   7},
    SecondsCase{"45.9",                 "45.9",                 45},
    SecondsCase{" 90",                  " 90",                  90},
    SecondsCase{"abc",                  "30",                   0},
    SecondsCase{"-90",                  "30",                   0},
    SecondsCase{"99999999999999999999", "99999999999999999999", 43200}));
// clang-format on

TEST(WatchWait, LastsOneSecondMoreThanAsked) {
    EXPECT_EQ(RemainingWait(1000, 30, 1000), 31);
    EXPECT_EQ(RemainingWait(1000, 30, 1030.5), 0.5);
    EXPECT_EQ(RemainingWait(1000, 30, 1031), 0);
    EXPECT_EQ(RemainingWait(1000, 30, 5000), 0);
}

TEST(WatchWait, GoesOnOverMidnight) {
    EXPECT_EQ(RemainingWait(86390, 30, 86399), 22);
    EXPECT_EQ(RemainingWait(86390, 30, 0), 21);
    EXPECT_EQ(RemainingWait(86390, 30, 20), 1);
    EXPECT_EQ(RemainingWait(86390, 30, 21), 0);
}

TEST(WatchWait, EndsAsTheNextDaysWhenTheClockIsBehind) {
    EXPECT_EQ(RemainingWait(50000, 60, 46400), 0);
    EXPECT_EQ(RemainingWait(50000, 60, 49999), 0);
}

TEST(WatchWait, AClockMoreThanAnHourBehindWasSetBack) {
    EXPECT_FALSE(IsSetBack(0));
    EXPECT_FALSE(IsSetBack(90000));
    EXPECT_FALSE(IsSetBack(-1));
    EXPECT_FALSE(IsSetBack(-3600));
    EXPECT_TRUE(IsSetBack(-3601));
    EXPECT_TRUE(IsSetBack(-86400));
}

TEST(Cascade, TakesTheLeastStepThatIsFree) {
    EXPECT_EQ(FreeStep({}), 0);
    EXPECT_EQ(FreeStep({0}), 1);
    EXPECT_EQ(FreeStep({2, 0, 1}), 3);
    EXPECT_EQ(FreeStep({1, 2}), 0);
    EXPECT_EQ(FreeStep({0, 2}), 1);
}

TEST(WatchWait, TheLongestOneEnds) {
    EXPECT_EQ(RemainingWait(80000, WatchSeconds("86400"), 36801), 0);
    EXPECT_EQ(RemainingWait(80000, WatchSeconds("86400"), 36800), 1);
}

} // namespace
} // namespace tallowmere
