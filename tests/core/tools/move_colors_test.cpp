#include "core/tools/move_colors.h"

#include "core/tools/color_values.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

int RedOf(std::uint32_t color) {
    return static_cast<int>(color & 0xFFU);
}
int GreenOf(std::uint32_t color) {
    return static_cast<int>(color >> 8 & 0xFFU);
}

TEST(MoveColors, AreLegibleWhereTheTextIsAndToldApart) {
    constexpr std::uint32_t kWhite = 0xFFFFFF;
    constexpr std::uint32_t kBlack = 0;
    struct Case {
        std::uint32_t text, background;
    };
    for (const Case& c : {Case{kWhite, 0x800000}, // the list as designed
                          {kBlack, kWhite},
                          {kWhite, kBlack},
                          {0x27201B, 0xF5F0E8},
                          {kWhite, 0x27201B},
                          {kWhite, 0xC68C30},
                          {kBlack, 0x00FFFF}}) {
        const auto rise = RiseColor(c.text, c.background);
        const auto fall = FallColor(c.text, c.background);
        for (const auto color : {rise, fall})
            EXPECT_TRUE(Contrast(color, c.background) >= kLegibleContrast || color == c.text)
                << std::hex << c.background;
        const auto dimmed = DimmedColor(c.text, c.background);
        EXPECT_TRUE(Contrast(dimmed, c.background) >= kLegibleContrast || dimmed == c.text)
            << std::hex << c.background;
        EXPECT_LE(Contrast(dimmed, c.background), Contrast(c.text, c.background));
    }
    for (const std::uint32_t background : {0x800000U, 0xFFFFFFU, 0U}) {
        EXPECT_GT(GreenOf(RiseColor(kBlack, background)), RedOf(RiseColor(kBlack, background)));
        EXPECT_GT(RedOf(FallColor(kBlack, background)), GreenOf(FallColor(kBlack, background)));
        EXPECT_NE(DimmedColor(LegibleText(kBlack, background), background),
                  LegibleText(kBlack, background));
    }
}

TEST(MoveColors, AreThatOfTheTextWhereNoneIsLegible) {
    constexpr std::uint32_t kMiddleGrey = 0x777777;
    EXPECT_EQ(RiseColor(0, kMiddleGrey), 0u);
    EXPECT_EQ(FallColor(0, kMiddleGrey), 0u);
}

} // namespace
} // namespace tallowmere
