#include "native/display/sdl/sdl_keys.h"

#include <algorithm>
#include <iterator>

#include <qvui/platform/native/user.h>

namespace qvui::native {
namespace {

struct KeyName {
    SDL_Keycode key;
    int virtualKey;
};
constexpr KeyName kKeys[] = {
    {SDLK_BACKSPACE, VK_BACK},
    {SDLK_TAB, VK_TAB},
    {SDLK_RETURN, VK_RETURN},
    {SDLK_KP_ENTER, VK_RETURN},
    {SDLK_ESCAPE, VK_ESCAPE},
    {SDLK_SPACE, VK_SPACE},
    {SDLK_PAGEUP, VK_PRIOR},
    {SDLK_PAGEDOWN, VK_NEXT},
    {SDLK_END, VK_END},
    {SDLK_HOME, VK_HOME},
    {SDLK_LEFT, VK_LEFT},
    {SDLK_UP, VK_UP},
    {SDLK_RIGHT, VK_RIGHT},
    {SDLK_DOWN, VK_DOWN},
    {SDLK_INSERT, VK_INSERT},
    {SDLK_DELETE, VK_DELETE},
    {SDLK_LSHIFT, VK_LSHIFT},
    {SDLK_RSHIFT, VK_RSHIFT},
    {SDLK_LCTRL, VK_LCONTROL},
    {SDLK_RCTRL, VK_RCONTROL},
    {SDLK_LALT, VK_LMENU},
    {SDLK_RALT, VK_RMENU},
    {SDLK_CAPSLOCK, VK_CAPITAL},
    {SDLK_APPLICATION, VK_APPS},
    {SDLK_KP_PLUS, VK_ADD},
    {SDLK_KP_MINUS, VK_SUBTRACT},
    {SDLK_KP_MULTIPLY, VK_MULTIPLY},
    {SDLK_KP_DIVIDE, VK_DIVIDE},
    {SDLK_KP_PERIOD, VK_DECIMAL},
    {SDLK_KP_0, VK_NUMPAD0},
    {SDLK_PLUS, VK_OEM_PLUS},
    {SDLK_EQUALS, VK_OEM_PLUS},
    {SDLK_MINUS, VK_OEM_MINUS},
    {SDLK_SEMICOLON, VK_OEM_1},
    {SDLK_COMMA, VK_OEM_COMMA},
    {SDLK_PERIOD, VK_OEM_PERIOD},
    {SDLK_SLASH, VK_OEM_2},
    {SDLK_BACKQUOTE, VK_OEM_3},
    {SDLK_LEFTBRACKET, VK_OEM_4},
    {SDLK_BACKSLASH, VK_OEM_5},
    {SDLK_RIGHTBRACKET, VK_OEM_6},
    {SDLK_QUOTE, VK_OEM_7},
};

struct KeyRange {
    int first;
    int last;
    int virtualKey;
};
constexpr KeyRange kKeyRanges[] = {{SDLK_0, SDLK_9, '0'},
                                   {SDLK_a, SDLK_z, 'A'},
                                   {SDLK_F1, SDLK_F12, VK_F1},
                                   {SDLK_KP_1, SDLK_KP_9, VK_NUMPAD0 + 1}};
constexpr KeyRange kPositions[] = {{SDL_SCANCODE_A, SDL_SCANCODE_Z, 'A'},
                                   {SDL_SCANCODE_1, SDL_SCANCODE_9, '1'},
                                   {SDL_SCANCODE_0, SDL_SCANCODE_0, '0'}};

template <std::size_t count>
int InRange(const KeyRange (&ranges)[count], int key)
{
    for (const KeyRange& range : ranges)
        if (key >= range.first && key <= range.last)
            return range.virtualKey + (key - range.first);
    return 0;
}

}  // namespace

int VirtualKeyOf(const SDL_Keysym& keysym)
{
    if (const int key = InRange(kKeyRanges, keysym.sym))
        return key;
    const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                     [&](const KeyName& entry) { return entry.key == keysym.sym; });
    return found != std::end(kKeys) ? found->virtualKey : InRange(kPositions, keysym.scancode);
}

int VirtualButtonOf(Uint8 button)
{
    switch (button) {
        case SDL_BUTTON_LEFT:
            return VK_LBUTTON;
        case SDL_BUTTON_RIGHT:
            return VK_RBUTTON;
        case SDL_BUTTON_MIDDLE:
            return VK_MBUTTON;
        default:
            return 0;
    }
}

}  // namespace qvui::native
