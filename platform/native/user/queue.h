#pragma once

#include <deque>
#include <string>

#include "native/user/window.h"

namespace qvui::native {

/// What the display reported, in the order in which it happened. Which window a press belongs to is decided
/// when the message is taken out, since windows may have come and gone by then.
struct InputEvent {
    enum class Kind { Move, Button, Wheel, Key, Text } kind = Kind::Move;
    POINT screen{};
    int code = 0;  // button, wheel delta or virtual key
    bool isDown = false;
    bool isRepeat = false;
    std::string text;  // UTF-8
    DWORD time = 0;
};

std::deque<InputEvent>& InputQueue();

/// Turns the oldest input into a message of the window and range asked for. False when there is none; input
/// that reaches no window is dropped on the way.
bool TakeInput(MSG& message, HWND window, UINT first, UINT last);

/// Keys and buttons that are down as far as messages have been taken out.
bool IsKeyDown(int virtualKey);

}  // namespace qvui::native
