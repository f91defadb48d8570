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

/// An attribute of the table's row that holds the values of an index, or that says that there are
/// none; empty without it.
std::string AttributeOf(std::string_view page, const IndexRow& row, std::string_view name) {
    auto inside = page.find(row.anchor);
    if (inside == kNowhere)
        inside = page.find("<td>" + ToUpper(row.symbol) + "</td>");
    const auto start = inside == kNowhere ? kNowhere : page.rfind("<tr", inside);
    if (start == kNowhere)
        return {};
    const std::string_view tag = page.substr(start, page.find('>', start) - start);
    const std::string attribute = " " + std::string(name) + "=\"";
    const auto value = tag.find(attribute);
    if (value == kNowhere)
        return {};
    const std::string_view rest = tag.substr(value + attribute.size());
    const auto end = rest.find('"');
    return end == kNowhere ? std::string() : UnescapeHtml(rest.substr(0, end));
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
    return AttributeOf(page, row, "title");
}

std::string ReadIndexAge(std::string_view page, const IndexRow& row) {
    return AttributeOf(page, row, "data-age");
}

} // namespace tallowmere
