// Windows, messages, input, focus and painting as scripts, and timers that a script cannot have.

#include "platform/platform_test.h"
#include "platform/user/user_script.h"

namespace qvui::test {
namespace {

using Windows = PlatformTest;

UINT_PTR g_called = 0;

void CALLBACK Called(HWND, UINT, UINT_PTR id, DWORD)
{
    g_called = id;
}

/// Waits for the next timer message and dispatches it.
MSG NextTick()
{
    MSG message{};
    GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER);
    DispatchMessageA(&message);
    return message;
}

}  // namespace

TEST_F(Windows, GoAsTheScriptsSay)
{
    CheckScripts<UserScript>("user/scripts");
}

TEST_F(Windows, NeedAClass)
{
    EXPECT_EQ(
        CreateWindowExA(0, "no such class", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr),
        nullptr);
}

TEST_F(Windows, HaveTimersWithProceduresAndThreadsHaveTimersWithAFreshId)
{
    bool isTold = false;
    const PlatformWindow window({.handler = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        isTold = isTold || message.message == WM_TIMER;
        return std::nullopt;
    }});
    Pump();
    SetTimer(window, 33, 1, Called);
    NextTick();
    EXPECT_EQ(g_called, 33U);
    EXPECT_FALSE(isTold);
    KillTimer(window, 33);
    const UINT_PTR first = SetTimer(nullptr, 5, 1, nullptr);
    const UINT_PTR second = SetTimer(nullptr, 5, 10000, nullptr);
    EXPECT_NE(first, second);
    const MSG message = NextTick();
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.wParam, first);
    EXPECT_TRUE(KillTimer(nullptr, first) && KillTimer(nullptr, second));
}

}  // namespace qvui::test
