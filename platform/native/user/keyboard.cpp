// Turns key events into messages, and key messages into characters.

#include "native/user/keyboard.h"

#include "native/display/keyboard_layout.h"
#include "native/kernel/code_pages.h"
#include "native/user/desktop.h"
#include "native/user/input.h"

namespace qvui::native {
namespace {

constexpr LPARAM kAltDown = 1 << 29;
constexpr LPARAM kWasDown = 1 << 30;
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000000U);

// Keys go to the window with the focus; if there is none, to the active window as system keys.
HWND KeyTarget()
{
    return GetFocus() ? GetFocus() : GetActiveWindow();
}

bool IsSystemKey(int key, bool isDown, const KeyStates& keys)
{
    if (!GetFocus() || key == VK_F10)
        return true;
    if (key == VK_MENU)
        return isDown ? !keys[VK_CONTROL] : TheDesktop().isAltAlone;
    return keys[VK_MENU] && !keys[VK_CONTROL];
}

void PostCharacters(HWND window, UINT message, const std::string& utf8, LPARAM lParam)
{
    for (const char byte : Utf8ToSystem(utf8))
        PostMessageA(window, message, static_cast<unsigned char>(byte), lParam);
}

// The control character of a key, whatever text it types.
char ControlCharacter(int key, bool isControl)
{
    switch (key) {
        case VK_RETURN:
            return isControl ? '\n' : '\r';
        case VK_BACK:
            return isControl ? '\x7F' : '\b';
        case VK_TAB:
            return '\t';
        case VK_ESCAPE:
            return '\x1B';
        default:
            return isControl && key >= 'A' && key <= 'Z' ? static_cast<char>(key - 'A' + 1) : '\0';
    }
}

std::string PlainText(int key, const KeyStates& keys)
{
    const char character = UsCharacter(key, keys[VK_SHIFT]);
    return character ? std::string(1, character) : std::string();
}

struct Characters {
    UINT message = WM_CHAR;
    std::string text;  // UTF-8
};

// The characters that a key message types: those reported by the display, or, for a message that did not come
// from the display, those of a US keyboard. With Alt a key types nothing, unless its text comes from a third
// level.
Characters CharactersOf(const MSG& message)
{
    const KeyStates& keys = TheDesktop().input.keys;
    const auto key = static_cast<int>(message.wParam);
    const UINT number = message.message == WM_SYSKEYDOWN ? WM_SYSCHAR : WM_CHAR;
    const bool isControl = keys[VK_CONTROL] && !keys[VK_MENU];
    if (const char control = ControlCharacter(key, isControl))
        return {number, std::string(1, control)};
    if (isControl)
        return {};
    const bool isFromDisplay =
        TheDesktop().typed.key == message.wParam && TheDesktop().typed.time == message.time;
    if (number == WM_SYSCHAR && (message.lParam & kAltDown))
        return isFromDisplay && !TheDesktop().typed.text.empty()
                   ? Characters{WM_CHAR, TheDesktop().typed.text}
                   : Characters{number, PlainText(key, keys)};
    return {number, isFromDisplay ? TheDesktop().typed.text : PlainText(key, keys)};
}

}  // namespace

bool RouteKey(const InputEvent& event, RoutedInput& routed)
{
    const InputState& state = TheDesktop().input;
    MSG& message = routed.message;
    message.hwnd = KeyTarget();
    if (!message.hwnd)
        return false;
    KeyStates keys = state.keys;
    keys.Apply(event.code, event.isDown);
    const int key = GeneralKey(event.code);
    const bool isSystem = IsSystemKey(key, event.isDown, keys);
    message.message =
        event.isDown ? (isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN) : (isSystem ? WM_SYSKEYUP : WM_KEYUP);
    message.wParam = static_cast<WPARAM>(key);
    message.lParam = 1 | (keys[VK_MENU] ? kAltDown : 0);
    if (!event.isDown)
        message.lParam |= kReleased;
    else if (state.keys[event.code])
        message.lParam |= kWasDown;
    return true;
}

void CommitKey(const InputEvent& event, const RoutedInput& routed)
{
    TheDesktop().input.keys.Apply(event.code, event.isDown);
    if (!event.isDown)
        return;
    TheDesktop().isAltAlone = routed.message.wParam == VK_MENU;
    TheDesktop().typed = {routed.message.wParam, routed.message.time, event.text};
}

bool PostCharactersOf(const MSG& message)
{
    const Characters characters = CharactersOf(message);
    PostCharacters(message.hwnd, characters.message, characters.text, message.lParam);
    return !characters.text.empty();
}

void PostText(const std::string& utf8)
{
    PostCharacters(KeyTarget(), WM_CHAR, utf8, 1);
}

}  // namespace qvui::native
