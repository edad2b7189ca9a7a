#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Takes the next message that the filter accepts: posted ones first, then input, quit, paint and timers.
/// With `removes` it leaves the queue. False when there is none.
bool TakeMessage(MSG& message, const MessageFilter& filter, bool removes);
/// Notes place and time of a message that was taken out, for GetMessagePos and GetMessageTime.
void RememberMessage(const MSG& message);
/// How long the display may wait for input; -1: as long as it likes.
int MillisecondsToWait();
/// A message as of now.
MSG StampedMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void RemoveMessagesOf(HWND window);

}  // namespace qvui::native
