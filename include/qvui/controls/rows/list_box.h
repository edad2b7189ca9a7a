#pragma once

#include <memory>

#include <qvui/controls/rows/list_item.h>
#include <qvui/controls/scrolling/scroll_bar.h>

namespace DUI {

class ListSelection;
class PressedRow;
class RowIndex;

/// A vertical list of CDUIListItem with one selected item. It can expand items when they are selected or
/// hovered, hides and shows groups, scrolls by whole items with a scroll bar of its own, and moves the
/// selection with the arrow keys.
///
/// Costs: appending, scrolling, hovering, painting and finding an item that was clicked cost what the items
/// in view cost, however many there are. An item appended below the view moves the scroll range and asks for
/// no layout of the window. Inserting and removing elsewhere are linear.
///
/// The list box paints, searches and hits only items in view. Removing an item leaves the numbers of the
/// selection and of the hovered item as they are. A copy has a scroll bar of its own.
///
/// A double click goes to the item that its first press hit, also when that click scrolled or expanded items.
///
/// Skin attributes: select_expand, hover_expand.
/// Notifications: DUINOTIFY_LISTBOX, lParam the item, wParam 1 an item was clicked (before the selection
/// changes), 2 double-clicked, 3 selected, 4 the pointer entered an item that is no group header.
class QVUI_API CDUIListBox : public ControlOf<CDUIListBox, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIListBox();
    ~CDUIListBox() override;
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override;
    /// Clears the selection too, and lays out again so that the scroll bar goes.
    void RemoveAllControl() override;
    int GetControlIndex(CRefPtr<IDUIControl> child) override;
    CDUIVerticalSB* GetVerticalSB() override { return m_pScrollBar.GetPtr(); }
    /// The first item's normal height; 100 without items.
    int GetScrollLineStep() override;

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    /// Accepts list items only.
    BOOL BeforeAddControl(CRefPtr<IDUIControl> child) override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void BeforeRemoveControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    /// -1 without a selection.
    virtual int GetCurSel();
    /// -1 clears the selection, without a notification. A group header becomes the current item but is
    /// neither marked nor notified. 1.
    virtual int SetCurSel(int index);
    virtual int GetTopIndex() { return m_nTopIndex; }
    /// Scrolls the item to the top as far as the range goes; 0 when it is missing or hidden, or nothing
    /// scrolls.
    virtual int SetTopIndex(int index);
    /// Expands or collapses an item, or the group below a header; 0 when it is missing or hidden.
    virtual int ExpandItem(int index, int bExpand);
    virtual void SetSelectExpand(int bExpand);
    virtual int GetSelectExpand();
    /// The last item that was laid out.
    virtual int GetLastIndex() { return m_nLastIndex; }
    virtual void SetHoverExpand(int bExpand);
    virtual int GetHoverExpand();
    /// Whether the selection follows the pointer.
    virtual void SetHoverSelect(int bSelect);
    virtual int GetHoverSelect();
    /// Pixels added to the scroll range.
    virtual void SetExtraExpandHeight(int height) { m_nExtraExpandHeight = height; }

    /// Adds an item with the text and the control style of the skin.
    CRefPtr<IDUIControl> AddString(const CString& text, const CString& style);
    /// The height of the visible items; kept as the total.
    int CalculateTotalHeight();

protected:
    CDUIListBox(const CDUIListBox& other);

    /// The index of an item in view, else -1.
    int GetVisibleItemIndex(IDUIControl* item);
    void OnItemClick(const tagDUIEvent& event);
    void OnItemDBClick(const tagDUIEvent& event);
    void OnItemHover(const tagDUIEvent& event);
    void OnKeyDown(const tagDUIEvent& event);
    void SetCurHoverExpand(int index);
    void ExpandGroup(int header, int bExpand);
    /// Hides the items of collapsed groups.
    void CheckInitGroupStatus();
    void CalculateTopIndex();

private:
    friend class CDUIListItem;
    friend class ListSelection;
    static const AttributeTable<CDUIListBox>& Attributes();

    CDUIListItem* ItemAt(int index) const;
    int PlaceOf(CDUIListItem& item);
    void TakeAllRows();
    /// Takes over an item's height and visibility; false when they are the known ones.
    bool TakeRow(CDUIListItem& item);
    bool IsInView(CDUIListItem& item);
    void NoteAppended(int index);
    void PlaceItems(const RECT& view);
    template <class Visit>
    void ForEachInView(bool withHidden, Visit visit);

    CRefPtr<CDUIVerticalSB> m_pScrollBar;
    int m_nTopIndex = 0;
    int m_nLastIndex = 0;
    int m_nTotalHeight = 0;
    int m_nExtraExpandHeight = 2;
    const std::unique_ptr<ListSelection> m_pSelection;
    std::unique_ptr<RowIndex> m_pRows;  // one for each child
    std::unique_ptr<PressedRow> m_pPressed;
    int m_nRemoving = -1;       // the child between BeforeRemoveControl and AfterRemoveControl
    bool m_isArranged = false;  // the rectangles are those of the present rows
    bool m_isViewFull = false;  // the last item laid out reached the lower edge
};

}  // namespace DUI
