#include "core/tools/engine_age.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(EngineAge, AnEngineIsOldHalfAYearAfterItsRelease) {
    EXPECT_FALSE(IsOldEngine("108.0.5359.124", {2022, 12, 1}));
    EXPECT_FALSE(IsOldEngine("108.0.5359.124", {2023, 5, 29})); // 181 days
    EXPECT_TRUE(IsOldEngine("108.0.5359.124", {2023, 5, 30}));
    EXPECT_TRUE(IsOldEngine("108", {2026, 11, 21}));
}

TEST(EngineAge, AVersionAppearsEveryFourWeeks) {
    // 51 versions after 108 are 1428 days after 29 November 2022: 27 October 2026.
    EXPECT_FALSE(IsOldEngine("159.0.1.2", {2026, 11, 21}));
    EXPECT_FALSE(IsOldEngine("159.0.1.2", {2027, 4, 26}));
    EXPECT_TRUE(IsOldEngine("159.0.1.2", {2027, 4, 27}));
    EXPECT_TRUE(IsOldEngine("102.0.5005.177", {2023, 1, 1}));
}

TEST(EngineAge, WhatIsNoVersionIsOld) {
    EXPECT_TRUE(IsOldEngine("", {2026, 1, 1}));
    EXPECT_TRUE(IsOldEngine("none", {2026, 1, 1}));
    EXPECT_TRUE(IsOldEngine("-5", {2026, 1, 1}));
}

TEST(EngineAge, AnOldEngineIsWorthALineUntilItsVersionIsWavedAway) {
    const Date today{2026, 11, 21};
    const std::string line = "The web engine is old: patched up to 108.0.5359.94.";
    EXPECT_EQ(OldEngineLine("108.0.5359.94", "", today), line);
    EXPECT_EQ(OldEngineLine("108.0.5359.94", "108.0.5359.94", today), "");
    EXPECT_EQ(OldEngineLine("108.0.5359.94", "102.0.5005.177", today), line); // another one
    EXPECT_EQ(OldEngineLine("159.0.1.2", "", today), "");
}

} // namespace
} // namespace tallowmere
