#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The columns of the table of tickers: which there are, which are shown, in which order and how
/// wide.
namespace tallowmere {

enum class TableColumn : std::uint8_t {
    Portfolio,
    Symbol,
    Name,
    Last,
    Change,
    Percent,
    Volume,
    DayRange,
    YearRange,
    MarketCap,
    PriceEarnings,
    Yield,
    Note,
    Reminders,
    Source,
    Time
};

struct TableColumnRow {
    TableColumn column;
    std::string_view name;    ///< in the settings
    std::string_view caption; ///< over the column and in menus
    int characters;           ///< its width as shipped
    bool isNumber;            ///< its texts end in line
};

// clang-format off
inline constexpr std::array<TableColumnRow, 16> kTableColumns = {{
    {TableColumn::Portfolio,     "Portfolio", "Portfolio",  16, false},
    {TableColumn::Symbol,        "Symbol",    "Symbol",     13, false},
    {TableColumn::Name,          "Name",      "Name",       24, false},
    {TableColumn::Last,          "Last",      "Last",       11, true},
    {TableColumn::Change,        "Change",    "Change",     10, true},
    {TableColumn::Percent,       "Percent",   "%",          10, true},
    {TableColumn::Volume,        "Volume",    "Volume",     11, true},
    {TableColumn::DayRange,      "Day",       "Day Range",  14, false},
    {TableColumn::YearRange,     "Year",      "Year Range", 14, false},
    {TableColumn::MarketCap,     "Cap",       "Market Cap", 12, true},
    {TableColumn::PriceEarnings, "PE",        "P/E",         8, true},
    {TableColumn::Yield,         "Yield",     "Yield",       9, true},
    {TableColumn::Note,          "Note",      "Note",       28, false},
    {TableColumn::Reminders,     "Reminders", "Reminders",  16, false},
    {TableColumn::Source,        "Source",    "Source",     16, false},
    {TableColumn::Time,          "Time",      "Time",       26, false},
}};
// clang-format on

inline constexpr std::size_t kTableColumnCount = kTableColumns.size();

constexpr const TableColumnRow& ColumnRow(TableColumn column) {
    return kTableColumns.at(static_cast<std::size_t>(column));
}

/// A column as the user wants it.
struct WantedColumn {
    TableColumn column;
    int width = 0; ///< in pixels, 0: as shipped
    bool isShown = true;

    bool operator==(const WantedColumn&) const = default;
};

/// All columns, each once, from the left.
using TableLayout = std::vector<WantedColumn>;

/// The layout of a stored text: "Symbol 80|Name 200|-Volume 0|", a minus before what is not shown.
/// What is unreadable or a column's second place is passed over; columns that it does not name come
/// behind the others, shown as shipped. The symbol is always shown.
TableLayout ReadTableLayout(std::string_view text);

/// The text of a layout.
std::string WriteTableLayout(const TableLayout& layout);

/// By which column a table is sorted.
struct TableSort {
    TableColumn column = TableColumn::Symbol;
    bool isDescending = false;

    bool operator==(const TableSort&) const = default;
};

/// The sorting of a stored text: "Change down", "Symbol up". None for any other text: the order of
/// the portfolios.
std::optional<TableSort> ReadTableSort(std::string_view text);

/// The text of a sorting, empty for none.
std::string WriteTableSort(const std::optional<TableSort>& sort);

} // namespace tallowmere
