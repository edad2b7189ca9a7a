// Exported functions for the active window and the focus.

#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

HWND SetFocus(HWND window)
{
    if (window == TheDesktop().focus)
        return TheDesktop().focus;
    if (window && !CanTakeFocus(window))
        return nullptr;
    const HWND before = TheDesktop().focus;
    if (Window* found = LookUpWindow(window)) {
        const HWND root = RootOf(*found)->handle;
        if (root != TheDesktop().active)
            ActivateWindow(root, WA_ACTIVE);
        if (TheDesktop().focus == window || TheDesktop().active != root || !LookUpWindow(window))
            return before;
    }
    const HWND previous = std::exchange(TheDesktop().focus, window);
    if (LookUpWindow(previous))
        SendMessageA(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    // If a handler moved the focus on, the nested call has already notified the new window.
    if (TheDesktop().focus == window && LookUpWindow(window))
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
    return before;
}

HWND GetFocus()
{
    return TheDesktop().focus;
}

HWND SetActiveWindow(HWND window)
{
    const HWND previous = TheDesktop().active;
    const Window* found = LookUpWindow(window);
    if (!window || (found && !found->IsChild()))
        ActivateWindow(window, WA_ACTIVE);
    return previous;
}

HWND GetActiveWindow()
{
    return TheDesktop().active;
}

BOOL SetForegroundWindow(HWND window)
{
    const Window* found = LookUpWindow(window);
    if (!found || found->IsChild())
        return FALSE;
    ActivateWindow(window, WA_ACTIVE);
    return TRUE;
}

HWND GetForegroundWindow()
{
    return TheDesktop().active;
}
