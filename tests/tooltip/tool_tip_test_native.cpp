// The tooltip's times, on a clock that stands still, and a desktop of several screens.

#include <gtest/gtest.h>

#include "support/leak_check.h"
#include "support/manual_clock.h"
#include "support/transcript.h"
#include "tooltip/popup_placement.h"
#include "tooltip/tool_tip_host.h"

using namespace qvui::test;

namespace {

TEST(ToolTipTimes, PassAsTheyAreWritten)
{
    const LeakCheck leaks;
    ManualClock clock;
    ToolTipScript script([&clock](int milliseconds) { clock.Advance(milliseconds); });
    ExpectTranscript("tooltip/tool_tip_times.txt",
                     LineByLine([&script](auto& line) { return script.Do(line); }));
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
