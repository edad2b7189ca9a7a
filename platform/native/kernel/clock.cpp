#include "native/kernel/clock.h"

#include <chrono>
#include <thread>

#include <qvui/platform/native/kernel.h>

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

}  // namespace qvui::native

using namespace qvui::native;

BOOL QueryPerformanceCounter(LARGE_INTEGER* count)
{
    count->QuadPart = Now();
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency)
{
    frequency->QuadPart = 1'000'000'000;
    return TRUE;
}

DWORD GetTickCount()
{
    return static_cast<DWORD>(Now() / 1'000'000);
}

void Sleep(DWORD milliseconds)
{
    const std::int64_t nanoseconds = std::int64_t{milliseconds} * 1'000'000;
    if (g_sleep)
        g_sleep(nanoseconds);
    else
        std::this_thread::sleep_for(std::chrono::nanoseconds(nanoseconds));
}
