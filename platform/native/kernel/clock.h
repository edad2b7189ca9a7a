#pragma once

#include <cstdint>

namespace qvui::native {

/// The layer's time in nanoseconds since some fixed moment, never going back. A display with a clock of its
/// own (headless: a manual one) replaces it; null brings back the machine's.
using ClockFunction = std::int64_t (*)();
void SetClock(ClockFunction now);
std::int64_t Now();

/// What Sleep does with a replaced clock; null: really sleep.
using SleepFunction = void (*)(std::int64_t nanoseconds);
void SetSleep(SleepFunction sleep);
void WaitFor(std::int64_t nanoseconds);

}  // namespace qvui::native
