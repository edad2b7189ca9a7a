#pragma once

#include "native/user/input.h"
#include "native/user/message_filter.h"

/// What the display has reported, on its way to becoming messages.
namespace qvui::native {

/// Turns the oldest input that the filter accepts into a message. With `removes` it happens: key states
/// change, a press activates. False when there is none; input that reaches no window is dropped on the way.
bool TakeInput(MSG& message, const MessageFilter& filter, bool removes);
/// A window appeared, moved or went: whoever is under the pointer now gets a move before the next idle
/// message.
void PointerMayHaveMoved();
void ForgetInput(HWND window);

}  // namespace qvui::native
