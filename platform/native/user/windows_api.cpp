// Creates and destroys windows.

#include <algorithm>

#include "native/core/live_counts.h"
#include "native/kernel/code_pages.h"
#include "native/user/caret.h"
#include "native/user/classes.h"
#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/input_queue.h"
#include "native/user/message_queue.h"
#include "native/user/timers.h"
#include "native/user/window_tree.h"

namespace qvui::native {

namespace {

[[maybe_unused]] const bool g_counted =
    RegisterLiveCount(&LiveCounts::windows, [] { return TheDesktop().windows.LiveCount(); });

HWND AddWindow(const std::shared_ptr<WindowClass>& windowClass, const CREATESTRUCTA& parameters)
{
    constexpr DWORD kLater = WS_VISIBLE | WS_MAXIMIZE | WS_MINIMIZE;
    auto window = std::make_shared<Window>();
    window->windowClass = windowClass;
    window->procedure = windowClass->definition.lpfnWndProc;
    window->style = static_cast<DWORD>(parameters.style) & ~kLater;
    window->exStyle = parameters.dwExStyle;
    window->title = parameters.lpszName ? parameters.lpszName : "";
    window->rect = {parameters.x, parameters.y, parameters.x + parameters.cx, parameters.y + parameters.cy};
    window->restored = window->rect;
    if (window->IsChild()) {
        window->parent = parameters.hwndParent;
        window->id = reinterpret_cast<LONG_PTR>(parameters.hMenu);
    } else if (Window* owner = LookUpWindow(parameters.hwndParent)) {
        window->owner = RootOf(*owner)->handle;
    }
    Window& created = *window;
    created.handle = static_cast<HWND>(TheDesktop().windows.Insert(std::move(window)));
    AddToTree(created);
    return created.handle;
}

void OpenOnDisplay(Window& window)
{
    window.surface = Surface::Create(std::max(window.Width(), 1), std::max(window.Height(), 1), 32, false);
    SurfaceOptions options;
    options.isDecorated = (window.style & WS_CAPTION) == WS_CAPTION;
    options.isSizable = (window.style & WS_THICKFRAME) != 0;
    const bool isTool =
        (window.exStyle & WS_EX_TOOLWINDOW) && (window.style & WS_POPUP) && !options.isDecorated;
    options.isPassive = (window.exStyle & WS_EX_NOACTIVATE) != 0;
    options.isPopup = isTool || options.isPassive;
    options.isLayered = (window.exStyle & WS_EX_LAYERED) != 0;
    options.owner = window.owner;
    options.title = SystemToUtf8(window.title);
    TheDisplay().Open(window.handle, window.rect, options);
}

void NotifyParent(HWND child, UINT what)
{
    const Window* window = LookUpWindow(child);
    if (window && window->IsChild())
        SendMessageA(window->parent, WM_PARENTNOTIFY, MAKEWPARAM(what, static_cast<DWORD_PTR>(window->id)),
                     reinterpret_cast<LPARAM>(child));
}

// Final teardown; the handle is invalid afterwards.
void Erase(HWND handle)
{
    RemoveTimersOf(handle);
    RemoveMessagesOf(handle);
    ForgetInput(handle);
    ForgetActivation(handle);
    ForgetCaret(handle);
    const Window* window = LookUpWindow(handle);
    if (!window)
        return;
    RemoveFromTree(*window);
    if (!window->IsChild())
        TheDisplay().Close(handle);
    TheDesktop().windows.Remove(handle);
    PointerMayHaveMoved();
}

void SendDestroy(HWND handle)
{
    SendMessageA(handle, WM_DESTROY, 0, 0);
    Window* window = LookUpWindow(handle);
    if (!window)
        return;
    const std::vector<HWND> children = window->children;
    for (const HWND child : children)
        if (Window* below = LookUpWindow(child); below && !below->isBeingDestroyed) {
            below->isBeingDestroyed = true;
            SendDestroy(child);
        }
}

void SendNcDestroy(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return;
    const std::vector<HWND> children = window->children;
    for (const HWND child : children)
        SendNcDestroy(child);
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    Erase(handle);
}

void DestroyOwned(HWND owner)
{
    const std::vector<HWND> others = TheDesktop().topLevel;
    for (const HWND other : others)
        if (const Window* owned = LookUpWindow(other); owned && owned->owner == owner)
            DestroyWindow(other);
}

void HideBeforeDestruction(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (window->IsChild()) {
        if (window->IsVisible())
            ShowWindow(handle, SW_HIDE);
        FocusLeaves(handle);
        return;
    }
    if (window->IsVisible())
        SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    DestroyOwned(handle);
    ActivateNextTo(handle);
}

// Replaces CW_USEDEFAULT by default positions and sizes.
void ChoosePlace(CREATESTRUCTA& parameters)
{
    const SIZE screen = parameters.style & WS_CHILD ? SIZE{0, 0} : TheDisplay().ScreenSize();
    if (parameters.cx == CW_USEDEFAULT) {
        parameters.cx = screen.cx * 3 / 4;
        parameters.cy = screen.cy * 3 / 4;
    }
    if (parameters.x == CW_USEDEFAULT) {
        parameters.x = (screen.cx - parameters.cx) / 2;
        parameters.y = (screen.cy - parameters.cy) / 2;
    }
    parameters.cx = std::max(parameters.cx, 0);
    parameters.cy = std::max(parameters.cy, 0);
}

// Sends the creation messages to a new window. Returns false if it rejects its creation.
bool SendCreation(HWND handle, CREATESTRUCTA& parameters)
{
    const auto lParam = reinterpret_cast<LPARAM>(&parameters);
    const bool isOverlapped = !(parameters.style & static_cast<LONG>(WS_CHILD | WS_POPUP));
    if (isOverlapped) {
        MINMAXINFO limits{};
        SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    }
    bool isAccepted = SendMessageA(handle, WM_NCCREATE, 0, lParam) != FALSE;
    if (const Window* window = LookUpWindow(handle); window && isAccepted) {
        RECT rect = window->rect;
        SendMessageA(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
        isAccepted = SendMessageA(handle, WM_CREATE, 0, lParam) != -1;
    }
    if (!isAccepted) {
        SendNcDestroy(handle);
        return false;
    }
    const Window* window = LookUpWindow(handle);
    if (window && !isOverlapped) {
        const RECT rect = window->rect;
        SendMessageA(handle, WM_SIZE, SIZE_RESTORED,
                     MAKELPARAM(rect.right - rect.left, rect.bottom - rect.top));
        SendMessageA(handle, WM_MOVE, 0,
                     MAKELPARAM(static_cast<WORD>(rect.left), static_cast<WORD>(rect.top)));
    }
    NotifyParent(handle, WM_CREATE);
    return LookUpWindow(handle) != nullptr;
}

}  // namespace
}  // namespace qvui::native

using namespace qvui::native;

HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width,
                     int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    const std::shared_ptr<WindowClass> windowClass = className ? FindClass(className) : nullptr;
    if (!windowClass) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    if ((style & WS_CHILD) && !LookUpWindow(parent)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    CREATESTRUCTA parameters{
        parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
        title,     className, exStyle};
    ChoosePlace(parameters);
    const HWND handle = AddWindow(windowClass, parameters);
    if (!(style & WS_CHILD))
        OpenOnDisplay(*LookUpWindow(handle));
    if (!SendCreation(handle, parameters))
        return nullptr;
    if (style & WS_VISIBLE)
        ShowWindow(handle, style & WS_MAXIMIZE   ? SW_SHOWMAXIMIZED
                           : style & WS_MINIMIZE ? SW_SHOWMINIMIZED
                                                 : SW_SHOW);
    return LookUpWindow(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->isBeingDestroyed) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    window->isBeingDestroyed = true;
    NotifyParent(handle, WM_DESTROY);
    if (LookUpWindow(handle))
        HideBeforeDestruction(handle);
    SendDestroy(handle);
    SendNcDestroy(handle);
    return TRUE;
}

BOOL IsWindow(HWND window)
{
    return LookUpWindow(window) != nullptr;
}
