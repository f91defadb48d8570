#include "core/custom/page_tiles.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace tallowmere {

void PrintTo(const TileGrid& grid, std::ostream* out) {
    *out << grid.columns << " columns, " << grid.rows << " rows of " << grid.width << "x"
         << grid.height;
}

namespace {

TEST(PageTiles, KeepTheFormOfTheViewAndLeaveNoColumnEmpty) {
    struct Case {
        int pages, columns, width, height;
        TileGrid grid;
    };
    constexpr int kMany = std::numeric_limits<int>::max() - 8;
    for (const Case& c : {
             Case{3, 1, 1000, 800, {1, 3, 1000, 800}},  // one column: a page fills the view
             Case{4, 2, 1000, 800, {2, 2, 500, 400}},   // all four in view
             Case{2, 2, 1000, 800, {2, 1, 500, 800}},   // one row fills the height
             Case{5, 2, 1000, 800, {2, 3, 500, 400}},   // two rows in view, one below
             Case{9, 3, 1200, 900, {3, 3, 400, 300}},   //
             Case{16, 4, 1200, 900, {4, 4, 300, 300}},  // twelve in view
             Case{3, 4, 1200, 900, {3, 1, 400, 900}},   // no empty column
             Case{9, 3, 1200, 450, {3, 3, 400, 200}},   // not too low
             Case{9, 3, 1200, 150, {3, 3, 400, 150}},   // but no higher than the view
             Case{1, 0, 1000, 800, {1, 1, 1000, 800}},  // no layout at all
             Case{6, -3, 1000, 800, {1, 6, 1000, 800}}, //
             Case{6, 99, 1000, 800, {4, 2, 250, 400}},  //
             Case{0, 2, 1000, 800, {1, 0, 1000, 800}},  // no page
             Case{4, 2, 0, 0, {2, 2, 0, 0}},            // before the first layout
             Case{4, 2, -5, -5, {2, 2, 0, 0}},          //
             Case{kMany, 4, 1000, 800, {4, 536870910, 250, 266}},
         })
        EXPECT_EQ(TilesOf(c.pages, c.columns, c.width, c.height), c.grid)
            << c.pages << " pages, " << c.columns << " columns";
}

} // namespace
} // namespace tallowmere
