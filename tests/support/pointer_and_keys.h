#pragma once

#include <string>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// A pointer that speaks to one window by sending it mouse messages, on both targets. Points are client
/// coordinates. The system's pointer is put there as well, so code that asks for it, or tracks its leaving,
/// gets the truth. What routing does (hit tests, capture, activation, double-click timing) is not played:
/// the window gets exactly the messages that are named here.
class MessagePointer {
public:
    explicit MessagePointer(HWND window) : m_window(window) {}

    /// WM_MOUSEMOVE with the flags of the buttons that are held.
    MessagePointer& MoveTo(POINT client);
    /// WM_LBUTTONDOWN where the pointer is, or after a move to a point.
    MessagePointer& Press();
    MessagePointer& Press(POINT client) { return MoveTo(client).Press(); }
    MessagePointer& Release();
    MessagePointer& Click(POINT client) { return MoveTo(client).Press().Release(); }
    /// Press, release, WM_LBUTTONDBLCLK, release.
    MessagePointer& DoubleClick(POINT client);
    MessagePointer& PressRight();
    MessagePointer& ReleaseRight();
    /// WM_MOUSEWHEEL with the pointer's screen coordinates; positive notches turn away from the user.
    MessagePointer& Wheel(int notches);
    /// WM_MOUSELEAVE, after the system's pointer was moved to the screen's corner.
    MessagePointer& Leave();

private:
    MessagePointer& Send(UINT message);

    HWND m_window;
    POINT m_at{0, 0};
    WPARAM m_buttons = 0;
};

/// A keyboard that speaks to one window by sending it key messages, on both targets.
class MessageKeys {
public:
    explicit MessageKeys(HWND window) : m_window(window) {}

    /// WM_KEYDOWN and WM_KEYUP of a virtual key, with the WM_CHAR between them that Return, Tab, Escape and
    /// Backspace make.
    MessageKeys& Press(int virtualKey);
    /// WM_CHAR for each byte of a text in the system code page.
    MessageKeys& Type(const std::string& text);
    /// From now on GetKeyState says that a key (VK_SHIFT, VK_CONTROL, …) is down, or up again.
    MessageKeys& Hold(int virtualKey);
    MessageKeys& LetGo(int virtualKey);

private:
    HWND m_window;
};

}  // namespace qvui::test
