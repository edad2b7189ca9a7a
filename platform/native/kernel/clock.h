#pragma once

#include <cstdint>

namespace qvui::native {

/// The platform layer's monotonic time in nanoseconds. A display with a clock of its own (the headless
/// display's is manual) replaces the clock; null restores the system's.
using ClockFunction = std::int64_t (*)();
void SetClock(ClockFunction now);
std::int64_t Now();

/// What Sleep calls with a replaced clock; null sleeps in real time.
using SleepFunction = void (*)(std::int64_t nanoseconds);
void SetSleep(SleepFunction sleep);
void WaitFor(std::int64_t nanoseconds);

}  // namespace qvui::native
