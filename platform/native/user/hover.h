#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Implements TrackMouseEvent for an existing window.
void TrackPointer(const TRACKMOUSEEVENT& request);
/// Records the window under the pointer (null: none) and notifies a window that requested leave tracking.
void PointerIsOver(HWND window);
/// The pointer moved: restarts the hover time.
void RestartHover(POINT screen);
/// Turns a hover that is due into a message.
bool TakeHover(MSG& message, const MessageFilter& filter, bool removes);
int MillisecondsToHover();
void ForgetHover(HWND window);

}  // namespace qvui::native
