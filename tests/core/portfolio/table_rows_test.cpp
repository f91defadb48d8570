#include "core/portfolio/table_rows.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace tallowmere {
namespace {

using enum TableColumn;
using testing::ElementsAre;

TableRow Row(const std::string& ticker, double last) {
    TableRow row;
    row.portfolio = 3;
    row.portfolioName = "Tech";
    row.ticker = ticker;
    row.name = "Microsoft Corporation";
    ListedPrice price;
    price.last = last;
    price.change = -1.5;
    price.percent = 0.25;
    price.volume = 41234567;
    price.dayLow = 420;
    price.dayHigh = 440;
    price.yearLow = 300;
    price.yearHigh = 500;
    price.marketCap = 3.128e12;
    price.priceEarnings = 34.56;
    price.yield = 0.7;
    price.source = "CNBC";
    price.when = "Nov 20, 2026 4:00 PM ET";
    price.time = 1795208400;
    row.price = price;
    row.note = "Cloud growth";
    row.reminders = {2, Date{2026, 12, 1}};
    return row;
}

TEST(TableRows, EveryCellSaysWhatIsKnownInItsForm) {
    const TableRow row = Row("MSFT", 1430.5);
    const std::pair<TableColumn, const char*> cases[] = {
        {Portfolio, "3 Tech"},
        {Symbol, "MSFT"},
        {Name, "Microsoft Corporation"},
        {Last, "1,430.50"},
        {Change, "-1.50"},
        {Percent, "+0.25%"},
        {Volume, "41.2M"},
        {DayRange, "420.00 - 440.00"},
        {YearRange, "300.00 - 500.00"},
        {MarketCap, "3.13T"},
        {PriceEarnings, "34.6"},
        {Yield, "0.70%"},
        {Note, "Cloud growth"},
        {Reminders, "12/01/2026 (2)"},
        {Source, "CNBC"},
        {Time, "Nov 20, 2026 4:00 PM ET"},
    };
    ASSERT_EQ(std::size(cases), kTableColumnCount);
    for (const auto& [column, text] : cases)
        EXPECT_EQ(CellText(row, column), text);
    TableRow other = row;
    other.price->age = "3 h";
    other.reminders.count = 1;
    EXPECT_EQ(CellText(other, Last), "1,430.50 (3 h)");
    EXPECT_EQ(CellText(other, Reminders), "12/01/2026");
}

TEST(TableRows, WhatIsNotKnownIsEmptyAndWithoutAKey) {
    TableRow bare;
    bare.ticker = "X";
    TableRow priced = bare;
    priced.price = ListedPrice();
    priced.price->last = 5;
    for (const TableColumnRow& row : kTableColumns) {
        if (row.column == Portfolio || row.column == Symbol)
            continue;
        EXPECT_EQ(CellText(bare, row.column), "") << row.name;
        EXPECT_TRUE(SortKeyOf(bare, row.column).isMissing) << row.name;
        if (row.column == Last)
            continue;
        EXPECT_EQ(CellText(priced, row.column), "") << row.name;
        EXPECT_TRUE(SortKeyOf(priced, row.column).isMissing) << row.name;
    }
    EXPECT_EQ(CellText(priced, Last), "5.00");
}

TEST(TableRows, OnlyTheChangesShowAMoveAndWhatRoundsToNothingIsNone) {
    TableRow row = Row("MSFT", 430);
    EXPECT_EQ(CellMove(row, Change), PriceMove::Down);
    EXPECT_EQ(CellMove(row, Percent), PriceMove::Up);
    EXPECT_EQ(CellMove(row, Last), PriceMove::None);
    row.price->change = 0.001;
    EXPECT_EQ(CellMove(row, Change), PriceMove::None);
    row.note = "+1";
    EXPECT_EQ(CellMove(row, Note), PriceMove::None);
}

TEST(TableRows, ThePlaceOfThePriceInItsRange) {
    struct Case {
        std::optional<double> low, high;
        double last;
        std::optional<double> position;
    };
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    for (const Case& c : {Case{100, 200, 150, 0.5}, Case{100, 200, 100, 0}, Case{100, 200, 200, 1},
                          Case{100, 200, 125, 0.25}, Case{100, 200, 90, 0}, Case{100, 200, 900, 1},
                          Case{100, 100, 100, 0.5}, Case{200, 100, 150, {}}, Case{{}, 200, 150, {}},
                          Case{100, {}, 150, {}}, Case{kNotANumber, 200, 150, {}}}) {
        TableRow row = Row("X", c.last);
        row.price->dayLow = c.low;
        row.price->dayHigh = c.high;
        const auto range = CellRange(row, DayRange);
        ASSERT_EQ(range.has_value(), c.position.has_value()) << c.last;
        if (range) {
            EXPECT_DOUBLE_EQ(range->position, *c.position) << c.last;
        }
    }
    EXPECT_EQ(CellRange(Row("X", 400), YearRange)->position, 0.5);
    EXPECT_FALSE(CellRange(Row("X", 400), Last));
    TableRow bare;
    EXPECT_FALSE(CellRange(bare, DayRange));
}

TickerOrder Sorted(const std::vector<std::optional<double>>& values, bool isDescending,
                   TickerOrder order = {}) {
    std::vector<SortKey> keys;
    for (const auto& value : values)
        keys.push_back(value ? SortKey{false, *value, {}} : SortKey());
    if (order.empty())
        for (std::size_t n = 0; n < values.size(); ++n)
            order.push_back(n);
    return SortedOrder(order, keys, isDescending);
}

TEST(TableRows, SortingIsStableAndWhatIsMissingIsLastBothWays) {
    EXPECT_THAT(Sorted({2, {}, -1, 2, {}, 3}, false), ElementsAre(2, 0, 3, 5, 1, 4));
    EXPECT_THAT(Sorted({2, {}, -1, 2, {}, 3}, true), ElementsAre(5, 0, 3, 2, 1, 4));
    EXPECT_THAT(Sorted({1, 1, {}}, true, {2, 1, 0}), ElementsAre(1, 0, 2))
        << "equal rows stay as they were";
    EXPECT_THAT(Sorted({}, true), ElementsAre());
}

TEST(TableRows, WordsAreSortedWithoutCaseAndNumbersAsNumbers) {
    const auto order = [](TableColumn column, const std::vector<TableRow>& rows) {
        std::vector<SortKey> keys;
        TickerOrder start;
        for (const TableRow& row : rows) {
            start.push_back(keys.size());
            keys.push_back(SortKeyOf(row, column));
        }
        return SortedOrder(start, keys, false);
    };
    std::vector<TableRow> rows{Row("b", 900), Row("A", 1000), Row(" C", 80)};
    rows[0].portfolio = 10;
    rows[1].reminders.next = Date{2027, 1, 1};
    rows[2].reminders.next = Date{2026, 12, 31};
    EXPECT_THAT(order(Symbol, rows), ElementsAre(1, 0, 2));
    EXPECT_THAT(order(Last, rows), ElementsAre(2, 0, 1));
    EXPECT_THAT(order(Portfolio, rows), ElementsAre(1, 2, 0));
    EXPECT_THAT(order(Reminders, rows), ElementsAre(0, 2, 1));
    rows[0].price->yearHigh = 100000;
    rows[1].price->yearLow = 1000;
    rows[1].price->yearHigh = 2000;
    EXPECT_THAT(order(YearRange, rows), ElementsAre(1, 2, 0))
        << "by the place in the range, of equal ones the first stays first";
}

TEST(TableRows, AFilterFindsAllItsWordsInWhatIsWritten) {
    TableRow row = Row("MSFT", 430);
    row.name = "\xC3\x89lan Corporation";
    const std::string text = FilterText(row);
    for (const char* typed : {"", "  ", "msft", "MSF", "corp \xC3\xA9lan", "tech growth", "CLOUD"})
        EXPECT_TRUE(PassesFilter(text, FilterWords(typed))) << typed;
    for (const char* typed : {"msftx", "msft bank", "430", "cnbc", "tcorp"})
        EXPECT_FALSE(PassesFilter(text, FilterWords(typed))) << typed;
}

TEST(TableRows, ACopyHoldsTheRowsAndColumnsInTheirOrder) {
    const TableRow one = Row("MSFT", 430);
    const TableRow other = Row("IBM", 200);
    EXPECT_THAT(TableCsv({&other, &one}, {Last, Symbol, DayRange}),
                ElementsAre(ElementsAre("Last", "Symbol", "Day Range"),
                            ElementsAre("200.00", "IBM", "420.00 - 440.00"),
                            ElementsAre("430.00", "MSFT", "420.00 - 440.00")));
    EXPECT_THAT(TableCsv({}, {Symbol}), ElementsAre(ElementsAre("Symbol")));
}

} // namespace
} // namespace tallowmere
