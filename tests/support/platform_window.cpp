#include "support/platform_window.h"

#include <map>
#include <utility>

#include <gtest/gtest.h>

#include "support/platform_bitmap.h"

namespace qvui::test {
namespace {

// Messages come before creation has returned the handle, so procedures find their object here.
std::map<HWND, PlatformWindow*>& WindowsByHandle()
{
    static std::map<HWND, PlatformWindow*> windows;
    return windows;
}

PlatformWindow* g_creating = nullptr;

}  // namespace

std::uint32_t ClientPixels::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width || y >= height)
        return 0xFFFFFFFF;
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
}

ClientPixels ReadClient(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    ClientPixels result{client.right, client.bottom, {}};
    const MemoryBitmap copy(BitmapInfo(result.width, -result.height));
    const HDC from = GetDC(window);
    BitBlt(copy, 0, 0, result.width, result.height, from, 0, 0, SRCCOPY);
    if (const auto* const first = static_cast<const std::uint32_t*>(copy.Bits()))
        result.pixels.assign(first, first + static_cast<std::ptrdiff_t>(result.width) * result.height);
    for (std::uint32_t& pixel : result.pixels)
        pixel &= 0xFFFFFF;
    ReleaseDC(window, from);
    return result;
}

PumpResult Pump()
{
    constexpr int kFarTooMany = 5'000;
    PumpResult result;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            result.exitCode = static_cast<int>(message.wParam);
            break;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
        if (++result.dispatched == kFarTooMany) {
            ADD_FAILURE() << "messages without end, the last one " << MessageName(message.message);
            break;
        }
    }
    return result;
}

PlatformWindow::PlatformWindow(PlatformWindowOptions options) : m_options(std::move(options))
{
    static int number = 0;
    m_className = "qvui test window " + std::to_string(++number);

    WNDCLASSEXA definition{};
    definition.cbSize = sizeof definition;
    definition.style = m_options.classStyle;
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleA(nullptr);
    definition.hCursor = m_options.cursor;
    definition.hbrBackground = m_options.background;
    definition.lpszClassName = m_className.c_str();
    RegisterClassExA(&definition);

    PlatformWindow* const outer = std::exchange(g_creating, this);
    const RECT& place = m_options.place;
    const HWND created =
        CreateWindowExA(m_options.exStyle, m_className.c_str(), m_options.name, m_options.style, place.left,
                        place.top, place.right - place.left, place.bottom - place.top, m_options.parent,
                        nullptr, definition.hInstance, nullptr);
    g_creating = outer;
    if (!created)
        return;
    if (m_options.isShown) {
        ShowWindow(created, SW_SHOW);
        UpdateWindow(created);
    }
}

PlatformWindow::~PlatformWindow()
{
    Destroy();
    UnregisterClassA(m_className.c_str(), GetModuleHandleA(nullptr));
}

void PlatformWindow::Destroy()
{
    if (m_handle)
        DestroyWindow(m_handle);
}

LRESULT CALLBACK PlatformWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto known = WindowsByHandle().find(window);
    PlatformWindow* const self = known != WindowsByHandle().end() ? known->second : g_creating;
    return self ? self->Handle(window, message, wParam, lParam)
                : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT PlatformWindow::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!m_handle) {
        m_handle = window;
        WindowsByHandle()[window] = this;
        // A window that is created by a handler of this one's creation must not be taken for this one.
        g_creating = nullptr;
    }
    const LoggedMessage logged{m_options.name, window, message, wParam, lParam};
    std::optional<LRESULT> answer;
    if (const MessageHandler handler = m_options.handler)
        answer = handler(logged);
    if (message == WM_NCDESTROY) {
        WindowsByHandle().erase(window);
        m_handle = nullptr;
    }
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace qvui::test
