#pragma once

#include "native/user/window.h"

/// The active window and the focus.
namespace qvui::native {

/// Makes a top-level window (null: none) active and gives it the focus; `how` is WA_ACTIVE or WA_CLICKACTIVE.
void ActivateWindow(HWND window, int how);
/// Activates the owner of `leaving`, or the next window in the stack, when `leaving` is the active window.
void ActivateNextTo(HWND leaving);
/// Moves the focus from a hidden window to its parent.
void FocusLeaves(HWND hidden);
/// Whether a window may become active when it is shown or pressed.
bool IsActivatable(const Window& window);
/// Whether neither the window nor one above it is disabled or minimised.
bool CanTakeFocus(HWND window);
/// A destroyed window is neither active nor in focus.
void ForgetActivation(HWND window);

}  // namespace qvui::native
