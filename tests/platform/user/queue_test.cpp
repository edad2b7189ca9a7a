// The message queue: order, filters, quitting, nesting, timers, and messages of windows that are gone.

#include "platform/user/window_test.h"
#include "support/input_source.h"

using namespace qvui::test;

namespace {

class Queue : public WindowTest {
protected:
    Queue() { Settle(); }

    PlatformWindow window{Popup()};
    PlatformWindow other{Popup("other", kBeside)};

    /// The number of the next pending message, WM_NULL for none; dispatches it.
    UINT Take()
    {
        MSG message{};
        if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            return WM_NULL;
        DispatchMessageA(&message);
        return message.message;
    }
};

using Timers = Queue;

UINT_PTR g_called = 0;

void CALLBACK Called(HWND, UINT, UINT_PTR id, DWORD)
{
    g_called = id;
}

/// Waits for the next timer message.
MSG NextTick()
{
    MSG message{};
    GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER);
    return message;
}

}  // namespace

TEST_F(Queue, TakesPostedThenInputAndQuitThenPaint)
{
    InjectMove({150, 150});
    Settle();
    InvalidateRect(window, nullptr, FALSE);
    PostQuitMessage(3);
    InjectButton(VK_LBUTTON, true);
    InjectButton(VK_LBUTTON, false);
    PostMessageA(window, WM_APP, 0, 0);
    PostMessageA(nullptr, WM_APP + 1, 0, 0);
    EXPECT_EQ(SendMessageA(window, WM_NULL, 0, 0), 0) << "which takes nothing out";
    PostMessageA(other, WM_APP + 2, 0, 0);
    std::vector<UINT> taken;
    while (const UINT number = Take())
        taken.push_back(number);
    // Between input and WM_QUIT the order is the platform's own business.
    std::erase(taken, WM_QUIT);
    EXPECT_THAT(taken,
                testing::ElementsAre(WM_APP, WM_APP + 1, WM_APP + 2, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_PAINT));
}

TEST_F(Queue, FiltersByWindowAndNumber)
{
    const PlatformWindow child(Child("child", window, {0, 0, 10, 10}));
    Settle();
    PostMessageA(other, WM_APP + 1, 0, 0);
    PostMessageA(child, WM_APP + 2, 5, 6);
    PostMessageA(window, WM_APP + 3, 0, 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_APP + 3, WM_APP + 4, PM_NOREMOVE));
    EXPECT_EQ(message.message, WM_APP + 3);
    ASSERT_TRUE(PeekMessageA(&message, window, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, child) << "children belong to the window";
    EXPECT_EQ(message.wParam, 5U);
    EXPECT_EQ(message.lParam, 6);
    ASSERT_TRUE(PeekMessageA(&message, window, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_APP + 3);
    EXPECT_FALSE(PeekMessageA(&message, window, WM_APP, WM_APP + 9, PM_REMOVE));
    EXPECT_EQ(Take(), WM_APP + 1);
}

TEST_F(Queue, QuitComesOnceWithTheLastCode)
{
    PostQuitMessage(3);
    PostQuitMessage(5);
    PostMessageA(window, WM_APP, 0, 0);
    MSG message{};
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_APP);
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 5U);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Queue, MessagesOfADestroyedWindowVanish)
{
    const HWND handle = other;
    PostMessageA(handle, WM_APP, 0, 0);
    PostMessageA(window, WM_APP + 1, 0, 0);
    other.Destroy();
    Pump();
    EXPECT_TRUE(log.Tells("w APP+1", {WM_APP}));
    SetLastError(0);
    EXPECT_FALSE(PostMessageA(handle, WM_APP, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(SendMessageA(handle, WM_APP, 0, 0), 0);
}

TEST_F(Timers, SendTheirIdOrCallTheirProcedureAndEndWithTheirWindow)
{
    EXPECT_EQ(SetTimer(other, 21, 1, nullptr), 21U);
    MSG message = NextTick();
    EXPECT_EQ(message.hwnd, other);
    EXPECT_EQ(message.wParam, 21U);
    EXPECT_EQ(message.lParam, 0);
    EXPECT_TRUE(KillTimer(other, 21));
    EXPECT_FALSE(KillTimer(other, 21));
    SetTimer(other, 33, 1, Called);
    message = NextTick();
    DispatchMessageA(&message);
    EXPECT_EQ(g_called, 33U);
    EXPECT_EQ(log.Count(WM_TIMER), 0);
    const HWND handle = other;
    other.Destroy();
    EXPECT_FALSE(KillTimer(handle, 33));
    EXPECT_EQ(SetTimer(handle, 1, 1, nullptr), 0U);
}

TEST_F(Timers, WithoutAWindowGetAFreshId)
{
    const UINT_PTR first = SetTimer(nullptr, 5, 1, nullptr);
    const UINT_PTR second = SetTimer(nullptr, 5, 10000, nullptr);
    EXPECT_NE(first, second);
    const MSG message = NextTick();
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.wParam, first);
    EXPECT_TRUE(KillTimer(nullptr, first));
    EXPECT_TRUE(KillTimer(nullptr, second));
}
