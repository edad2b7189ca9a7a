#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// Input for placing a tooltip beside the pointer.
struct ToolTipPlacement {
    RECT workArea{};  // of the screen that contains the pointer
    POINT pointer{};  // its hot spot
    SIZE size{};      // of the tooltip
    SIZE offset{};    // from the hot spot horizontally, and from the pointer's picture vertically
};

/// Height in pixels of the pointer's picture below its hot spot.
inline constexpr int kPointerPicture = 12;

/// Returns the tooltip's upper left corner in screen coordinates: below the pointer; above it if it would
/// leave the work area there; beside it if there is room neither below nor above. It is shifted horizontally
/// into the work area; the upper left corner of a larger tooltip stays visible.
POINT PlaceToolTip(const ToolTipPlacement& placement);

/// Returns the upper left corner of a menu beside an anchor, in screen coordinates: below it, or to its right
/// if the menu opens sideways; on the other side if there is room only there. The menu is kept inside the
/// area; the upper left corner of a larger menu stays visible.
POINT PlaceMenu(const RECT& area, const RECT& anchor, SIZE menu, bool opensSideways);

/// Returns the work area of the screen that contains a point or is nearest to it.
RECT WorkAreaAt(POINT screen);

}  // namespace DUI
