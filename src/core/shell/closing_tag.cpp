#include "core/shell/closing_tag.h"

namespace tallowmere {

namespace {

constexpr std::string_view kTag = "/html>";
constexpr std::string_view kWhiteSpace = " \t\r\n\f\v";

} // namespace

void ClosingTagWatch::Add(std::string_view piece) {
    for (const char byte : piece) {
        const char lower =
            byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
        // The slash occurs at the front of the tag only: after a mismatch a match starts afresh.
        if (lower == kTag[m_matched])
            ++m_matched;
        else
            m_matched = lower == kTag[0] ? 1 : 0;
        if (m_matched == kTag.size()) {
            m_matched = 0;
            m_isFound = true;
            m_isAtEnd = true;
        } else if (kWhiteSpace.find(byte) == std::string_view::npos) {
            m_isAtEnd = false;
        }
    }
}

} // namespace tallowmere
