#include "native/kernel/clock.h"

#include <chrono>
#include <thread>

namespace qvui::native {
namespace {

ClockFunction g_clock = nullptr;
SleepFunction g_sleep = nullptr;

}  // namespace

void SetClock(ClockFunction now)
{
    g_clock = now;
}

void SetSleep(SleepFunction sleep)
{
    g_sleep = sleep;
}

std::int64_t Now()
{
    return g_clock ? g_clock()
                   : std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void WaitFor(std::int64_t nanoseconds)
{
    if (g_sleep)
        g_sleep(nanoseconds);
    else
        std::this_thread::sleep_for(std::chrono::nanoseconds(nanoseconds));
}

}  // namespace qvui::native
