// The active window and the focus.

#include <algorithm>
#include <utility>

#include "native/user/queue.h"
#include "native/user/window.h"

namespace qvui::native {

void ForgetInput(HWND window);

namespace {

HWND g_active = nullptr;
HWND g_focus = nullptr;

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

}  // namespace

void ForgetWindow(HWND window)
{
    ForgetInput(window);
    if (g_active == window)
        g_active = nullptr;
    if (g_focus == window)
        g_focus = nullptr;
}

void ActivateWindow(HWND window, int how)
{
    if (window == g_active)
        return;
    const HWND previous = g_active;
    const auto newParameter = reinterpret_cast<LPARAM>(window);
    if (LookUpWindow(previous)) {
        SendMessageA(previous, WM_NCACTIVATE, FALSE, newParameter);
        SendMessageA(previous, WM_ACTIVATE, WA_INACTIVE, newParameter);
    }
    if (window && !LookUpWindow(window))
        return;
    g_active = window;
    if (!window) {
        SetFocus(nullptr);
        return;
    }
    std::vector<HWND>& order = TopLevelWindows();
    std::erase(order, window);
    order.insert(order.begin(), window);
    TheDisplay().Activate(window);
    const auto oldParameter = reinterpret_cast<LPARAM>(previous);
    SendMessageA(window, WM_NCACTIVATE, TRUE, oldParameter);
    SendMessageA(window, WM_ACTIVATE, static_cast<WPARAM>(how), oldParameter);
}

void ActivateNextTo(HWND leaving)
{
    if (g_active != leaving)
        return;
    const Window* window = LookUpWindow(leaving);
    HWND next = window ? window->owner : nullptr;
    const auto isCandidate = [leaving](HWND handle) {
        const Window* other = LookUpWindow(handle);
        return other && handle != leaving && (other->style & WS_VISIBLE) &&
               !(other->style & (WS_DISABLED | WS_MINIMIZE)) && !(other->exStyle & WS_EX_NOACTIVATE);
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
    if (!g_focus || (g_focus != hidden && !IsChild(hidden, g_focus)))
        return;
    const Window* window = LookUpWindow(hidden);
    SetFocus(window && window->IsChild() ? window->parent : nullptr);
}

}  // namespace qvui::native

using namespace qvui::native;

HWND SetFocus(HWND window)
{
    if (window == g_focus)
        return g_focus;
    if (window && !CanTakeFocus(window))
        return nullptr;
    if (Window* found = LookUpWindow(window)) {
        const HWND root = RootOf(*found)->handle;
        if (root != g_active)
            ActivateWindow(root, WA_ACTIVE);
        if (g_focus == window)
            return nullptr;
    }
    const HWND previous = std::exchange(g_focus, window);
    if (LookUpWindow(previous))
        SendMessageA(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    // A handler that moved the focus on has told the other window already.
    if (g_focus == window && LookUpWindow(window))
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
    return previous;
}

HWND GetFocus() { return g_focus; }

HWND SetActiveWindow(HWND window)
{
    const HWND previous = g_active;
    if (LookUpWindow(window))
        ActivateWindow(window, WA_ACTIVE);
    return previous;
}

HWND GetActiveWindow() { return g_active; }

BOOL SetForegroundWindow(HWND window)
{
    if (!LookUpWindow(window))
        return FALSE;
    ActivateWindow(window, WA_ACTIVE);
    return TRUE;
}

HWND GetForegroundWindow() { return g_active; }
