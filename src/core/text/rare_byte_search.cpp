#include "core/text/rare_byte_search.h"

#include <cstring>

namespace tallowmere {

namespace {

constexpr std::size_t kSampleSize = 4096;

} // namespace

ByteSample::ByteSample(std::string_view page) {
    for (const char byte : page.substr(0, kSampleSize))
        ++m_counts[static_cast<unsigned char>(byte)];
}

Pattern::Pattern(std::string_view text, const ByteSample& sample) : m_text(text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (sample.Count(text[i]) < sample.Count(text[m_anchor])) {
            m_second = m_anchor;
            m_anchor = i;
        } else if (m_second == m_anchor || sample.Count(text[i]) < sample.Count(text[m_second])) {
            m_second = i;
        }
    }
}

std::size_t Pattern::FindIn(std::string_view page, std::size_t from) const {
    if (page.size() < m_text.size())
        return std::string_view::npos;
    const std::string_view anchors = page.substr(0, page.size() - m_text.size() + m_anchor + 1);
    const char rarest = m_text[m_anchor];
    const char second = m_text[m_second];
    for (auto at = anchors.find(rarest, from + m_anchor); at != std::string_view::npos;
         at = anchors.find(rarest, at + 1)) {
        const auto start = at - m_anchor;
        if (page[start + m_second] == second &&
            std::memcmp(page.data() + start, m_text.data(), m_text.size()) == 0)
            return start;
    }
    return std::string_view::npos;
}

} // namespace tallowmere
