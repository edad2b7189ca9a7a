#pragma once

#include <qvui/framework/control_base.h>

namespace DUI {

/// What a DUINOTIFY_LISTBOX notification tells, in its wParam; the lParam is the item.
enum class ListNotification : WPARAM { Clicked = 1, DoubleClicked = 2, Selected = 3, Entered = 4 };

inline void NotifyList(CDUIControlBase& list, ListNotification code, IDUIControl& item)
{
    list.SendNotify(DUINOTIFY_LISTBOX, static_cast<WPARAM>(code), reinterpret_cast<LPARAM>(&item));
}

}  // namespace DUI
