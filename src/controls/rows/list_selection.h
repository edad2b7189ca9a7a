#pragma once

#include <qvui/controls/rows/list_box.h>

namespace DUI {

/// Which item of a list box is selected and which one the pointer is on, by index, and what becomes of the
/// items when these change: they are marked, expanded and collapsed, and the selection is notified. Removing
/// an item leaves the numbers as they are.
class ListSelection {
public:
    explicit ListSelection(CDUIListBox& list) : m_list(list) {}
    /// The same for a copy of the list.
    ListSelection(CDUIListBox& list, const ListSelection& other);
    ListSelection(const ListSelection&) = delete;
    ListSelection& operator=(const ListSelection&) = delete;

    /// -1 for none.
    int Selected() const { return m_selected; }
    int Hovered() const { return m_hovered; }
    /// Clears the selection with an index that no item has.
    void Select(int index);
    /// Marks the hovered item by expanding it, where that is asked for.
    void Hover(int index);
    /// Without any change of the items.
    void ForgetSelected() { m_selected = -1; }
    void ForgetHovered() { m_hovered = -1; }

    int expandsSelected = 0;
    int expandsHovered = 0;
    int followsPointer = 0;

private:
    CDUIListBox& m_list;
    int m_selected = -1;
    int m_hovered = -1;
};

}  // namespace DUI
