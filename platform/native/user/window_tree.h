#pragma once

#include "native/user/window.h"

/// Window hierarchy, z-order, screen positions and visible regions.
namespace qvui::native {

/// Returns the list that contains a window: its parent's children or the top-level windows.
std::vector<HWND>& SiblingsOf(const Window& window);
/// Returns the top-level window that contains a window (or is the window itself).
Window* RootOf(Window& window);
/// Returns the top-level window at the end of the chain of owners.
Window* RootOwnerOf(Window& window);

/// A window's client origin in screen coordinates, and in coordinates of its top-level window.
POINT ScreenOrigin(const Window& window);
POINT OriginInRoot(const Window& window);

/// Whether the window and all its ancestors are visible.
bool IsShown(const Window& window);

/// The visible region of a window, in its client coordinates. `Own` excludes the children of a window that
/// clips its children; `Whole` includes them.
enum class Extent { Own, Whole };
Region VisibleRegion(const Window& window, Extent extent);

/// Adds a new window: a child below its siblings, a top-level window above the others.
void AddToTree(Window& window);
void RemoveFromTree(const Window& window);

/// Places a window after `insertAfter` in z-order, a window of the same list or one of HWND_TOP, HWND_BOTTOM,
/// HWND_TOPMOST, HWND_NOTOPMOST. A top-level window takes along the windows that it owns and its owners.
/// Returns false if nothing changed.
bool Restack(Window& window, HWND insertAfter);

/// Returns the visible windows at a screen position that can receive the mouse, in order of preference:
/// children before their parent, higher windows before lower ones. A disabled child is skipped; a disabled
/// top-level window hides the windows below it and receives nothing itself.
std::vector<HWND> WindowsAt(POINT screen);
/// Returns the first of them, or null.
HWND WindowAt(POINT screen);

}  // namespace qvui::native
