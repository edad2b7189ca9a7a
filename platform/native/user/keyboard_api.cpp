// Keys and characters: the exported functions.

#include "native/user/desktop.h"
#include "native/user/keyboard.h"

using namespace qvui::native;

BOOL TranslateMessage(const MSG* message)
{
    if (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)
        return FALSE;
    return PostCharactersOf(*message);
}

SHORT GetKeyState(int key)
{
    const KeyStates& keys = TheDesktop().input.keys;
    return static_cast<SHORT>((keys[key] ? 0x8000 : 0) |
                              (keys.isToggled[static_cast<std::size_t>(key & 0xFF)] ? 1 : 0));
}

SHORT GetAsyncKeyState(int key)
{
    return static_cast<SHORT>(TheDesktop().input.keys[key] ? 0x8000 : 0);
}

BOOL GetKeyboardState(BYTE* states)
{
    const KeyStates& keys = TheDesktop().input.keys;
    for (std::size_t key = 0; key < keys.isDown.size(); ++key)
        states[key] = static_cast<BYTE>((keys.isDown[key] ? 0x80 : 0) | (keys.isToggled[key] ? 1 : 0));
    return TRUE;
}

BOOL SetKeyboardState(BYTE* states)
{
    KeyStates& keys = TheDesktop().input.keys;
    for (std::size_t key = 0; key < keys.isDown.size(); ++key) {
        keys.isDown[key] = (states[key] & 0x80) != 0;
        keys.isToggled[key] = (states[key] & 1) != 0;
    }
    return TRUE;
}

HIMC ImmGetContext(HWND)
{
    return nullptr;
}

BOOL ImmReleaseContext(HWND, HIMC)
{
    return FALSE;
}
