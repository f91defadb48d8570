#pragma once

#include "core/pages/page_scheme.h"
#include "core/tools/color_config.h"

#include <span>

/// Colours for all areas at once.
namespace tallowmere {

struct ColorScheme {
    std::string_view name;
    std::array<ColorPair, kColorAreas.size()> colors; ///< in the order of kColorAreas
};

/// The schemes that the user may choose from beside the colours that the areas are given.
std::span<const ColorScheme> ColorSchemes();

/// What is saved for a scheme: the keys of all areas and their colours.
std::vector<std::pair<std::string, std::uint32_t>> ColorsToSave(const ColorScheme& scheme);

/// The scheme whose colours all areas have; null when they have others.
const ColorScheme* FindScheme(const AreaColors& colors);

/// How our own pages are shown beside a window of this background, a colour as it is stored: as the
/// desktop is where the window has the desktop's.
PageScheme SchemeBeside(std::uint32_t windowBackground);

} // namespace tallowmere
