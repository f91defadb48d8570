#include "core/pages/history_list.h"

#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr int kLongestList = 15;
constexpr std::size_t kLongestCaption = 80; // bytes
constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

} // namespace

std::vector<int> HistorySteps(int current, int count, HistorySide side, bool isCovered) {
    std::vector<int> places;
    const int by = side == HistorySide::Back ? -1 : 1;
    const int first = side == HistorySide::Back && isCovered ? current : current + by;
    for (int n = 0; n < kLongestList; ++n) {
        const int place = first + by * n;
        if (place < 0 || place >= count)
            break;
        places.push_back(place);
    }
    return places;
}

std::string HistoryCaption(std::string_view title, std::string_view address) {
    for (const std::string_view text : {title, address}) {
        std::string plain = WithoutHiddenCharacters(text, '?', true);
        std::ranges::replace(plain, '\n', ' ');
        const std::string_view caption = Trim(plain);
        if (caption.size() > kLongestCaption)
            return std::string(Trim(FrontOf(caption, kLongestCaption))) + std::string(kEllipsis);
        if (!caption.empty())
            return std::string(caption);
    }
    return {};
}

} // namespace tallowmere
