#include "core/quotes/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallowmere {
namespace {

TEST(NumberText, SetsThousandsApart) {
    EXPECT_EQ(PriceText(0), "0.00");
    EXPECT_EQ(PriceText(999.994), "999.99");
    EXPECT_EQ(PriceText(1000), "1,000.00");
    EXPECT_EQ(PriceText(-43900.125), "-43,900.12"); // halves go to the even digit
    EXPECT_EQ(PriceText(1234567.5), "1,234,567.50");
    EXPECT_EQ(PriceText(-123.4), "-123.40");
}

TEST(NumberText, GivesAChangeItsSign) {
    EXPECT_EQ(ChangeText(1.25), "+1.25");
    EXPECT_EQ(ChangeText(-1234), "-1,234.00");
    EXPECT_EQ(ChangeText(0.004), "0.00");
    EXPECT_EQ(ChangeText(-0.004), "0.00");
    EXPECT_EQ(PercentText(2), "+2.00%");
}

TEST(NumberText, ShortensLargeNumbers) {
    EXPECT_EQ(ShortText(9500), "9,500");
    EXPECT_EQ(ShortText(845e6), "845.0M");
    EXPECT_EQ(ShortText(3.124e9), "3.12B");
    EXPECT_EQ(ShortText(3.4e12), "3.40T");
}

TEST(NumberText, WritesTheLargestNumberOut) {
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 2).size(), 312U); // 309 digits, ".00"
}

} // namespace
} // namespace tallowmere
