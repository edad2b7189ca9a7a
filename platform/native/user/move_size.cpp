#include "native/user/move_size.h"

#include <algorithm>

#include "native/user/desktop.h"

namespace qvui::native {
namespace {

struct Edges {
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;

    explicit Edges(int hit)
    {
        const bool all = hit == HTCAPTION;
        left = all || hit == HTLEFT || hit == HTTOPLEFT || hit == HTBOTTOMLEFT;
        right = all || hit == HTRIGHT || hit == HTTOPRIGHT || hit == HTBOTTOMRIGHT;
        top = all || hit == HTTOP || hit == HTTOPLEFT || hit == HTTOPRIGHT;
        bottom = all || hit == HTBOTTOM || hit == HTBOTTOMLEFT || hit == HTBOTTOMRIGHT;
    }
};

struct Drag {
    HWND window = nullptr;
    int hit = HTCAPTION;
    RECT start{};
    POINT from{};
    MINMAXINFO limits{};
};

// The dragged edge is limited; the opposite edge does not move.
void LimitSpan(LONG& low, LONG& high, bool dragsLow, LONG least, LONG most)
{
    const LONG length = std::clamp(high - low, least, std::max(least, most));
    if (dragsLow)
        low = high - length;
    else
        high = low + length;
}

RECT PlaceAt(const Drag& drag, POINT now)
{
    const Edges edges(drag.hit);
    RECT rect = drag.start;
    rect.left += edges.left ? now.x - drag.from.x : 0;
    rect.right += edges.right ? now.x - drag.from.x : 0;
    rect.top += edges.top ? now.y - drag.from.y : 0;
    rect.bottom += edges.bottom ? now.y - drag.from.y : 0;
    if (drag.hit != HTCAPTION) {
        LimitSpan(rect.left, rect.right, edges.left, drag.limits.ptMinTrackSize.x,
                  drag.limits.ptMaxTrackSize.x);
        LimitSpan(rect.top, rect.bottom, edges.top, drag.limits.ptMinTrackSize.y,
                  drag.limits.ptMaxTrackSize.y);
    }
    return rect;
}

void Follow(const Drag& drag, POINT now)
{
    RECT rect = PlaceAt(drag, now);
    SendMessageA(drag.window, drag.hit == HTCAPTION ? WM_MOVING : WM_SIZING,
                 drag.hit == HTCAPTION ? 0 : static_cast<WPARAM>(drag.hit - HTLEFT + 1),
                 reinterpret_cast<LPARAM>(&rect));
    MoveWindow(drag.window, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
}

// Dispatches messages until the button is released or the capture is lost.
void RunLoop(const Drag& drag)
{
    MSG message{};
    while (LookUpWindow(drag.window) && GetCapture() == drag.window && GetKeyState(VK_LBUTTON) < 0) {
        if (!GetMessageA(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (message.hwnd == drag.window && message.message == WM_MOUSEMOVE) {
            Follow(drag, message.pt);
        } else if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
            MoveWindow(drag.window, drag.start.left, drag.start.top, drag.start.right - drag.start.left,
                       drag.start.bottom - drag.start.top, TRUE);
            return;
        } else if (message.hwnd != drag.window || message.message != WM_LBUTTONUP) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

}  // namespace

MINMAXINFO SizeLimits(HWND window)
{
    constexpr POINT kLeast{112, 27};
    constexpr POINT kMost{32767, 32767};
    const SIZE screen = TheDisplay().ScreenSize();
    const Window* found = LookUpWindow(window);
    MINMAXINFO limits{};
    limits.ptMaxSize = {screen.cx, screen.cy};
    limits.ptMinTrackSize = found && (found->style & WS_CAPTION) == WS_CAPTION ? kLeast : POINT{0, 0};
    limits.ptMaxTrackSize = kMost;
    SendMessageA(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    return limits;
}

void MoveOrSizeByCommand(HWND window, WPARAM command)
{
    const auto edge = static_cast<int>(command & 0xF);
    const bool isMove = (command & 0xFFF0) == SC_MOVE;
    const bool isSize = edge >= 1 && edge <= HTBOTTOMRIGHT - HTLEFT + 1;
    Drag drag{window, isMove ? HTCAPTION : HTLEFT + edge - 1, {}, {}, SizeLimits(window)};
    if ((!isMove && !isSize) || GetKeyState(VK_LBUTTON) >= 0 || IsZoomed(window) ||
        !GetWindowRect(window, &drag.start))
        return;
    // Uses the pointer position of the press, because the pointer may have moved since.
    const DWORD press = GetMessagePos();
    drag.from = {GET_X_LPARAM(press), GET_Y_LPARAM(press)};
    SetCapture(window);
    SendMessageA(window, WM_ENTERSIZEMOVE, 0, 0);
    RunLoop(drag);
    if (GetCapture() == window)
        ReleaseCapture();
    SendMessageA(window, WM_EXITSIZEMOVE, 0, 0);
}

}  // namespace qvui::native
