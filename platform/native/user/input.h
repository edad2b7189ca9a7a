#pragma once

#include <array>
#include <deque>
#include <string>

#include <qvui/platform/native/user.h>

/// What the display reports, and the state of keys and pointer.
namespace qvui::native {

/// What the display reported, in the order in which it happened. Which window it belongs to is decided when
/// the message is taken out, since windows may have come and gone by then.
struct InputEvent {
    enum class Kind { Move, Button, Wheel, Key, Text } kind = Kind::Move;
    POINT screen{};
    int code = 0;  // button, wheel delta or virtual key
    bool isDown = false;
    std::string text;  // UTF-8: of a Text, or what a pressed key types
    DWORD time = 0;
};

/// Keys and buttons by virtual key number.
struct KeyStates {
    std::array<bool, 256> isDown{};
    std::array<bool, 256> isToggled{};

    bool operator[](int virtualKey) const { return isDown[static_cast<std::size_t>(virtualKey & 0xFF)]; }
    /// Follows a press or a release; the left and right forms of a modifier move the general one too.
    void Apply(int virtualKey, bool down);
};

/// The input that messages have been taken out for.
struct InputState {
    POINT pointer{0, 0};
    bool isPointerOutside = false;  // over none of our windows, so the display knows better where
    KeyStates keys;
    HWND capture = nullptr;
};
/// An event that has found its window but has not happened yet.
struct RoutedInput {
    MSG message{};
    int hit = HTCLIENT;
};

/// VK_SHIFT, VK_CONTROL or VK_MENU for its left and right form; any other key is itself.
int GeneralKey(int virtualKey);
/// MK_ flags of what is down.
WPARAM MouseKeys(const KeyStates& keys);

}  // namespace qvui::native
