#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Starts a timer, replacing one with the same window and id. The minimum period is 10 ms.
void StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
/// Returns false if the timer is not running.
bool StopTimer(HWND window, UINT_PTR id);
/// Turns the timer that has been due longest into a message. Starts its next period if `removes` is set.
bool TakeTimer(MSG& message, const MessageFilter& filter, bool removes);
/// Returns the milliseconds until the next timer is due, 0 if one is due, or -1 if there is none.
int MillisecondsToNextTimer();
void RemoveTimersOf(HWND window);

}  // namespace qvui::native
