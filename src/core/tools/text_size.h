#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// How big captions, headings and rows are.
namespace tallowmere {

struct TextSize {
    std::string_view name; ///< as stored and shown
    double scale;          ///< of the system's own size
};

inline constexpr std::array<TextSize, 3> kTextSizes{{
    {"Small", 0.9},
    {"Normal", 1.0},
    {"Large", 1.25},
}};

/// The position in kTextSizes of a stored name; that of the normal size for any other text.
std::size_t TextSizeIndex(std::string_view stored);

} // namespace tallowmere
