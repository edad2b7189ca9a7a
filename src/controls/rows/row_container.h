#pragma once

#include <algorithm>

#include <qvui/framework/control_base.h>
#include <qvui/render/render_engine.h>

#include "framework/scroll_bars.h"

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

/// CDUIControlBase::FindControl with a walk over rows, which gives the control found or null, in place of the
/// one over all children. What is hit lies within the content rectangle, as what is painted does.
template <class FindInRows>
IDUIControl* Find(CDUIControlBase& container, FindControlProc proc, void* data, UINT flags,
                  FindInRows findInRows)
{
    if ((flags & DUIFIND_VISIBLE) && !(container.GetStyle() & DUISTYLE_VISIBLE))
        return nullptr;
    if ((flags & DUIFIND_ENABLED) && (container.GetStatus() & DUISTATUS_DISABLED))
        return nullptr;
    if (flags & DUIFIND_ME_FIRST)
        if (IDUIControl* const found = proc(&container, data))
            return found;
    const RECT content = container.GetContentRect();
    if (!(flags & DUIFIND_HITTEST) || PtInRect(&content, *static_cast<const POINT*>(data)))
        if (IDUIControl* const found = findInRows())
            return found;
    for (IDUIControl* const bar : {HorizontalScrollBarOf(container), VerticalScrollBarOf(container)})
        if (bar)
            if (IDUIControl* const found = bar->FindControl(proc, data, flags))
                return found;
    if (flags & DUIFIND_HITTEST) {
        const RECT rect = container.GetControlRect();
        if (!PtInRect(&rect, *static_cast<const POINT*>(data)) ||
            (container.GetStyle() & DUISTYLE_TRANSPARENT))
            return nullptr;
    }
    return proc(&container, data);
}

/// The part of CDUIControlBase::DoPaint behind the control's own painting: rows, then bars, in the content
/// rectangle.
template <class PaintRows>
void Paint(CDUIControlBase& container, HDC hdc, const RECT& rcPaint, PaintRows paintRows)
{
    const RECT content = container.GetContentRect();
    const CDUIRenderClip clip(hdc, content);
    paintRows();
    for (IDUIControl* const bar : {HorizontalScrollBarOf(container), VerticalScrollBarOf(container)})
        if (bar && bar->IsVisible(FALSE))
            bar->DoPaint(hdc, rcPaint);
}

inline bool IsToPaint(IDUIControl& row, const RECT& rcPaint)
{
    const RECT rect = row.GetControlRect();
    RECT common;
    return row.IsVisible(FALSE) && IntersectRect(&common, &rect, &rcPaint);
}

}  // namespace DUI::row_container
