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
        SetCursorPos(kAway.x, kAway.y);
        Pump();
    }
    ~WindowTest() override { Pump(); }

    static constexpr POINT kAway{900, 700};

    /// A popup on the screen.
    PlatformWindowOptions Popup(const char* name, RECT place = {100, 100, 300, 200})
    {
        PlatformWindowOptions options;
        options.name = name;
        options.place = place;
        options.log = &log;
        return options;
    }
    /// A visible child, in its parent's client coordinates.
    PlatformWindowOptions Child(const char* name, const PlatformWindow& parent, RECT place)
    {
        PlatformWindowOptions options = Popup(name, place);
        options.style = WS_CHILD | WS_VISIBLE;
        options.parent = parent.Handle();
        options.isShown = false;
        return options;
    }
    static PlatformWindowOptions Hidden(PlatformWindowOptions options)
    {
        options.isShown = false;
        return options;
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
