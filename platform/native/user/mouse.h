#pragma once

#include "native/user/input.h"

namespace qvui::native {

constexpr UINT kDoubleClickTime = 500;  // milliseconds

/// Returns the topmost window at a screen position that does not report HTTRANSPARENT, or null.
HWND WindowTakingMouse(POINT screen);
/// Determines the message of a mouse event. Returns false if the event belongs to no window.
bool RouteMouse(const InputEvent& event, RoutedInput& routed);
/// Performs the side effects: notifies the parents, activates, sets the cursor. Returns false if the message
/// is discarded.
bool CommitMouse(const InputEvent& event, RoutedInput& routed);
/// Returns the MK_ flags of the keys and buttons that are down.
WPARAM MouseKeys(const KeyStates& keys);

}  // namespace qvui::native
