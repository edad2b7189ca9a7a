#pragma once

#include "framework/window/control_focus.h"

namespace DUI {

class CDUIWindowMgr;

/// The keys that work on a window as on a dialog, whatever control has the focus: Tab, Return, Escape and the
/// shortcuts of controls.
class DialogKeys {
public:
    DialogKeys(CDUIWindowMgr& manager, HostWindow& host, ControlFocus& focus)
        : m_manager(manager),
          m_host(host),
          m_focus(focus)
    {
    }

    /// Filters see the messages of all windows of the thread; keys that belong to another window are not
    /// ours.
    bool IsOwnMessage(const MSG& message) const;
    /// WM_KEYDOWN; true when the key is used up.
    bool OnKeyDown(const MSG& message);
    /// WM_SYSCHAR; true when a control has the shortcut.
    bool OnSysChar(char ch);

private:
    bool OnReturn();
    bool OnEscape(const MSG& message);
    void Activate(IDUIControl* control);

    CDUIWindowMgr& m_manager;
    HostWindow& m_host;
    ControlFocus& m_focus;
};

}  // namespace DUI
