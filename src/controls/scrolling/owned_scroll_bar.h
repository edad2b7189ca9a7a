#pragma once

#include <type_traits>

#include <qvui/controls/scrolling/scroll_bar.h>

#include "foundation/rect.h"
#include "framework/app_access.h"
#include "framework/control_guard.h"

/// The scroll bar that a scrolling container keeps beside its content. It is none of the container's
/// children: the container makes it when it is attached to a window, places it, and releases it when it is
/// detached.
namespace DUI::owned_scroll_bar {

/// How broad a bar is, in pixels, whose control style does not say.
inline constexpr int kPlainBreadth = 9;

template <class ScrollBar>
inline constexpr bool kIsVertical = std::is_same_v<ScrollBar, CDUIVerticalSB>;

/// Makes the container (or nobody, as it must before it ends) the one that the bar reports to.
template <class ScrollBar>
void ReportTo(const CRefPtr<ScrollBar>& bar, IDUIControl* container)
{
    if (!bar.IsNull())
        bar->SetScrollOwner(container);
}

/// The bar for a copy of the container, to which it reports; null when the container has none.
template <class ScrollBar>
CRefPtr<ScrollBar> Clone(const CRefPtr<ScrollBar>& bar, IDUIControl* copiedContainer)
{
    if (bar.IsNull())
        return nullptr;
    const CRefPtr<IDUIControl> control = bar->Clone();
    const CRefPtr<ScrollBar> copy = InterfaceOf<ScrollBar>(control.GetPtr(), "scrollbar");
    ReportTo(copy, copiedContainer);
    return copy;
}

/// A new bar from the application's factory; null when the factory makes none.
template <class ScrollBar>
CRefPtr<ScrollBar> Create()
{
    IDUIControlFactory* const factory = App().GetControlFactory();
    if (!factory)
        return nullptr;
    const CRefPtr<IDUIControl> bar =
        factory->NewControl(kIsVertical<ScrollBar> ? "vert_scrollbar" : "horz_scrollbar");
    return InterfaceOf<ScrollBar>(bar.GetPtr(), "scrollbar");
}

/// For the container's OnCreate: the bar joins the window and reports to the container.
template <class ScrollBar>
void Attach(const CRefPtr<ScrollBar>& bar, CDUIControlBase& container)
{
    const CRefPtr<ScrollBar> attached = bar;
    if (attached.IsNull())
        return;
    const ControlGuard keep(&container);
    attached->AttachWindow(container.GetControlMgr());
    // A handler may have ended the container's part in the window, and with it the bar's.
    if (bar == attached)
        attached->SetScrollOwner(&container);
}

/// Gives the bar its look: this broad until its control style ("cs_v_scrollbar", "cs_h_scrollbar") says
/// otherwise.
template <class ScrollBar>
void ApplyStyle(const CRefPtr<ScrollBar>& bar, int breadth)
{
    if (bar.IsNull())
        return;
    if constexpr (kIsVertical<ScrollBar>)
        bar->SetFixedWidth(breadth);
    else
        bar->SetFixedHeight(breadth);
    bar->SetAttribute("control_style", kIsVertical<ScrollBar> ? "cs_v_scrollbar" : "cs_h_scrollbar");
}

/// Attach for a container whose bar is there as long as it is attached: makes the bar first unless there is
/// one.
template <class ScrollBar>
void Open(CRefPtr<ScrollBar>& bar, CDUIControlBase& container, int breadth)
{
    if (bar.IsNull())
        bar = Create<ScrollBar>();
    ApplyStyle(bar, breadth);
    Attach(bar, container);
}

/// For the container's OnDestroy: the bar leaves the window, and the container lets go of it.
template <class ScrollBar>
void Release(CRefPtr<ScrollBar>& bar)
{
    const CRefPtr<ScrollBar> released = std::move(bar);
    if (released.IsNull())
        return;
    released->DetachWindow();
    released->SetScrollOwner(static_cast<IDUIControl*>(nullptr));
}

/// Moves the bar; the container lays out anew afterwards.
inline void ScrollTo(CDUIScrollBarBase& bar, LONGLONG position)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = geometry::Narrow(position);
    bar.SetScrollBarInfo(&info);
}

/// Puts a visible bar at the right (or bottom) edge of the content rectangle and takes its breadth off it.
/// The result is the bar's position, 0 without a visible bar.
template <class ScrollBar>
int Reserve(ScrollBar* bar, RECT& content)
{
    if (!bar || !bar->IsVisible(FALSE))
        return 0;
    SCROLLINFO info{};
    bar->GetScrollBarInfo(&info);
    RECT place = content;
    if constexpr (kIsVertical<ScrollBar>)
        place.left = content.right = geometry::Narrow(geometry::Wide(content.right) - bar->GetFixedSize().cx);
    else
        place.top = content.bottom =
            geometry::Narrow(geometry::Wide(content.bottom) - bar->GetFixedSize().cy);
    bar->SetControlRect(place);
    return info.nPos;
}

}  // namespace DUI::owned_scroll_bar
