#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Replaces the timer of that window and id. A period is 10 ms at least.
void StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
/// False when it does not run.
bool StopTimer(HWND window, UINT_PTR id);
/// Turns the timer that has been due for longest into a message. With `removes` its next period begins.
bool TakeTimer(MSG& message, const MessageFilter& filter, bool removes);
/// Milliseconds until the next timer is due, 0 when one is, -1 when there is none.
int MillisecondsToNextTimer();
void RemoveTimersOf(HWND window);

}  // namespace qvui::native
