#include "core/portfolio/quote_columns.h"

#include "core/shell/commands.h"
#include "core/shell/setting_keys.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using enum QuoteColumn;
using Placed = std::vector<PlacedColumn>;

TEST(QuoteColumns, StandAtTheRightEndAndAreDroppedFromTheRight) {
    constexpr OfColumns<int> kAll{50, 40, 45, 30};
    struct Case {
        int width;
        OfColumns<int> widths;
        Placed placed;
    };
    const Case cases[] = {
        {255, kAll, {{Last, 60, 50}, {Change, 120, 40}, {Percent, 170, 45}, {Day, 225, 30}}},
        {300, kAll, {{Last, 105, 50}, {Change, 165, 40}, {Percent, 215, 45}, {Day, 270, 30}}},
        {254, kAll, {{Last, 99, 50}, {Change, 159, 40}, {Percent, 209, 45}}},
        {214, kAll, {{Last, 114, 50}, {Change, 174, 40}}},
        {110, kAll, {{Last, 60, 50}}},
        {109, kAll, {}},
        {0, kAll, {}},
        {-10, kAll, {}},
        // Those that are not wanted take no room.
        {150, {50, 0, 0, 30}, {{Last, 60, 50}, {Day, 120, 30}}},
        {300, {0, 0, 45, 0}, {{Percent, 255, 45}}},
        {300, {}, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(PlaceColumns(c.width, 50, c.widths, 10), c.placed) << c.width;
}

TEST(QuoteColumns, HaveASettingAndACommandEach) {
    for (std::size_t n = 0; n < kQuoteColumns.size(); ++n) {
        const QuoteColumnRow& row = kQuoteColumns.at(n);
        EXPECT_EQ(static_cast<std::size_t>(row.column), n);
        EXPECT_EQ(DefaultOf(kSettingsSection, row.key), "True") << row.key;
        const CommandRow* command = FindCommand(row.command);
        ASSERT_TRUE(command) << row.command;
        EXPECT_EQ(SpokenMenu(command->menu), "View > Quotes in the List");
        EXPECT_EQ(command->kind, CommandKind::Checkable);
    }
}

} // namespace
} // namespace tallowmere
