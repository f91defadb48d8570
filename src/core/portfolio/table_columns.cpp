#include "core/portfolio/table_columns.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <charconv>

namespace tallowmere {

namespace {

constexpr int kWidest = 10000; // pixels
constexpr std::string_view kUp = "up";
constexpr std::string_view kDown = "down";

std::optional<TableColumn> ColumnNamed(std::string_view name) {
    for (const TableColumnRow& row : kTableColumns)
        if (row.name == name)
            return row.column;
    return std::nullopt;
}

std::optional<int> ReadWidth(std::string_view text) {
    int width = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, width);
    if (error != std::errc{} || rest != end || width < 0 || width > kWidest)
        return std::nullopt;
    return width;
}

std::optional<WantedColumn> ReadColumn(std::string_view text) {
    const bool isHidden = text.starts_with('-');
    text.remove_prefix(isHidden ? 1 : 0);
    const auto blank = text.find(' ');
    if (blank == std::string_view::npos)
        return std::nullopt;
    const auto column = ColumnNamed(text.substr(0, blank));
    const auto width = ReadWidth(text.substr(blank + 1));
    if (!column || !width)
        return std::nullopt;
    return WantedColumn{*column, *width, !isHidden || *column == TableColumn::Symbol};
}

} // namespace

TableLayout ReadTableLayout(std::string_view text) {
    TableLayout layout;
    const auto holds = [&layout](TableColumn column) {
        return std::ranges::find(layout, column, &WantedColumn::column) != layout.end();
    };
    for (const std::string_view part : Split(text, '|'))
        if (const auto column = ReadColumn(part); column && !holds(column->column))
            layout.push_back(*column);
    for (const TableColumnRow& row : kTableColumns)
        if (!holds(row.column))
            layout.push_back({row.column});
    return layout;
}

std::string WriteTableLayout(const TableLayout& layout) {
    std::string text;
    for (const WantedColumn& wanted : layout)
        text.append(wanted.isShown ? "" : "-")
            .append(ColumnRow(wanted.column).name)
            .append(" " + std::to_string(wanted.width) + "|");
    return text;
}

std::optional<TableSort> ReadTableSort(std::string_view text) {
    const auto blank = text.find(' ');
    const auto column = ColumnNamed(text.substr(0, blank));
    const std::string_view way =
        blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
    if (!column || (way != kUp && way != kDown))
        return std::nullopt;
    return TableSort{*column, way == kDown};
}

std::string WriteTableSort(const std::optional<TableSort>& sort) {
    if (!sort)
        return {};
    return std::string(ColumnRow(sort->column).name)
        .append(" ")
        .append(sort->isDescending ? kDown : kUp);
}

} // namespace tallowmere
