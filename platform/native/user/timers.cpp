// Timers: at most one tick of each waits, however late it is taken.

#include <algorithm>

#include "native/kernel/clock.h"
#include "native/user/input.h"

namespace qvui::native {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::int64_t kShortestPeriod = 10 * kMillisecond;

struct Timer {
    HWND window;
    UINT_PTR id;
    std::int64_t period;  // nanoseconds
    std::int64_t due;
    TIMERPROC procedure;
};

// In the order in which they are due.
std::vector<Timer>& Timers()
{
    static auto& timers = *new std::vector<Timer>();
    return timers;
}

void Insert(const Timer& timer)
{
    std::vector<Timer>& timers = Timers();
    const auto isEarlier = [](const Timer& one, const Timer& other) { return one.due < other.due; };
    timers.insert(std::upper_bound(timers.begin(), timers.end(), timer, isEarlier), timer);
}

bool Remove(HWND window, UINT_PTR id)
{
    return std::erase_if(Timers(),
                         [&](const Timer& timer) { return timer.window == window && timer.id == id; }) > 0;
}

}  // namespace

bool TakeTimer(MSG& message, const MessageFilter& filter, bool removes)
{
    std::vector<Timer>& timers = Timers();
    const std::int64_t now = Now();
    const auto found = std::find_if(timers.begin(), timers.end(), [&](const Timer& timer) {
        return timer.due > now || (filter.AcceptsNumber(WM_TIMER) && filter.AcceptsWindow(timer.window));
    });
    if (found == timers.end() || found->due > now)
        return false;
    Timer timer = *found;
    message = {timer.window,   WM_TIMER,
               timer.id,       reinterpret_cast<LPARAM>(timer.procedure),
               GetTickCount(), TheInputState().pointer};
    if (removes) {
        timers.erase(found);
        timer.due = now + timer.period;
        Insert(timer);
    }
    return true;
}

int MillisecondsToNextTimer()
{
    if (Timers().empty())
        return -1;
    return static_cast<int>(
        std::max<std::int64_t>(0, (Timers().front().due - Now() + kMillisecond - 1) / kMillisecond));
}

void RemoveTimersOf(HWND window)
{
    std::erase_if(Timers(), [window](const Timer& timer) { return timer.window == window; });
}

}  // namespace qvui::native

using namespace qvui::native;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    if (window && !LookUpWindow(window))
        return 0;
    static UINT_PTR nextFree = 0x7000;
    if (!window)
        id = nextFree++;
    Remove(window, id);
    const std::int64_t period = std::max(milliseconds * kMillisecond, kShortestPeriod);
    Insert({window, id, period, Now() + period, procedure});
    return id ? id : 1;
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return Remove(window, id);
}
