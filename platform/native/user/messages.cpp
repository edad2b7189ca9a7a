// The message queue: posted messages, input, quit, paint and timers, in this order.

#include <algorithm>
#include <deque>
#include <memory>
#include <vector>

#include "native/kernel/clock.h"
#include "native/user/queue.h"
#include "native/user/window.h"

namespace qvui::native {
namespace {

struct Timer {
    HWND window;
    UINT_PTR id;
    std::int64_t period;  // nanoseconds
    std::int64_t due;
    TIMERPROC procedure;
};

struct Queue {
    std::deque<MSG> posted;
    std::vector<Timer> timers;
    bool hasQuit = false;
    int exitCode = 0;
};

Queue& TheQueue()
{
    static Queue queue;
    return queue;
}

constexpr std::int64_t kShortestPeriod = 10'000'000;

bool Accepts(const MSG& message, HWND window, UINT first, UINT last)
{
    const bool isWindow = !window || message.hwnd == window || IsChild(window, message.hwnd);
    return isWindow && ((first == 0 && last == 0) || (message.message >= first && message.message <= last));
}

POINT PointerNow()
{
    POINT point{};
    GetCursorPos(&point);
    return point;
}

bool TakePosted(MSG& message, HWND window, UINT first, UINT last, bool removes)
{
    std::deque<MSG>& posted = TheQueue().posted;
    const auto found = std::find_if(posted.begin(), posted.end(),
                                    [&](const MSG& candidate) { return Accepts(candidate, window, first, last); });
    if (found == posted.end())
        return false;
    message = *found;
    if (removes)
        posted.erase(found);
    return true;
}

bool TakeQuit(MSG& message, bool removes)
{
    Queue& queue = TheQueue();
    if (!queue.hasQuit)
        return false;
    message = {nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0, GetTickCount(), PointerNow()};
    queue.hasQuit = !removes;
    return true;
}

HWND FindPainter(const std::vector<HWND>& windows)
{
    for (const HWND handle : windows) {
        const Window* window = LookUpWindow(handle);
        if (!window || !(window->style & WS_VISIBLE) || (window->style & WS_MINIMIZE))
            continue;
        if (!window->update.IsEmpty())
            return handle;
        if (const HWND child = FindPainter(window->children))
            return child;
    }
    return nullptr;
}

bool TakePaint(MSG& message, HWND window, UINT first, UINT last)
{
    message = {FindPainter(TopLevelWindows()), WM_PAINT, 0, 0, GetTickCount(), PointerNow()};
    return message.hwnd && Accepts(message, window, first, last);
}

bool TakeTimer(MSG& message, HWND window, UINT first, UINT last, bool removes)
{
    std::vector<Timer>& timers = TheQueue().timers;
    const std::int64_t now = Now();
    auto earliest = timers.end();
    for (auto timer = timers.begin(); timer != timers.end(); ++timer) {
        const MSG candidate{timer->window, WM_TIMER, timer->id, reinterpret_cast<LPARAM>(timer->procedure), 0, {}};
        if (timer->due <= now && (earliest == timers.end() || timer->due < earliest->due) &&
            Accepts(candidate, window, first, last)) {
            earliest = timer;
            message = candidate;
        }
    }
    if (earliest == timers.end())
        return false;
    message.time = GetTickCount();
    message.pt = PointerNow();
    // At most one tick waits per timer, however late it is taken.
    if (removes)
        earliest->due = now + earliest->period;
    return true;
}

bool Take(MSG& message, HWND window, UINT first, UINT last, bool removes)
{
    // Input is taken into the posted messages when it is only looked at, so that it is found again.
    return TakePosted(message, window, first, last, removes) ||
           (TakeInput(message, window, first, last) &&
            (removes || (TheQueue().posted.push_front(message), true))) ||
           TakeQuit(message, removes) || TakePaint(message, window, first, last) ||
           TakeTimer(message, window, first, last, removes);
}

int MillisecondsToNextTimer()
{
    std::int64_t nearest = -1;
    for (const Timer& timer : TheQueue().timers)
        if (nearest < 0 || timer.due < nearest)
            nearest = timer.due;
    if (nearest < 0)
        return -1;
    return static_cast<int>(std::max<std::int64_t>(0, (nearest - Now() + 999'999) / 1'000'000));
}

}  // namespace

void RemoveTimersOf(HWND window)
{
    std::erase_if(TheQueue().timers, [window](const Timer& timer) { return timer.window == window; });
}

void RemoveMessagesOf(HWND window)
{
    std::erase_if(TheQueue().posted, [window](const MSG& message) { return message.hwnd == window; });
}

}  // namespace qvui::native

using namespace qvui::native;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // A share keeps the record alive while its own procedure destroys it.
    const std::shared_ptr<Window> target = Windows().Find(window);
    return target && target->procedure ? target->procedure(window, message, wParam, lParam) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window && !LookUpWindow(window)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    TheQueue().posted.push_back({window, message, wParam, lParam, GetTickCount(), PointerNow()});
    return TRUE;
}

void PostQuitMessage(int exitCode)
{
    TheQueue().hasQuit = true;
    TheQueue().exitCode = exitCode;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    const bool removes = (remove & PM_REMOVE) != 0;
    if (Take(*message, window, first, last, removes))
        return TRUE;
    TheDisplay().Wait(0, TheInputSink());
    return Take(*message, window, first, last, removes);
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    while (!PeekMessageA(message, window, first, last, PM_REMOVE))
        TheDisplay().Wait(MillisecondsToNextTimer(), TheInputSink());
    return message->message != WM_QUIT;
}

LRESULT DispatchMessageA(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam) {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    return message->hwnd ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam) : 0;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    if (window && !LookUpWindow(window))
        return 0;
    static UINT_PTR nextFree = 0x7000;
    if (!window)
        id = nextFree++;
    std::vector<Timer>& timers = TheQueue().timers;
    std::erase_if(timers, [&](const Timer& timer) { return timer.window == window && timer.id == id; });
    const std::int64_t period = std::max(std::int64_t{milliseconds} * 1'000'000, kShortestPeriod);
    timers.push_back({window, id, period, Now() + period, procedure});
    return id ? id : 1;
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return std::erase_if(TheQueue().timers,
                         [&](const Timer& timer) { return timer.window == window && timer.id == id; }) > 0;
}
