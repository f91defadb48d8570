#include "core/portfolio/quote_cells.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

ListedPrice Price(double last, std::optional<double> change, std::optional<double> percent) {
    ListedPrice price;
    price.last = last;
    price.change = change;
    price.percent = percent;
    price.origin = "Nov 20, 2026 4:00 PM ET, First";
    return price;
}

TEST(QuoteCells, NumbersHaveTheirSignAndTheirMove) {
    struct Case {
        double last;
        std::optional<double> change, percent;
        const char* words;
        PriceMove move;
    };
    for (const Case& c : {Case{1234.5, 1.25, 0.1, "1,234.50, +1.25, +0.10%", PriceMove::Up},
                          {10, -0.5, -4.76, "10.00, -0.50, -4.76%", PriceMove::Down},
                          {10, 0.0, 0.0, "10.00, 0.00, 0.00%", PriceMove::None},
                          {10, 0.001, 0.01, "10.00, 0.00, +0.01%", PriceMove::None},
                          {10, {}, {}, "10.00", PriceMove::None},
                          {10, {}, -1.0, "10.00, -1.00%", PriceMove::Down},
                          {10, {}, 1.0, "10.00, +1.00%", PriceMove::Up}}) {
        const QuoteCells cells = CellsOf(Price(c.last, c.change, c.percent));
        EXPECT_EQ(cells.words, c.words);
        EXPECT_EQ(cells.move, c.move) << c.words;
        EXPECT_EQ(cells.remark, "") << c.words;
        EXPECT_EQ(cells.percentValue, c.percent) << c.words;
    }
}

TEST(QuoteCells, WhatIsStaleOrDoubtfulSaysSo) {
    ListedPrice price = Price(10, 1.0, 11.11);
    price.age = "3 h";
    EXPECT_EQ(CellsOf(price).age, "3 h");
    EXPECT_EQ(CellsOf(price).words, "10.00, +1.00, +11.11%, stale: 3 h");
    EXPECT_EQ(CellsOf(price).remark, "Price of Nov 20, 2026 4:00 PM ET, First (stale: 3 h)");
    price.doubtful = true;
    EXPECT_EQ(CellsOf(price).remark,
              "Price of Nov 20, 2026 4:00 PM ET, First (stale: 3 h, doubtful: moved by half or "
              "more)");
}

TEST(QuoteCells, DifferInWhateverIsShown) {
    const ListedPrice price = Price(10, 1.0, 11.11);
    ListedPrice other = price;
    other.origin = "another time";
    EXPECT_EQ(CellsOf(price), CellsOf(other)) << "nobody sees the time of a fresh price";
    other.day = {1, 2};
    EXPECT_NE(CellsOf(price), CellsOf(other));
    other = price;
    other.last = 10.01;
    EXPECT_NE(CellsOf(price), CellsOf(other));
}

} // namespace
} // namespace tallowmere
