#include <qvui/controls/scrolling/scroll_bar.h>

#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

// The thumb and the arrows of a scroll bar.

namespace DUI {
namespace {

using namespace geometry;

long SendToBar(CDUIScrollBarBase& bar, unsigned int code, long value)
{
    return bar.IsVerticalSB() ? bar.OnVScrollEvent(code, value) : bar.OnHScrollEvent(code, value);
}

}  // namespace

const AttributeTable<CDUISBThumButton>& CDUISBThumButton::Attributes()
{
    static const AttributeTable<CDUISBThumButton> table{
        {"thumb_mark", AttributeKind::Image, "A small image in the middle of the thumb.",
         [](CDUISBThumButton& thumb, const CString& value) {
             if (!value.IsEmpty())
                 thumb.m_pThumbMark = skin::Image(value);
             return !value.IsEmpty();
         }},
    };
    return table;
}

const ControlClass& CDUISBThumButton::Class()
{
    static const ControlClass theClass("CDUISBThumButton", &CDUIButton::Class(), "The thumb of a scroll bar.",
                                       {"SBThumButton"}, &Attributes());
    return theClass;
}

CDUISBThumButton::CDUISBThumButton(const CDUISBThumButton& other)
    : ControlOf(other),
      m_nDragAnchor(other.m_nDragAnchor),
      m_nClampState(other.m_nClampState),
      m_pThumbMark(other.m_pThumbMark)
{
}

LRESULT CDUISBThumButton::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const LRESULT result = CDUIButton::ProcessEvent(event, bHandled);
    switch (event.Type) {
        case DUIEVENT_LBUTTONDOWN:
            if (const HWND window = GetManagerWnd(FALSE))
                SetCapture(window);
            m_nClampState = 0;
            BeginDrag(event.ptMouse);
            break;
        case DUIEVENT_LBUTTONUP:
            ReleaseCapture();
            m_nClampState = 0;
            break;
        case DUIEVENT_MOUSEMOVE:
            Drag(event.ptMouse);
            break;
        default:
            break;
    }
    return result;
}

void CDUISBThumButton::BeginDrag(POINT point)
{
    if (!IsEnabled() || !m_pScrollBar)
        return;
    const RECT rect = GetControlRect();
    if (GetStatus() & DUISTATUS_PUSHED)
        m_nDragAnchor =
            Narrow(m_pScrollBar->IsVerticalSB() ? Wide(point.y) - rect.top : Wide(point.x) - rect.left);
    m_pScrollBar->FocusOwner();
}

void CDUISBThumButton::Drag(POINT point)
{
    if (!IsEnabled() || !(GetStatus() & DUISTATUS_PUSHED) || !m_pScrollBar)
        return;
    const RECT rect = GetControlRect();
    const LONG distance = Narrow(m_pScrollBar->IsVerticalSB() ? Wide(point.y) - m_nDragAnchor - rect.top
                                                              : Wide(point.x) - m_nDragAnchor - rect.left);
    // At an end of the range only the way back counts.
    if ((m_nClampState == 1 && distance <= 0) || (m_nClampState == 2 && distance >= 0))
        return;
    m_nClampState = static_cast<int>(SendToBar(*m_pScrollBar, SB_THUMBTRACK, distance));
}

void CDUISBThumButton::PaintBkgnd(HDC hdc)
{
    CDUIButton::PaintBkgnd(hdc);
    if (!skin::IsLoaded(m_pThumbMark))
        return;
    const RECT rect = GetControlRect();
    const SIZE mark = skin::IconSize(m_pThumbMark);
    const LONGLONG left = rect.left + (Width(rect) - mark.cx) / 2;
    const LONGLONG top = rect.top + (Height(rect) - mark.cy) / 2;
    m_pThumbMark->DrawImage(hdc, MakeRect(left, top, left + mark.cx, top + mark.cy), 0);
}

CRefPtr<IDUIControl> CDUISBArrowBtn::Clone()
{
    return new CDUISBArrowBtn(*this);
}

LRESULT CDUISBArrowBtn::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const LRESULT result = CDUIButton::ProcessEvent(event, bHandled);
    if (event.Type == DUIEVENT_LBUTTONUP)
        m_bPressed = 0;
    const bool isPress = event.Type == DUIEVENT_LBUTTONDOWN || event.Type == DUIEVENT_LBUTTONDBLCLK;
    if (!isPress || !IsEnabled() || !IsHoverd() || !m_pScrollBar)
        return result;
    m_bPressed = 1;
    CDUIScrollBarBase* const bar = m_pScrollBar;
    const ControlGuard keepBar(bar);
    SendToBar(*bar, m_nKind == kStart ? SB_LINEUP : SB_LINEDOWN, 0);
    bar->FocusOwner();
    return result;
}

}  // namespace DUI
