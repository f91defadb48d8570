#include "core/portfolio/portfolio_menu.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(PortfolioMenu, ItemsStandInTheOrderOfTheirIndexes) {
    for (std::size_t i = 0; i < kPortfolioMenu.size(); ++i)
        EXPECT_EQ(kPortfolioMenu[i].index, static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < kAllPortfoliosMenu.size(); ++i)
        EXPECT_EQ(kAllPortfoliosMenu[i].index, static_cast<int>(i) + 1);
}

TEST(PortfolioMenu, TheSubmenuOffersTheViewsOfTheMenuForAllPortfolios) {
    for (const PortfolioItem& item : kAllPortfoliosMenu) {
        bool found = false;
        for (const PortfolioItem& other : kPortfolioMenu) {
            if (other.caption != item.caption)
                continue;
            found = true;
            EXPECT_EQ(other.command, item.command);
            EXPECT_EQ(other.argument, item.argument);
        }
        EXPECT_TRUE(found) << item.caption;
    }
}

TEST(PortfolioMenu, AnItemLeavesItsIndexItsViewAndItsScope) {
    struct Case {
        int index, lastItem;
        std::string_view pendingView;
    };
    for (const Case& c : {Case{1, 99, "Skip"},
                          {2, 2, ""},
                          {3, 3, "1b"},
                          {4, 4, "2b"},
                          {5, 5, "0b"},
                          {6, 6, "Skip"},
                          {15, 15, "Skip"},
                          {16, 16, "Skip"},
                          {18, 18, "Skip"}}) {
        PortfolioView view{99, "1b", true};
        ChooseInPortfolioMenu(view, kPortfolioMenu[static_cast<std::size_t>(c.index - 1)]);
        EXPECT_EQ(view.lastItem, c.lastItem) << c.index;
        EXPECT_EQ(view.pendingView, c.pendingView) << c.index;
        EXPECT_FALSE(view.allPortfolios) << c.index;
    }
}

TEST(PortfolioMenu, AnItemOfTheSubmenuTakesAllPortfolios) {
    constexpr std::array<std::string_view, 7> kViews{"", "1b", "2b", "0b", "Skip", "Skip", "Skip"};
    for (std::size_t i = 0; i < kViews.size(); ++i) {
        PortfolioView view{4, "2b", false};
        ChooseInAllPortfoliosMenu(view, kAllPortfoliosMenu[i]);
        EXPECT_EQ(view.lastItem, 4);
        EXPECT_EQ(view.pendingView, kViews[i]);
        EXPECT_TRUE(view.allPortfolios);
    }
}

} // namespace
} // namespace tallowmere
