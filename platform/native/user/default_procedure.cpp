// What a window does with the messages that its application leaves alone.

#include <algorithm>
#include <cstring>

#include "native/kernel/code_pages.h"
#include "native/user/queue.h"
#include "native/user/window.h"

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

void PositionChanged(Window& window, const WINDOWPOS& position)
{
    const HWND handle = window.handle;
    const int width = window.Width();
    const int height = window.Height();
    const WPARAM how = window.style & WS_MAXIMIZE ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const POINT corner{window.rect.left, window.rect.top};
    if (!(position.flags & SWP_NOMOVE))
        SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(static_cast<WORD>(corner.x), static_cast<WORD>(corner.y)));
    if (!(position.flags & SWP_NOSIZE))
        SendMessageA(handle, WM_SIZE, how, MAKELPARAM(static_cast<WORD>(width), static_cast<WORD>(height)));
}

LRESULT SetClassCursor(const Window& window, LPARAM lParam)
{
    const auto hit = static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam)));
    static constexpr struct {
        int hit;
        int cursor;
    } kBorders[] = {{HTLEFT, 32644},    {HTRIGHT, 32644},   {HTTOP, 32645},        {HTBOTTOM, 32645},
                    {HTTOPLEFT, 32642}, {HTBOTTOMRIGHT, 32642}, {HTTOPRIGHT, 32643}, {HTBOTTOMLEFT, 32643}};
    for (const auto& border : kBorders)
        if (border.hit == hit) {
            SetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(border.cursor)));
            return TRUE;
        }
    const HCURSOR cursor = window.windowClass->definition.hCursor;
    SetCursor(cursor ? cursor : LoadCursorA(nullptr, IDC_ARROW));
    return TRUE;
}

// Moves or sizes a window with the mouse until the button goes up; the edges that move are told by `hit`.
void MoveWithMouse(HWND handle, int hit)
{
    RECT start{};
    POINT from{};
    if (!GetWindowRect(handle, &start) || IsZoomed(handle))
        return;
    GetCursorPos(&from);
    const bool left = hit == HTLEFT || hit == HTTOPLEFT || hit == HTBOTTOMLEFT || hit == HTCAPTION;
    const bool right = hit == HTRIGHT || hit == HTTOPRIGHT || hit == HTBOTTOMRIGHT || hit == HTCAPTION;
    const bool top = hit == HTTOP || hit == HTTOPLEFT || hit == HTTOPRIGHT || hit == HTCAPTION;
    const bool bottom = hit == HTBOTTOM || hit == HTBOTTOMLEFT || hit == HTBOTTOMRIGHT || hit == HTCAPTION;
    MINMAXINFO limits{};
    limits.ptMinTrackSize = {80, 40};
    SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    SetCapture(handle);
    SendMessageA(handle, WM_ENTERSIZEMOVE, 0, 0);
    MSG message;
    while (LookUpWindow(handle) && GetCapture() == handle && IsKeyDown(VK_LBUTTON) &&
           GetMessageA(&message, nullptr, 0, 0)) {
        if (message.message == WM_LBUTTONUP)
            break;
        if (message.message != WM_MOUSEMOVE || message.hwnd != handle) {
            DispatchMessageA(&message);
            continue;
        }
        POINT now{};
        GetCursorPos(&now);
        RECT rect = start;
        rect.left += left ? now.x - from.x : 0;
        rect.right += right ? now.x - from.x : 0;
        rect.top += top ? now.y - from.y : 0;
        rect.bottom += bottom ? now.y - from.y : 0;
        if (hit != HTCAPTION) {
            (left ? rect.left : rect.right) = left ? std::min(rect.left, rect.right - limits.ptMinTrackSize.x)
                                                   : std::max(rect.right, rect.left + limits.ptMinTrackSize.x);
            (top ? rect.top : rect.bottom) = top ? std::min(rect.top, rect.bottom - limits.ptMinTrackSize.y)
                                                 : std::max(rect.bottom, rect.top + limits.ptMinTrackSize.y);
        }
        SendMessageA(handle, hit == HTCAPTION ? WM_MOVING : WM_SIZING, 0, reinterpret_cast<LPARAM>(&rect));
        MoveWindow(handle, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
    }
    if (message.message == WM_QUIT)
        PostQuitMessage(static_cast<int>(message.wParam));
    ReleaseCapture();
    SendMessageA(handle, WM_EXITSIZEMOVE, 0, 0);
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
    default:
        break;
    }
    return 0;
}

LRESULT NonClientPress(HWND handle, int hit)
{
    if (hit == HTCAPTION || (hit >= HTLEFT && hit <= HTBOTTOMRIGHT))
        MoveWithMouse(handle, hit);
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
    case WM_PAINT:
        Paint(handle);
        return 0;
    case WM_ERASEBKGND:
        return EraseBackground(*window, reinterpret_cast<HDC>(wParam));
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_WINDOWPOSCHANGED:
        PositionChanged(*window, *reinterpret_cast<const WINDOWPOS*>(lParam));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && !(window->style & WS_MINIMIZE))
            SetFocus(handle);
        return 0;
    case WM_MOUSEACTIVATE:
        return window->IsChild() ? PassToParent(*window, message, wParam, lParam) : MA_ACTIVATE;
    case WM_SETCURSOR:
        if (window->IsChild() && PassToParent(*window, message, wParam, lParam))
            return TRUE;
        return SetClassCursor(*window, lParam);
    case WM_NCHITTEST:
        return HTCLIENT;
    case WM_NCLBUTTONDOWN:
        return NonClientPress(handle, static_cast<int>(wParam));
    case WM_NCLBUTTONDBLCLK:
        if (wParam == HTCAPTION)
            PostMessageA(handle, WM_SYSCOMMAND, window->style & WS_MAXIMIZE ? SC_RESTORE : SC_MAXIMIZE, lParam);
        return 0;
    case WM_SYSCOMMAND:
        return SystemCommand(handle, wParam);
    case WM_SYSKEYDOWN:
        if (wParam == VK_F4)
            PostMessageA(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
        return 0;
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
