#include "core/tools/color_schemes.h"

#include "core/tools/color_values.h"

#include <gtest/gtest.h>

#include <map>

namespace tallowmere {
namespace {

AreaColors Colors(const std::map<std::string, std::uint32_t, std::less<>>& stored) {
    return AreaColors([&](std::string_view key) {
        const auto found = stored.find(key);
        return found == stored.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(ColorSchemes, ThreeStandBesideTheDesign) {
    std::vector<std::string_view> names;
    for (const ColorScheme& scheme : ColorSchemes())
        names.push_back(scheme.name);
    EXPECT_EQ(names, (std::vector<std::string_view>{"Light", "Dark", "High contrast"}));
}

TEST(ColorSchemes, EveryTextIsLegibleAndMoreThanThatWithHighContrast) {
    for (const ColorScheme& scheme : ColorSchemes()) {
        const double least = scheme.name == "High contrast" ? 7 : kLegibleContrast;
        for (std::size_t at = 0; at < kColorAreas.size(); ++at) {
            const ColorPair& pair = scheme.colors[at];
            EXPECT_FALSE(IsSystemColor(pair.text) || IsSystemColor(pair.background));
            EXPECT_GE(Contrast(pair.text, pair.background), least)
                << scheme.name << ", " << kColorAreas[at].entry;
        }
    }
}

TEST(ColorSchemes, LightOnesHaveLightWindowsAndDarkOnesDark) {
    const auto window = [](std::size_t at) { return ColorSchemes()[at].colors.back().background; };
    EXPECT_EQ(SchemeBeside(window(0)), PageScheme::Light);
    EXPECT_EQ(SchemeBeside(window(1)), PageScheme::Dark);
    EXPECT_EQ(SchemeBeside(window(2)), PageScheme::Dark);
}

TEST(ColorSchemes, AreSavedAsAPairForEachAreaAndFoundAgainByTheirColours) {
    for (const ColorScheme& scheme : ColorSchemes()) {
        std::map<std::string, std::uint32_t, std::less<>> stored;
        for (const auto& [key, color] : ColorsToSave(scheme))
            EXPECT_TRUE(stored.emplace(key, color).second) << key;
        EXPECT_EQ(stored.size(), 29U); // fifteen backgrounds, and no text of the window's own
        EXPECT_EQ(stored.count("fBack"), 0U);
        EXPECT_EQ(FindScheme(Colors(stored)), &scheme);
        stored["bTL"] ^= 1;
        EXPECT_EQ(FindScheme(Colors(stored)), nullptr);
    }
    EXPECT_EQ(FindScheme(Colors({})), nullptr);
}

TEST(ColorSchemes, PagesFollowTheWindowUnlessItIsAsTheDesktop) {
    struct Case {
        std::uint32_t background;
        PageScheme scheme;
    };
    for (const Case& each : {Case{0x000000, PageScheme::Dark}, Case{0xFFFFFF, PageScheme::Light},
                             Case{0x404040, PageScheme::Dark}, Case{0xC0C0C0, PageScheme::Light},
                             Case{0xFF0000, PageScheme::Dark}, Case{0x00FFFF, PageScheme::Light},
                             Case{0x8000000F, PageScheme::Desktop}})
        EXPECT_EQ(SchemeBeside(each.background), each.scheme) << std::hex << each.background;
}

} // namespace
} // namespace tallowmere
