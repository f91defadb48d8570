#include "core/finder/guide_sections.h"

#include "core/text/bytes.h"

namespace tallowmere {

namespace {

std::string WithoutTags(std::string_view text) {
    std::string plain;
    bool isTag = false;
    for (const char c : text) {
        isTag = isTag ? c != '>' : c == '<';
        if (!isTag && c != '>')
            plain += c;
    }
    return plain;
}

} // namespace

std::vector<GuideSection> GuideSections(std::string_view page) {
    std::vector<GuideSection> sections;
    Cursor cursor(page);
    while (cursor.SkipPast("<h2 id=\"")) {
        std::string_view id;
        std::string_view title;
        if (!cursor.ReadUpTo("\">", id) || !cursor.ReadUpTo("</h2>", title))
            break;
        sections.push_back({std::string(id), UnescapeHtml(WithoutTags(title))});
    }
    return sections;
}

} // namespace tallowmere
