#include "core/tools/color_areas.h"

#include <algorithm>

namespace tallowmere {

const ColorArea* FindColorArea(std::string_view code) {
    const auto* area = std::find_if(kColorAreas.begin(), kColorAreas.end(),
                                    [&](const ColorArea& a) { return a.code == code; });
    return area == kColorAreas.end() ? nullptr : area;
}

std::string TextColorKey(std::string_view code) {
    return std::string("f").append(code);
}

std::string BackgroundColorKey(std::string_view code) {
    return std::string("b").append(code);
}

} // namespace tallowmere
