#include "core/tools/color_schemes.h"

#include "core/tools/color_values.h"

#include <algorithm>

namespace tallowmere {

namespace {

// clang-format off
constexpr ColorScheme kSchemes[] = {
    {"Light", {{
        {0x28231F, 0xFFFFFF}, // TE
        {0x28231F, 0xFFFFFF}, // TL
        {0xFFFFFF, 0x8A5F3B}, // PN
        {0x4F3216, 0xF3E7DB}, // RN
        {0x26401D, 0xE0F0DF}, // WSR
        {0x47410E, 0xF1F0D9}, // MB
        {0x3C3F12, 0xE8EBD5}, // CQ
        {0x1F1F5A, 0xDEDEF6}, // NR
        {0x053A4A, 0xCFF1FB}, // TLB
        {0x13442F, 0xD8F2E8}, // NT
        {0x26401D, 0xE0F0DF}, // BRK
        {0x553B10, 0xF8ECD6}, // RTS
        {0x4D4D4D, 0xE6F0F2}, // CUST
        {0xFFFFFF, 0x754A2C}, // WS
        {0x28231F, 0xF8F6F4}, // Back
    }}},
    {"Dark", {{
        {0xF8F5F2, 0x3B322B}, // TE
        {0xF3EDE6, 0x27201B}, // TL
        {0xFFFFFF, 0x8A5F3B}, // PN
        {0xF7E3CF, 0x4A3623}, // RN
        {0xD4EECD, 0x283A21}, // WSR
        {0xEFECC4, 0x3D3A1D}, // MB
        {0xE6EBC2, 0x383B1C}, // CQ
        {0xD3D3F6, 0x262647}, // NR
        {0xB3E5F5, 0x1A3741}, // TLB
        {0xC0EFDC, 0x1E3D30}, // NT
        {0xD4EECD, 0x283A21}, // BRK
        {0xF9E6C5, 0x47361B}, // RTS
        {0xB8C6C9, 0x282D2E}, // CUST
        {0xFFFFFF, 0x754A2C}, // WS
        {0xF3EDE6, 0x1D1814}, // Back
    }}},
    {"High contrast", {{
        {0xFFFFFF, 0x000000}, // TE
        {0xFFFFFF, 0x000000}, // TL
        {0x000000, 0x00FFFF}, // PN
        {0xFFFFFF, 0x6B0000}, // RN
        {0xFFFFFF, 0x003B00}, // WSR
        {0xFFFF00, 0x000000}, // MB
        {0xFFFFFF, 0x404000}, // CQ
        {0xFFFFFF, 0x00005A}, // NR
        {0x00FFFF, 0x000000}, // TLB
        {0xFFFFFF, 0x003B00}, // NT
        {0x00FF00, 0x000000}, // BRK
        {0xFFFF00, 0x000000}, // RTS
        {0xFFFFFF, 0x202020}, // CUST
        {0x000000, 0x00FFFF}, // WS
        {0xFFFFFF, 0x000000}, // Back
    }}},
};
// clang-format on

} // namespace

std::span<const ColorScheme> ColorSchemes() {
    return kSchemes;
}

std::vector<std::pair<std::string, std::uint32_t>> ColorsToSave(const ColorScheme& scheme) {
    std::vector<std::pair<std::string, std::uint32_t>> saved;
    for (std::size_t at = 0; at < kColorAreas.size(); ++at)
        for (auto& color : ColorsToSave(kColorAreas[at], scheme.colors[at]))
            saved.push_back(std::move(color));
    return saved;
}

const ColorScheme* FindScheme(const AreaColors& colors) {
    const auto* found = std::ranges::find_if(kSchemes, [&](const ColorScheme& scheme) {
        for (std::size_t at = 0; at < kColorAreas.size(); ++at) {
            const ColorArea& area = kColorAreas[at];
            const ColorPair shown = colors.Of(area.code);
            if (shown.background != scheme.colors[at].background ||
                (area.hasText && shown.text != scheme.colors[at].text))
                return false;
        }
        return true;
    });
    return found == std::end(kSchemes) ? nullptr : found;
}

PageScheme SchemeBeside(std::uint32_t windowBackground) {
    if (IsSystemColor(windowBackground))
        return PageScheme::Desktop;
    constexpr std::uint32_t kBlack = 0x000000;
    constexpr std::uint32_t kWhite = 0xFFFFFF;
    return Contrast(kBlack, windowBackground) >= Contrast(kWhite, windowBackground)
               ? PageScheme::Light
               : PageScheme::Dark;
}

} // namespace tallowmere
