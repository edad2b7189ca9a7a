#pragma once

#include "native/user/window.h"

/// Invalidation of windows, and presenting what was drawn.
namespace qvui::native {

/// Whether children of an invalidated area are invalidated too. `AsStyled`: unless the window clips its
/// children.
enum class ChildPaint { AsStyled, All, None };

/// Invalidates an area (client coordinates). Has no effect where the window is not visible.
void Invalidate(Window& window, const Region& area, bool erase, ChildPaint children = ChildPaint::AsStyled);
/// Invalidates a visible window and its visible children, including their frames.
void InvalidateTree(Window& window);
void Validate(Window& window, const Region& area);
/// Discards the pending painting of a hidden window and its children.
void ForgetPaint(Window& window);

/// Sends WM_NCPAINT and WM_ERASEBKGND immediately if they are due.
void EraseNow(HWND window);

/// Returns the next window to receive WM_PAINT, parents before children: `window` or a child of it, or any
/// window for null.
HWND NextToPaint(HWND window);

/// Presents a part of a window's client area on the display.
void PresentDamage(Window& window, const RECT& client);

}  // namespace qvui::native
