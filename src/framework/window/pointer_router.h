#pragma once

#include "framework/window/control_focus.h"
#include "framework/window/host_window.h"

namespace DUI {

/// Mouse messages on their way to the controls: which control is hot, which has the press, and whether the
/// window holds the native capture for it. The handlers have the signature of the manager's message table;
/// what they return is the message's result.
class PointerRouter {
public:
    PointerRouter(HostWindow& host, ControlFocus& focus) : m_host(host), m_focus(focus) {}

    LRESULT OnLButtonDown(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnLButtonUp(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseLeave(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnLButtonDBClick(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnMouseWheel(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnContextMenu(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnSetCursor(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnNcMouseMove(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);
    LRESULT OnCaptureChanged(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);

    /// The control under the pointer, as the last move left it; null for none.
    IDUIControl* Hover() const { return m_hover; }
    void Clear();
    void StopTracking() { m_isTracking = false; }
    void ForgetHover(const IDUIControl* control);
    /// A control left the tree. What comes back later is not pushed.
    void ForgetPress(const IDUIControl* control);

    /// The window has the native capture already: a manager that was deleted during a press leaves it to the
    /// next one.
    void TakeOverMouse();
    /// Gives the native capture of a press back. Told the window that loses it, whose handlers may do
    /// anything.
    void ReleaseMouse() { HoldMouse(false); }
    /// Without giving it back.
    void ForgetMouse() { m_holdsMouse = false; }

    /// Whether a press on the control counts as one on the window itself.
    static bool IsLayoutContainer(IDUIControl* control);

private:
    /// Takes the message's point as the last one.
    tagDUIEvent PointerEvent(UINT type, IDUIControl* sender, WPARAM wParam, LPARAM lParam);
    // False when the manager has gone meanwhile.
    bool RouteMove(tagDUIEvent event, BOOL& bHandled);
    bool MoveHover(Target& found, const tagDUIEvent& move, BOOL& bHandled);
    bool EndHover(BOOL& bHandled);
    /// Takes or releases the native capture of a press. While the window has it, it is not left by the
    /// pointer.
    void HoldMouse(bool isHeld);

    HostWindow& m_host;
    ControlFocus& m_focus;
    CWeakPtr<IDUIControl> m_hover;
    CWeakPtr<IDUIControl> m_pressed;
    bool m_isTracking = false;  // WM_MOUSELEAVE is asked for
    bool m_holdsMouse = false;  // the window has the native capture for a press
};

}  // namespace DUI
