#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// Where a tooltip stands beside the pointer.
struct ToolTipPlacement {
    RECT workArea{};  // of the screen that the pointer is on
    POINT pointer{};  // its hot spot
    SIZE size{};      // of the tooltip
    SIZE offset{};    // from the hot spot sideways, and from the pointer's picture downwards
};

/// What the pointer's picture covers below its hot spot, in pixels.
inline constexpr int kPointerPicture = 12;

/// The tooltip's upper left corner on the screen: below the pointer; above it when it would leave the work
/// area there; beside it when there is room neither below nor above. It is shifted sideways into the work
/// area, whose upper left corner stays visible when the tooltip is larger.
POINT PlaceToolTip(const ToolTipPlacement& placement);

/// The upper left corner of a menu beside an anchor on the screen: below it, or to its right when the menu
/// opens sideways; on the other side when only there is room. It is kept in the area, whose upper left corner
/// stays visible when the menu is larger.
POINT PlaceMenu(const RECT& area, const RECT& anchor, SIZE menu, bool opensSideways);

/// The work area of the screen that a point is on, or nearest to.
RECT WorkAreaAt(POINT screen);

}  // namespace DUI
