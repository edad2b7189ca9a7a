#pragma once

#include <algorithm>

#include <qvui/framework/control_base.h>

#include "framework/content_walk.h"

/// What controls with very many children have in common: only the rows in view are painted and hit.
namespace DUI::row_container {

/// The index of a child that was last known at `hint`, -1 when it is no child. Children move little by
/// little, so the search goes outwards from there.
inline int FindChildNear(const CDUIControlBase& container, const IDUIControl* child, int hint)
{
    const int count = container.GetControlCount();
    const auto isAt = [&](int index) { return container.GetControlByIndex(index) == child; };
    if (isAt(hint))
        return hint;
    int below = std::clamp(hint, 0, count) - 1;
    int above = below + 1;
    for (; below >= 0 || above < count; --below, ++above) {
        if (below >= 0 && isAt(below))
            return below;
        if (above < count && isAt(above))
            return above;
    }
    return -1;
}

/// content_walk::Find with a walk over rows, which gives the control found or null. What is hit lies within
/// the content rectangle, as what is painted does.
template <class FindInRows>
IDUIControl* Find(CDUIControlBase& container, FindControlProc proc, void* data, UINT flags,
                  FindInRows findInRows)
{
    return content_walk::Find(container, proc, data, flags, [&]() -> IDUIControl* {
        const RECT content = container.GetContentRect();
        const bool isHit = !(flags & DUIFIND_HITTEST) || PtInRect(&content, *static_cast<const POINT*>(data));
        return isHit ? findInRows() : nullptr;
    });
}

}  // namespace DUI::row_container
