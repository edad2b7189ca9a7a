#pragma once

#include <vector>

#include <qvui/platform/platform.h>

/// The arithmetic of the tile layout, in pixels.
namespace DUI::layout {

/// How many tiles, side by side, reach or cross the right edge of a width; all of them when they do not.
int CountColumns(LONGLONG width, LONG widestTile, int columnGap, int tiles);

LONG ColumnWidth(LONGLONG width, int columns, int columnGap);

struct TileGrid {
    RECT view{};       // the tiles are placed from its left edge
    int position = 0;  // how far they are scrolled up from its top edge
    int columns = 1;
    int columnGap = 0;
    int rowGap = 0;
    LONG rowHeight = 0;  // 0: as high as the row's highest tile
};

struct TilePlaces {
    std::vector<RECT> rects;
    LONGLONG content = 0;  // the height of all rows with the gaps between
};

/// Places tiles row by row; `heights` are what they ask for.
TilePlaces PlaceTiles(const TileGrid& grid, const std::vector<LONG>& heights);

}  // namespace DUI::layout
