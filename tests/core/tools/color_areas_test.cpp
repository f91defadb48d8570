#include "core/tools/color_areas.h"

#include <gtest/gtest.h>

#include <set>

namespace tallowmere {
namespace {

TEST(ColorAreas, AreFoundByTheirCodes) {
    std::set<std::string_view> codes;
    for (const ColorArea& area : kColorAreas) {
        EXPECT_EQ(FindColorArea(area.code), &area);
        EXPECT_TRUE(codes.insert(area.code).second) << area.code;
    }
    EXPECT_EQ(FindColorArea("te"), nullptr);
    EXPECT_EQ(FindColorArea(""), nullptr);
    EXPECT_EQ(TextColorKey("TE"), "fTE");
    EXPECT_EQ(BackgroundColorKey("Back"), "bBack");
}

TEST(ColorAreas, RightSideTextAndWindowHaveNoDefault) {
    for (const ColorArea& area : kColorAreas) {
        EXPECT_EQ(area.text.has_value(), area.code != "RTS" && area.code != "Back") << area.code;
        EXPECT_EQ(area.background.has_value(), area.code != "Back") << area.code;
        EXPECT_EQ(area.hasText, area.code != "Back") << area.code;
    }
}

TEST(ColorAreas, AnUnusedCustomLinkHasTwoBackgrounds) {
    EXPECT_EQ(FindColorArea("CUST")->background, 0xC0FFFFU);
    EXPECT_EQ(kEditedCustomBackground, 0xC0E0FFU);
}

} // namespace
} // namespace tallowmere
