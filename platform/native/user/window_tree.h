#pragma once

#include "native/user/window.h"

/// Who stands where: parents, owners, stacking order, places on the screen and what of a window shows.
namespace qvui::native {

/// The list that a window stands in: its parent's children or the top-level windows.
std::vector<HWND>& SiblingsOf(const Window& window);
/// The top-level window that a window stands in (itself for one).
Window* RootOf(Window& window);
/// The top-level window at the end of the chain of owners.
Window* RootOwnerOf(Window& window);

/// A window's client origin on the screen, and in its top-level window.
POINT ScreenOrigin(const Window& window);
POINT OriginInRoot(const Window& window);

/// Whether the window and all its ancestors are shown.
bool IsShown(const Window& window);

/// What of a window shows, in its client coordinates. `Own` leaves out the children of a window that clips
/// them; `Whole` keeps them.
enum class Extent { Own, Whole };
Region VisibleRegion(const Window& window, Extent extent);

/// Puts a new window where it belongs: a child below its siblings, a top-level window above the others.
void AddToTree(Window& window);
void RemoveFromTree(const Window& window);

/// Puts a window behind `insertAfter`, a window of the same list or one of HWND_TOP, HWND_BOTTOM,
/// HWND_TOPMOST, HWND_NOTOPMOST; a top-level window takes along what it owns and what owns it. False when
/// nothing changed.
bool Restack(Window& window, HWND insertAfter);

/// Every window at a point of the screen that is shown and takes the mouse, the one to ask first first:
/// children before their parent, what lies on top before what lies below. A disabled child is left out; a
/// disabled top-level window hides what lies below it and takes nothing itself.
std::vector<HWND> WindowsAt(POINT screen);
/// The first of them, or null.
HWND WindowAt(POINT screen);

}  // namespace qvui::native
