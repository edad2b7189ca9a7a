#pragma once

#include <gmock/gmock.h>

#include "platform/platform_test.h"
#include "support/platform_window.h"

namespace qvui::test {

/// Windows that share a log, on a screen whose pointer is out of the way. Nothing may stay alive.
class WindowTest : public PlatformTest {
protected:
    WindowTest()
    {
        SetCursorPos(900, 700);
        Pump();
    }
    ~WindowTest() override
    {
        DeleteObject(red);
        DeleteObject(blue);
        Pump();
    }

    static constexpr RECT kPlace{100, 100, 300, 200};
    static constexpr RECT kBeside{400, 100, 500, 200};
    static constexpr std::uint32_t kRed = 0xFF0000;
    static constexpr std::uint32_t kBlue = 0x0000FF;

    /// A popup on the screen.
    PlatformWindowOptions Popup(const char* name = "w", RECT place = kPlace)
    {
        PlatformWindowOptions options;
        options.name = name;
        options.place = place;
        options.log = &log;
        return options;
    }
    /// A visible child, in its parent's client coordinates.
    PlatformWindowOptions Child(const char* name, HWND parent, RECT place)
    {
        return Popup(name, place).Styled(WS_CHILD | WS_VISIBLE).Below(parent).Hidden();
    }

    /// Dispatches what is pending and forgets what has been received.
    void Settle()
    {
        Pump();
        log.Clear();
    }

    MessageLog log;
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    const HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
};

}  // namespace qvui::test
