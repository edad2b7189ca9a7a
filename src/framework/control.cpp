#include <qvui/framework/control.h>

namespace DUI {

WORD DUIKeyState()
{
    constexpr struct {
        int key;
        WORD flag;
    } kKeys[] = {{VK_CONTROL, MK_CONTROL},
                 {VK_LBUTTON, MK_LBUTTON},
                 {VK_RBUTTON, MK_RBUTTON},
                 {VK_SHIFT, MK_SHIFT},
                 {VK_MENU, 0x20}};
    WORD state = 0;
    for (const auto& entry : kKeys)
        if (GetKeyState(entry.key) < 0)
            state = static_cast<WORD>(state | entry.flag);
    return state;
}

}  // namespace DUI
