// Window attributes: styles, values, title and enabled state.

#include "native/user/desktop.h"

using namespace qvui::native;

LONG_PTR GetWindowLongPtrA(HWND handle, int index)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return 0;
    switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWL_STYLE:
            return static_cast<LONG>(window->style);
        case GWL_EXSTYLE:
            return static_cast<LONG>(window->exStyle);
        case GWLP_ID:
            return window->id;
        case GWLP_USERDATA:
            return window->userData;
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(window->IsChild() ? window->parent : window->owner);
        default:
            const auto extra = window->extra.find(index);
            return extra == window->extra.end() ? 0 : extra->second;
    }
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return 0;
    const LONG_PTR previous = GetWindowLongPtrA(handle, index);
    switch (index) {
        case GWLP_WNDPROC:
            window->procedure = reinterpret_cast<WNDPROC>(value);
            break;
        case GWL_STYLE:
            // A window cannot change between child and top-level, because the window lists would not follow.
            window->style = (static_cast<DWORD>(value) & ~WS_CHILD) | (window->style & WS_CHILD);
            break;
        case GWL_EXSTYLE:
            // The topmost style is part of the z-order, which only SetWindowPos changes.
            window->exStyle =
                (static_cast<DWORD>(value) & ~WS_EX_TOPMOST) | (window->exStyle & WS_EX_TOPMOST);
            break;
        case GWLP_ID:
            window->id = value;
            break;
        case GWLP_USERDATA:
            window->userData = value;
            break;
        case GWLP_HWNDPARENT:
            if (!window->IsChild())
                window->owner = reinterpret_cast<HWND>(value);
            break;
        default:
            window->extra[index] = value;
    }
    return previous;
}

LONG GetWindowLongA(HWND window, int index)
{
    return static_cast<LONG>(GetWindowLongPtrA(window, index));
}

LONG SetWindowLongA(HWND window, int index, LONG value)
{
    return static_cast<LONG>(SetWindowLongPtrA(window, index, value));
}

BOOL SetWindowTextA(HWND window, LPCSTR text)
{
    return LookUpWindow(window) && SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int GetWindowTextA(HWND window, LPSTR text, int capacity)
{
    if (!LookUpWindow(window) || capacity <= 0)
        return 0;
    return static_cast<int>(
        SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(capacity), reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextLengthA(HWND window)
{
    return static_cast<int>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0));
}

int GetDlgCtrlID(HWND window)
{
    return static_cast<int>(GetWindowLongPtrA(window, GWLP_ID));
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (wasDisabled == !enable)
        return wasDisabled;
    if (!enable)
        SendMessageA(handle, WM_CANCELMODE, 0, 0);
    if ((window = LookUpWindow(handle)) == nullptr)
        return wasDisabled;
    window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
    if (!enable && GetFocus() == handle)
        SetFocus(nullptr);
    SendMessageA(handle, WM_ENABLE, static_cast<WPARAM>(enable != FALSE), 0);
    return wasDisabled;
}
