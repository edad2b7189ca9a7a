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
    ~NativeTimers() override
    {
        for (const UINT_PTR id : {1, 2, 3})
            KillTimer(window, id);
    }

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

TEST_F(NativeTimers, FireOncePerPeriodWithAtMostOneTickPending)
{
    Set(1, 100);
    for (int period = 0; period < 2; ++period) {
        EXPECT_THAT(After(99), IsEmpty());
        EXPECT_THAT(After(1), ElementsAre(1));
    }
    EXPECT_THAT(After(1000), ElementsAre(1));
}

TEST_F(NativeTimers, FireInTheOrderInWhichTheyAreDue)
{
    Set(1, 300);
    Set(2, 100);
    Set(3, 200);
    EXPECT_THAT(After(300), ElementsAre(2, 3, 1));
}

TEST_F(NativeTimers, AreNeverShorterThanTenMilliseconds)
{
    Set(1, 0);
    EXPECT_THAT(After(9), IsEmpty());
    EXPECT_THAT(After(1), ElementsAre(1));
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

TEST_F(NativeTimers, ComeAfterEverythingElse)
{
    Set(1, 100);
    clock.Advance(100);
    InvalidateRect(window, nullptr, FALSE);
    PostMessageA(window, WM_APP, 0, 0);
    Pump();
    EXPECT_TRUE(log.Tells("w APP PAINT TIMER"));
}

TEST_F(NativeTimers, WaitingLetsTimePassAndLookingLeavesTheTickPending)
{
    Set(1, 5000);
    const DWORD before = GetTickCount();
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.wParam, 1U);
    EXPECT_EQ(GetTickCount() - before, 5000U);
    clock.Advance(5000);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}
