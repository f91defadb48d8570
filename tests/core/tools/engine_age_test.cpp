#include "core/tools/engine_age.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(EngineAge, AnEngineIsOldHalfAYearAfterItsRelease) {
    EXPECT_FALSE(IsOldEngine("140.0.7339.207", {2025, 9, 10}));
    EXPECT_FALSE(IsOldEngine("140.0.7339.207", {2026, 3, 2})); // 181 days
    EXPECT_TRUE(IsOldEngine("140.0.7339.207", {2026, 3, 3}));
    EXPECT_TRUE(IsOldEngine("140", {2026, 11, 21}));
}

TEST(EngineAge, AVersionAppearsAboutEveryMonth) {
    // 11 versions after 140 are 330 days after 2 September 2025: 29 July 2026.
    EXPECT_FALSE(IsOldEngine("151.0.7922.71", {2026, 11, 21}));
    EXPECT_FALSE(IsOldEngine("151.0.7922.71", {2027, 1, 26}));
    EXPECT_TRUE(IsOldEngine("151.0.7922.71", {2027, 1, 27}));
    // Those of Debian 13 and 12.
    EXPECT_TRUE(IsOldEngine("132.0.6834.83", {2026, 11, 21}));
    EXPECT_FALSE(IsOldEngine("132.0.6834.83", {2025, 5, 1}));
    EXPECT_TRUE(IsOldEngine("108.0.5359.124", {2026, 11, 21}));
    EXPECT_TRUE(IsOldEngine("102.0.5005.177", {2023, 3, 1}));
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
