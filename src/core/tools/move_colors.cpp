#include "core/tools/move_colors.h"

#include "core/tools/color_values.h"

#include <initializer_list>

namespace tallowmere {

namespace {

std::uint32_t FirstLegible(std::initializer_list<std::uint32_t> colors, std::uint32_t text,
                           std::uint32_t background) {
    for (const std::uint32_t color : colors)
        if (Contrast(color, background) >= kLegibleContrast)
            return color;
    return text;
}

/// So many percent of one colour, and the rest of another.
std::uint32_t Mixed(std::uint32_t color, std::uint32_t other, std::uint32_t percent) {
    std::uint32_t mixed = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const std::uint32_t part =
            ((color >> shift & 0xFFU) * percent + (other >> shift & 0xFFU) * (100 - percent)) / 100;
        mixed |= part << shift;
    }
    return mixed;
}

} // namespace

std::uint32_t RiseColor(std::uint32_t text, std::uint32_t background) {
    return FirstLegible({0x2F6914, 0x9FE37B, 0xC8F5B4}, text, background);
}

std::uint32_t FallColor(std::uint32_t text, std::uint32_t background) {
    return FirstLegible({0x1E26B3, 0x9A9FFF, 0xC8CCFF}, text, background);
}

std::uint32_t DimmedColor(std::uint32_t text, std::uint32_t background) {
    for (const std::uint32_t percent : {60U, 70U, 80U, 90U})
        if (const auto dimmed = Mixed(text, background, percent);
            Contrast(dimmed, background) >= kLegibleContrast)
            return dimmed;
    return text;
}

} // namespace tallowmere
