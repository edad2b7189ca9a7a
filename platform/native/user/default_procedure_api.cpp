// Default handling of messages that the application does not process.

#include <algorithm>
#include <cstring>

#include "native/kernel/code_pages.h"
#include "native/user/desktop.h"
#include "native/user/move_size.h"
#include "native/user/painting.h"

using namespace qvui::native;

namespace {

LRESULT SetTitle(Window& window, LPCSTR text)
{
    window.title = text ? text : "";
    if (!window.IsChild())
        TheDisplay().SetTitle(window.handle, SystemToUtf8(window.title));
    return TRUE;
}

LRESULT CopyTitle(const Window& window, WPARAM capacity, char* buffer)
{
    if (capacity == 0)
        return 0;
    const std::size_t length = std::min<std::size_t>(window.title.size(), capacity - 1);
    std::memcpy(buffer, window.title.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

LRESULT EraseBackground(const Window& window, HDC dc)
{
    const HBRUSH brush = window.windowClass->definition.hbrBackground;
    if (!brush)
        return 0;
    RECT box;
    GetClipBox(dc, &box);
    return FillRect(dc, &box, brush);
}

// Resizable windows and overlapped windows respect the limits that they report.
void LimitSize(const Window& window, WINDOWPOS& position)
{
    if ((position.flags & SWP_NOSIZE) ||
        (!(window.style & WS_THICKFRAME) && (window.style & (WS_POPUP | WS_CHILD))))
        return;
    const MINMAXINFO limits = SizeLimits(window.handle);
    position.cx = std::max(std::min(position.cx, static_cast<int>(limits.ptMaxTrackSize.x)),
                           static_cast<int>(limits.ptMinTrackSize.x));
    position.cy = std::max(std::min(position.cy, static_cast<int>(limits.ptMaxTrackSize.y)),
                           static_cast<int>(limits.ptMinTrackSize.y));
}

void PositionChanged(Window& window, const WINDOWPOS& position)
{
    const HWND handle = window.handle;
    const int width = window.Width();
    const int height = window.Height();
    const WPARAM how = window.style & WS_MAXIMIZE ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const POINT corner{window.rect.left, window.rect.top};
    if (!(position.flags & SWP_NOMOVE))
        SendMessageA(handle, WM_MOVE, 0,
                     MAKELPARAM(static_cast<WORD>(corner.x), static_cast<WORD>(corner.y)));
    if (!(position.flags & SWP_NOSIZE))
        SendMessageA(handle, WM_SIZE, how, MAKELPARAM(static_cast<WORD>(width), static_cast<WORD>(height)));
}

// `under` is the window under the pointer, which may be a child of the window that handles the message.
LRESULT SetClassCursor(HWND under, LPARAM lParam)
{
    const auto hit = static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam)));
    static constexpr struct {
        int hit;
        int cursor;
    } kBorders[] = {{HTLEFT, 32644},    {HTRIGHT, 32644},       {HTTOP, 32645},      {HTBOTTOM, 32645},
                    {HTTOPLEFT, 32642}, {HTBOTTOMRIGHT, 32642}, {HTTOPRIGHT, 32643}, {HTBOTTOMLEFT, 32643}};
    for (const auto& border : kBorders)
        if (border.hit == hit) {
            SetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(border.cursor)));
            return TRUE;
        }
    if (hit != HTCLIENT) {
        SetCursor(LoadCursorA(nullptr, IDC_ARROW));
        return TRUE;
    }
    const Window* window = LookUpWindow(under);
    const HCURSOR cursor = window ? window->windowClass->definition.hCursor : nullptr;
    if (cursor)
        SetCursor(cursor);
    return cursor != nullptr;
}

LRESULT SystemCommand(HWND handle, WPARAM command)
{
    switch (command & 0xFFF0) {
        case SC_CLOSE:
            SendMessageA(handle, WM_CLOSE, 0, 0);
            break;
        case SC_MINIMIZE:
            ShowWindow(handle, SW_MINIMIZE);
            break;
        case SC_MAXIMIZE:
            ShowWindow(handle, SW_SHOWMAXIMIZED);
            break;
        case SC_RESTORE:
            ShowWindow(handle, SW_RESTORE);
            break;
        case SC_MOVE:
        case SC_SIZE:
            MoveOrSizeByCommand(handle, command);
            break;
        default:
            break;
    }
    return 0;
}

LRESULT NonClientPress(HWND handle, int hit)
{
    if (hit == HTCAPTION)
        SendMessageA(handle, WM_SYSCOMMAND, SC_MOVE | HTCAPTION, 0);
    else if (hit >= HTLEFT && hit <= HTBOTTOMRIGHT)
        SendMessageA(handle, WM_SYSCOMMAND, SC_SIZE | static_cast<WPARAM>(hit - HTLEFT + 1), 0);
    return 0;
}

LRESULT ReleaseRightButton(HWND handle, LPARAM lParam)
{
    POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ClientToScreen(handle, &point);
    return SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                        MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

LRESULT PassToParent(const Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return window.IsChild() ? SendMessageA(window.parent, message, wParam, lParam) : 0;
}

void Paint(HWND handle)
{
    PAINTSTRUCT paint;
    BeginPaint(handle, &paint);
    EndPaint(handle, &paint);
}

LRESULT SystemKey(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    constexpr LPARAM kAltDown = 1 << 29;
    const bool isAlt = (lParam & kAltDown) != 0;
    if (message == WM_SYSKEYDOWN && wParam == VK_F4 && isAlt)
        PostMessageA(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
    else if (message == WM_SYSKEYUP && (wParam == VK_MENU || wParam == VK_F10))
        SendMessageA(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_KEYMENU, 0);
    else if (message == WM_SYSCHAR && isAlt && wParam != VK_RETURN && wParam != VK_ESCAPE && wParam != VK_TAB)
        SendMessageA(handle, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(wParam));
    return 0;
}

LRESULT MouseActivate(const Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window.IsChild())
        return PassToParent(window, message, wParam, lParam);
    return window.exStyle & WS_EX_NOACTIVATE ? MA_NOACTIVATE : MA_ACTIVATE;
}

LRESULT SetRedraw(Window& window, bool isOn)
{
    window.isRedrawOff = !isOn;
    if (!isOn)
        ForgetPaint(window);
    return 0;
}

}  // namespace

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return 0;
    switch (message) {
        case WM_NCCREATE:
        case WM_NCACTIVATE:
            return TRUE;
        case WM_SETTEXT:
            return SetTitle(*window, reinterpret_cast<LPCSTR>(lParam));
        case WM_GETTEXT:
            return CopyTitle(*window, wParam, reinterpret_cast<char*>(lParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->title.size());
        case WM_SETREDRAW:
            return SetRedraw(*window, wParam != FALSE);
        case WM_PAINT:
            Paint(handle);
            return 0;
        case WM_ERASEBKGND:
            return EraseBackground(*window, reinterpret_cast<HDC>(wParam));
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_WINDOWPOSCHANGING:
            LimitSize(*window, *reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        case WM_WINDOWPOSCHANGED:
            PositionChanged(*window, *reinterpret_cast<const WINDOWPOS*>(lParam));
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE && !(window->style & WS_MINIMIZE))
                SetFocus(handle);
            return 0;
        case WM_MOUSEACTIVATE:
            return MouseActivate(*window, message, wParam, lParam);
        case WM_SETCURSOR:
            if (window->IsChild() && PassToParent(*window, message, wParam, lParam))
                return TRUE;
            return SetClassCursor(reinterpret_cast<HWND>(wParam), lParam);
        case WM_NCHITTEST:
            return HTCLIENT;
        case WM_NCLBUTTONDOWN:
            return NonClientPress(handle, static_cast<int>(wParam));
        case WM_NCLBUTTONDBLCLK:
            if (wParam == HTCAPTION)
                PostMessageA(handle, WM_SYSCOMMAND, window->style & WS_MAXIMIZE ? SC_RESTORE : SC_MAXIMIZE,
                             lParam);
            return 0;
        case WM_SYSCOMMAND:
            return SystemCommand(handle, wParam);
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
        case WM_SYSCHAR:
            return SystemKey(handle, message, wParam, lParam);
        case WM_RBUTTONUP:
            return ReleaseRightButton(handle, lParam);
        case WM_CANCELMODE:
            if (GetCapture() == handle)
                ReleaseCapture();
            return 0;
        case WM_MOUSEWHEEL:
        case WM_CONTEXTMENU:
            return PassToParent(*window, message, wParam, lParam);
        default:
            return 0;
    }
}
