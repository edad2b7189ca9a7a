#pragma once

#include <qvui/platform/platform.h>

namespace DUI::layout {

/// Cuts the part that is docked at an edge off the free rectangle. `sides` are extended-style bits, of which
/// the first of left, right, top and bottom counts; without one the part is empty and nothing is cut off.
RECT CutDocked(RECT& free, DWORD sides, SIZE wanted);

/// All of the free rectangle, which is used up.
RECT CutAll(RECT& free);

}  // namespace DUI::layout
