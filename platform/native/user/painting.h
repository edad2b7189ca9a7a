#pragma once

#include "native/user/window.h"

/// What is to be painted, and showing what was drawn.
namespace qvui::native {

/// Whether children of an invalidated area are invalidated with it; `AsStyled`: unless the window clips them.
enum class ChildPaint { AsStyled, All, None };

/// Adds an area (client coordinates) to what a window has to paint. Nothing happens where nothing shows.
void Invalidate(Window& window, const Region& area, bool erase, ChildPaint children = ChildPaint::AsStyled);
/// Invalidates all of a window that appears, and of its visible children, frames included.
void InvalidateTree(Window& window);
void Validate(Window& window, const Region& area);
/// A window that hides has nothing to paint any more, nor have its children.
void ForgetPaint(Window& window);

/// Sends WM_NCPAINT and WM_ERASEBKGND, as far as they are due, without waiting for the paint message.
void EraseNow(HWND window);

/// The window whose turn it is to get WM_PAINT, parents before children: within `window`, or any for null.
HWND NextToPaint(HWND window);

/// Shows a part of a window's client area on the display.
void PresentDamage(Window& window, const RECT& client);

}  // namespace qvui::native
