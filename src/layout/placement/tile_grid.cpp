#include "layout/placement/tile_grid.h"

#include <algorithm>

#include "foundation/rect.h"

namespace DUI::layout {

using namespace geometry;

int CountColumns(LONGLONG width, LONG widestTile, int columnGap, int tiles)
{
    int columns = 0;
    for (LONGLONG x = 0; columns < tiles && (columns == 0 || x < width); ++columns)
        x += columns == 0 ? widestTile : Wide(columnGap) + widestTile;
    return columns;
}

LONG ColumnWidth(LONGLONG width, int columns, int columnGap)
{
    if (columns == 1)
        return Narrow(width);
    const LONGLONG gaps = (LONGLONG{columns} - 1) * columnGap;
    return Narrow(std::max<LONGLONG>(0, width - gaps) / columns);
}

TilePlaces PlaceTiles(const TileGrid& grid, const std::vector<LONG>& heights)
{
    const LONG columnWidth = ColumnWidth(Width(grid.view), grid.columns, grid.columnGap);
    const LONGLONG top = Wide(grid.view.top) - grid.position;
    const auto columns = static_cast<std::size_t>(grid.columns);
    TilePlaces places;
    places.rects.reserve(heights.size());
    LONGLONG y = top;
    for (std::size_t row = 0; row < heights.size(); row += columns) {
        const std::size_t end = std::min(row + columns, heights.size());
        LONG height = grid.rowHeight;
        if (height == 0)
            height = std::max<LONG>(0, *std::max_element(&heights[row], &heights[row] + (end - row)));
        LONGLONG x = grid.view.left;
        for (std::size_t tile = row; tile < end; ++tile, x += Wide(columnWidth) + grid.columnGap)
            places.rects.push_back(MakeRect(x, y, x + columnWidth, y + height));
        places.content = y + height - top;
        y += Wide(height) + grid.rowGap;
    }
    return places;
}

}  // namespace DUI::layout
