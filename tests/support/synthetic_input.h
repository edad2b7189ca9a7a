#pragma once

/// Native target only: the headless display's pointer, keyboard and clock. Put tests that include this into
/// files named *_native.cpp, which CMake leaves out of the windows build.

#include <cstdint>
#include <string>

#include <qvui/platform/platform.h>

#include "native/display/headless/headless.h"

namespace qvui::test {

/// While it lives, time stands still unless it is told to pass, or something waits for a timer.
class ManualClock {
public:
    ManualClock() { native::TheHeadlessDisplay()->UseManualClock(); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;
    ~ManualClock() { native::TheHeadlessDisplay()->UseMachineClock(); }

    void Advance(std::int64_t milliseconds) { native::TheHeadlessDisplay()->Advance(milliseconds); }
};

/// Input as a person would give it: it enters at the display and takes the whole way through hit tests,
/// capture, activation and focus. Points are screen coordinates. Every operation dispatches what it caused
/// before it returns. At its end every key and button that it holds is released.
class SyntheticInput {
public:
    SyntheticInput() = default;
    SyntheticInput(const SyntheticInput&) = delete;
    SyntheticInput& operator=(const SyntheticInput&) = delete;
    ~SyntheticInput();

    SyntheticInput& MoveTo(POINT screen);
    SyntheticInput& Press(int button = VK_LBUTTON);
    SyntheticInput& Release(int button = VK_LBUTTON);
    SyntheticInput& Click(POINT screen, int button = VK_LBUTTON) { return MoveTo(screen).Press(button).Release(button); }
    SyntheticInput& Wheel(int notches);
    SyntheticInput& KeyDown(int virtualKey);
    SyntheticInput& KeyUp(int virtualKey);
    SyntheticInput& PressKey(int virtualKey) { return KeyDown(virtualKey).KeyUp(virtualKey); }
    /// Text from the keyboard or an input method, UTF-8.
    SyntheticInput& Type(const std::string& utf8);

    /// A point of a window's client area on the screen.
    static POINT At(HWND window, int x, int y);

private:
    SyntheticInput& Dispatch();

    bool m_isDown[256] = {};
};

}  // namespace qvui::test
