#pragma once

#include <cstddef>
#include <string_view>

namespace tallowmere {

/// Watches a page arrive in pieces for its closing tag, "/html>" in any case. Every byte is looked
/// at once, however small the pieces are.
class ClosingTagWatch {
public:
    /// Takes the next piece of the page.
    void Add(std::string_view piece);

    /// Whether the tag stands anywhere in what came so far.
    bool IsFound() const { return m_isFound; }
    /// Whether what came so far ends with the tag, white space after it left aside.
    bool IsAtEnd() const { return m_isAtEnd; }

private:
    std::size_t m_matched = 0; ///< bytes of the tag that the text so far ends with
    bool m_isFound = false;
    bool m_isAtEnd = false;
};

} // namespace tallowmere
