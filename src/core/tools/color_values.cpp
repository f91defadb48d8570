#include "core/tools/color_values.h"

#include <algorithm>
#include <cmath>

namespace tallowmere {

namespace {

/// One channel of a colour as an amount of light.
double Light(std::uint32_t color, unsigned shift) {
    const double value = static_cast<double>((color >> shift) & 0xFFU) / 255;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(std::uint32_t color) {
    return 0.2126 * Light(color, 0) + 0.7152 * Light(color, 8) + 0.0722 * Light(color, 16);
}

} // namespace

std::optional<SystemColor> ToSystemColor(std::uint32_t color) {
    if (!IsSystemColor(color))
        return std::nullopt;
    const std::uint32_t number = color & 0x7FFFFFFFU;
    return number <= static_cast<std::uint32_t>(SystemColor::InfoBackground)
               ? static_cast<SystemColor>(number)
               : SystemColor::WindowText;
}

double Contrast(std::uint32_t one, std::uint32_t other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

std::uint32_t LegibleText(std::uint32_t text, std::uint32_t background) {
    if (Contrast(text, background) >= kLegibleContrast)
        return text;
    constexpr std::uint32_t kBlack = 0x000000;
    constexpr std::uint32_t kWhite = 0xFFFFFF;
    return Contrast(kBlack, background) >= Contrast(kWhite, background) ? kBlack : kWhite;
}

} // namespace tallowmere
