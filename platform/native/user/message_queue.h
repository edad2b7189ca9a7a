#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Returns the next message that the filter accepts: posted ones first, then input, quit, paint, timers and
/// hover. Removes it from the queue if `removes` is set. Returns false if there is none.
bool TakeMessage(MSG& message, const MessageFilter& filter, bool removes);
/// Records position and time of a removed message, for GetMessagePos and GetMessageTime.
void RememberMessage(const MSG& message);
/// Returns how long the display may wait for input; -1 for no limit.
int MillisecondsToWait();
/// Creates a message with the current time and pointer position.
MSG StampedMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void RemoveMessagesOf(HWND window);

}  // namespace qvui::native
