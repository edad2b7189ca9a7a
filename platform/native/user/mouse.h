#pragma once

#include "native/user/input.h"

namespace qvui::native {

constexpr UINT kDoubleClickTime = 500;  // milliseconds

/// The first window under a point of the screen that does not call itself transparent; null for none.
HWND WindowTakingMouse(POINT screen);
/// Finds the message of a mouse event; false when it belongs to no window.
bool RouteMouse(const InputEvent& event, RoutedInput& routed);
/// Carries it out: tells the parents, activates, sets the cursor. False when the message is swallowed.
bool CommitMouse(const InputEvent& event, RoutedInput& routed);
/// MK_ flags of what is down.
WPARAM MouseKeys(const KeyStates& keys);

}  // namespace qvui::native
