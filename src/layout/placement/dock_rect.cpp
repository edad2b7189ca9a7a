#include "layout/placement/dock_rect.h"

#include <qvui/framework/control.h>

#include "foundation/rect.h"

namespace DUI::layout {

using namespace geometry;

RECT CutDocked(RECT& free, DWORD sides, SIZE wanted)
{
    RECT part = free;
    if (sides & DUIEXSTYLE_DOCK_LEFT)
        part.right = free.left = Narrow(std::min<LONGLONG>(Wide(free.left) + wanted.cx, free.right));
    else if (sides & DUIEXSTYLE_DOCK_RIGHT)
        part.left = free.right = Narrow(std::max<LONGLONG>(Wide(free.right) - wanted.cx, free.left));
    else if (sides & DUIEXSTYLE_DOCK_TOP)
        part.bottom = free.top = Narrow(std::min<LONGLONG>(Wide(free.top) + wanted.cy, free.bottom));
    else if (sides & DUIEXSTYLE_DOCK_BOTTOM)
        part.top = free.bottom = Narrow(std::max<LONGLONG>(Wide(free.bottom) - wanted.cy, free.top));
    else
        part = {free.left, free.top, free.left, free.top};
    return part;
}

RECT CutAll(RECT& free)
{
    const RECT part = free;
    free.left = free.right;
    return part;
}

}  // namespace DUI::layout
