#include "framework/window/pointer_router.h"

#include <algorithm>
#include <iterator>

namespace DUI {
namespace {

constexpr UINT kReachable = DUIFIND_VISIBLE | DUIFIND_ENABLED;
constexpr UINT kUnderPointer = DUIFIND_VISIBLE | DUIFIND_HITTEST;
constexpr const char* kLayoutContainers[] = {"tile_layout", "dock_layout", "frame_panel",  "tab_layout",
                                             "horz_layout", "vert_layout", "dialog_layout"};

bool Answers(IDUIControl* control, const char* name)
{
    return control && control->GetInterface(name);
}

POINT PointOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

bool PointerRouter::IsLayoutContainer(IDUIControl* control)
{
    return std::any_of(std::begin(kLayoutContainers), std::end(kLayoutContainers),
                       [control](const char* name) { return Answers(control, name); });
}

void PointerRouter::Clear()
{
    m_pressed = m_hover = nullptr;
}

void PointerRouter::ForgetHover(const IDUIControl* control)
{
    if (m_hover == control)
        m_hover = nullptr;
}

void PointerRouter::ForgetPress(const IDUIControl* control)
{
    if (m_pressed != control)
        return;
    m_pressed->ModifyStatus(DUISTATUS_PUSHED, 0);
    m_pressed = nullptr;
}

void PointerRouter::TakeOverMouse()
{
    m_holdsMouse = m_holdsMouse || (m_host.IsWindow() && GetCapture() == m_host.handle);
}

tagDUIEvent PointerRouter::PointerEvent(UINT type, IDUIControl* sender, WPARAM wParam, LPARAM lParam)
{
    m_host.pointer = PointOf(lParam);
    return {type, sender, m_host.pointer, 0, LOWORD(wParam), wParam, lParam};
}

LRESULT PointerRouter::OnMouseMove(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!m_isTracking) {
        TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, m_host.handle, 0};
        m_isTracking = TrackMouseEvent(&track) != FALSE;
    }
    RouteMove(PointerEvent(DUIEVENT_MOUSEMOVE, nullptr, wParam, lParam), bHandled);
    return 0;
}

bool PointerRouter::RouteMove(tagDUIEvent event, BOOL& bHandled)
{
    // While a scroll bar's thumb is dragged, nothing else changes its hover state.
    if ((event.wParam & MK_LBUTTON) && Answers(m_pressed, "SBThumButton")) {
        const bool isAlive = m_host.Deliver(m_pressed, event, bHandled);
        bHandled = TRUE;
        return isAlive;
    }
    Target found(m_host.calls, m_host.FindAt(event.ptMouse, kReachable | DUIFIND_HITTEST));
    if (!MoveHover(found, event, bHandled))
        return false;
    if (m_pressed)
        return m_host.Deliver(m_pressed, event, bHandled);
    event.pSender = found.Get();
    return !found || m_host.Deliver(found.Get(), event, bHandled);
}

// While a control holds the capture, it alone can become hot.
bool PointerRouter::MoveHover(Target& found, const tagDUIEvent& move, BOOL& bHandled)
{
    const auto mayBeHot = [this, &found] { return !m_pressed || found.Get() == m_pressed; };
    if (m_hover && found.Get() != m_hover && (!m_pressed || found.Get() != m_pressed)) {
        tagDUIEvent leave = move;
        leave.Type = DUIEVENT_MOUSELEAVE;
        leave.pSender = found.Get();
        IDUIControl* const left = m_hover;
        if (!m_host.Deliver(left, leave, bHandled))
            return false;
        if (m_hover == left)
            m_hover = nullptr;
    }
    if (found && found.Get() != m_hover && mayBeHot()) {
        tagDUIEvent enter = move;
        enter.Type = DUIEVENT_MOUSEENTER;
        enter.pSender = m_hover;
        m_hover = found.Get();
        return m_host.Deliver(found.Get(), enter, bHandled);
    }
    return true;
}

LRESULT PointerRouter::OnMouseLeave(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_isTracking)
        EndHover(bHandled);
    return 0;
}

LRESULT PointerRouter::OnNcMouseMove(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_hover) {
        m_isTracking = true;
        EndHover(bHandled);
    }
    return 0;
}

// A move to where no control is. A window that holds the mouse is not left: its moves say where the pointer
// is.
bool PointerRouter::EndHover(BOOL& bHandled)
{
    constexpr LPARAM kOutside = MAKELPARAM(0xFFFF, 0xFFFF);
    if (!m_holdsMouse && !RouteMove(PointerEvent(DUIEVENT_MOUSEMOVE, nullptr, 0, kOutside), bHandled))
        return false;
    m_isTracking = false;
    return true;
}

// SetCapture and ReleaseCapture tell the window that loses the mouse, whose handlers may do anything.
void PointerRouter::HoldMouse(bool isHeld)
{
    const bool isReleased = m_holdsMouse && !isHeld;
    m_holdsMouse = isHeld;
    if (isHeld)
        SetCapture(m_host.handle);
    else if (isReleased && GetCapture() == m_host.handle)
        ReleaseCapture();
}

LRESULT PointerRouter::OnCaptureChanged(UINT, WPARAM, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    // The release of the press will not arrive.
    if (m_holdsMouse && reinterpret_cast<HWND>(lParam) != m_host.handle) {
        m_holdsMouse = false;
        m_pressed = nullptr;
        BOOL bEventHandled = FALSE;
        EndHover(bEventHandled);
    }
    return 0;
}

LRESULT PointerRouter::OnLButtonDown(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONDOWN, nullptr, wParam, lParam);
    Target pressed(m_host.calls, m_host.FindAt(event.ptMouse, kReachable | DUIFIND_HITTEST));
    event.pSender = pressed.Get();
    if (m_focus.Get() && m_focus.Get() != pressed.Get() && !m_focus.Lose(pressed.Get(), event, bHandled))
        return 0;
    bHandled = FALSE;
    m_pressed = pressed.Get();
    const BOOL isControl = pressed && !IsLayoutContainer(pressed.Get());
    HoldMouse(isControl && uMsg == WM_LBUTTONDOWN);
    if (!pressed)
        return 0;
    if (pressed->GetStyle() & DUISTYLE_TABSTOP)
        pressed->SetFocus(TRUE);
    BOOL bEventHandled = FALSE;
    if (pressed)
        pressed->OnDUIEvent(event, bEventHandled);
    if (!pressed.IsManagerAlive()) {
        bHandled = TRUE;
        return 0;
    }
    bHandled = isControl;
    if (m_focus.Get() && m_focus.Get() != pressed.Get()) {
        bHandled = FALSE;
        event.Type = DUIEVENT_BUTTONDOWN_ELSEWHERE;
        event.pSender = pressed.Get();
        m_host.Deliver(m_focus.Get(), event, bHandled);
    }
    return 0;
}

LRESULT PointerRouter::OnLButtonUp(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONUP, m_pressed, wParam, lParam);
    Target captured(m_host.calls, m_pressed);
    // Before the event, whose handler may open a window that needs the mouse.
    HoldMouse(false);
    if (!captured)
        return 0;
    const bool isThumb = Answers(m_pressed, "SBThumButton") || Answers(m_pressed, "track_bar_thumb");
    IDUIControl* const found = isThumb ? captured.Get() : m_host.FindAt(event.ptMouse, kUnderPointer);
    bHandled = isThumb || !found || IsLayoutContainer(found);
    if (isThumb || (found == m_pressed && !IsLayoutContainer(found))) {
        BOOL bEventHandled = FALSE;
        captured->OnDUIEvent(event, bEventHandled);
        if (!captured.IsManagerAlive() || m_pressed != captured.Get())
            return 0;  // a handler closed the window, or a press inside a nested loop took the capture
        if (!isThumb && Answers(captured.Get(), "richedit"))
            return 0;
    }
    m_pressed = nullptr;
    return 0;
}

LRESULT PointerRouter::OnLButtonDBClick(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONDBLCLK, nullptr, wParam, lParam);
    Target found(m_host.calls, m_host.FindAt(event.ptMouse, kUnderPointer));
    if (!found)
        return 0;
    event.pSender = m_pressed = found.Get();
    HoldMouse(!IsLayoutContainer(found.Get()));
    BOOL bEventHandled = FALSE;
    if (found)
        found->OnDUIEvent(event, bEventHandled);
    return 0;
}

LRESULT PointerRouter::OnMouseWheel(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!m_focus.Get())
        return 0;
    const POINT pointer = m_host.PointerPosition();
    IDUIControl* const target = m_host.FindAt(pointer, kReachable | DUIFIND_ME_FIRST | DUIFIND_HITTEST);
    if (!target)
        return 1;
    BOOL bEventHandled = FALSE;
    m_host.Deliver(target,
                   {DUIEVENT_MOUSEWHEEL, m_focus.Get(), m_host.pointer, 0, LOWORD(wParam), wParam, lParam},
                   bEventHandled);
    return 0;
}

LRESULT PointerRouter::OnContextMenu(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    POINT point = PointOf(lParam);
    ScreenToClient(m_host.handle, &point);
    BOOL bEventHandled = FALSE;
    if (IDUIControl* const found = m_host.FindAt(point, kUnderPointer))
        m_host.Deliver(found, {DUIEVENT_CONTEXTMENU, found, point, 0, DUIKeyState(), wParam, lParam},
                       bEventHandled);
    return 0;
}

LRESULT PointerRouter::OnSetCursor(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_host.root.IsNull())
        return 0;
    const POINT pointer = m_host.PointerPosition();
    IDUIControl* const found = m_host.FindAt(pointer, kUnderPointer);
    if (!found || !(found->GetStyle() & DUISTYLE_CURSOR))
        return 0;
    BOOL bEventHandled = FALSE;
    m_host.Deliver(found, {DUIEVENT_SETCURSOR, found, pointer, 0, DUIKeyState(), wParam, lParam},
                   bEventHandled);
    bHandled = TRUE;
    return TRUE;
}

}  // namespace DUI
