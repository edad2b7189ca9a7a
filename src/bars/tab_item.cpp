#include <qvui/bars/tab_item.h>

#include "framework/control_guard.h"

namespace DUI {
namespace {

const AttributeTable<CDUITabItem>& Attributes()
{
    static const AttributeTable<CDUITabItem> table{
        {"tab_stop",
         {AttributeKind::Boolean, "true"},
         "Whether the keyboard reaches the tab; of a bar's tabs, the Tab key stops at the selected one.",
         &CDUITabItem::AllowTabStop},
    };
    return table;
}

// Returns the event that the parent receives for an event, or 0 for none.
UINT ItemEventOf(UINT type)
{
    switch (type) {
        case DUIEVENT_LBUTTONDOWN:
            return DUIEVENT_ITEMCLICK;
        case DUIEVENT_LBUTTONDBLCLK:
            return DUIEVENT_ITEMDBLCLICK;
        case DUIEVENT_MOUSEENTER:
            return DUIEVENT_ITEMHOVER;
        case DUIEVENT_MOUSELEAVE:
            return DUIEVENT_ITEMLEAVE;
        case DUIEVENT_KEYDOWN:
            return DUIEVENT_KEYDOWN;
        default:
            return 0;
    }
}

}  // namespace

const ControlClass& CDUITabItem::Class()
{
    static const ControlClass info("CDUITabItem", &CDUIButton::Class(),
                                   "A tab of a tab bar; it shows its pushed look while it is selected.",
                                   {"tab_item"}, &Attributes(),
                                   {{"DUINOTIFY_TABACTIVATE", "The tab was selected; wParam is 1."}});
    return info;
}

void CDUITabItem::AllowTabStop(bool isAllowed)
{
    m_isTabStopAllowed = isAllowed;
    // A bar clears this bit of tabs that are not selected; it is set again only where it applies.
    if (!isAllowed || !GetParent() || GetCheck())
        ModifyStyle(DUISTYLE_TABSTOP, isAllowed ? DWORD{DUISTYLE_TABSTOP} : 0);
}

void CDUITabItem::MakeTabStop(bool isTabStop)
{
    ModifyStyle(DUISTYLE_TABSTOP, isTabStop && m_isTabStopAllowed ? DWORD{DUISTYLE_TABSTOP} : 0);
}

BOOL CDUITabItem::Activate()
{
    if (!IsVisible(FALSE) || !IsEnabled())
        return FALSE;
    TellParent(DUIEVENT_ITEMCLICK, tagDUIEvent{});
    return TRUE;
}

// The selected tab keeps its selected look under the pointer.
void CDUITabItem::ModifyStatus(DWORD remove, DWORD add)
{
    const DWORD status = (GetStatus() & ~remove) | add;
    const DWORD hidden = (status & DUISTATUS_CHECKED) ? DWORD{DUISTATUS_HOT | DUISTATUS_PUSHED} : 0;
    CDUIButton::ModifyStatus(remove | hidden, add & ~hidden);
}

LRESULT CDUITabItem::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    // The press has selected the tab. Its release must not select it again, because another tab may be
    // selected by now.
    if (event.Type == DUIEVENT_LBUTTONUP) {
        ModifyStatus(DUISTATUS_PUSHED, 0);
        return CDUIControlBase::ProcessEvent(event, bHandled);
    }
    const LRESULT result = CDUIButton::ProcessEvent(event, bHandled);
    const UINT type = IsEnabled() ? ItemEventOf(event.Type) : 0;
    if (type != 0)
        TellParent(type, event);
    // The window sets the focus before the press, to tab stops only; this tab may have become one by the
    // press.
    if (type == DUIEVENT_ITEMCLICK && (GetStyle() & DUISTYLE_TABSTOP))
        SetFocus(TRUE);
    return result;
}

void CDUITabItem::TellParent(UINT type, tagDUIEvent event)
{
    IDUIControl* const parent = GetParent();
    if (!parent)
        return;
    event.Type = type;
    event.pSender = this;
    BOOL bHandled = FALSE;
    parent->OnDUIEvent(event, bHandled);
}

}  // namespace DUI
