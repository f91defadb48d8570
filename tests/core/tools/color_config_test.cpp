#include "core/tools/color_config.h"

#include "core/links/catalogue.h"
#include "core/tools/color_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::optional<std::uint32_t> NothingStored(std::string_view) {
    return std::nullopt;
}

StoredColors Stored(std::map<std::string, std::uint32_t> colors) {
    return [colors = std::move(colors)](std::string_view key) -> std::optional<std::uint32_t> {
        const auto found = colors.find(std::string(key));
        return found == colors.end() ? std::nullopt : std::optional(found->second);
    };
}

/// A system colour as a light desktop shows it.
std::uint32_t OnLightDesktop(std::uint32_t color) {
    if (!IsSystemColor(color))
        return color;
    return ToSystemColor(color) == SystemColor::ButtonFace ? 0xF0F0F0 : 0x000000;
}

TEST(AreaColors, WithNothingStoredEveryAreaHasItsDefaults) {
    const AreaColors colors(NothingStored);
    EXPECT_EQ(colors.Of("TE"), (ColorPair{0x80000008, 0x80FF80}));
    EXPECT_EQ(colors.Of("TL"), (ColorPair{0xFFFFFF, 0x800000}));
    EXPECT_EQ(colors.Of("PN"), (ColorPair{0xFFFFFF, 0x000080}));
    EXPECT_EQ(colors.Of("RN"), (ColorPair{0xC0FFFF, 0xA00000}));
    EXPECT_EQ(colors.Of("WSR"), (ColorPair{0x80000008, 0x80FF80}));
    EXPECT_EQ(colors.Of("MB"), (ColorPair{0x80000008, 0xFFFF80}));
    EXPECT_EQ(colors.Of("CQ"), (ColorPair{0xFFFFFF, 0x808000}));
    EXPECT_EQ(colors.Of("NR"), (ColorPair{0xFFFFFF, 0x000080}));
    EXPECT_EQ(colors.Of("TLB"), (ColorPair{0x800000, 0xC0FFFF}));
    EXPECT_EQ(colors.Of("NT"), (ColorPair{0x80000008, 0x80FF80}));
    EXPECT_EQ(colors.Of("BRK"), (ColorPair{0x80000008, 0x80FF80}));
    EXPECT_EQ(colors.Of("RTS").background, 0xFFFF00U);
    EXPECT_EQ(colors.Of("CUST"), (ColorPair{0x80000008, 0xC0FFFF}));
    EXPECT_EQ(colors.Of("WS"), (ColorPair{0xFFFFFF, 0xC00000}));
}

TEST(AreaColors, WhatHasNoDefaultKeepsItsDesignedColour) {
    const AreaColors colors(NothingStored);
    EXPECT_EQ(colors.Of("RTS").text, 0x000000U);
    EXPECT_EQ(colors.Of("Back"), kDesignedWindow);
    EXPECT_EQ(colors.Of("no area"), kDesignedWindow);
}

TEST(AreaColors, AreTheStoredOnes) {
    const AreaColors colors(Stored({{"fRTS", 0x010203}, {"bTE", 0}, {"bBack", 0x8000000D}}));
    EXPECT_EQ(colors.Of("RTS"), (ColorPair{0x010203, 0xFFFF00}));
    EXPECT_EQ(colors.Of("TE"), (ColorPair{0x80000008, 0}));
    EXPECT_EQ(colors.Of("Back").background, 0x8000000DU);
}

TEST(AreaColors, TheWindowHasNoTextColour) {
    EXPECT_EQ(AreaColors(Stored({{"fBack", 0x0000FF}})).Of("Back"), kDesignedWindow);
}

TEST(LinkColors, AreThoseOfTheTag) {
    const AreaColors colors(NothingStored);
    for (const std::string_view tag : {"RN", "WSR", "MB", "CQ", "NR", "TLB", "NT", "BRK", "RTS"}) {
        EXPECT_EQ(colors.OfLink(0, tag, "Y!"), colors.Of(tag)) << tag;
        EXPECT_EQ(colors.OfLink(217, tag, "< Custom >"), colors.Of(tag)) << tag;
    }
}

TEST(LinkColors, ALinkWithAnyOtherTagIsLeftAlone) {
    const AreaColors colors(NothingStored);
    for (const std::string_view tag : {"", "TE", "TL", "PN", "CUST", "WS", "Back", "rn"})
        EXPECT_EQ(colors.OfLink(45, tag, "Reminders"), std::nullopt) << tag;
}

TEST(LinkColors, AnEmptyCustomSlotTakesTheColoursOfUnusedOnes) {
    const AreaColors colors(NothingStored);
    EXPECT_EQ(colors.OfLink(101, "", "< Custom >"), (ColorPair{0x80000008, 0xC0FFFF}));
    EXPECT_EQ(colors.OfLink(170, "RN", "< Custom >"), (ColorPair{0x80000008, 0xC0FFFF}));
    EXPECT_EQ(AreaColors(Stored({{"fCUST", 1}, {"bCUST", 2}})).OfLink(130, "", "< Custom >"),
              (ColorPair{1, 2}));
}

TEST(LinkColors, ACustomSlotWithATitleKeepsItsOwn) {
    const AreaColors colors(NothingStored);
    EXPECT_EQ(colors.OfLink(101, "", "My page"), std::nullopt);
    EXPECT_EQ(colors.OfLink(170, "RN", ""), std::nullopt);
    EXPECT_EQ(colors.OfLink(101, "", "<Custom>"), std::nullopt);
}

TEST(LinkColors, EveryLinkOfTheCatalogueHasColoursOrIsATool) {
    const AreaColors colors(NothingStored);
    for (const LinkRow& row : Catalogue()) {
        const bool hasColors =
            colors.OfLink(row.index, AreaCode(row.area), row.caption).has_value();
        EXPECT_EQ(hasColors, row.area != Area::None || IsCustomSlot(row.index)) << row.index;
    }
}

TEST(DefaultColors, AreLegible) {
    const AreaColors colors(NothingStored);
    for (const ColorArea& area : kColorAreas) {
        const ColorPair pair = colors.Of(area.code);
        EXPECT_GE(Contrast(OnLightDesktop(pair.text), OnLightDesktop(pair.background)), 4.5)
            << area.entry;
    }
    EXPECT_GE(Contrast(kDesignedTool.text, kDesignedTool.background), 4.5);
}

TEST(ColorsToSave, AreBothColoursOfAnArea) {
    EXPECT_THAT(ColorsToSave(*FindColorArea("MB"), {1, 2}),
                ElementsAre(Pair("fMB", 1U), Pair("bMB", 2U)));
    EXPECT_THAT(ColorsToSave(*FindColorArea("RTS"), {3, 4}),
                ElementsAre(Pair("fRTS", 3U), Pair("bRTS", 4U)));
}

TEST(ColorsToSave, OfTheWindowIsOnlyTheBackground) {
    EXPECT_THAT(ColorsToSave(*FindColorArea("Back"), {1, 2}), ElementsAre(Pair("bBack", 2U)));
}

TEST(Blinking, TwoSwapsRestoreTheStartingColours) {
    const ColorPair colors{0xC0FFFF, 0xA00000};
    EXPECT_EQ(Swapped(colors), (ColorPair{0xA00000, 0xC0FFFF}));
    EXPECT_EQ(Swapped(Swapped(colors)), colors);
}

} // namespace
} // namespace tallowmere
