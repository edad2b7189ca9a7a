#include "tooltip/popup_placement.h"

#include <algorithm>

namespace DUI {
namespace {

// Returns the position nearest to `wanted` between two edges; the first edge takes precedence.
LONG Shift(LONG wanted, LONG extent, LONG first, LONG last)
{
    return std::max(first, std::min(wanted, last - extent));
}

// Returns the position after the anchor, or before it if there is room only there.
LONG Beside(LONG anchorFirst, LONG anchorLast, LONG extent, LONG first, LONG last)
{
    const bool fitsAfter = anchorLast + extent <= last;
    const bool fitsBefore = anchorFirst - extent >= first;
    return !fitsAfter && fitsBefore ? anchorFirst - extent : anchorLast;
}

}  // namespace

POINT PlaceToolTip(const ToolTipPlacement& placement)
{
    const RECT& area = placement.workArea;
    const POINT& pointer = placement.pointer;
    const SIZE& size = placement.size;
    const SIZE& offset = placement.offset;
    POINT corner{Shift(pointer.x + offset.cx, size.cx, area.left, area.right),
                 pointer.y + kPointerPicture + offset.cy};
    if (corner.y + size.cy <= area.bottom)
        return {corner.x, std::max(corner.y, area.top)};
    corner.y = pointer.y - offset.cy - size.cy;
    if (corner.y >= area.top)
        return {corner.x, Shift(corner.y, size.cy, area.top, area.bottom)};

    corner.y = Shift(pointer.y, size.cy, area.top, area.bottom);
    const LONG right = pointer.x + kPointerPicture + offset.cx;
    const LONG left = pointer.x - offset.cx - size.cx;
    if (right + size.cx <= area.right)
        return {right, corner.y};
    return {left >= area.left ? left : corner.x, corner.y};
}

POINT PlaceMenu(const RECT& area, const RECT& anchor, SIZE menu, bool opensSideways)
{
    POINT corner{anchor.left, anchor.top};
    if (opensSideways)
        corner.x = Beside(anchor.left, anchor.right, menu.cx, area.left, area.right);
    else
        corner.y = Beside(anchor.top, anchor.bottom, menu.cy, area.top, area.bottom);
    return {Shift(corner.x, menu.cx, area.left, area.right), Shift(corner.y, menu.cy, area.top, area.bottom)};
}

RECT WorkAreaAt(POINT screen)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoA(MonitorFromPoint(screen, MONITOR_DEFAULTTONEAREST), &monitor))
        return monitor.rcWork;
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace DUI
