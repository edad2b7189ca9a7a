#include "native/user/focus.h"

#include <algorithm>
#include <utility>

#include "native/user/desktop.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

bool HasFocusInside(HWND window)
{
    return TheDesktop().focus && (TheDesktop().focus == window || IsChild(window, TheDesktop().focus));
}

void TellDeactivated(HWND previous, HWND next)
{
    // A handler that activates another window is not notified again, which prevents endless recursion.
    if (!LookUpWindow(previous) || TheDesktop().leaving == previous)
        return;
    const HWND outer = std::exchange(TheDesktop().leaving, previous);
    SendMessageA(previous, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next));
    SendMessageA(previous, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(next));
    TheDesktop().leaving = outer;
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

void ForgetActivation(HWND window)
{
    if (TheDesktop().active == window)
        TheDesktop().active = nullptr;
    if (TheDesktop().focus == window)
        TheDesktop().focus = nullptr;
}

bool IsActivatable(const Window& window)
{
    return !window.IsChild() && !(window.style & WS_DISABLED) && !(window.exStyle & WS_EX_NOACTIVATE);
}

void ActivateWindow(HWND window, int how)
{
    if (window == TheDesktop().active)
        return;
    const HWND previous = TheDesktop().active;
    TellDeactivated(previous, window);
    // The handlers may have activated another window, which then stays active, or destroyed this one.
    if ((TheDesktop().active != previous && TheDesktop().active != nullptr) ||
        (window && !LookUpWindow(window)))
        return;
    TheDesktop().active = window;
    if (!window) {
        SetFocus(nullptr);
        return;
    }
    TellActivated(window, how, previous);
    // The default handling of WM_ACTIVATE has moved the focus, unless the application handled the message
    // itself.
    if (TheDesktop().active == window && !HasFocusInside(window))
        SetFocus(window);
}

void ActivateNextTo(HWND leaving)
{
    if (TheDesktop().active != leaving)
        return;
    const Window* window = LookUpWindow(leaving);
    HWND next = window ? window->owner : nullptr;
    const auto isCandidate = [leaving](HWND handle) {
        const Window* other = LookUpWindow(handle);
        return other && handle != leaving && other->IsVisible() && !(other->style & WS_MINIMIZE) &&
               IsActivatable(*other);
    };
    if (!isCandidate(next)) {
        const auto& order = TheDesktop().topLevel;
        const auto found = std::find_if(order.begin(), order.end(), isCandidate);
        next = found == order.end() ? nullptr : *found;
    }
    ActivateWindow(next, WA_ACTIVE);
}

void FocusLeaves(HWND hidden)
{
    const Window* window = LookUpWindow(hidden);
    if (window && TheDesktop().focus == hidden)
        SetFocus(window->IsChild() ? window->parent : nullptr);
}

}  // namespace qvui::native
