#pragma once

#include <qvui/framework/control_base.h>

/// The hot and pushed states of controls that follow the pointer.
namespace DUI::pointer_state {

/// Takes an event of the pointer into the control's status. A disabled control becomes neither hot nor
/// pushed, but it stops being so: a control that is disabled below the pointer, in its own click for example,
/// must not be hot when it is enabled again. `endsWithHover` are the bits that go when the pointer leaves.
inline void Follow(CDUIControlBase& control, UINT type, DWORD endsWithHover)
{
    struct Change {
        UINT type;
        DWORD remove;
        DWORD add;
    };
    const Change changes[] = {
        {DUIEVENT_LBUTTONDOWN, 0, DUISTATUS_PUSHED}, {DUIEVENT_LBUTTONDBLCLK, 0, DUISTATUS_PUSHED},
        {DUIEVENT_LBUTTONUP, DUISTATUS_PUSHED, 0},   {DUIEVENT_MOUSEENTER, 0, DUISTATUS_HOT},
        {DUIEVENT_MOUSELEAVE, endsWithHover, 0},
    };
    for (const Change& change : changes)
        if (change.type == type)
            control.ModifyStatus(change.remove, control.IsEnabled() ? change.add : 0);
}

}  // namespace DUI::pointer_state
