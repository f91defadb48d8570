#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace tallowmere {

/// Stops the fuzzer.
inline void Demand(bool holds) {
    if (!holds)
        std::abort();
}

/// Whether a text is UTF-8 as the standard draws its table of well-formed bytes, and holds nothing
/// that is not seen: no control, no mark of direction, nothing without a width. Only a text with
/// `lines` may hold line feeds.
inline bool IsPlain(std::string_view text, bool lines = false) {
    const auto at = [&](std::size_t i) {
        return i < text.size() ? static_cast<std::uint8_t>(text[i]) : std::uint8_t{0};
    };
    const auto isIn = [](std::uint32_t value, std::uint32_t first, std::uint32_t last) {
        return value >= first && value <= last;
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::uint8_t lead = at(i);
        if (lead < 0x80) {
            if ((lead < 0x20 && !(lines && lead == '\n')) || lead == 0x7F)
                return false;
            ++i;
            continue;
        }
        const std::uint8_t second = at(i + 1);
        const std::uint8_t third = at(i + 2);
        const std::uint8_t fourth = at(i + 3);
        std::uint32_t character = 0;
        if (isIn(lead, 0xC2, 0xDF) && isIn(second, 0x80, 0xBF)) {
            character = (lead - 0xC0U) * 64 + second - 0x80U;
            i += 2;
        } else if (isIn(lead, 0xE0, 0xEF) &&
                   isIn(second, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF) &&
                   isIn(third, 0x80, 0xBF)) {
            character = ((lead - 0xE0U) * 64 + second - 0x80U) * 64 + third - 0x80U;
            i += 3;
        } else if (isIn(lead, 0xF0, 0xF4) &&
                   isIn(second, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF) &&
                   isIn(third, 0x80, 0xBF) && isIn(fourth, 0x80, 0xBF)) {
            character =
                (((lead - 0xF0U) * 64 + second - 0x80U) * 64 + third - 0x80U) * 64 + fourth - 0x80U;
            i += 4;
        } else {
            return false;
        }
        if (isIn(character, 0x80, 0x9F) || isIn(character, 0x200B, 0x200F) ||
            isIn(character, 0x2028, 0x202E) || isIn(character, 0x2060, 0x206F) ||
            isIn(character, 0xE0000, 0xE0FFF) || character == 0xAD || character == 0x61C ||
            character == 0xFEFF)
            return false;
    }
    return true;
}

} // namespace tallowmere
