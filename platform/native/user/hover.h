#pragma once

#include "native/user/message_filter.h"

namespace qvui::native {

/// Carries out a request of TrackMouseEvent for a window that exists.
void TrackPointer(const TRACKMOUSEEVENT& request);
/// The pointer is over another window, or over none; one that asked to be told that it left is told.
void PointerIsOver(HWND window);
/// The pointer moved: a hover is waited for anew.
void RestartHover(POINT screen);
/// Turns a hover that is due into a message.
bool TakeHover(MSG& message, const MessageFilter& filter, bool removes);
int MillisecondsToHover();
void ForgetHover(HWND window);

}  // namespace qvui::native
