#pragma once

#include <qvui/framework/control_base.h>

namespace DUI {

/// How the framework works with scroll bars. They are made of buttons, so a room above this one defines them;
/// every scroll bar registers this when it is made.
struct ScrollBarAccess {
    /// The bars of a scrolling container; null for none.
    CDUIControlBase* (*vertical)(CDUIControlBase& container);
    CDUIControlBase* (*horizontal)(CDUIControlBase& container);
    void (*getInfo)(CDUIControlBase& bar, SCROLLINFO& info);
    void (*setInfo)(CDUIControlBase& bar, SCROLLINFO& info);
};
/// Borrowed for as long as the library is used.
void SetScrollBarAccess(const ScrollBarAccess& access);

/// A scrolling container's bars; null for none, as long as no scroll bar was made.
CDUIControlBase* VerticalScrollBarOf(CDUIControlBase& container);
CDUIControlBase* HorizontalScrollBarOf(CDUIControlBase& container);

int GetScrollPosition(CDUIControlBase& bar);
void GetScrollInfo(CDUIControlBase& bar, SCROLLINFO& info);
void SetScrollInfo(CDUIControlBase& bar, SCROLLINFO& info);

}  // namespace DUI
