// Timers: what they are, on both targets. When they fire is in timer_test_native.cpp, under a clock that
// stands still.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

class Timers : public WindowTest {
protected:
    PlatformWindow window{Popup()};

    /// Waits for the next timer message of the queue.
    MSG Next()
    {
        MSG message{};
        GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER);
        return message;
    }
};

UINT_PTR g_called = 0;

void CALLBACK Called(HWND, UINT message, UINT_PTR id, DWORD)
{
    if (message == WM_TIMER)
        g_called = id;
}

}  // namespace

TEST_F(Timers, SendTheirIdToTheWindow)
{
    EXPECT_EQ(SetTimer(window, 21, 1, nullptr), 21U);
    const MSG message = Next();
    EXPECT_EQ(message.hwnd, window);
    EXPECT_EQ(message.wParam, 21U);
    EXPECT_EQ(message.lParam, 0);
    EXPECT_TRUE(KillTimer(window, 21));
    EXPECT_FALSE(KillTimer(window, 21));
}

TEST_F(Timers, WithoutAWindowGetAFreshId)
{
    const UINT_PTR first = SetTimer(nullptr, 5, 1, nullptr);
    const UINT_PTR second = SetTimer(nullptr, 5, 10000, nullptr);
    EXPECT_NE(first, 0U);
    EXPECT_NE(second, 0U);
    EXPECT_NE(first, second);
    const MSG message = Next();
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.wParam, first);
    EXPECT_TRUE(KillTimer(nullptr, first));
    EXPECT_TRUE(KillTimer(nullptr, second));
}

TEST_F(Timers, AProcedureTakesTheMessagesPlace)
{
    SetTimer(window, 33, 1, Called);
    Settle();
    const MSG message = Next();
    EXPECT_NE(message.lParam, 0);
    g_called = 0;
    DispatchMessageA(&message);
    EXPECT_EQ(g_called, 33U);
    EXPECT_EQ(log.Count(WM_TIMER), 0);
    KillTimer(window, 33);
}

TEST_F(Timers, EndWithTheirWindow)
{
    PlatformWindow gone(Popup("gone", kBeside));
    const HWND handle = gone;
    SetTimer(handle, 1, 1, nullptr);
    gone.Destroy();
    EXPECT_FALSE(KillTimer(handle, 1));
    EXPECT_EQ(SetTimer(handle, 1, 1, nullptr), 0U);
}
