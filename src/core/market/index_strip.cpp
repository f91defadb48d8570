#include "core/market/index_strip.h"

#include "core/text/bytes.h"

#include <cmath>
#include <optional>

namespace tallowmere {

namespace {

constexpr auto kNowhere = std::string_view::npos;
constexpr double kSecondsBetweenFetches = 200;

/// The text of one panel: the bold value of the row's first cell and the change in the cell behind
/// it, which stands bare or in a font tag.
std::optional<std::string> ReadRow(std::string_view page, const IndexRow& row) {
    constexpr std::string_view kValueStart = "<td nowrap><b>";
    constexpr std::string_view kFontEnd = "</font>";
    // "</b>", "</td>" and the first three bytes of the next cell.
    constexpr std::size_t kToNextCell = 12;

    const auto anchor = page.find(row.anchor);
    if (anchor == kNowhere)
        return std::nullopt;
    const auto cell = page.find(kValueStart, anchor);
    if (cell == kNowhere)
        return std::nullopt;
    const auto value = cell + kValueStart.size();
    const auto valueEnd = page.find("</b>", cell);
    if (valueEnd == kNowhere)
        return std::nullopt;
    auto changeEnd = page.find("</td>", valueEnd + kToNextCell);
    if (changeEnd == kNowhere)
        return std::nullopt;
    if (page.substr(changeEnd - kFontEnd.size(), kFontEnd.size()) == kFontEnd)
        changeEnd -= kFontEnd.size();
    // The tags before it hold a ">", so there is one.
    const auto change = page.rfind('>', changeEnd) + 1;

    return std::string(row.label)
        .append(page.substr(value, valueEnd - value))
        .append(" ")
        .append(page.substr(change, changeEnd - change));
}

} // namespace

bool FetchIsDue(double clock, int lastFetch) {
    return clock - lastFetch > kSecondsBetweenFetches;
}

int FetchMark(double clock) {
    return static_cast<int>(std::nearbyint(clock));
}

bool IsCompleteIndexPage(std::string_view page) {
    return Contains(page, "Quotes delayed");
}

std::vector<std::string> ReadIndexPage(std::string_view page) {
    std::vector<std::string> panels;
    for (const IndexRow& row : IndexTable()) {
        auto text = ReadRow(page, row);
        if (!text)
            break;
        panels.push_back(std::move(*text));
    }
    return panels;
}

std::string ReadIndexNote(std::string_view page, const IndexRow& row) {
    constexpr std::string_view kTitleStart = "<tr title=\"";
    const auto anchor = page.find(row.anchor);
    const auto start = anchor == kNowhere ? kNowhere : page.rfind("<tr", anchor);
    if (start == kNowhere || !page.substr(start).starts_with(kTitleStart))
        return {};
    const std::string_view title = page.substr(start + kTitleStart.size());
    return UnescapeHtml(title.substr(0, title.find('"')));
}

} // namespace tallowmere
