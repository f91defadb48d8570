#include "core/tools/color_values.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(SystemColors, AreNamedByTheirNumber) {
    EXPECT_EQ(ToSystemColor(0x80000008), SystemColor::WindowText);
    EXPECT_EQ(ToSystemColor(0x80000000), SystemColor::ScrollBar);
    EXPECT_EQ(ToSystemColor(0x80000005), SystemColor::Window);
    EXPECT_EQ(ToSystemColor(0x8000000D), SystemColor::Highlight);
    EXPECT_EQ(ToSystemColor(0x8000000F), SystemColor::ButtonFace);
    EXPECT_EQ(ToSystemColor(0x80000012), SystemColor::ButtonText);
    EXPECT_EQ(ToSystemColor(0x80000018), SystemColor::InfoBackground);
}

TEST(SystemColors, AnUnknownNumberIsWindowText) {
    EXPECT_EQ(ToSystemColor(0x80000019), SystemColor::WindowText);
    EXPECT_EQ(ToSystemColor(0xFFFFFFFF), SystemColor::WindowText);
}

TEST(SystemColors, AColourOfRedGreenAndBlueIsNone) {
    EXPECT_EQ(ToSystemColor(0x00000008), std::nullopt);
    EXPECT_EQ(ToSystemColor(0x00FFFFFF), std::nullopt);
    EXPECT_FALSE(IsSystemColor(0x7FFFFFFF));
}

TEST(Contrast, RunsFrom1To21) {
    EXPECT_NEAR(Contrast(0x000000, 0xFFFFFF), 21, 0.001);
    EXPECT_NEAR(Contrast(0xFFFFFF, 0x000000), 21, 0.001);
    EXPECT_NEAR(Contrast(0x808000, 0x808000), 1, 0.001);
}

TEST(Contrast, TakesRedFromTheLowestByte) {
    // Published values: white on pure red 4.00, on pure blue 8.59, on pure green 1.37; the gray
    // 767676 is the lightest with 4.5 on white.
    EXPECT_NEAR(Contrast(0xFFFFFF, 0x0000FF), 4.00, 0.01);
    EXPECT_NEAR(Contrast(0xFFFFFF, 0xFF0000), 8.59, 0.01);
    EXPECT_NEAR(Contrast(0xFFFFFF, 0x00FF00), 1.37, 0.01);
    EXPECT_GE(Contrast(0xFFFFFF, 0x767676), 4.5);
    EXPECT_LT(Contrast(0xFFFFFF, 0x777777), 4.5);
}

TEST(LegibleText, StaysWhenItCanBeRead) {
    EXPECT_EQ(LegibleText(0x000000, 0x80FF80), 0x000000U);
    EXPECT_EQ(LegibleText(0x600000, 0xFFFF00), 0x600000U);
}

TEST(LegibleText, BecomesBlackOrWhiteWhenItCannot) {
    EXPECT_EQ(LegibleText(0xFFFFFF, 0x80FF80), 0x000000U);
    EXPECT_EQ(LegibleText(0x303030, 0x000080), 0xFFFFFFU);
}

} // namespace
} // namespace tallowmere
