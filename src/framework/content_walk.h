#pragma once

#include <qvui/render/render_engine.h>

#include "framework/scroll_bar_access.h"

/// Painting and searching what is inside a control. Classes that keep very many children walk over them in
/// another way than over the list of all.
namespace DUI::content_walk {

inline bool IsShownIn(IDUIControl& control, const RECT& rcPaint)
{
    const RECT rect = control.GetControlRect();
    RECT common;
    return (control.GetStyle() & DUISTYLE_VISIBLE) && IntersectRect(&common, &rect, &rcPaint);
}

/// The part of DoPaint after the control's own painting: the children, then the bars, in the content
/// rectangle. `paintChildren` paints those that are shown in rcPaint.
template <class PaintChildren>
void Paint(CDUIControlBase& container, HDC hdc, const RECT& rcPaint, PaintChildren paintChildren)
{
    const CDUIRenderClip clip(hdc, container.GetContentRect());
    paintChildren();
    for (CDUIControlBase* const bar : {HorizontalScrollBarOf(container), VerticalScrollBarOf(container)})
        if (bar && bar->IsVisible(FALSE))
            bar->DoPaint(hdc, rcPaint);
}

/// FindControl: the control itself when it is asked first, then what `findInChildren` gives, the bars, and
/// the control itself.
template <class FindInChildren>
IDUIControl* Find(CDUIControlBase& container, FindControlProc proc, void* data, UINT flags,
                  FindInChildren findInChildren)
{
    if ((flags & DUIFIND_VISIBLE) && !(container.GetStyle() & DUISTYLE_VISIBLE))
        return nullptr;
    if ((flags & DUIFIND_ENABLED) && (container.GetStatus() & DUISTATUS_DISABLED))
        return nullptr;
    if (flags & DUIFIND_ME_FIRST)
        if (IDUIControl* const found = proc(&container, data))
            return found;
    if (IDUIControl* const found = findInChildren())
        return found;
    for (CDUIControlBase* const bar : {HorizontalScrollBarOf(container), VerticalScrollBarOf(container)})
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

}  // namespace DUI::content_walk
