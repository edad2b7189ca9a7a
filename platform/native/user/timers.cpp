// Timers. At most one tick of each timer is pending, however late it is retrieved.

#include "native/user/timers.h"

#include <algorithm>

#include "native/kernel/clock.h"
#include "native/user/desktop.h"

namespace qvui::native {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::int64_t kShortestPeriod = 10 * kMillisecond;

void Insert(const Timer& timer)
{
    std::vector<Timer>& timers = TheDesktop().timers;
    const auto isEarlier = [](const Timer& one, const Timer& other) { return one.due < other.due; };
    timers.insert(std::upper_bound(timers.begin(), timers.end(), timer, isEarlier), timer);
}

}  // namespace

void StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    StopTimer(window, id);
    const std::int64_t period = std::max(milliseconds * kMillisecond, kShortestPeriod);
    Insert({window, id, period, Now() + period, procedure});
}

bool StopTimer(HWND window, UINT_PTR id)
{
    return std::erase_if(TheDesktop().timers,
                         [&](const Timer& timer) { return timer.window == window && timer.id == id; }) > 0;
}

bool TakeTimer(MSG& message, const MessageFilter& filter, bool removes)
{
    std::vector<Timer>& timers = TheDesktop().timers;
    const std::int64_t now = Now();
    const auto found = std::find_if(timers.begin(), timers.end(), [&](const Timer& timer) {
        return timer.due > now || (filter.AcceptsNumber(WM_TIMER) && filter.AcceptsWindow(timer.window));
    });
    if (found == timers.end() || found->due > now)
        return false;
    Timer timer = *found;
    message = {timer.window,   WM_TIMER,
               timer.id,       reinterpret_cast<LPARAM>(timer.procedure),
               GetTickCount(), TheDesktop().input.pointer};
    if (removes) {
        timers.erase(found);
        timer.due = now + timer.period;
        Insert(timer);
    }
    return true;
}

int MillisecondsToNextTimer()
{
    if (TheDesktop().timers.empty())
        return -1;
    return static_cast<int>(std::max<std::int64_t>(
        0, (TheDesktop().timers.front().due - Now() + kMillisecond - 1) / kMillisecond));
}

void RemoveTimersOf(HWND window)
{
    std::erase_if(TheDesktop().timers, [window](const Timer& timer) { return timer.window == window; });
}

}  // namespace qvui::native
