#include <qvui/controls/button.h>
#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/framework/window/window_mgr.h>

#include "framework/scroll_bars.h"

// What the framework declares and only a room that knows buttons and scroll bars can define.

namespace DUI {

IDUIControl* VerticalScrollBarOf(CDUIControlBase& container)
{
    return container.GetVerticalSB();
}

IDUIControl* HorizontalScrollBarOf(CDUIControlBase& container)
{
    return container.GetHorizontalSB();
}

BOOL CDUIWindowMgr::SetButtonChecked(const CString& name, BOOL bCheck)
{
    auto* const button = InterfaceOf<CDUIButton>(GetControlByName(name, FALSE), "button");
    if (button)
        button->SetCheck(bCheck);
    return button != nullptr;
}

}  // namespace DUI
