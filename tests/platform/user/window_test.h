#pragma once

#include <gmock/gmock.h>

#include "support/leak_check.h"
#include "support/platform_window.h"

namespace qvui::test {

/// Windows that share a log, on a screen whose pointer is out of the way. Nothing may stay alive.
class WindowTest : public testing::Test {
protected:
    WindowTest()
    {
        SetCursorPos(900, 700);
        Pump();
    }
    ~WindowTest() override { Pump(); }

    static constexpr RECT kPlace{100, 100, 300, 200};
    static constexpr RECT kBeside{400, 100, 500, 200};

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

    LeakCheck leaks;
    MessageLog log;
};

}  // namespace qvui::test
