#include "core/portfolio/ticker_order.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(TickerOrder, AMovedTickerStandsBeforeAnotherOne) {
    struct Case {
        std::size_t from, before;
        TickerOrder order;
    };
    for (const Case& c : {Case{0, 2, {1, 0, 2, 3}},
                          {0, 4, {1, 2, 3, 0}},
                          {3, 0, {3, 0, 1, 2}},
                          {2, 1, {0, 2, 1, 3}},
                          {1, 3, {0, 2, 1, 3}},
                          {3, 3, {0, 1, 2, 3}},
                          // Before itself and before its neighbour nothing moves.
                          {1, 1, {0, 1, 2, 3}},
                          {1, 2, {0, 1, 2, 3}}})
        EXPECT_EQ(MovedOrder(4, c.from, c.before), c.order) << c.from << " before " << c.before;
}

TEST(TickerOrder, SymbolsAreSortedByTheAlphabetWhateverTheirCase) {
    struct Case {
        std::vector<std::string> tickers;
        TickerOrder order;
    };
    for (const Case& c : {Case{{"MSFT", "AOL", "IBM"}, {1, 2, 0}},
                          {{"b", "A", "a", "B"}, {1, 2, 0, 3}},
                          {{"BRK.B", "BRK.A", "^DJI", "3M"}, {3, 1, 0, 2}},
                          {{"", "A", " ", "B"}, {1, 3, 0, 2}},
                          {{}, {}}})
        EXPECT_EQ(OrderBySymbol(c.tickers), c.order);
}

TEST(TickerOrder, TheGreatestGainStandsFirstAndTheUnknownLast) {
    struct Case {
        std::vector<std::optional<double>> percents;
        TickerOrder order;
    };
    for (const Case& c : {Case{{-1.0, 2.0, 0.0}, {1, 2, 0}},
                          {{{}, 2.0, {}, -3.0}, {1, 3, 0, 2}},
                          {{1.0, 1.0, 2.0}, {2, 0, 1}},
                          {{{}, {}}, {0, 1}},
                          {{}, {}}})
        EXPECT_EQ(OrderByChange(c.percents), c.order);
}

} // namespace
} // namespace tallowmere
