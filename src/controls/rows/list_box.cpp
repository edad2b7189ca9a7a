#include <qvui/controls/rows/list_box.h>

#include "controls/rows/list_selection.h"
#include "controls/rows/pressed_row.h"
#include "controls/rows/row_container.h"
#include "controls/rows/row_index.h"
#include "controls/scrolling/owned_scroll_bar.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"

// The items of a list box and their places; what it does with them is in list_box_input.cpp.

namespace DUI {
namespace {

using namespace geometry;

RowIndex::Row RowOf(CDUIListItem& item)
{
    return {item.GetFixedSize().cy, item.IsVisible(FALSE) != FALSE};
}

}  // namespace

const AttributeTable<CDUIListBox>& CDUIListBox::Attributes()
{
    static const AttributeTable<CDUIListBox> table{
        {"select_expand",
         {AttributeKind::Boolean, "false"},
         "Whether the selected item has its expanded height.",
         &CDUIListBox::SetSelectExpand},
        {"hover_expand",
         {AttributeKind::Boolean, "false"},
         "Whether the item below the pointer has its expanded height.",
         &CDUIListBox::SetHoverExpand},
    };
    return table;
}

const ControlClass& CDUIListBox::Class()
{
    static const ControlClass theClass(
        "CDUIListBox", &CDUIControlBase::Class(),
        "A list of items, one below the other, of which one can be selected. It shows the scroll bar "
        "\"cs_v_scrollbar\" when they do not fit.",
        {"listbox"}, &Attributes(),
        {{"DUINOTIFY_LISTBOX",
          "lParam is the item; wParam 1 it was clicked, 2 double-clicked, 3 selected, 4 the "
          "pointer entered it."}});
    return theClass;
}

CDUIListBox::CDUIListBox()
    : m_pSelection(std::make_unique<ListSelection>(*this)),
      m_pRows(std::make_unique<RowIndex>()),
      m_pPressed(std::make_unique<PressedRow>())
{
    CDUIControlBase::ModifyStyle(0, DUISTYLE_TABSTOP);
}

CDUIListBox::CDUIListBox(const CDUIListBox& other)
    : ControlOf(other),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar, this)),
      m_nTopIndex(other.m_nTopIndex),
      m_nLastIndex(other.m_nLastIndex),
      m_nTotalHeight(other.m_nTotalHeight),
      m_nExtraExpandHeight(other.m_nExtraExpandHeight),
      m_pSelection(std::make_unique<ListSelection>(*this, *other.m_pSelection)),
      m_pRows(std::make_unique<RowIndex>()),
      m_pPressed(std::make_unique<PressedRow>())
{
    // The base class took the children over without the hooks of this one.
    TakeAllRows();
}

CDUIListBox::~CDUIListBox()
{
    owned_scroll_bar::ReportTo(m_pScrollBar, nullptr);
    for (int i = 0; CDUIListItem* const item = ItemAt(i); ++i)
        if (item->m_pList == this)
            item->m_pList = nullptr;
}

int CDUIListBox::GetCurSel()
{
    return m_pSelection->Selected();
}

void CDUIListBox::SetSelectExpand(int bExpand)
{
    m_pSelection->expandsSelected = bExpand;
}

int CDUIListBox::GetSelectExpand()
{
    return m_pSelection->expandsSelected;
}

void CDUIListBox::SetHoverExpand(int bExpand)
{
    m_pSelection->expandsHovered = bExpand;
}

int CDUIListBox::GetHoverExpand()
{
    return m_pSelection->expandsHovered;
}

void CDUIListBox::SetHoverSelect(int bSelect)
{
    m_pSelection->followsPointer = bSelect;
}

int CDUIListBox::GetHoverSelect()
{
    return m_pSelection->followsPointer;
}

int CDUIListBox::GetScrollLineStep()
{
    CDUIListItem* const first = ItemAt(0);
    return first ? first->GetHeight(FALSE) : CDUIControlBase::GetScrollLineStep();
}

void CDUIListBox::OnCreate()
{
    CDUIControlBase::OnCreate();
    owned_scroll_bar::Open(m_pScrollBar, *this, owned_scroll_bar::kPlainBreadth);
    CheckInitGroupStatus();
}

void CDUIListBox::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    m_pSelection->ForgetHovered();
    CDUIControlBase::OnDestroy();
}

// --- items -------------------------------------------------------------------------------------------------

CDUIListItem* CDUIListBox::ItemAt(int index) const
{
    // BeforeAddControl lets nothing else in.
    return static_cast<CDUIListItem*>(CDUIControlBase::GetControlByIndex(index));
}

void CDUIListBox::TakeAllRows()
{
    m_pRows->Clear();
    for (int i = 0; CDUIListItem* const item = ItemAt(i); ++i) {
        item->m_pList = this;
        item->m_nPlace = i;
        m_pRows->Append(RowOf(*item));
    }
    m_isArranged = false;
}

int CDUIListBox::PlaceOf(CDUIListItem& item)
{
    item.m_nPlace = row_container::FindChildNear(*this, &item, item.m_nPlace);
    return item.m_nPlace;
}

int CDUIListBox::GetControlIndex(CRefPtr<IDUIControl> child)
{
    auto* const item = InterfaceOf<CDUIListItem>(child.GetPtr(), "listItem");
    return item ? PlaceOf(*item) : -1;
}

bool CDUIListBox::TakeRow(CDUIListItem& item)
{
    const int place = PlaceOf(item);
    if (place < 0 || m_pRows->At(place) == RowOf(item))
        return false;
    m_pRows->Set(place, RowOf(item));
    m_isArranged = false;
    return true;
}

bool CDUIListBox::IsInView(CDUIListItem& item)
{
    return GetVisibleItemIndex(&item) >= 0;
}

int CDUIListBox::GetVisibleItemIndex(IDUIControl* control)
{
    auto* const item = InterfaceOf<CDUIListItem>(control, "listItem");
    const int place = item ? PlaceOf(*item) : -1;
    return place >= m_nTopIndex && place <= m_nLastIndex ? place : -1;
}

BOOL CDUIListBox::BeforeAddControl(CRefPtr<IDUIControl> child)
{
    return InterfaceOf<CDUIListItem>(child.GetPtr(), "listItem") ? CDUIControlBase::BeforeAddControl(child)
                                                                 : FALSE;
}

void CDUIListBox::AfterAddControl(CRefPtr<IDUIControl> child)
{
    auto* const item = static_cast<CDUIListItem*>(child.GetPtr());
    item->m_pList = this;
    item->m_nPlace = GetControlCount() - 1;
    const int place = PlaceOf(*item);
    m_pRows->Insert(place, RowOf(*item));
    const bool isAppended = place == GetControlCount() - 1;
    // Where an item is put in between, those in view may move.
    m_isArranged = m_isArranged && isAppended;
    if (!IsAttached())
        return;
    const ControlGuard keep(this);
    child->AttachWindow(GetControlMgr());
    if (const int now = PlaceOf(*item); isAppended && now >= 0)
        NoteAppended(now);
    else
        UpdateLayout(TRUE, nullptr);
}

void CDUIListBox::NoteAppended(int index)
{
    // What cannot be seen needs no layout of the window: without a place for the list there is nothing to lay
    // out, and below a full view only the scroll range grows.
    const RECT rect = GetControlRect();
    const bool isBelowView = m_isArranged && m_isViewFull && index > m_nLastIndex;
    if (IsRectEmpty(&rect) || (m_isArranged && !m_pRows->At(index).isShown))
        return;
    if (!isBelowView)
        UpdateLayout(TRUE, nullptr);
    else
        ProcessVerticalSB(GetContentRect(), CalculateTotalHeight(), m_nExtraExpandHeight);
}

void CDUIListBox::BeforeRemoveControl(CRefPtr<IDUIControl> child)
{
    CDUIControlBase::BeforeRemoveControl(child);
    m_nRemoving = GetControlIndex(child);
}

void CDUIListBox::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    if (m_nRemoving >= 0 && m_nRemoving < m_pRows->Count())
        m_pRows->Remove(m_nRemoving);
    m_nRemoving = -1;
    m_isArranged = false;
    m_pPressed->Forget(child.GetPtr());
    CDUIControlBase::AfterRemoveControl(child);
}

void CDUIListBox::RemoveAllControl()
{
    const ControlGuard keep(this);
    CDUIControlBase::RemoveAllControl();
    m_pPressed->Forget(m_pPressed->GetRow());
    TakeAllRows();
    m_pSelection->ForgetSelected();
    UpdateLayout(TRUE, nullptr);
}

CRefPtr<IDUIControl> CDUIListBox::AddString(const CString& text, const CString& style)
{
    const CRefPtr<IDUIControl> item = new CDUIListItem;
    item->SetText(text);
    item->SetAttribute("control_style", style);
    return AddControl(item) ? item : nullptr;
}

// --- layout ------------------------------------------------------------------------------------------------

int CDUIListBox::CalculateTotalHeight()
{
    m_nTotalHeight = Narrow(m_pRows->TotalHeight());
    return m_nTotalHeight;
}

void CDUIListBox::CalculateTopIndex()
{
    if (m_pScrollBar.IsNull() || !m_pScrollBar->IsVisible(FALSE)) {
        m_nTopIndex = 0;
        return;
    }
    SCROLLINFO info{};
    m_pScrollBar->GetScrollBarInfo(&info);
    const int top = m_pRows->RowAt(info.nPos);
    m_nTopIndex = top >= 0 ? top : std::clamp(m_nTopIndex, 0, std::max(m_pRows->Count() - 1, 0));
}

void CDUIListBox::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    if (IsRectEmpty(&rect))
        return;
    const ControlGuard keep(this);
    CalculateTotalHeight();
    LockLayout(TRUE);
    RECT view = GetContentRect();
    ProcessVerticalSB(view, m_nTotalHeight, m_nExtraExpandHeight);
    owned_scroll_bar::Reserve(m_pScrollBar.GetPtr(), view);
    CalculateTopIndex();
    PlaceItems(view);
    LockLayout(FALSE);
}

void CDUIListBox::PlaceItems(const RECT& view)
{
    m_isArranged = true;
    m_isViewFull = false;
    m_nLastIndex = m_nTopIndex;
    LONGLONG y = view.top;
    for (int i = m_pRows->NextShown(m_nTopIndex - 1); i >= 0 && !m_isViewFull; i = m_pRows->NextShown(i)) {
        CDUIListItem* const item = ItemAt(i);
        if (!item)
            return;
        const LONGLONG bottom = y + std::max(m_pRows->At(i).height, 0);
        item->SetControlRect(MakeRect(view.left, y, view.right, bottom));
        m_nLastIndex = i;
        m_isViewFull = bottom - view.top >= Height(view);
        y = bottom;
    }
}

// --- painting and searching --------------------------------------------------------------------------------

template <class Visit>
void CDUIListBox::ForEachInView(bool withHidden, Visit visit)
{
    int i = withHidden ? m_nTopIndex : m_pRows->NextShown(m_nTopIndex - 1);
    while (i >= 0 && i <= m_nLastIndex && i < GetControlCount()) {
        const CRefPtr<IDUIControl> item = ItemAt(i);
        if (!visit(*item.GetPtr()))
            return;
        i = withHidden ? i + 1 : m_pRows->NextShown(i);
    }
}

void CDUIListBox::DoPaint(HDC hdc, const RECT& rcPaint)
{
    PaintBkgnd(hdc);
    PaintForgnd(hdc);
    PaintText(hdc);
    PaintBorder(hdc);
    content_walk::Paint(*this, hdc, rcPaint, [&] {
        ForEachInView(false, [&](IDUIControl& item) {
            if (content_walk::IsShownIn(item, rcPaint))
                item.DoPaint(hdc, rcPaint);
            return true;
        });
    });
}

IDUIControl* CDUIListBox::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    return row_container::Find(*this, proc, pData, flags, [&] {
        IDUIControl* found = nullptr;
        ForEachInView(!(flags & DUIFIND_VISIBLE), [&](IDUIControl& item) {
            found = item.FindControl(proc, pData, flags);
            return found == nullptr;
        });
        return found;
    });
}

}  // namespace DUI
