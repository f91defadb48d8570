#pragma once

/// How the pages of a multi-link are laid out as tiles: in columns, row after row.
namespace tallowmere {

constexpr int kMostTileColumns = 4;

/// The tiles of a view, all of one size. Lengths are in pixels.
struct TileGrid {
    int columns = 1;
    int rows = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const TileGrid&, const TileGrid&) = default;
};

/// The tiles of so many pages in a view of that size. There are as many columns as are asked for,
/// from 1 to kMostTileColumns, but no empty one. As many rows are in view as there are columns, so
/// that a tile keeps the form of the view, up to three; a row is no lower than 200 pixels, unless
/// the view is.
TileGrid TilesOf(int pages, int columns, int viewWidth, int viewHeight);

} // namespace tallowmere
