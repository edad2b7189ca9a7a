// Displays a menu as a popup window with its own message loop.

#include <algorithm>

#include <qvui/platform/native/gdi.h>
#include <qvui/platform/native/text.h>

#include "native/kernel/code_pages.h"
#include "native/user/menus.h"

namespace qvui::native {
namespace {

constexpr char kClassName[] = "#32768";
constexpr int kBorder = 1;
constexpr int kPaddingX = 24;
constexpr int kPaddingY = 3;
constexpr int kSeparatorHeight = 7;
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kFrame = RGB(160, 160, 160);
constexpr COLORREF kText = RGB(0, 0, 0);
constexpr COLORREF kDisabledText = RGB(150, 150, 150);
constexpr COLORREF kMarked = RGB(204, 232, 255);

struct Open {
    const Menu* menu = nullptr;
    HWND window = nullptr;
    std::vector<RECT> places;  // client coordinates
    int marked = -1;
    bool isDone = false;
    UINT chosen = 0;
};
Open* g_open = nullptr;

void Fill(HDC dc, const RECT& rect, COLORREF colour)
{
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void Paint(HWND window)
{
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(window, &paint);
    RECT client{};
    GetClientRect(window, &client);
    Fill(dc, client, kFrame);
    InflateRect(&client, -kBorder, -kBorder);
    Fill(dc, client, kPaper);
    SetBkMode(dc, TRANSPARENT);
    for (std::size_t i = 0; i < g_open->places.size(); ++i) {
        const Menu::Item& item = g_open->menu->items[i];
        RECT place = g_open->places[i];
        if (item.IsSeparator()) {
            const LONG middle = (place.top + place.bottom) / 2;
            Fill(dc, {place.left + kPaddingX / 2, middle, place.right - kPaddingX / 2, middle + 1}, kFrame);
            continue;
        }
        if (static_cast<int>(i) == g_open->marked)
            Fill(dc, place, kMarked);
        SetTextColor(dc, item.isEnabled ? kText : kDisabledText);
        place.left += kPaddingX;
        DrawTextA(dc, Utf8ToSystem(item.text).c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER);
    }
    EndPaint(window, &paint);
}

int ItemAt(POINT client)
{
    for (std::size_t i = 0; i < g_open->places.size(); ++i)
        if (PtInRect(&g_open->places[i], client))
            return static_cast<int>(i);
    return -1;
}

bool IsChoosable(int index)
{
    return index >= 0 && g_open->menu->items[static_cast<std::size_t>(index)].IsChoosable();
}

void Mark(int index)
{
    if (index == g_open->marked)
        return;
    g_open->marked = index;
    InvalidateRect(g_open->window, nullptr, FALSE);
}

void Choose(int index)
{
    if (!IsChoosable(index))
        return;
    g_open->chosen = g_open->menu->items[static_cast<std::size_t>(index)].id;
    g_open->isDone = true;
}

void Step(int direction)
{
    const int count = static_cast<int>(g_open->menu->items.size());
    int index = g_open->marked < 0 && direction < 0 ? count : g_open->marked;
    for (int i = 0; i < count; ++i) {
        index = (index + direction + count) % count;
        if (IsChoosable(index)) {
            Mark(index);
            return;
        }
    }
}

char UpperOf(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

void OnKey(WPARAM key)
{
    switch (key) {
        case VK_UP:
        case VK_DOWN:
            Step(key == VK_UP ? -1 : 1);
            return;
        case VK_RETURN:
            Choose(g_open->marked);
            return;
        case VK_ESCAPE:
        case VK_MENU:
        case VK_F10:
            g_open->isDone = true;
            return;
        default:
            break;
    }
    for (std::size_t i = 0; i < g_open->menu->items.size(); ++i) {
        const std::string& text = g_open->menu->items[i].text;
        const std::size_t mnemonic = text.find('&');
        if (mnemonic + 1 < text.size() && mnemonic != std::string::npos &&
            static_cast<WPARAM>(UpperOf(text[mnemonic + 1])) == key) {
            Choose(static_cast<int>(i));
            return;
        }
    }
}

LRESULT CALLBACK MenuProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!g_open || g_open->window != window)
        return DefWindowProcA(window, message, wParam, lParam);
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_PAINT:
            Paint(window);
            return 0;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_MOUSEMOVE: {
            const int index = ItemAt(point);
            Mark(IsChoosable(index) ? index : -1);
            return 0;
        }
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
            Choose(ItemAt(point));
            return 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN: {
            RECT client{};
            GetClientRect(window, &client);
            if (!PtInRect(&client, point))
                g_open->isDone = true;
            return 0;
        }
        case WM_CAPTURECHANGED:
            g_open->isDone = true;
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

SIZE Arrange(Open& open)
{
    const HDC dc = GetDC(nullptr);
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    int width = 0;
    for (const Menu::Item& item : open.menu->items) {
        RECT text{};
        DrawTextA(dc, Utf8ToSystem(item.text).c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
        width = std::max<int>(width, text.right - text.left);
    }
    ReleaseDC(nullptr, dc);
    width += 2 * kPaddingX;
    int y = kBorder;
    for (const Menu::Item& item : open.menu->items) {
        const int height = item.IsSeparator() ? kSeparatorHeight : metrics.tmHeight + 2 * kPaddingY;
        open.places.push_back({kBorder, y, kBorder + width, y + height});
        y += height;
    }
    return {width + 2 * kBorder, y + kBorder};
}

void RegisterMenuClass()
{
    WNDCLASSEXA definition{};
    if (GetClassInfoExA(nullptr, kClassName, &definition))
        return;
    definition = {};
    definition.cbSize = sizeof definition;
    definition.lpfnWndProc = MenuProcedure;
    definition.lpszClassName = kClassName;
    definition.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    RegisterClassExA(&definition);
}

}  // namespace

UINT ChooseFromMenu(const Menu& menu, POINT screen, HWND owner)
{
    if (g_open || menu.items.empty() || !IsWindow(owner))
        return 0;
    RegisterMenuClass();
    Open open;
    open.menu = &menu;
    const SIZE size = Arrange(open);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromPoint(screen, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    POINT at = screen;
    if (at.x + size.cx > area.right)
        at.x = std::max<LONG>(area.left, at.x - size.cx);
    if (at.y + size.cy > area.bottom)
        at.y = std::max<LONG>(area.top, at.y - size.cy);
    open.window = CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, kClassName, "",
                                  WS_POPUP, at.x, at.y, size.cx, size.cy, owner, nullptr, nullptr, nullptr);
    if (!open.window)
        return 0;
    g_open = &open;
    ShowWindow(open.window, SW_SHOWNOACTIVATE);
    SetCapture(open.window);
    MSG message{};
    while (!open.isDone && IsWindow(open.window) && IsWindow(owner)) {
        if (!GetMessageA(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        // The keyboard focus stays with the owner, but key presses control the menu.
        if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN)
            OnKey(message.wParam);
        else if (message.message < WM_KEYDOWN || message.message > WM_SYSCHAR)
            DispatchMessageA(&message);
    }
    g_open = nullptr;
    if (GetCapture() == open.window)
        ReleaseCapture();
    DestroyWindow(open.window);
    return open.chosen;
}

}  // namespace qvui::native
