#pragma once

#include "native/user/window.h"

namespace qvui::native {

/// Turns the caret on or off when its half period has passed.
void BlinkCaret();
/// Milliseconds until then, -1 while no caret blinks.
int MillisecondsToBlink();
/// Shows the caret, if it is shown at all, and starts its period anew.
void RestartCaret();
/// Presents the place where the caret is or was.
void PresentCaret();
/// The window is gone, and its caret with it.
void ForgetCaret(HWND window);

}  // namespace qvui::native
