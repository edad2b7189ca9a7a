#include "support/pointer_and_keys.h"

namespace qvui::test {
namespace {

constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001U);

LPARAM Packed(POINT point)
{
    return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}

void SetKeyDown(int virtualKey, bool isDown)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[virtualKey & 0xFF] = isDown ? 0x80 : 0;
    SetKeyboardState(keys);
}

}  // namespace

MessagePointer& MessagePointer::Send(UINT message)
{
    SendMessageA(m_window, message, m_buttons, Packed(m_at));
    return *this;
}

MessagePointer& MessagePointer::MoveTo(POINT client)
{
    m_at = client;
    ClientToScreen(m_window, &client);
    SetCursorPos(client.x, client.y);
    return Send(WM_MOUSEMOVE);
}

MessagePointer& MessagePointer::Press()
{
    m_buttons |= MK_LBUTTON;
    return Send(WM_LBUTTONDOWN);
}

MessagePointer& MessagePointer::Release()
{
    m_buttons &= ~static_cast<WPARAM>(MK_LBUTTON);
    return Send(WM_LBUTTONUP);
}

MessagePointer& MessagePointer::DoubleClick(POINT client)
{
    Click(client);
    m_buttons |= MK_LBUTTON;
    Send(WM_LBUTTONDBLCLK);
    return Release();
}

MessagePointer& MessagePointer::PressRight()
{
    m_buttons |= MK_RBUTTON;
    return Send(WM_RBUTTONDOWN);
}

MessagePointer& MessagePointer::ReleaseRight()
{
    m_buttons &= ~static_cast<WPARAM>(MK_RBUTTON);
    return Send(WM_RBUTTONUP);
}

MessagePointer& MessagePointer::Wheel(int notches)
{
    POINT screen = m_at;
    ClientToScreen(m_window, &screen);
    SetCursorPos(screen.x, screen.y);
    const int delta = notches * static_cast<int>(WHEEL_DELTA);
    SendMessageA(m_window, WM_MOUSEWHEEL, MAKEWPARAM(m_buttons, static_cast<WORD>(delta)), Packed(screen));
    return *this;
}

MessagePointer& MessagePointer::Leave()
{
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    SendMessageA(m_window, WM_MOUSELEAVE, 0, 0);
    return *this;
}

MessageKeys& MessageKeys::Press(int virtualKey)
{
    const auto key = static_cast<WPARAM>(virtualKey);
    SendMessageA(m_window, WM_KEYDOWN, key, 1);
    if (key == VK_RETURN || key == VK_TAB || key == VK_ESCAPE || key == VK_BACK)
        SendMessageA(m_window, WM_CHAR, key, 1);
    SendMessageA(m_window, WM_KEYUP, key, kReleased);
    return *this;
}

MessageKeys& MessageKeys::Type(const std::string& text)
{
    for (const char byte : text)
        SendMessageA(m_window, WM_CHAR, static_cast<unsigned char>(byte), 1);
    return *this;
}

MessageKeys& MessageKeys::Hold(int virtualKey)
{
    SetKeyDown(virtualKey, true);
    return *this;
}

MessageKeys& MessageKeys::LetGo(int virtualKey)
{
    SetKeyDown(virtualKey, false);
    return *this;
}

}  // namespace qvui::test
