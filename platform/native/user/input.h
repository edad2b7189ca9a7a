#pragma once

#include <array>
#include <deque>
#include <string>

#include "native/user/queue.h"

/// From what the display reports to mouse and keyboard messages.
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
InputState& TheInputState();

/// An event that has found its window but has not happened yet.
struct RoutedInput {
    MSG message{};
    int hit = HTCLIENT;
};

// --- input_queue.cpp
/// Turns the oldest input that the filter accepts into a message. With `removes` it happens: key states
/// change, a press activates. False when there is none; input that reaches no window is dropped on the way.
bool TakeInput(MSG& message, const MessageFilter& filter, bool removes);
/// A window appeared, moved or went: whoever is under the pointer now gets a move before the next idle
/// message.
void PointerMayHaveMoved();
void ForgetInput(HWND window);

// --- mouse.cpp
/// Finds the message of a mouse event; false when it belongs to no window.
bool RouteMouse(const InputEvent& event, RoutedInput& routed);
/// Carries it out: tells the parents, activates, sets the cursor. False when the message is swallowed.
bool CommitMouse(const InputEvent& event, RoutedInput& routed);
/// MK_ flags of what is down.
WPARAM MouseKeys(const KeyStates& keys);

// --- keyboard.cpp
bool RouteKey(const InputEvent& event, RoutedInput& routed);
void CommitKey(const InputEvent& event, const RoutedInput& routed);
/// Posts a WM_CHAR for each byte of a text that no key typed.
void PostText(const std::string& utf8);

// --- hover.cpp
/// The pointer is over another window, or over none; one that asked to be told that it left is told.
void PointerIsOver(HWND window);
HWND WindowUnderPointer();
/// The pointer moved: a hover is waited for anew.
void RestartHover(POINT screen);
/// Turns a hover that is due into a message.
bool TakeHover(MSG& message, const MessageFilter& filter, bool removes);
int MillisecondsToHover();
void ForgetHover(HWND window);

}  // namespace qvui::native
