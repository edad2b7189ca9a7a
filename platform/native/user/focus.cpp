#include "native/user/activation.h"

#include <algorithm>
#include <utility>

#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

HWND g_active = nullptr;
HWND g_focus = nullptr;
HWND g_leaving = nullptr;  // the window that is being told that it is no longer active

bool CanTakeFocus(HWND handle)
{
    for (const Window* window = LookUpWindow(handle); window;
         window = window->IsChild() ? LookUpWindow(window->parent) : nullptr) {
        if (window->style & (WS_DISABLED | WS_MINIMIZE))
            return false;
        if (!window->IsChild())
            return true;
    }
    return false;
}

bool HasFocusInside(HWND window)
{
    return g_focus && (g_focus == window || IsChild(window, g_focus));
}

void TellDeactivated(HWND previous, HWND next)
{
    // A handler that activates another window must not be told again, or it would never end.
    if (!LookUpWindow(previous) || g_leaving == previous)
        return;
    const HWND outer = std::exchange(g_leaving, previous);
    SendMessageA(previous, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next));
    SendMessageA(previous, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(next));
    g_leaving = outer;
}

void TellActivated(HWND window, int how, HWND previous)
{
    if (Window* found = LookUpWindow(window)) {
        Restack(*found, HWND_TOP);
        TheDisplay().Activate(window);
    }
    SendMessageA(window, WM_NCACTIVATE, TRUE, reinterpret_cast<LPARAM>(previous));
    SendMessageA(window, WM_ACTIVATE, static_cast<WPARAM>(how), reinterpret_cast<LPARAM>(previous));
}

}  // namespace

void ForgetActivation(HWND window)
{
    if (g_active == window)
        g_active = nullptr;
    if (g_focus == window)
        g_focus = nullptr;
}

bool IsActivatable(const Window& window)
{
    return !window.IsChild() && !(window.style & WS_DISABLED) && !(window.exStyle & WS_EX_NOACTIVATE);
}

void ActivateWindow(HWND window, int how)
{
    if (window == g_active)
        return;
    const HWND previous = g_active;
    TellDeactivated(previous, window);
    // The handlers may have activated another window, which then stays so, or destroyed this one.
    if ((g_active != previous && g_active != nullptr) || (window && !LookUpWindow(window)))
        return;
    g_active = window;
    if (!window) {
        SetFocus(nullptr);
        return;
    }
    TellActivated(window, how, previous);
    // The default handling of WM_ACTIVATE has moved the focus, unless somebody kept the message from it.
    if (g_active == window && !HasFocusInside(window))
        SetFocus(window);
}

void ActivateNextTo(HWND leaving)
{
    if (g_active != leaving)
        return;
    const Window* window = LookUpWindow(leaving);
    HWND next = window ? window->owner : nullptr;
    const auto isCandidate = [leaving](HWND handle) {
        const Window* other = LookUpWindow(handle);
        return other && handle != leaving && other->IsVisible() && !(other->style & WS_MINIMIZE) &&
               IsActivatable(*other);
    };
    if (!isCandidate(next)) {
        const auto& order = TopLevelWindows();
        const auto found = std::find_if(order.begin(), order.end(), isCandidate);
        next = found == order.end() ? nullptr : *found;
    }
    ActivateWindow(next, WA_ACTIVE);
}

void FocusLeaves(HWND hidden)
{
    const Window* window = LookUpWindow(hidden);
    if (window && g_focus == hidden)
        SetFocus(window->IsChild() ? window->parent : nullptr);
}

}  // namespace qvui::native

using namespace qvui::native;

HWND SetFocus(HWND window)
{
    if (window == g_focus)
        return g_focus;
    if (window && !CanTakeFocus(window))
        return nullptr;
    const HWND before = g_focus;
    if (Window* found = LookUpWindow(window)) {
        const HWND root = RootOf(*found)->handle;
        if (root != g_active)
            ActivateWindow(root, WA_ACTIVE);
        if (g_focus == window || g_active != root || !LookUpWindow(window))
            return before;
    }
    const HWND previous = std::exchange(g_focus, window);
    if (LookUpWindow(previous))
        SendMessageA(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    // A handler that moved the focus on has told the other window already.
    if (g_focus == window && LookUpWindow(window))
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
    return before;
}

HWND GetFocus()
{
    return g_focus;
}

HWND SetActiveWindow(HWND window)
{
    const HWND previous = g_active;
    const Window* found = LookUpWindow(window);
    if (!window || (found && !found->IsChild()))
        ActivateWindow(window, WA_ACTIVE);
    return previous;
}

HWND GetActiveWindow()
{
    return g_active;
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
    return g_active;
}
