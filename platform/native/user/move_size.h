#pragma once

#include "native/user/window.h"

/// Moving and sizing a window with the mouse.
namespace qvui::native {

/// What WM_GETMINMAXINFO answers.
MINMAXINFO SizeLimits(HWND window);

/// Carries out WM_SYSCOMMAND with SC_MOVE, or with SC_SIZE and the edges in its low bits (HTLEFT counts as
/// 1): follows the mouse until the button goes up. Nothing happens when it is not down or the window is
/// maximised. A nested message loop: the window may be gone afterwards.
void MoveOrSizeByCommand(HWND window, WPARAM command);

}  // namespace qvui::native
