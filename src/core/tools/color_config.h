#pragma once

#include "core/tools/color_areas.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Which colours each control of the main window takes.
namespace tallowmere {

/// A text colour and the background under it, 0x00BBGGRR or a system colour with the top bit set.
struct ColorPair {
    std::uint32_t text = 0;
    std::uint32_t background = 0;
    friend bool operator==(const ColorPair&, const ColorPair&) = default;
};

/// The same colours with their places exchanged, as a blinking or a pressed label shows them.
constexpr ColorPair Swapped(ColorPair colors) {
    return {colors.background, colors.text};
}

/// Text on the links whose area has no text colour of its own: black.
inline constexpr std::uint32_t kDesignedText = 0x000000;
/// The window and the frames of links: what the system gives to the face of a window.
inline constexpr ColorPair kDesignedWindow{0x80000012, 0x8000000F};
/// Links that belong to no area: the program's own tools.
inline constexpr ColorPair kDesignedTool{0xFFFFFF, 0x5A4A3A};

/// The stored colour of a key ("fTE", "bTE", ...); none when it was never saved.
using StoredColors = std::function<std::optional<std::uint32_t>(std::string_view key)>;

/// The colours of all areas, read once.
class AreaColors {
public:
    explicit AreaColors(const StoredColors& stored);

    /// The colours of an area by its code; of the window for a code that is none.
    ColorPair Of(std::string_view code) const;

    /// The colours that a link takes; none when it is left alone: a custom link with a title, which
    /// has its own, and a link whose tag is no area of links.
    std::optional<ColorPair> OfLink(int index, std::string_view tag,
                                    std::string_view caption) const;

private:
    std::map<std::string_view, ColorPair> m_colors;
};

/// What is saved when the user has changed the colours of an area: keys and colours.
std::vector<std::pair<std::string, std::uint32_t>> ColorsToSave(const ColorArea& area,
                                                                ColorPair colors);

} // namespace tallowmere
