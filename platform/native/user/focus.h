#pragma once

#include "native/user/window.h"

/// The active window and the focus.
namespace qvui::native {

/// Activates a top-level window (null: none) and gives it the focus. `how` is WA_ACTIVE or WA_CLICKACTIVE.
void ActivateWindow(HWND window, int how);
/// If `leaving` is the active window, activates its owner or the next window in z-order.
void ActivateNextTo(HWND leaving);
/// Moves the focus from a hidden window to its parent.
void FocusLeaves(HWND hidden);
/// Whether a window may become active when it is shown or clicked.
bool IsActivatable(const Window& window);
/// Whether neither the window nor any of its ancestors is disabled or minimised.
bool CanTakeFocus(HWND window);
/// Removes a destroyed window from the active window and the focus.
void ForgetActivation(HWND window);

}  // namespace qvui::native
