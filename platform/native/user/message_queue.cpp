// The message queue. Order: posted messages, input, quit, paint, timers, hover.

#include "native/user/message_queue.h"

#include <algorithm>

#include "native/user/caret.h"
#include "native/user/desktop.h"
#include "native/user/hover.h"
#include "native/user/input_queue.h"
#include "native/user/painting.h"
#include "native/user/timers.h"

namespace qvui::native {

MSG StampedMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, GetTickCount(), TheDesktop().input.pointer};
}

namespace {

bool TakePosted(MSG& message, const MessageFilter& filter, bool removes)
{
    std::deque<MSG>& posted = TheDesktop().messages.posted;
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
    PostedMessages& queue = TheDesktop().messages;
    if (!queue.hasQuit)
        return false;
    message = StampedMessage(nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0);
    queue.hasQuit = !removes;
    return true;
}

bool TakePaint(MSG& message, const MessageFilter& filter)
{
    const HWND window = filter.AcceptsNumber(WM_PAINT) ? NextToPaint(filter.window) : nullptr;
    if (window)
        message = StampedMessage(window, WM_PAINT, 0, 0);
    return window != nullptr;
}

}  // namespace

bool TakeMessage(MSG& message, const MessageFilter& filter, bool removes)
{
    if (TakePosted(message, filter, removes) || TakeInput(message, filter, removes))
        return true;
    BlinkCaret();
    // Input from the display comes before messages that are only generated when the queue is idle.
    TheDisplay().Wait(0, TheInputSink());
    return TakePosted(message, filter, removes) || TakeInput(message, filter, removes) ||
           TakeQuit(message, removes) || TakePaint(message, filter) || TakeTimer(message, filter, removes) ||
           TakeHover(message, filter, removes);
}

void RememberMessage(const MSG& message)
{
    TheDesktop().messages.lastPoint = message.pt;
    TheDesktop().messages.lastTime = message.time;
}

int MillisecondsToWait()
{
    int least = -1;
    for (const int wait : {MillisecondsToNextTimer(), MillisecondsToHover(), MillisecondsToBlink()})
        if (wait >= 0)
            least = least < 0 ? wait : std::min(least, wait);
    return least;
}

void RemoveMessagesOf(HWND window)
{
    std::erase_if(TheDesktop().messages.posted,
                  [window](const MSG& message) { return message.hwnd == window; });
}

}  // namespace qvui::native
