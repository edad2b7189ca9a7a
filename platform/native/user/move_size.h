#pragma once

#include "native/user/window.h"

/// Moving and sizing a window with the mouse.
namespace qvui::native {

/// Returns the limits that the window reports for WM_GETMINMAXINFO.
MINMAXINFO SizeLimits(HWND window);

/// Implements WM_SYSCOMMAND with SC_MOVE, or with SC_SIZE and the edge in its low bits (numbered from 1 for
/// HTLEFT): follows the mouse until the button is released. Does nothing if the button is not down or the
/// window is maximised. Runs a nested message loop: the window may have been destroyed on return.
void MoveOrSizeByCommand(HWND window, WPARAM command);

}  // namespace qvui::native
