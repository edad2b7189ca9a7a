#include "native/user/input.h"

namespace qvui::native {
namespace {

struct Sides {
    int general;
    int left;
    int right;
};
constexpr Sides kSides[] = {
    {VK_SHIFT, VK_LSHIFT, VK_RSHIFT}, {VK_CONTROL, VK_LCONTROL, VK_RCONTROL}, {VK_MENU, VK_LMENU, VK_RMENU}};

}  // namespace

int GeneralKey(int virtualKey)
{
    for (const Sides& sides : kSides)
        if (virtualKey == sides.left || virtualKey == sides.right)
            return sides.general;
    return virtualKey;
}

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

WPARAM MouseKeys(const KeyStates& keys)
{
    return (keys[VK_LBUTTON] ? MK_LBUTTON : 0) | (keys[VK_RBUTTON] ? MK_RBUTTON : 0) |
           (keys[VK_MBUTTON] ? MK_MBUTTON : 0) | (keys[VK_SHIFT] ? MK_SHIFT : 0) |
           (keys[VK_CONTROL] ? MK_CONTROL : 0);
}

}  // namespace qvui::native
