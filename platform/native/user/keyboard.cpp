// Key events to messages, and key messages to characters.

#include "native/display/keyboard_layout.h"
#include "native/kernel/code_pages.h"
#include "native/user/input.h"

namespace qvui::native {
namespace {

constexpr LPARAM kAltDown = 1 << 29;
constexpr LPARAM kWasDown = 1 << 30;
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000000U);

struct Sides {
    int general;
    int left;
    int right;
};
constexpr Sides kSides[] = {
    {VK_SHIFT, VK_LSHIFT, VK_RSHIFT}, {VK_CONTROL, VK_LCONTROL, VK_RCONTROL}, {VK_MENU, VK_LMENU, VK_RMENU}};

// What the key message that was taken out last types, for TranslateMessage.
struct Typed {
    WPARAM key = 0;
    DWORD time = 0;
    std::string text;  // UTF-8
};
Typed g_typed;
bool g_altAlone = false;  // Alt is down and no other key came since

int GeneralKey(int virtualKey)
{
    for (const Sides& sides : kSides)
        if (virtualKey == sides.left || virtualKey == sides.right)
            return sides.general;
    return virtualKey;
}

// Keys go to the focus; without one to the active window, as system keys.
HWND KeyTarget()
{
    return GetFocus() ? GetFocus() : GetActiveWindow();
}

bool IsSystemKey(int key, bool isDown, const KeyStates& keys)
{
    if (!GetFocus() || key == VK_F10)
        return true;
    if (key == VK_MENU)
        return isDown ? !keys[VK_CONTROL] : g_altAlone;
    return keys[VK_MENU] && !keys[VK_CONTROL];
}

void PostCharacters(HWND window, UINT message, const std::string& utf8, LPARAM lParam)
{
    for (const char byte : Utf8ToSystem(utf8))
        PostMessageA(window, message, static_cast<unsigned char>(byte), lParam);
}

// What a key means whatever it types: control characters.
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

// What a key message types: what the display said, or for a message that did not come from it what a plain
// keyboard would. With Alt a keyboard types nothing, unless the key has a third level: then that is what was
// meant.
Characters CharactersOf(const MSG& message)
{
    const KeyStates& keys = TheInputState().keys;
    const auto key = static_cast<int>(message.wParam);
    const UINT number = message.message == WM_SYSKEYDOWN ? WM_SYSCHAR : WM_CHAR;
    const bool isControl = keys[VK_CONTROL] && !keys[VK_MENU];
    if (const char control = ControlCharacter(key, isControl))
        return {number, std::string(1, control)};
    if (isControl)
        return {};
    const bool isFromDisplay = g_typed.key == message.wParam && g_typed.time == message.time;
    if (number == WM_SYSCHAR && (message.lParam & kAltDown))
        return isFromDisplay && !g_typed.text.empty() ? Characters{WM_CHAR, g_typed.text}
                                                      : Characters{number, PlainText(key, keys)};
    return {number, isFromDisplay ? g_typed.text : PlainText(key, keys)};
}

}  // namespace

void KeyStates::Apply(int virtualKey, bool down)
{
    const auto set = [this, down](int key) {
        const auto index = static_cast<std::size_t>(key & 0xFF);
        if (down && !isDown[index])
            isToggled[index] = !isToggled[index];
        isDown[index] = down;
    };
    set(virtualKey);
    for (const Sides& sides : kSides)
        if (virtualKey == sides.general)
            set(sides.left);
        else if (virtualKey == sides.left || virtualKey == sides.right)
            isDown[static_cast<std::size_t>(sides.general)] = (*this)[sides.left] || (*this)[sides.right];
}

bool RouteKey(const InputEvent& event, RoutedInput& routed)
{
    const InputState& state = TheInputState();
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
    TheInputState().keys.Apply(event.code, event.isDown);
    if (!event.isDown)
        return;
    g_altAlone = routed.message.wParam == VK_MENU;
    g_typed = {routed.message.wParam, routed.message.time, event.text};
}

void PostText(const std::string& utf8)
{
    PostCharacters(KeyTarget(), WM_CHAR, utf8, 1);
}

}  // namespace qvui::native

using namespace qvui::native;

BOOL TranslateMessage(const MSG* message)
{
    if (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)
        return FALSE;
    const Characters characters = CharactersOf(*message);
    if (characters.text.empty())
        return FALSE;
    PostCharacters(message->hwnd, characters.message, characters.text, message->lParam);
    return TRUE;
}

SHORT GetKeyState(int key)
{
    const KeyStates& keys = TheInputState().keys;
    return static_cast<SHORT>((keys[key] ? 0x8000 : 0) |
                              (keys.isToggled[static_cast<std::size_t>(key & 0xFF)] ? 1 : 0));
}

SHORT GetAsyncKeyState(int key)
{
    return static_cast<SHORT>(TheInputState().keys[key] ? 0x8000 : 0);
}

BOOL GetKeyboardState(BYTE* states)
{
    const KeyStates& keys = TheInputState().keys;
    for (std::size_t key = 0; key < keys.isDown.size(); ++key)
        states[key] = static_cast<BYTE>((keys.isDown[key] ? 0x80 : 0) | (keys.isToggled[key] ? 1 : 0));
    return TRUE;
}

BOOL SetKeyboardState(BYTE* states)
{
    KeyStates& keys = TheInputState().keys;
    for (std::size_t key = 0; key < keys.isDown.size(); ++key) {
        keys.isDown[key] = (states[key] & 0x80) != 0;
        keys.isToggled[key] = (states[key] & 1) != 0;
    }
    return TRUE;
}
