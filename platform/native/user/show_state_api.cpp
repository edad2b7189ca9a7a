// Shows, hides, minimises, maximises and restores windows.

#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

namespace {

constexpr DWORD kSpecial = WS_MAXIMIZE | WS_MINIMIZE;

// An overlapped window receives its first WM_SIZE and WM_MOVE only when it is first shown.
void SendFirstSize(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window || std::exchange(window->wasShown, true))
        return;
    if (window->IsChild() || (window->style & WS_POPUP))
        return;
    const WPARAM how = window->style & WS_MAXIMIZE ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const LPARAM size = MAKELPARAM(window->Width(), window->Height());
    const LPARAM corner =
        MAKELPARAM(static_cast<WORD>(window->rect.left), static_cast<WORD>(window->rect.top));
    SendMessageA(handle, WM_SIZE, how, size);
    SendMessageA(handle, WM_MOVE, 0, corner);
}

RECT LargestPlace(HWND handle)
{
    const SIZE screen = TheDisplay().ScreenSize();
    MINMAXINFO limits{};
    limits.ptMaxSize = {screen.cx, screen.cy};
    SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    return {limits.ptMaxPosition.x, limits.ptMaxPosition.y, limits.ptMaxPosition.x + limits.ptMaxSize.x,
            limits.ptMaxPosition.y + limits.ptMaxSize.y};
}

void Resize(HWND handle, const RECT& rect, UINT flags = 0)
{
    SetWindowPos(handle, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 SWP_NOZORDER | SWP_FRAMECHANGED | SWP_SHOWWINDOW | flags);
}

void Minimise(HWND handle, bool activatesNext)
{
    Window* window = LookUpWindow(handle);
    ForgetPaint(*window);
    const bool wasVisible = window->IsVisible();
    window->style |= WS_MINIMIZE | WS_VISIBLE;
    if (!window->IsChild()) {
        if (!wasVisible)
            TheDisplay().Show(handle, true);
        TheDisplay().Minimise(handle, true);
    }
    SendMessageA(handle, WM_SIZE, SIZE_MINIMIZED, 0);
    if (activatesNext)
        ActivateNextTo(handle);
}

// Leaves the minimised state; the caller sets the new position.
void LeaveIcon(Window& window)
{
    window.style &= ~WS_MINIMIZE;
    if (!window.IsChild())
        TheDisplay().Minimise(window.handle, false);
    InvalidateTree(window);
}

void Maximise(HWND handle)
{
    const RECT place = LargestPlace(handle);
    Window* window = LookUpWindow(handle);
    if (!window)
        return;
    if (window->style & WS_MINIMIZE)
        LeaveIcon(*window);
    window->style |= WS_MAXIMIZE;
    Resize(handle, place);
}

void Restore(HWND handle, int command)
{
    Window* window = LookUpWindow(handle);
    const bool wasIcon = (window->style & WS_MINIMIZE) != 0;
    if (wasIcon)
        LeaveIcon(*window);
    else
        window->style &= ~WS_MAXIMIZE;
    const bool staysMaximised = (window->style & WS_MAXIMIZE) != 0;
    Resize(handle, staysMaximised ? window->rect : window->restored,
           command == SW_SHOWNOACTIVATE ? SWP_NOACTIVATE : 0);
    if (!wasIcon || (window = LookUpWindow(handle)) == nullptr)
        return;
    // The size is unchanged, but the window had been told a size of zero.
    SendMessageA(handle, WM_SIZE, staysMaximised ? SIZE_MAXIMIZED : SIZE_RESTORED,
                 MAKELPARAM(window->Width(), window->Height()));
}

void ChangeState(HWND handle, int command)
{
    Window* window = LookUpWindow(handle);
    if (!(window->style & kSpecial))
        window->restored = window->rect;
    if (command == SW_SHOWMAXIMIZED)
        Maximise(handle);
    else if (command == SW_MINIMIZE || command == SW_SHOWMINIMIZED)
        Minimise(handle, command == SW_MINIMIZE || GetActiveWindow() == handle);
    else
        Restore(handle, command);
}

bool IsStateChange(const Window& window, int command)
{
    switch (command) {
        case SW_SHOWMAXIMIZED:
            return (window.style & kSpecial) != WS_MAXIMIZE || !window.IsVisible();
        case SW_MINIMIZE:
        case SW_SHOWMINIMIZED:
            return !(window.style & WS_MINIMIZE);
        case SW_RESTORE:
        case SW_SHOWNORMAL:
        case SW_SHOWNOACTIVATE:
            return (window.style & kSpecial) != 0;
        default:
            return false;
    }
}

void Hide(HWND handle)
{
    SendMessageA(handle, WM_SHOWWINDOW, FALSE, 0);
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    const Window* window = LookUpWindow(handle);
    if (!window)
        return;
    if (window->IsChild())
        FocusLeaves(handle);
    else
        ActivateNextTo(handle);
}

void Show(HWND handle, int command)
{
    SendMessageA(handle, WM_SHOWWINDOW, TRUE, 0);
    Window* window = LookUpWindow(handle);
    if (!window)
        return;
    const Window* parent = window->IsChild() ? LookUpWindow(window->parent) : nullptr;
    if (parent && !IsShown(*parent)) {
        window->style |= WS_VISIBLE;
        return;
    }
    const bool activates =
        !parent && command != SW_SHOWNOACTIVATE && command != SW_SHOWNA && IsActivatable(*window);
    const bool raises = !parent && command != SW_SHOWNOACTIVATE;
    SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW | (raises ? 0 : SWP_NOZORDER) |
                     (activates ? 0 : SWP_NOACTIVATE));
    SendFirstSize(handle);
}

}  // namespace

BOOL ShowWindow(HWND handle, int command)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const bool wasVisible = window->IsVisible();
    if (IsStateChange(*window, command)) {
        ChangeState(handle, command);
        SendFirstSize(handle);
    } else if (command == SW_HIDE) {
        if (wasVisible)
            Hide(handle);
    } else if (!wasVisible) {
        Show(handle, command);
    } else if (!window->IsChild() && command != SW_SHOWNOACTIVATE && command != SW_SHOWNA &&
               IsActivatable(*window)) {
        ActivateWindow(handle, WA_ACTIVE);
    }
    return wasVisible;
}
