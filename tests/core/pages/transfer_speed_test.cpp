#include "core/pages/transfer_speed.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(TransferSpeed, NothingIsSaidInTheFirstHalfOfASecond) {
    TransferSpeed speed;
    EXPECT_FALSE(speed.PerSecond(0));
    speed.Note(1000, 0);
    speed.Note(1400, 900);
    EXPECT_FALSE(speed.PerSecond(1499));
    EXPECT_DOUBLE_EQ(speed.PerSecond(1500).value(), 1800);
}

TEST(TransferSpeed, AnEvenFlowHasOneSpeed) {
    TransferSpeed speed;
    for (int second = 0; second <= 60; ++second) {
        speed.Note(1000 * second, 250 * second);
        if (second > 0) {
            EXPECT_DOUBLE_EQ(speed.PerSecond(1000 * second).value(), 250) << second;
        }
    }
}

TEST(TransferSpeed, WhatIsLongAgoDoesNotCount) {
    TransferSpeed speed;
    speed.Note(0, 0);
    speed.Note(1000, 1'000'000);
    for (int second = 2; second <= 20; ++second)
        speed.Note(1000 * second, 1'000'000 + 10 * second);
    EXPECT_DOUBLE_EQ(speed.PerSecond(20'000).value(), 10);
}

TEST(TransferSpeed, AStandstillIsSeenWithoutFurtherSamples) {
    TransferSpeed speed;
    speed.Note(0, 0);
    speed.Note(1000, 1000);
    EXPECT_DOUBLE_EQ(speed.PerSecond(4000).value(), 250);
    EXPECT_DOUBLE_EQ(speed.PerSecond(7000).value(), 0);
}

TEST(TransferSpeed, FewerBytesThanBeforeBeginAnew) {
    TransferSpeed speed;
    speed.Note(0, 5000);
    speed.Note(1000, 0);
    EXPECT_FALSE(speed.PerSecond(1200));
    speed.Note(2000, 700);
    EXPECT_DOUBLE_EQ(speed.PerSecond(2000).value(), 700);
    speed.Forget();
    EXPECT_FALSE(speed.PerSecond(3000));
}

} // namespace
} // namespace tallowmere
