#pragma once

#include <string>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// Input as a person would give it: it enters below the message queue and takes the whole way through hit
/// tests, capture, activation and focus. Points are screen coordinates. Every operation dispatches what it
/// caused before it returns. At its end every key and button that it holds is released.
///
/// On native it enters at the headless display, and ManualClock (manual_clock.h) says when. On windows it
/// enters where the system's own drivers put it: the pointer belongs to the whole desktop, so tests that need
/// exact times or exact numbers of moves are native only.
class SyntheticInput {
public:
    SyntheticInput() = default;
    SyntheticInput(const SyntheticInput&) = delete;
    SyntheticInput& operator=(const SyntheticInput&) = delete;
    ~SyntheticInput();

    SyntheticInput& MoveTo(POINT screen);
    SyntheticInput& Press(int button = VK_LBUTTON);
    SyntheticInput& Release(int button = VK_LBUTTON);
    SyntheticInput& Click(POINT screen, int button = VK_LBUTTON)
    {
        return MoveTo(screen).Press(button).Release(button);
    }
    SyntheticInput& Wheel(int notches);
    SyntheticInput& KeyDown(int virtualKey);
    SyntheticInput& KeyUp(int virtualKey);
    SyntheticInput& PressKey(int virtualKey) { return KeyDown(virtualKey).KeyUp(virtualKey); }

    /// A point of a window's client area on the screen.
    static POINT At(HWND window, int x, int y);

private:
    /// Presses modifiers again that the platform has let go: over an X server it believes what that says of
    /// the keyboard, which may come late.
    void HoldModifiers();

    bool m_isDown[256] = {};
};

}  // namespace qvui::test
