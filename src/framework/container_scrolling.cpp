#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "framework/scroll_bar_access.h"

// How scrolling containers and their bars work together: the operations of CDUIControlBase that need the
// bars.

namespace DUI {
namespace {

using namespace geometry;

bool IsShown(const CDUIControlBase* bar)
{
    return bar && bar->IsVisible(FALSE);
}

int ShowContent(CDUIControlBase& container, CDUIControlBase* bar, LONGLONG viewLength, int content, int extra)
{
    if (!bar)
        return FALSE;
    const LONGLONG overflow = content - viewLength;
    const bool wasShown = IsShown(bar);
    if (overflow <= 0 && !wasShown)
        return FALSE;
    const ControlGuard keep(&container);
    const ControlGuard keepBar(bar);
    if (overflow <= 0) {
        bar->ModifyStyle(DUISTYLE_VISIBLE, 0);
        container.UpdateLayout(TRUE, nullptr);
        return TRUE;
    }
    if (!wasShown)
        bar->ModifyStyle(0, DUISTYLE_VISIBLE);
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = wasShown ? SIF_RANGE | SIF_PAGE : SIF_ALL;
    info.nMax = Narrow(overflow + extra);
    info.nPage = static_cast<UINT>(Narrow(viewLength));
    SetScrollInfo(*bar, info);
    if (wasShown)
        return FALSE;
    container.UpdateLayout(TRUE, nullptr);
    return TRUE;
}

void MoveTo(CDUIControlBase& container, CDUIControlBase& bar, LONGLONG position)
{
    const ControlGuard keep(&container);
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_POS;
    info.nPos = Narrow(position);
    SetScrollInfo(bar, info);
    container.UpdateLayout(TRUE, nullptr);
}

void ScrollByEvent(CDUIControlBase& container, CDUIControlBase* bar, LONGLONG page, const tagDUIEvent& event)
{
    if (!bar)
        return;
    LONGLONG position = GetScrollPosition(*bar);
    switch (event.wParam) {
        case SB_LINEUP:
            position -= container.GetScrollLineStep();
            break;
        case SB_LINEDOWN:
            position += container.GetScrollLineStep();
            break;
        case SB_PAGEUP:
            position -= page;
            break;
        case SB_PAGEDOWN:
            position += page;
            break;
        case SB_THUMBTRACK:
            position = event.lParam;
            break;
        default:
            return;
    }
    MoveTo(container, *bar, position);
}

/// The bar that the wheel moves; null when neither is shown.
CDUIControlBase* WheelBarOf(CDUIControlBase& container)
{
    CDUIControlBase* const vertical = VerticalScrollBarOf(container);
    CDUIControlBase* const bar = IsShown(vertical) ? vertical : HorizontalScrollBarOf(container);
    return IsShown(bar) ? bar : nullptr;
}

bool CanScroll(IDUIControl* control, bool isUp)
{
    auto* const container = InterfaceOf<CDUIControlBase>(control, "control_base");
    CDUIControlBase* const bar = container ? WheelBarOf(*container) : nullptr;
    if (!bar)
        return false;
    SCROLLINFO info{};
    GetScrollInfo(*bar, info);
    return isUp ? info.nPos > info.nMin : info.nPos < info.nMax;
}

struct WheelSearch {
    const IDUIControl* outermost;
    POINT point;
    bool isUp;
};

// What sticks out of the controls around it is not on the screen there.
bool IsBelowPointer(IDUIControl* control, const WheelSearch& search)
{
    for (; control && control != search.outermost; control = control->GetParent())
        if (const RECT rect = control->GetControlRect(); !PtInRect(&rect, search.point))
            return false;
    return true;
}

IDUIControl* FindWheelTarget(IDUIControl* control, void* data)
{
    const auto& search = *static_cast<const WheelSearch*>(data);
    const bool isTarget =
        control != search.outermost && CanScroll(control, search.isUp) && IsBelowPointer(control, search);
    return isTarget ? control : nullptr;
}

}  // namespace

int CDUIControlBase::ProcessVerticalSB(RECT rcView, int nContent, int nExtra)
{
    return ShowContent(*this, VerticalScrollBarOf(*this), Height(rcView), nContent, nExtra);
}

int CDUIControlBase::ProcessHorizontalSB(RECT rcView, int nContent, int nExtra)
{
    return ShowContent(*this, HorizontalScrollBarOf(*this), Width(rcView), nContent, nExtra);
}

void CDUIControlBase::OnVertialSBEvent(const tagDUIEvent& event)
{
    ScrollByEvent(*this, VerticalScrollBarOf(*this), Height(GetControlRect()), event);
}

void CDUIControlBase::OnHorizontalSBEvent(const tagDUIEvent& event)
{
    ScrollByEvent(*this, HorizontalScrollBarOf(*this), Width(GetControlRect()), event);
}

void CDUIControlBase::OnMouseWheel(const tagDUIEvent& event)
{
    // The window gives the wheel to the outermost control. Children are found before their parents, so the
    // first one that can still scroll in this direction is the innermost.
    WheelSearch search{this, event.ptMouse, static_cast<short>(HIWORD(event.wParam)) > 0};
    if (IDUIControl* const inner = FindControl(FindWheelTarget, &search, DUIFIND_VISIBLE | DUIFIND_ENABLED)) {
        const ControlGuard keep(inner);
        BOOL bHandled = FALSE;
        inner->OnDUIEvent(event, bHandled);
    } else if (CDUIControlBase* const bar = WheelBarOf(*this)) {
        const int step = GetScrollLineStep();
        MoveTo(*this, *bar, LONGLONG{GetScrollPosition(*bar)} + (search.isUp ? -step : step));
    }
}

}  // namespace DUI
