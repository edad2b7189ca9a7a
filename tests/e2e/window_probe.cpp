// A window of the platform layer alone, which says on standard output what reaches it, for scripts that drive it from
// outside. The letters typed into it are its commands; see Command.

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <qvui/platform/platform.h>

namespace {

constexpr char kClass[] = "qvui window probe";
HWND g_main = nullptr;
HWND g_tip = nullptr;
HWND g_layer = nullptr;
HBRUSH g_background = nullptr;
HBRUSH g_tipBackground = nullptr;
HCURSOR g_cursor = nullptr;

void Say(const char* what, int first, int second)
{
    std::printf("%s %d %d\n", what, first, second);
    std::fflush(stdout);
}

void Say(const char* what)
{
    std::printf("%s\n", what);
    std::fflush(stdout);
}

void SayKey(const char* what, WPARAM key)
{
    std::printf("%s %02X\n", what, static_cast<unsigned>(key));
    std::fflush(stdout);
}

// A popup below the main window that must not take the keyboard.
void ToggleTip()
{
    const bool isShown = IsWindowVisible(g_tip) != FALSE;
    RECT place{};
    GetWindowRect(g_main, &place);
    SetWindowPos(g_tip, HWND_TOP, place.left + 40, place.top + 60, 120, 30, SWP_NOACTIVATE);
    ShowWindow(g_tip, isShown ? SW_HIDE : SW_SHOWNOACTIVATE);
    Say(isShown ? "tip hidden" : "tip shown");
}

// A ring of half-transparent green around a clear middle.
void ShowLayer()
{
    constexpr int kSide = 60;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = -kSide;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* rows = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &rows, nullptr, 0);
    auto* pixel = static_cast<unsigned*>(rows);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            *pixel++ = x < 20 || y < 20 || x >= 40 || y >= 40 ? 0x80008000U : 0U;
    const HDC memory = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    RECT place{};
    GetWindowRect(g_main, &place);
    POINT corner{place.left + 200, place.top + 20};
    SIZE size{kSide, kSide};
    POINT origin{0, 0};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, 200, AC_SRC_ALPHA};
    UpdateLayeredWindow(g_layer, nullptr, &corner, &size, memory, &origin, 0, &blend, ULW_ALPHA);
    ShowWindow(g_layer, SW_SHOWNOACTIVATE);
    SelectObject(memory, previous);
    DeleteDC(memory);
    DeleteObject(bitmap);
    Say("layer shown");
}

void Command(WPARAM character)
{
    switch (character) {
    case 't':
        return ToggleTip();
    case 'l':
        return ShowLayer();
    case 'r':
        SetWindowRgn(g_main, CreateRoundRectRgn(0, 0, 300, 200, 80, 80), TRUE);
        return Say("round");
    case 'q':
        SetWindowRgn(g_main, nullptr, TRUE);
        return Say("square");
    case 'n':
        SetWindowTextA(g_main, "probe renamed");
        return Say("renamed");
    case 'h':
        g_cursor = LoadCursorA(nullptr, IDC_HAND);
        SetCursor(g_cursor);
        return Say("hand");
    case 'm':
        SetWindowPos(g_main, nullptr, 200, 150, 320, 240, SWP_NOZORDER | SWP_NOACTIVATE);
        return Say("moved");
    case 'p': {
        POINT point{};
        GetCursorPos(&point);
        return Say("pointer", point.x, point.y);
    }
    default:
        return;
    }
}

bool SayMouse(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int x = GET_X_LPARAM(lParam);
    const int y = GET_Y_LPARAM(lParam);
    switch (message) {
    case WM_MOUSEMOVE:
        Say("move", x, y);
        return true;
    case WM_LBUTTONDOWN:
        SetCapture(g_main);
        Say("press", x, y);
        return true;
    case WM_LBUTTONUP:
        ReleaseCapture();
        Say("release", x, y);
        return true;
    case WM_LBUTTONDBLCLK:
        Say("double", x, y);
        return true;
    case WM_RBUTTONDOWN:
        Say("press right", x, y);
        return true;
    case WM_MOUSEWHEEL:
        std::printf("wheel %d\n", static_cast<SHORT>(HIWORD(wParam)));
        std::fflush(stdout);
        return true;
    case WM_MOUSELEAVE:
        Say("leave");
        return true;
    default:
        return false;
    }
}

bool SayKeys(UINT message, WPARAM wParam)
{
    switch (message) {
    case WM_KEYDOWN:
        SayKey("key", wParam);
        return true;
    case WM_CHAR:
        SayKey("char", wParam);
        Command(wParam);
        return true;
    case WM_SYSCHAR:
        SayKey("syschar", wParam);
        return true;
    case WM_SYSKEYDOWN:
        SayKey("syskey", wParam);
        return false;
    default:
        return false;
    }
}

void Paint(HWND window)
{
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(window, &paint);
    RECT client{};
    GetClientRect(window, &client);
    FillRect(dc, &client, window == g_tip ? g_tipBackground : g_background);
    EndPaint(window, &paint);
}

void SayWindow(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        return Say("size", LOWORD(lParam), HIWORD(lParam));
    case WM_MOVE:
        return Say("place", GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    case WM_ACTIVATE:
        return Say(LOWORD(wParam) == WA_INACTIVE ? "inactive" : "active");
    case WM_SETFOCUS:
        return Say("focus");
    case WM_KILLFOCUS:
        return Say("no focus");
    case WM_CLOSE:
        return Say("close");
    default:
        return;
    }
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT) {
        Paint(window);
        return 0;
    }
    if (message == WM_ERASEBKGND)
        return 1;
    if (window != g_main)
        return DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_SETCURSOR && LOWORD(static_cast<DWORD_PTR>(lParam)) == HTCLIENT) {
        SetCursor(g_cursor);
        return TRUE;
    }
    SayWindow(message, wParam, lParam);
    if (SayMouse(message, wParam, lParam) || SayKeys(message, wParam)) {
        if (message == WM_MOUSEMOVE) {
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
            TrackMouseEvent(&track);
        }
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND Make(const char* title, DWORD style, DWORD exStyle, HWND owner)
{
    return CreateWindowExA(exStyle, kClass, title, style, 100, 100, 300, 200, owner, nullptr, GetModuleHandleA(nullptr),
                           nullptr);
}

}  // namespace

int main(int argc, char** argv)
{
    WNDCLASSEXA definition{};
    definition.cbSize = sizeof definition;
    definition.style = CS_DBLCLKS;
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleA(nullptr);
    definition.lpszClassName = kClass;
    RegisterClassExA(&definition);
    g_background = CreateSolidBrush(RGB(200, 40, 40));
    g_tipBackground = CreateSolidBrush(RGB(250, 250, 160));
    g_cursor = LoadCursorA(nullptr, IDC_ARROW);

    const bool isDecorated = argc > 1 && std::strcmp(argv[1], "--decorated") == 0;
    g_main = Make("window probe", isDecorated ? WS_OVERLAPPEDWINDOW : WS_POPUP, 0, nullptr);
    g_tip = Make("tip", WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST, g_main);
    g_layer = Make("layer", WS_POPUP, WS_EX_LAYERED | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, g_main);
    ShowWindow(g_main, SW_SHOW);
    UpdateWindow(g_main);
    Say("ready");

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DeleteObject(g_background);
    DeleteObject(g_tipBackground);
    return static_cast<int>(message.wParam);
}
