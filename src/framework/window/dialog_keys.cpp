#include "framework/window/dialog_keys.h"

#include <qvui/framework/window/window_mgr.h>

#include "framework/window/control_lookup.h"

namespace DUI {

bool DialogKeys::IsOwnMessage(const MSG& message) const
{
    return !message.hwnd || message.hwnd == m_host.handle || !m_host.IsWindow() ||
           IsChild(m_host.handle, message.hwnd);
}

bool DialogKeys::OnKeyDown(const MSG& message)
{
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    switch (message.wParam) {
        case VK_TAB:
            return isDown(VK_LCONTROL) || isDown(VK_RCONTROL)
                       ? m_manager.SetNextTabPage(!isDown(VK_SHIFT))
                       : m_manager.SetNextTabControl(!isDown(VK_SHIFT));
        case VK_RETURN:
            return OnReturn();
        case VK_ESCAPE:
            return OnEscape(message);
        default:
            return false;
    }
}

bool DialogKeys::OnReturn()
{
    IDUIControl* const ok = m_manager.GetControlByName("ok", FALSE);
    IDUIControl* const focus = m_focus.Get();
    if (!ok || ok == focus || (focus && (focus->GetStyle() & DUISTYLE_WANTRETURN)))
        return false;
    Activate(ok);
    return true;
}

// The first Escape takes the focus away, the next one cancels.
bool DialogKeys::OnEscape(const MSG& message)
{
    IDUIControl* const cancel = m_manager.GetControlByName("cancel", FALSE);
    if (m_focus.Get() && m_focus.Get() != cancel) {
        BOOL bEventHandled = FALSE;
        m_focus.Lose(nullptr, {DUIEVENT_KILLFOCUS, nullptr, {0, 0}, 0, VK_ESCAPE, VK_ESCAPE, message.lParam},
                     bEventHandled);
        return true;
    }
    if (cancel)
        Activate(cancel);
    return cancel != nullptr;
}

void DialogKeys::Activate(IDUIControl* control)
{
    const Target keep(m_host.calls, control);
    control->Activate();
}

bool DialogKeys::OnSysChar(char ch)
{
    const Target control(m_host.calls, m_manager.GetControlByShortcut(ControlLookup::UpperCase(ch)));
    if (!control)
        return false;
    control->SetFocus(TRUE);
    if (control)
        control->Activate();
    return true;
}

}  // namespace DUI
