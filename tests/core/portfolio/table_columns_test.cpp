#include "core/portfolio/table_columns.h"

#include <gmock/gmock.h>

#include <set>

namespace tallowmere {
namespace {

using enum TableColumn;

std::vector<TableColumn> ColumnsOf(const TableLayout& layout) {
    std::vector<TableColumn> columns;
    for (const WantedColumn& wanted : layout)
        columns.push_back(wanted.column);
    return columns;
}

TEST(TableColumns, TheRowsStandInTheOrderOfTheirColumnsUnderNamesOfTheirOwn) {
    std::set<std::string_view> names;
    std::set<std::string_view> captions;
    for (std::size_t n = 0; n < kTableColumnCount; ++n) {
        EXPECT_EQ(static_cast<std::size_t>(kTableColumns.at(n).column), n);
        names.insert(kTableColumns.at(n).name);
        captions.insert(kTableColumns.at(n).caption);
        EXPECT_EQ(kTableColumns.at(n).name.find_first_of(" |-"), std::string_view::npos);
    }
    EXPECT_EQ(names.size(), kTableColumnCount);
    EXPECT_EQ(captions.size(), kTableColumnCount);
}

TEST(TableColumns, ALayoutReadsBackAsItWasWritten) {
    TableLayout layout = ReadTableLayout("");
    ASSERT_EQ(layout.size(), kTableColumnCount);
    EXPECT_EQ(layout[1], (WantedColumn{Symbol, 0, true}));
    std::swap(layout[2], layout[5]);
    layout[3].width = 120;
    layout[4].isShown = false;
    EXPECT_EQ(ReadTableLayout(WriteTableLayout(layout)), layout);
    EXPECT_EQ(WriteTableLayout({{Last, 80, true}, {PriceEarnings, 0, false}}), "Last 80|-PE 0|");
}

TEST(TableColumns, WhatCannotBeReadIsPassedOverAndWhatIsMissingComesBehind) {
    const TableLayout layout =
        ReadTableLayout("Time 9|-Symbol 70|Time 8|Nothing 5|Last|Last x|Last -1|Cap 10001|-Note 0|"
                        "Name 12 |-Last 44");
    ASSERT_EQ(layout.size(), kTableColumnCount);
    EXPECT_EQ(layout[0], (WantedColumn{Time, 9, true}));
    EXPECT_EQ(layout[1], (WantedColumn{Symbol, 70, true})) << "rows without a symbol say nothing";
    EXPECT_EQ(layout[2], (WantedColumn{Note, 0, false}));
    EXPECT_EQ(layout[3], (WantedColumn{Last, 44, false}));
    EXPECT_THAT(ColumnsOf(layout),
                testing::UnorderedElementsAreArray(ColumnsOf(ReadTableLayout(""))))
        << "each once";
    EXPECT_EQ(layout[4], (WantedColumn{Portfolio, 0, true}));
    EXPECT_EQ(layout[5], (WantedColumn{Name, 0, true}));
}

TEST(TableColumns, ASortingReadsBackAndAnyOtherTextIsNone) {
    for (const TableSort sort : {TableSort{Percent, true}, TableSort{Symbol, false}})
        EXPECT_EQ(ReadTableSort(WriteTableSort(sort)), sort);
    EXPECT_EQ(WriteTableSort(TableSort{Percent, true}), "Percent down");
    EXPECT_EQ(WriteTableSort({}), "");
    for (const char* text : {"", "Percent", "Percent ", "percent up", "Percent Down", "up",
                             "Percent up ", "Percent  up"})
        EXPECT_EQ(ReadTableSort(text), std::nullopt) << text;
}

} // namespace
} // namespace tallowmere
