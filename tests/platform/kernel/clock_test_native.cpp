// The clock that a display may replace.

#include <qvui/platform/platform.h>

#include "native/kernel/clock.h"
#include "platform/platform_test.h"

namespace {

std::int64_t g_now = 0;

class ManualClock : public PlatformTest {
protected:
    ManualClock()
    {
        g_now = 5'000'000'000;
        qvui::native::SetClock([] { return g_now; });
        qvui::native::SetSleep([](std::int64_t nanoseconds) { g_now += nanoseconds; });
    }
    ~ManualClock() override
    {
        qvui::native::SetClock(nullptr);
        qvui::native::SetSleep(nullptr);
    }
};

}  // namespace

TEST_F(ManualClock, IsTheTimeOfEveryFunction)
{
    EXPECT_EQ(GetTickCount(), 5000U);
    LARGE_INTEGER frequency{};
    LARGE_INTEGER count{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    EXPECT_EQ(count.QuadPart / frequency.QuadPart, 5);
    Sleep(1500);
    EXPECT_EQ(GetTickCount(), 6500U);
    g_now = std::int64_t{0x100000001} * 1'000'000;
    EXPECT_EQ(GetTickCount(), 1U) << "the ticks wrap after 49 days";
}
