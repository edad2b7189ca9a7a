#include "controls/rows/list_selection.h"

#include "controls/rows/list_notification.h"
#include "framework/control_guard.h"

namespace DUI {

ListSelection::ListSelection(CDUIListBox& list, const ListSelection& other)
    : expandsSelected(other.expandsSelected),
      expandsHovered(other.expandsHovered),
      followsPointer(other.followsPointer),
      m_list(list),
      m_selected(other.m_selected),
      m_hovered(other.m_hovered)
{
}

void ListSelection::Select(int index)
{
    if (index == m_selected)
        return;
    const ControlGuard keep(&m_list);
    CDUIListItem* const old = m_list.ItemAt(m_selected);
    m_selected = -1;
    if (old && !old->GetGroup()) {
        old->SetSelect(0);
        if (expandsSelected)
            old->SetExpand(0);
    }
    if (CDUIListItem* const item = m_list.ItemAt(index)) {
        m_selected = index;
        if (!item->GetGroup()) {
            item->SetSelect(1);
            if (expandsSelected)
                item->SetExpand(1);
            NotifyList(m_list, ListNotification::Selected, *item);
        }
    }
    m_list.UpdateLayout(TRUE, nullptr);
}

void ListSelection::Hover(int index)
{
    if (index == m_hovered)
        return;
    CDUIListItem* const old = expandsHovered ? m_list.ItemAt(m_hovered) : nullptr;
    m_hovered = -1;
    if (old)
        old->SetExpand(0);
    // Without the flag no height changes, and the items have repainted themselves.
    if (!expandsHovered)
        return;
    if (CDUIListItem* const item = m_list.ItemAt(index)) {
        m_hovered = index;
        item->SetExpand(1);
    }
    m_list.UpdateLayout(TRUE, nullptr);
}

}  // namespace DUI
