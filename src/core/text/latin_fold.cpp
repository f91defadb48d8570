#include "core/text/latin_fold.h"

namespace tallowmere {

namespace {

/// The lower-case letter of a character that UTF-8 writes in two bytes.
char32_t Lower(char32_t letter) {
    constexpr char32_t times = 0xD7;
    constexpr char32_t dottedI = 0x130; // its small letter has one byte
    constexpr char32_t wideY = 0x178;
    constexpr char32_t smallWideY = 0xFF;
    const auto isIn = [letter](char32_t first, char32_t last) {
        return letter >= first && letter <= last;
    };
    if (isIn(0xC0, 0xDE) && letter != times)
        return letter + 0x20;
    if (letter == wideY)
        return smallWideY;
    // Capital and small letters take turns, in two of the ranges with the capital on odd places.
    if ((isIn(0x100, 0x137) && letter != dottedI) || isIn(0x14A, 0x177))
        return letter | 1;
    if (isIn(0x139, 0x148) || isIn(0x179, 0x17E))
        return letter + letter % 2;
    return letter;
}

} // namespace

std::string FoldLatin(std::string_view text) {
    std::string folded(text);
    for (std::size_t at = 0; at < folded.size(); ++at) {
        const auto byte = static_cast<unsigned char>(folded[at]);
        if (byte >= 'A' && byte <= 'Z') {
            folded[at] = static_cast<char>(byte + ('a' - 'A'));
        } else if (byte >= 0xC3 && byte <= 0xC5 && at + 1 < folded.size()) {
            const auto next = static_cast<unsigned char>(folded[at + 1]);
            if ((next & 0xC0) != 0x80)
                continue;
            const char32_t letter = Lower((byte & 0x1FU) << 6U | (next & 0x3FU));
            folded[at] = static_cast<char>(0xC0 | letter >> 6U);
            folded[at + 1] = static_cast<char>(0x80 | (letter & 0x3FU));
            ++at;
        }
    }
    return folded;
}

} // namespace tallowmere
