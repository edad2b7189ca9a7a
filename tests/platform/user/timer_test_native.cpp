// When timers fire, under a clock that stands still.

#include "platform/user/window_test.h"
#include "support/manual_clock.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NativeTimers : public WindowTest {
protected:
    ~NativeTimers() override
    {
        for (const UINT_PTR id : {1, 2, 3})
            KillTimer(window.Handle(), id);
    }

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
    PlatformWindow window{Popup("w")};
};

}  // namespace

TEST_F(NativeTimers, FireOncePerPeriod)
{
    SetTimer(window.Handle(), 1, 100, nullptr);
    EXPECT_THAT(After(99), IsEmpty());
    EXPECT_THAT(After(1), ElementsAre(1));
    EXPECT_THAT(After(99), IsEmpty());
    EXPECT_THAT(After(1), ElementsAre(1));
}

TEST_F(NativeTimers, HaveAtMostOneTickPending)
{
    SetTimer(window.Handle(), 1, 100, nullptr);
    EXPECT_THAT(After(1000), ElementsAre(1));
}

TEST_F(NativeTimers, FireInTheOrderInWhichTheyAreDue)
{
    SetTimer(window.Handle(), 1, 300, nullptr);
    SetTimer(window.Handle(), 2, 100, nullptr);
    SetTimer(window.Handle(), 3, 200, nullptr);
    EXPECT_THAT(After(300), ElementsAre(2, 3, 1));
}

TEST_F(NativeTimers, AreNeverShorterThanTenMilliseconds)
{
    SetTimer(window.Handle(), 1, 0, nullptr);
    EXPECT_THAT(After(9), IsEmpty());
    EXPECT_THAT(After(1), ElementsAre(1));
}

TEST_F(NativeTimers, StartAnewWhenTheyAreSetAgain)
{
    SetTimer(window.Handle(), 1, 100, nullptr);
    clock.Advance(90);
    SetTimer(window.Handle(), 1, 100, nullptr);
    EXPECT_THAT(After(90), IsEmpty());
    EXPECT_THAT(After(10), ElementsAre(1));
    clock.Advance(100);  // a tick is due, and dropped
    SetTimer(window.Handle(), 1, 100, nullptr);
    EXPECT_THAT(After(0), IsEmpty());
}

TEST_F(NativeTimers, ATickThatIsDueIsDroppedWithItsTimer)
{
    SetTimer(window.Handle(), 1, 100, nullptr);
    clock.Advance(100);
    KillTimer(window.Handle(), 1);
    EXPECT_THAT(After(0), IsEmpty());
}

TEST_F(NativeTimers, ComeAfterEverythingElse)
{
    Settle();
    SetTimer(window.Handle(), 1, 100, nullptr);
    clock.Advance(100);
    InvalidateRect(window.Handle(), nullptr, FALSE);
    PostMessageA(window.Handle(), WM_APP, 0, 0);
    Pump();
    EXPECT_THAT(log.Lines({WM_APP, WM_PAINT, WM_TIMER}), ElementsAre("w 0x8000", "w WM_PAINT", "w WM_TIMER"));
}

TEST_F(NativeTimers, WaitingForAMessageLetsTimePass)
{
    SetTimer(window.Handle(), 1, 5000, nullptr);
    const DWORD before = GetTickCount();
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.wParam, 1U);
    EXPECT_EQ(GetTickCount() - before, 5000U);
}

TEST_F(NativeTimers, LookingAtATickLeavesItPending)
{
    SetTimer(window.Handle(), 1, 100, nullptr);
    clock.Advance(100);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}
