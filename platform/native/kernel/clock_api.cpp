// Time and sleeping.

#include <qvui/platform/native/kernel.h>

#include "native/kernel/clock.h"

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
    WaitFor(std::int64_t{milliseconds} * 1'000'000);
}
