#include <qvui/controls/button.h>
#include <qvui/framework/window_mgr.h>

// What the window manager declares and only a room that knows buttons can define.

namespace DUI {

BOOL CDUIWindowMgr::SetButtonChecked(const CString& name, BOOL bCheck)
{
    auto* const button = InterfaceOf<CDUIButton>(GetControlByName(name, FALSE), "button");
    if (button)
        button->SetCheck(bCheck);
    return button != nullptr;
}

}  // namespace DUI
