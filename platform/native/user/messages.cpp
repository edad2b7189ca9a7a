// The message queue: posted messages, input, quit, paint and timers, in this order.

#include <algorithm>

#include "native/user/input.h"
#include "native/user/painting.h"

namespace qvui::native {
namespace {

struct Queue {
    std::deque<MSG> posted;
    bool hasQuit = false;
    int exitCode = 0;
    POINT lastPoint{};  // where the pointer was at the message that was taken out last
    DWORD lastTime = 0;
};

Queue& TheQueue()
{
    static auto& queue = *new Queue();
    return queue;
}

MSG Stamped(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, GetTickCount(), TheInputState().pointer};
}

bool TakePosted(MSG& message, const MessageFilter& filter, bool removes)
{
    std::deque<MSG>& posted = TheQueue().posted;
    const auto found = std::find_if(posted.begin(), posted.end(),
                                    [&](const MSG& candidate) { return filter.Accepts(candidate); });
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
    message = Stamped(nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0);
    queue.hasQuit = !removes;
    return true;
}

bool TakePaint(MSG& message, const MessageFilter& filter)
{
    const HWND window = filter.AcceptsNumber(WM_PAINT) ? NextToPaint(filter.window) : nullptr;
    if (window)
        message = Stamped(window, WM_PAINT, 0, 0);
    return window != nullptr;
}

bool Take(MSG& message, const MessageFilter& filter, bool removes)
{
    if (TakePosted(message, filter, removes) || TakeInput(message, filter, removes))
        return true;
    // What the display has to report comes before everything that only waits for idle time.
    TheDisplay().Wait(0, TheInputSink());
    return TakePosted(message, filter, removes) || TakeInput(message, filter, removes) ||
           TakeQuit(message, removes) || TakePaint(message, filter) || TakeTimer(message, filter, removes) ||
           TakeHover(message, filter, removes);
}

void Remember(const MSG& message)
{
    TheQueue().lastPoint = message.pt;
    TheQueue().lastTime = message.time;
}

int MillisecondsToWait()
{
    const int timer = MillisecondsToNextTimer();
    const int hover = MillisecondsToHover();
    return timer < 0 ? hover : hover < 0 ? timer : std::min(timer, hover);
}

}  // namespace

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
    TheQueue().posted.push_back(Stamped(window, message, wParam, lParam));
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
    if (!Take(*message, {window, first, last}, removes))
        return FALSE;
    if (removes)
        Remember(*message);
    return TRUE;
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    const MessageFilter filter{window, first, last};
    while (!Take(*message, filter, true))
        TheDisplay().Wait(MillisecondsToWait(), TheInputSink());
    Remember(*message);
    return message->message != WM_QUIT;
}

DWORD GetMessagePos()
{
    const POINT point = TheQueue().lastPoint;
    return static_cast<DWORD>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

LONG GetMessageTime()
{
    return static_cast<LONG>(TheQueue().lastTime);
}

LRESULT DispatchMessageA(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam) {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam,
                                                     GetTickCount());
        return 0;
    }
    return message->hwnd ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam)
                         : 0;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}
