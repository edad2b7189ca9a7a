// The tooltip's times, on a clock that stands still, and a desktop of several screens.

#include <gtest/gtest.h>

#include "support/leak_check.h"
#include "support/manual_clock.h"
#include "tooltip/popup_placement.h"
#include "tooltip/tool_tip_host.h"

using namespace qvui::test;

namespace {

class ToolTipTimes : public testing::Test {
    LeakCheck m_leaks;

protected:
    std::string After(int milliseconds)
    {
        clock.Advance(milliseconds);
        Pump();
        return host.Shown();
    }

    ManualClock clock;
    ToolTipHost host;
};

TEST_F(ToolTipTimes, ItShowsWhenThePointerHasRestedForHalfASecond)
{
    host.MoveTo(50, 60);
    EXPECT_EQ(After(499), "");
    host.MoveTo(51, 60);
    EXPECT_EQ(After(499), "") << "a move begins the delay anew";
    EXPECT_EQ(After(1), "one");
    EXPECT_EQ(After(4999), "one");
    EXPECT_EQ(After(1), "") << "after five seconds";
    host.MoveTo(52, 60);
    EXPECT_EQ(After(10000), "") << "not for the same text again";
}

TEST_F(ToolTipTimes, TheNextOneShowsSooner)
{
    host.MoveTo(50, 60);
    ASSERT_EQ(After(500), "one");
    host.MoveTo(150, 60);
    EXPECT_EQ(host.Shown(), "");
    EXPECT_EQ(After(99), "");
    EXPECT_EQ(After(1), "two");
    host.MoveTo(250, 60);
    EXPECT_EQ(After(400), "") << "nothing to show between the two";
    host.MoveTo(50, 60);
    EXPECT_EQ(After(100), "one") << "still soon after the last one";
    host.MoveTo(250, 60);
    EXPECT_EQ(After(500), "");
    host.MoveTo(150, 60);
    EXPECT_EQ(After(100), "") << "no longer";
    EXPECT_EQ(After(400), "two");
    host.Relay(WM_LBUTTONDOWN);
    host.MoveTo(50, 60);
    EXPECT_EQ(After(100), "") << "not after a press";
    EXPECT_EQ(After(400), "one");
}

TEST_F(ToolTipTimes, TheDelaysAreTheApplications)
{
    host.tip->SetDelayTime(50, 0, 20);
    host.MoveTo(50, 60);
    EXPECT_EQ(After(49), "");
    EXPECT_EQ(After(1), "one");
    EXPECT_EQ(After(1000000), "one") << "as long as the pointer stays";
    host.MoveTo(150, 60);
    EXPECT_EQ(After(19), "");
    EXPECT_EQ(After(1), "two");
}

TEST_F(ToolTipTimes, AMovedHostIsNoticedSoon)
{
    host.MoveTo(50, 60);
    ASSERT_EQ(After(500), "one");
    MoveWindow(host.window->Handle(), 90, 100, 300, 200, TRUE);
    EXPECT_EQ(After(100), "");
}

TEST_F(ToolTipTimes, NothingTicksWhileNothingShows)
{
    host.MoveTo(250, 60);
    EXPECT_EQ(After(500), "");
    MSG message;
    clock.Advance(100000);
    EXPECT_FALSE(PeekMessageA(&message, host.tip->GetHWND(), WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST(ToolTipScreens, TheScreenOfThePointerCounts)
{
    qvui::native::HeadlessDisplay& display = *qvui::native::TheHeadlessDisplay();
    display.UseScreens({{{0, 0, 1000, 800}, {0, 0, 1000, 760}}, {{-800, 0, 0, 600}, {-800, 30, 0, 600}}});
    const struct {
        POINT pointer;
        RECT workArea;
    } cases[] = {
        {{500, 400}, {0, 0, 1000, 760}},   {{999, 799}, {0, 0, 1000, 760}},  {{-1, 5}, {-800, 30, 0, 600}},
        {{-300, 700}, {-800, 30, 0, 600}}, {{2000, 100}, {0, 0, 1000, 760}},
    };
    for (const auto& c : cases) {
        const RECT area = DUI::WorkAreaAt(c.pointer);
        EXPECT_TRUE(EqualRect(&area, &c.workArea)) << c.pointer.x << "," << c.pointer.y;
    }
    EXPECT_EQ(MonitorFromPoint({2000, 100}, MONITOR_DEFAULTTONULL), nullptr);
    EXPECT_EQ(MonitorFromPoint({-10, -100}, MONITOR_DEFAULTTOPRIMARY),
              MonitorFromPoint({1, 1}, MONITOR_DEFAULTTONULL));
    MONITORINFO info{};
    info.cbSize = sizeof info;
    EXPECT_FALSE(GetMonitorInfoA(nullptr, &info));
    EXPECT_TRUE(GetMonitorInfoA(MonitorFromPoint({-10, 5}, MONITOR_DEFAULTTONULL), &info));
    EXPECT_EQ(info.dwFlags & MONITORINFOF_PRIMARY, 0u);
    display.UseScreens({});
}

}  // namespace
