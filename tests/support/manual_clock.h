#pragma once

/// Native target only, like the headless display that it belongs to: put tests that include this into files
/// named *_native.cpp, which CMake leaves out of the windows build.

#include <cstdint>

#include "native/display/headless/headless.h"

namespace qvui::test {

/// While it lives, time stands still unless it is told to pass, or something waits for a timer.
class ManualClock {
public:
    ManualClock() { native::TheHeadlessDisplay()->UseManualClock(); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;
    ~ManualClock() { native::TheHeadlessDisplay()->UseMachineClock(); }

    void Advance(std::int64_t milliseconds) { native::TheHeadlessDisplay()->Advance(milliseconds); }
};

}  // namespace qvui::test
