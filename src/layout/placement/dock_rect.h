#pragma once

#include <qvui/platform/platform.h>

namespace DUI::layout {

/// Cuts the part docked at an edge off the free rectangle and returns it. `sides` are extended-style bits, of
/// which the first of left, right, top and bottom applies; without one, the part is empty and nothing is cut
/// off.
RECT CutDocked(RECT& free, DWORD sides, SIZE wanted);

/// Returns the whole free rectangle and empties it.
RECT CutAll(RECT& free);

}  // namespace DUI::layout
