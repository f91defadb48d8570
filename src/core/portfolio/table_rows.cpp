#include "core/portfolio/table_rows.h"

#include "core/quotes/number_text.h"
#include "core/text/bytes.h"
#include "core/text/latin_fold.h"

#include <algorithm>
#include <cmath>

namespace tallowmere {

namespace {

std::string SharesText(double value) {
    return ShortText(value);
}

std::string RatioText(double value) {
    return FixedText(value, 1);
}

std::string YieldText(double value) {
    return FixedText(value, 2) + "%";
}

std::string RemindersText(const TickerReminders& reminders) {
    if (!reminders.next)
        return {};
    const auto [year, month, day] = *reminders.next;
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    std::string text = two(month) + "/" + two(day) + "/" + std::to_string(year);
    if (reminders.count > 1)
        text += " (" + std::to_string(reminders.count) + ")";
    return text;
}

std::string RangeText(const std::optional<RangeCell>& range) {
    return range ? PriceText(range->low) + " - " + PriceText(range->high) : std::string();
}

std::string PriceCell(const ListedPrice& price, TableColumn column) {
    switch (column) {
    case TableColumn::Last:
        return PriceText(price.last) + (price.age.empty() ? "" : " (" + price.age + ")");
    case TableColumn::Change:
        return TextOr(price.change, ChangeText, "");
    case TableColumn::Percent:
        return TextOr(price.percent, PercentText, "");
    case TableColumn::Volume:
        return TextOr(price.volume, SharesText, "");
    case TableColumn::MarketCap:
        return TextOr(price.marketCap, SharesText, "");
    case TableColumn::PriceEarnings:
        return TextOr(price.priceEarnings, RatioText, "");
    case TableColumn::Yield:
        return TextOr(price.yield, YieldText, "");
    case TableColumn::Source:
        return price.source;
    case TableColumn::Time:
        return price.when;
    default:
        return {};
    }
}

SortKey KeyOf(const std::optional<double>& number) {
    return number && std::isfinite(*number) ? SortKey{false, *number, {}} : SortKey();
}

SortKey KeyOf(std::string_view text) {
    return text.empty() ? SortKey() : SortKey{false, 0, FoldLatin(text)};
}

SortKey KeyOf(const std::optional<Date>& day) {
    constexpr int kMonths = 100;
    if (!day)
        return {};
    return {
        false, static_cast<double>((day->year * kMonths + day->month) * kMonths + day->day), {}};
}

SortKey PriceKey(const ListedPrice& price, TableColumn column) {
    switch (column) {
    case TableColumn::Last:
        return KeyOf(std::optional(price.last));
    case TableColumn::Change:
        return KeyOf(price.change);
    case TableColumn::Percent:
        return KeyOf(price.percent);
    case TableColumn::Volume:
        return KeyOf(price.volume);
    case TableColumn::MarketCap:
        return KeyOf(price.marketCap);
    case TableColumn::PriceEarnings:
        return KeyOf(price.priceEarnings);
    case TableColumn::Yield:
        return KeyOf(price.yield);
    case TableColumn::Source:
        return KeyOf(price.source);
    case TableColumn::Time:
        return price.time == 0 ? SortKey() : SortKey{false, static_cast<double>(price.time), {}};
    default:
        return {};
    }
}

} // namespace

std::string CellText(const TableRow& row, TableColumn column) {
    switch (column) {
    case TableColumn::Portfolio:
        return std::to_string(row.portfolio) + " " + row.portfolioName;
    case TableColumn::Symbol:
        return row.ticker;
    case TableColumn::Name:
        return row.name;
    case TableColumn::Note:
        return row.note;
    case TableColumn::Reminders:
        return RemindersText(row.reminders);
    case TableColumn::DayRange:
    case TableColumn::YearRange:
        return RangeText(CellRange(row, column));
    default:
        return row.price ? PriceCell(*row.price, column) : std::string();
    }
}

PriceMove CellMove(const TableRow& row, TableColumn column) {
    if (column != TableColumn::Change && column != TableColumn::Percent)
        return PriceMove::None;
    const std::string text = CellText(row, column);
    return text.starts_with('+')   ? PriceMove::Up
           : text.starts_with('-') ? PriceMove::Down
                                   : PriceMove::None;
}

std::optional<RangeCell> CellRange(const TableRow& row, TableColumn column) {
    if (!row.price)
        return std::nullopt;
    const ListedPrice& price = *row.price;
    const bool isDay = column == TableColumn::DayRange;
    const auto& low = isDay ? price.dayLow : price.yearLow;
    const auto& high = isDay ? price.dayHigh : price.yearHigh;
    if ((!isDay && column != TableColumn::YearRange) || !low || !high || !std::isfinite(*low) ||
        !std::isfinite(*high) || *low > *high)
        return std::nullopt;
    constexpr double kMiddle = 0.5;
    const double position =
        *low == *high ? kMiddle : std::clamp((price.last - *low) / (*high - *low), 0.0, 1.0);
    return RangeCell{*low, *high, position};
}

SortKey SortKeyOf(const TableRow& row, TableColumn column) {
    switch (column) {
    case TableColumn::Portfolio:
        return {false, static_cast<double>(row.portfolio), {}};
    case TableColumn::Symbol:
        return KeyOf(Trim(row.ticker));
    case TableColumn::Name:
        return KeyOf(row.name);
    case TableColumn::Note:
        return KeyOf(row.note);
    case TableColumn::Reminders:
        return KeyOf(row.reminders.next);
    case TableColumn::DayRange:
    case TableColumn::YearRange: {
        const auto range = CellRange(row, column);
        return range ? KeyOf(std::optional(range->position)) : SortKey();
    }
    default:
        return row.price ? PriceKey(*row.price, column) : SortKey();
    }
}

TickerOrder SortedOrder(TickerOrder order, const std::vector<SortKey>& keys, bool isDescending) {
    std::ranges::stable_sort(order, [&](std::size_t left, std::size_t right) {
        const SortKey& one = keys[left];
        const SortKey& other = keys[right];
        if (one.isMissing || other.isMissing)
            return !one.isMissing && other.isMissing;
        const SortKey& lesser = isDescending ? other : one;
        const SortKey& greater = isDescending ? one : other;
        return lesser.number != greater.number ? lesser.number < greater.number
                                               : lesser.text < greater.text;
    });
    return order;
}

std::string FilterText(const TableRow& row) {
    return FoldLatin(row.ticker + "\n" + row.name + "\n" + row.portfolioName + "\n" + row.note);
}

std::vector<std::string> FilterWords(std::string_view typed) {
    const std::string folded = FoldLatin(typed);
    std::vector<std::string> words;
    for (const std::string_view word : Split(folded, ' '))
        if (!word.empty())
            words.emplace_back(word);
    return words;
}

bool PassesFilter(std::string_view filterText, const std::vector<std::string>& words) {
    return std::ranges::all_of(words,
                               [&](const std::string& word) { return Contains(filterText, word); });
}

CsvRows TableCsv(const std::vector<const TableRow*>& rows,
                 const std::vector<TableColumn>& columns) {
    CsvRows table(1);
    for (const TableColumn column : columns)
        table.front().emplace_back(ColumnRow(column).caption);
    for (const TableRow* row : rows) {
        table.emplace_back();
        for (const TableColumn column : columns)
            table.back().push_back(CellText(*row, column));
    }
    return table;
}

} // namespace tallowmere
