#include "core/tools/color_config.h"

#include "core/links/catalogue.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::array<std::string_view, 9> kLinkAreas{"RN",  "WSR", "MB",  "CQ", "NR",
                                                     "TLB", "NT",  "BRK", "RTS"};

ColorPair DesignedColors(const ColorArea& area) {
    return {area.text.value_or(area.hasText ? kDesignedText : kDesignedWindow.text),
            area.background.value_or(kDesignedWindow.background)};
}

} // namespace

AreaColors::AreaColors(const StoredColors& stored) {
    for (const ColorArea& area : kColorAreas) {
        ColorPair colors = DesignedColors(area);
        if (area.hasText)
            colors.text = stored(TextColorKey(area.code)).value_or(colors.text);
        colors.background = stored(BackgroundColorKey(area.code)).value_or(colors.background);
        m_colors.emplace(area.code, colors);
    }
}

ColorPair AreaColors::Of(std::string_view code) const {
    const auto found = m_colors.find(code);
    return found == m_colors.end() ? kDesignedWindow : found->second;
}

std::optional<ColorPair> AreaColors::OfLink(int index, std::string_view tag,
                                            std::string_view caption) const {
    const bool takesColors = IsCustomSlot(index) ? caption == kEmptyCustomCaption
                                                 : std::find(kLinkAreas.begin(), kLinkAreas.end(),
                                                             tag) != kLinkAreas.end();
    if (!takesColors)
        return std::nullopt;
    return Of(IsCustomSlot(index) ? "CUST" : tag);
}

std::vector<std::pair<std::string, std::uint32_t>> ColorsToSave(const ColorArea& area,
                                                                ColorPair colors) {
    std::vector<std::pair<std::string, std::uint32_t>> saved;
    if (area.hasText)
        saved.emplace_back(TextColorKey(area.code), colors.text);
    saved.emplace_back(BackgroundColorKey(area.code), colors.background);
    return saved;
}

} // namespace tallowmere
