#pragma once

#include <string_view>

namespace tallowmere {

/// The text up to so many characters of UTF-8.
constexpr std::string_view CutCharacters(std::string_view text, std::size_t most) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(text[i]) >> 6) == 2;
        if (!continues && ++characters > most)
            return text.substr(0, i);
    }
    return text;
}

} // namespace tallowmere
