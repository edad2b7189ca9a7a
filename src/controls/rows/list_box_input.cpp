#include <qvui/controls/rows/list_box.h>

#include "controls/rows/list_notification.h"
#include "controls/rows/list_selection.h"
#include "controls/rows/row_index.h"
#include "controls/scrolling/owned_scroll_bar.h"
#include "framework/control_guard.h"

// What a list box does on input: clicks, expanding, groups and keys.

namespace DUI {
namespace {

CDUIListItem* ItemOf(const tagDUIEvent& event)
{
    return InterfaceOf<CDUIListItem>(event.pSender, "listItem");
}

}  // namespace

LRESULT CDUIListBox::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    struct Entry {
        UINT type;
        void (CDUIListBox::*handler)(const tagDUIEvent&);
    };
    static constexpr Entry kHandlers[] = {
        {DUIEVENT_KEYDOWN, &CDUIListBox::OnKeyDown},          {DUIEVENT_ITEMCLICK, &CDUIListBox::OnItemClick},
        {DUIEVENT_ITEMDBLCLICK, &CDUIListBox::OnItemDBClick}, {DUIEVENT_ITEMHOVER, &CDUIListBox::OnItemHover},
        {DUIEVENT_ITEMLEAVE, &CDUIListBox::OnItemHover},
    };
    for (const Entry& entry : kHandlers) {
        if (entry.type == event.Type) {
            const ControlGuard keep(this);
            bHandled = TRUE;
            (this->*entry.handler)(event);
            return 0;
        }
    }
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

int CDUIListBox::SetCurSel(int index)
{
    m_pSelection->Select(index);
    return 1;
}

void CDUIListBox::SetCurHoverExpand(int index)
{
    m_pSelection->Hover(index);
}

int CDUIListBox::SetTopIndex(int index)
{
    CDUIListItem* const item = ItemAt(index);
    if (!item || !item->IsVisible(FALSE) || m_pScrollBar.IsNull() || !m_pScrollBar->IsVisible(FALSE))
        return 0;
    owned_scroll_bar::ScrollTo(*m_pScrollBar.GetPtr(), m_pRows->OffsetOf(index));
    UpdateLayout(TRUE, nullptr);
    return 1;
}

int CDUIListBox::ExpandItem(int index, int bExpand)
{
    CDUIListItem* const item = ItemAt(index);
    if (!item || !item->IsVisible(FALSE))
        return 0;
    if (item->GetGroup()) {
        ExpandGroup(index, bExpand);
        return 1;
    }
    item->SetExpand(bExpand);
    UpdateLayout(TRUE, nullptr);
    return 1;
}

// --- the pointer -------------------------------------------------------------------------------------------

void CDUIListBox::OnItemClick(const tagDUIEvent& event)
{
    CDUIListItem* const item = ItemOf(event);
    if (!item)
        return;
    const ControlGuard keep(item);
    NotifyList(*this, ListNotification::Clicked, *item);
    // The handler may have taken the item out.
    const int place = PlaceOf(*item);
    if (place < 0)
        return;
    if (item->GetGroup())
        ExpandGroup(place, !item->GetExpand());
    else
        SetCurSel(GetVisibleItemIndex(item));
}

void CDUIListBox::OnItemDBClick(const tagDUIEvent& event)
{
    if (CDUIListItem* const item = ItemOf(event))
        NotifyList(*this, ListNotification::DoubleClicked, *item);
}

void CDUIListBox::OnItemHover(const tagDUIEvent& event)
{
    CDUIListItem* const item = ItemOf(event);
    if (!item || item->GetGroup())
        return;
    const ControlGuard keep(item);
    const bool isEntered = event.Type == DUIEVENT_ITEMHOVER;
    if (isEntered)
        NotifyList(*this, ListNotification::Entered, *item);
    const int hovered = isEntered ? GetVisibleItemIndex(item) : -1;
    if (hovered != m_pSelection->Hovered())
        SetCurHoverExpand(hovered);
    if (m_pSelection->followsPointer && hovered != -1 && hovered != m_pSelection->Selected())
        SetCurSel(hovered);
}

// --- keys --------------------------------------------------------------------------------------------------

void CDUIListBox::OnKeyDown(const tagDUIEvent& event)
{
    int next = -1;
    if (event.wParam == VK_LEFT || event.wParam == VK_UP)
        next = m_pRows->PreviousShown(m_pSelection->Selected());
    else if (event.wParam == VK_RIGHT || event.wParam == VK_DOWN)
        next = m_pRows->NextShown(m_pSelection->Selected());
    if (next < 0)
        return;
    SetCurSel(next);
    if (next < m_nTopIndex || next >= m_nLastIndex)
        SetTopIndex(next);
}

// --- groups ------------------------------------------------------------------------------------------------

void CDUIListBox::CheckInitGroupStatus()
{
    const ControlGuard keep(this);
    LockLayout(TRUE);
    const CDUIListItem* header = nullptr;
    for (int i = 0; CDUIListItem* const item = ItemAt(i); ++i) {
        item->m_nPlace = i;
        if (item->GetGroup())
            header = item;
        else if (header)
            item->ModifyStyle(DUISTYLE_VISIBLE, header->m_bExpand ? DWORD{DUISTYLE_VISIBLE} : 0);
    }
    LockLayout(FALSE);
    UpdateLayout(TRUE, nullptr);
}

void CDUIListBox::ExpandGroup(int header, int bExpand)
{
    CDUIListItem* const group = ItemAt(header);
    if (!group || !group->IsVisible(FALSE) || !group->GetGroup() || !group->GetExpand() == !bExpand)
        return;
    const ControlGuard keep(this);
    LockLayout(TRUE);
    for (int i = header + 1; CDUIListItem* const item = ItemAt(i); ++i) {
        if (item->GetGroup())
            break;
        item->m_nPlace = i;
        item->ModifyStyle(DUISTYLE_VISIBLE, bExpand ? DWORD{DUISTYLE_VISIBLE} : 0);
    }
    group->SetExpand(bExpand);
    LockLayout(FALSE);
    UpdateLayout(TRUE, nullptr);
}

}  // namespace DUI
