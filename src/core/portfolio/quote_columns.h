#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The columns beside the symbols in the list of tickers.
namespace tallowmere {

enum class QuoteColumn : std::uint8_t { Last, Change, Percent, Day };

/// A column, the setting that keeps whether it is shown, and the command that switches it.
struct QuoteColumnRow {
    QuoteColumn column;
    std::string_view key;
    std::string_view command;
};

// clang-format off
inline constexpr std::array<QuoteColumnRow, 4> kQuoteColumns = {{
    {QuoteColumn::Last,    "ListLast",    "listLast"},
    {QuoteColumn::Change,  "ListChange",  "listChange"},
    {QuoteColumn::Percent, "ListPercent", "listPercent"},
    {QuoteColumn::Day,     "ListDay",     "listDay"},
}};
// clang-format on

/// Something about each column, in their order.
template <typename Value>
using OfColumns = std::array<Value, kQuoteColumns.size()>;

/// Where a column stands in a row.
struct PlacedColumn {
    QuoteColumn column;
    int left;
    int width;

    bool operator==(const PlacedColumn&) const = default;
};

/// Places columns of these widths, 0 for one that is not wanted, at the right end of a row that is
/// `width` wide, with a gap before each. The symbol keeps `symbolWidth` at the left; columns that
/// do not fit beside it are dropped, from the right.
std::vector<PlacedColumn> PlaceColumns(int width, int symbolWidth, const OfColumns<int>& widths,
                                       int gap);

} // namespace tallowmere
