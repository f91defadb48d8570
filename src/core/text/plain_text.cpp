#include "core/text/plain_text.h"

#include <cstddef>

namespace tallowmere {

namespace {

struct Range {
    char32_t first, last;
};

// clang-format off
constexpr Range kHidden[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, // controls
    {0x00AD, 0x00AD},                   // soft hyphen
    {0x034F, 0x034F},                   // grapheme joiner
    {0x061C, 0x061C},                   // Arabic letter mark
    {0x115F, 0x1160},                   // Hangul fillers, which look like blanks
    {0x180B, 0x180F},                   // Mongolian selectors and vowel separator
    {0x200B, 0x200F},                   // without a width, marks of direction
    {0x2028, 0x202E},                   // separators, embeddings and overrides of direction
    {0x2060, 0x206F},                   // word joiner, invisible operators, isolates
    {0x3164, 0x3164},                   // Hangul filler
    {0xFEFF, 0xFEFF},                   // byte order mark
    {0xFFA0, 0xFFA0},                   // Hangul filler of half a width
    {0xFFF0, 0xFFFB},                   // annotation marks, and room for more
    {0xE0000, 0xE0FFF},                 // tags, selectors, and room for more
};
// clang-format on

bool IsHidden(char32_t character) {
    for (const Range& range : kHidden)
        if (character >= range.first && character <= range.last)
            return true;
    return false;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// How many bytes the character at the front of the text has, and which it is; 0 bytes when there
// is none that UTF-8 allows.
std::size_t Read(std::string_view text, char32_t& character) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        character = lead;
        return 1;
    }
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || text.size() < length)
        return 0;
    character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(text[i]))
            return 0;
        character = character << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < smallest[length] || isSurrogate || character > 0x10FFFF ? 0 : length;
}

} // namespace

std::string WithoutHiddenCharacters(std::string_view text, char damaged, bool keepsLines) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (keepsLines && (text[0] == '\n' || text[0] == '\r')) {
            result += '\n';
            text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
            continue;
        }
        char32_t character = 0;
        const std::size_t length = Read(text, character);
        if (length == 0)
            result += damaged;
        else if (!IsHidden(character))
            result += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

std::string_view FrontOf(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && IsContinuation(text[bytes]))
        --bytes;
    return text.substr(0, bytes);
}

} // namespace tallowmere
