#include "core/custom/page_tiles.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr int kMostRowsInView = 3;
constexpr int kLowestRow = 200;

} // namespace

TileGrid TilesOf(int pages, int columns, int viewWidth, int viewHeight) {
    TileGrid grid;
    grid.columns = std::clamp(columns, 1, std::clamp(pages, 1, kMostTileColumns));
    grid.rows = (std::max(pages, 0) + grid.columns - 1) / grid.columns;
    grid.width = std::max(viewWidth, 0) / grid.columns;
    const int rowsInView = std::clamp(std::min(grid.rows, grid.columns), 1, kMostRowsInView);
    const int height = std::max(viewHeight, 0);
    grid.height = std::max(height / rowsInView, std::min(height, kLowestRow));
    return grid;
}

} // namespace tallowmere
