#pragma once

#include <vector>

#include <qvui/platform/platform.h>

/// The arithmetic of the tile layout, in pixels.
namespace DUI::layout {

/// Returns how many adjacent tiles it takes to reach or cross the right edge of a width, or `tiles` if they
/// do not reach it.
int CountColumns(LONGLONG width, LONG widestTile, int columnGap, int tiles);

LONG ColumnWidth(LONGLONG width, int columns, int columnGap);

struct TileGrid {
    RECT view{};       // tiles are placed from its left edge
    int position = 0;  // scroll position: offset upwards from its top edge
    int columns = 1;
    int columnGap = 0;
    int rowGap = 0;
    LONG rowHeight = 0;  // 0: as high as the highest tile of the row
};

struct TilePlaces {
    std::vector<RECT> rects;
    LONGLONG content = 0;  // height of all rows including gaps
};

/// Places tiles row by row. `heights` are the heights that they ask for.
TilePlaces PlaceTiles(const TileGrid& grid, const std::vector<LONG>& heights);

}  // namespace DUI::layout
