// When timers fire, under a clock that stands still.

#include "platform/user/window_test.h"
#include "support/manual_clock.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NativeTimers : public WindowTest {
protected:
    NativeTimers() { Settle(); }

    void Set(UINT_PTR id, UINT period) { SetTimer(window, id, period, nullptr); }
    /// Lets time pass, then dispatches; the ids of the timers that fired.
    std::vector<UINT_PTR> After(int milliseconds)
    {
        clock.Advance(milliseconds);
        log.Clear();
        Pump();
        std::vector<UINT_PTR> fired;
        for (const LoggedMessage& message : log.Only({WM_TIMER}))
            fired.push_back(message.wParam);
        return fired;
    }

    ManualClock clock;
    PlatformWindow window{Popup()};
};

}  // namespace

TEST_F(NativeTimers, FireOncePerPeriodOfTenMillisecondsAtLeastWithAtMostOneTickPending)
{
    for (const UINT period : {100U, 0U}) {
        Set(1, period);
        const int length = period ? 100 : 10;
        EXPECT_THAT(After(length - 1), IsEmpty());
        EXPECT_THAT(After(1), ElementsAre(1));
        EXPECT_THAT(After(length), ElementsAre(1));
        EXPECT_THAT(After(10 * length), ElementsAre(1));
    }
}

TEST_F(NativeTimers, FireInTheOrderInWhichTheyAreDueAfterEverythingElse)
{
    Set(1, 300);
    Set(2, 100);
    Set(3, 200);
    InvalidateRect(window, nullptr, FALSE);
    PostMessageA(window, WM_APP, 0, 0);
    EXPECT_THAT(After(300), ElementsAre(2, 3, 1));
    EXPECT_TRUE(log.Tells("w APP PAINT TIMER TIMER TIMER"));
}

TEST_F(NativeTimers, SettingAndEndingDropsATickThatIsDue)
{
    Set(1, 100);
    clock.Advance(90);
    Set(1, 100);
    EXPECT_THAT(After(90), IsEmpty());
    EXPECT_THAT(After(10), ElementsAre(1));
    clock.Advance(100);
    Set(1, 100);
    EXPECT_THAT(After(0), IsEmpty());
    clock.Advance(100);
    KillTimer(window, 1);
    EXPECT_THAT(After(0), IsEmpty());
}

TEST_F(NativeTimers, WaitingLetsTimePassAndLookingLeavesTheTickPending)
{
    Set(1, 5000);
    const DWORD before = GetTickCount();
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(GetTickCount() - before, 5000U);
    clock.Advance(5000);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}
