#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// Search for many texts in one page. A plain search stops at every first byte, and on a page that
/// is "<" most of the time; this one stops at the byte of each text that the page holds least.
namespace tallowmere {

/// How often each byte occurs in the first part of a page.
class ByteSample {
public:
    explicit ByteSample(std::string_view page);
    std::size_t Count(char byte) const { return m_counts[static_cast<unsigned char>(byte)]; }

private:
    std::array<std::size_t, 256> m_counts{};
};

/// A text to search for; what it was made from has to outlive it. It must not be empty.
class Pattern {
public:
    Pattern(std::string_view text, const ByteSample& sample);

    std::string_view Text() const { return m_text; }

    /// The first place from `from` on, npos when there is none.
    std::size_t FindIn(std::string_view page, std::size_t from = 0) const;

private:
    std::string_view m_text;
    std::size_t m_anchor = 0; ///< where the text holds its rarest byte
    std::size_t m_second = 0; ///< and the next one, which is compared before the whole
};

} // namespace tallowmere
