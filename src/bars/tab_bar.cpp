#include <qvui/bars/tab_bar.h>

#include <algorithm>

#include "framework/control_guard.h"
#include "layout/linear_placing.h"

namespace DUI {
namespace {

template <class Layout>
const AttributeTable<CDUITabBar<Layout>>& Attributes()
{
    using Bar = CDUITabBar<Layout>;
    static const AttributeTable<Bar> table{
        {"tab_layout", AttributeKind::ControlName,
         "The tab layout whose pages the tabs switch; without a name, the first one with the same parent.",
         &Bar::SetTabLayoutName},
        {"select_index", AttributeKind::Integer, "The tab that is selected, counted from 0.",
         [](Bar& bar, const CString& value) { bar.SetSelectIndex(ReadInteger(value), FALSE); }},
    };
    return table;
}

bool IsUsable(IDUIControl& item)
{
    return item.IsVisible(FALSE) && item.IsEnabled();
}

IDUITabLayout* AsTabLayout(IDUIControl* control)
{
    return InterfaceOf<IDUITabLayout>(control, "tab_layout");
}

IDUIControl* IsTabLayoutOfName(IDUIControl* control, void* name)
{
    return control->GetName() == *static_cast<const CString*>(name) && AsTabLayout(control) ? control
                                                                                            : nullptr;
}

}  // namespace

template <class Layout>
const ControlClass& CDUITabBar<Layout>::Class()
{
    static const ControlClass info(
        axis::Of<Layout>::kIsVertical ? "CDUITabBar<CDUIVerticalLayout>" : "CDUITabBar<CDUIHorizontalLayout>",
        &Layout::Class(), "Tabs that switch the pages of a tab layout.", {"tab_bar"}, &Attributes<Layout>(),
        {{"DUINOTIFY_TABACTIVATE", "The user selected the tab that sends it; wParam is 1."}});
    return info;
}

template <class Layout>
CDUITabBar<Layout>::CDUITabBar() = default;

template <class Layout>
CDUITabBar<Layout>::CDUITabBar(const CDUITabBar& other)
    : ControlOf<CDUITabBar, Layout>(other),
      m_strTabLayout(other.m_strTabLayout),
      m_nFirstIndex(other.m_nFirstIndex)
{
}

template <class Layout>
void* CDUITabBar<Layout>::GetInterface(const CString& name)
{
    if (EqualNoCase(name.View(), "tab_bar"))
        return static_cast<IDUITabBar*>(this);
    if (EqualNoCase(name.View(), "tab_follower"))
        return static_cast<IDUITabFollower*>(this);
    if (EqualNoCase(name.View(), "button_host"))
        return static_cast<IDUIButtonHost*>(this);
    return Layout::GetInterface(name);
}

template <class Layout>
void CDUITabBar<Layout>::SetControlRect(const RECT& rect)
{
    using Axis = axis::Of<Layout>;
    const ControlGuard keep(this);
    m_isSelectedToShow = m_isSelectedToShow || Axis::Length(rect) != Axis::Length(this->GetControlRect());
    this->StoreControlRect(rect);
    layout::LayOutLine<Axis>(*this, layout::Leftover::Nobody);
    if (m_isSelectedToShow && ScrollToSelected())
        layout::LayOutLine<Axis>(*this, layout::Leftover::Nobody);
}

// Called after a layout. Returns whether the bar scrolled and must be laid out again. Without a visible
// scroll bar, scrolling is deferred until there is one.
template <class Layout>
bool CDUITabBar<Layout>::ScrollToSelected()
{
    using Axis = axis::Of<Layout>;
    auto* const bar = Axis::ScrollBarOf(*this);
    CDUITabItem* const selected = GetSelected();
    const RECT view = this->GetContentRect();
    if (!bar || !bar->IsVisible(FALSE) || !selected || !selected->IsVisible(FALSE) || IsRectEmpty(&view))
        return false;
    m_isSelectedToShow = false;
    const RECT tab = selected->GetControlRect();
    const LONGLONG start = LONGLONG{Axis::Start(tab)} - Axis::Start(view);
    const LONGLONG behind = start + Axis::Length(tab) - Axis::Length(view);
    // If a tab is longer than the bar, its start is shown.
    const LONGLONG distance = start < 0 ? start : std::min(start, std::max(behind, LONGLONG{0}));
    if (distance == 0)
        return false;
    SCROLLINFO info{};
    bar->GetScrollBarInfo(&info);
    owned_scroll_bar::ScrollTo(*bar, info.nPos + distance);
    return true;
}

// --- the tabs ----------------------------------------------------------------------------------------------

template <class Layout>
CDUITabItem* CDUITabBar<Layout>::ItemOf(int childIndex) const
{
    return InterfaceOf<CDUITabItem>(this->GetControlByIndex(childIndex), "tab_item");
}

template <class Layout>
CDUITabItem* CDUITabBar<Layout>::ItemOfNumber(int number) const
{
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i); item && number-- == 0)
            return item;
    return nullptr;
}

template <class Layout>
int CDUITabBar<Layout>::GetItemCount() const
{
    int count = 0;
    for (int i = 0; i < this->GetControlCount(); ++i)
        count += ItemOf(i) != nullptr;
    return count;
}

// Returns the next child, in steps of 1 or -1, that is a tab the user may select, or -1 if there is none.
template <class Layout>
int CDUITabBar<Layout>::FindItem(int childIndex, int step, bool goesRound) const
{
    const int count = this->GetControlCount();
    for (int tries = 0; tries < count; ++tries) {
        childIndex += step;
        if (childIndex < 0 || childIndex >= count) {
            if (!goesRound)
                return -1;
            childIndex = step > 0 ? 0 : count - 1;
        }
        if (CDUITabItem* const item = ItemOf(childIndex); item && IsUsable(*item))
            return childIndex;
    }
    return -1;
}

// The selection is stored in the items, so it stays valid when items are added, removed or copied.
template <class Layout>
CDUITabItem* CDUITabBar<Layout>::GetSelected(int* childIndex) const
{
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i); item && item->GetCheck()) {
            if (childIndex)
                *childIndex = i;
            return item;
        }
    return nullptr;
}

template <class Layout>
int CDUITabBar<Layout>::GetSelectIndex() const
{
    int number = 0;
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i)) {
            if (item->GetCheck())
                return number;
            ++number;
        }
    return -1;
}

// --- selecting ---------------------------------------------------------------------------------------------

template <class Layout>
BOOL CDUITabBar<Layout>::SetSelectIndex(int index, BOOL bNotify)
{
    if (!this->GetControlMgr()) {
        m_nFirstIndex = index;
        return TRUE;
    }
    return Select(ItemOfNumber(index), bNotify);
}

template <class Layout>
BOOL CDUITabBar<Layout>::MoveSelection(BOOL bForward, BOOL bNotify)
{
    int selected = bForward ? -1 : this->GetControlCount();
    GetSelected(&selected);
    return Select(ItemOf(FindItem(selected, bForward ? 1 : -1, true)), bNotify);
}

template <class Layout>
BOOL CDUITabBar<Layout>::Select(CDUITabItem* item, BOOL bNotify)
{
    CDUITabItem* const old = GetSelected();
    if (!item || item == old)
        return FALSE;
    const ControlGuard keep(this);
    const ControlGuard keepItem(item);
    const ControlGuard keepOld(old);
    const bool hadFocus = this->GetFocusControl() != nullptr;
    MarkSelected(item);
    if (IDUITabLayout* const pages = FindTabLayout())
        pages->SetSelectIndex(GetSelectIndex());
    const IDUIControl* const focus = this->GetFocusControl();
    if (hadFocus && (!focus || focus == old) && (item->GetStyle() & DUISTYLE_TABSTOP))
        item->SetFocus(TRUE);
    // A focus handler may have selected and reported another tab meanwhile.
    if (bNotify && item->GetParent() == this && item->GetCheck())
        this->SendNotify(DUINOTIFY_TABACTIVATE, 1, 0, item);
    return TRUE;
}

template <class Layout>
void CDUITabBar<Layout>::MarkSelected(const CDUITabItem* selected)
{
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i))
            item->SetCheck(item == selected);
    UpdateTabStops();
    m_isSelectedToShow = true;
    if (const auto* const bar = axis::Of<Layout>::ScrollBarOf(*this); bar && bar->IsVisible(FALSE))
        this->UpdateLayout(TRUE, nullptr);
}

// Keeps exactly one reachable tab as tab stop, so that the keyboard can reach the bar.
template <class Layout>
void CDUITabBar<Layout>::UpdateTabStops()
{
    if (!this->GetControlMgr())
        return;
    CDUITabItem* stop = GetSelected();
    if (!stop || !IsUsable(*stop))
        stop = ItemOf(FindItem(-1, 1, false));
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i))
            item->MakeTabStop(item == stop);
}

template <class Layout>
void CDUITabBar<Layout>::OnCreate()
{
    Layout::OnCreate();
    IDUITabLayout* const pages = FindTabLayout();
    CDUITabItem* const selected = GetSelected();
    MarkSelected(selected ? selected : FirstItem(pages));
    if (pages && GetSelected())
        pages->SetSelectIndex(GetSelectIndex());
}

// Returns the tab with the index given by select_index, or else by the tab layout, or the last one before it.
template <class Layout>
CDUITabItem* CDUITabBar<Layout>::FirstItem(IDUITabLayout* pages) const
{
    const int wanted = m_nFirstIndex < 0 && pages ? pages->GetSelectIndex() : m_nFirstIndex;
    if (wanted < 0)
        return ItemOf(FindItem(-1, 1, false));
    return ItemOfNumber(std::min(wanted, GetItemCount() - 1));
}

template <class Layout>
IDUITabLayout* CDUITabBar<Layout>::FindTabLayout()
{
    if (m_strTabLayout.IsEmpty()) {
        const IDUIControl* const parent = this->GetParent();
        for (int i = 0; parent && i < parent->GetControlCount(); ++i)
            if (IDUITabLayout* const pages = AsTabLayout(parent->GetControlByIndex(i)))
                return pages;
        return nullptr;
    }
    if (IDUITabLayout* const pages = AsTabLayout(this->GetSiblingControl(m_strTabLayout)))
        return pages;
    // Searches the tree, because the window's name cache lacks controls that were added since.
    IDUIControl* root = this;
    while (root->GetParent())
        root = root->GetParent();
    return AsTabLayout(root->FindControl(&IsTabLayoutOfName, &m_strTabLayout, 0));
}

// If the selected tab and the shown page differ, the tab decides, except in the middle of a change, when a
// tab or page is still to be added or removed.
template <class Layout>
void CDUITabBar<Layout>::FollowPages()
{
    IDUITabLayout* const pages = FindTabLayout();
    if (pages && pages->GetControlCount() == GetItemCount())
        pages->SetSelectIndex(GetSelectIndex());
}

template <class Layout>
void CDUITabBar<Layout>::OnPages(IDUITabLayout& pages, Change change)
{
    if (!this->GetControlMgr() || FindTabLayout() != &pages)
        return;
    const ControlGuard keep(this);
    if (change == Change::Selected) {
        if (const CDUITabItem* const item = ItemOfNumber(pages.GetSelectIndex());
            item && item != GetSelected())
            MarkSelected(item);
        return;
    }
    const int selected = GetSelectIndex();
    if (change == Change::Added && selected == pages.GetControlCount() - 1)
        pages.SetSelectIndex(selected);
    else
        FollowPages();
}

// --- what happens to the tabs ------------------------------------------------------------------------------

template <class Layout>
void CDUITabBar<Layout>::AfterAddControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    Layout::AfterAddControl(child);
    CDUITabItem* const item = InterfaceOf<CDUITabItem>(child.GetPtr(), "tab_item");
    if (!item || !this->GetControlMgr())
        return;
    item->SetCheck(FALSE);
    if (!GetSelected()) {
        Select(item, FALSE);
        return;
    }
    UpdateTabStops();
    FollowPages();
}

template <class Layout>
void CDUITabBar<Layout>::BeforeRemoveControl(CRefPtr<IDUIControl> child)
{
    Layout::BeforeRemoveControl(child);
    m_nRemoving = this->GetControlIndex(child);
}

template <class Layout>
void CDUITabBar<Layout>::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    const int place = std::exchange(m_nRemoving, -1);
    Layout::AfterRemoveControl(child);
    CDUITabItem* const item = InterfaceOf<CDUITabItem>(child.GetPtr(), "tab_item");
    if (!item || place < 0)
        return;
    Release(*item);
    if (!this->GetControlMgr())
        return;
    if (GetSelected()) {
        UpdateTabStops();
        FollowPages();
        return;
    }
    CDUITabItem* neighbour = ItemOf(FindItem(place - 1, 1, false));
    if (!neighbour)
        neighbour = ItemOf(FindItem(place, -1, false));
    Select(neighbour ? neighbour : ItemOfNumber(0), FALSE);
}

template <class Layout>
void CDUITabBar<Layout>::RemoveAllControl()
{
    std::vector<CRefPtr<IDUIControl>> released;
    for (int i = 0; i < this->GetControlCount(); ++i)
        released.emplace_back(this->GetControlByIndex(i));
    Layout::RemoveAllControl();
    for (const CRefPtr<IDUIControl>& child : released)
        if (auto* const item = InterfaceOf<CDUITabItem>(child.GetPtr(), "tab_item");
            item && !item->GetParent())
            Release(*item);
}

// Resets a tab that leaves the bar: not selected, and a tab stop.
template <class Layout>
void CDUITabBar<Layout>::Release(CDUITabItem& item)
{
    item.SetCheck(FALSE);
    item.MakeTabStop(true);
}

// A move is a removal and an insertion, between which another tab is selected.
template <class Layout>
BOOL CDUITabBar<Layout>::SetControlIndex(CRefPtr<IDUIControl> child, int index)
{
    const ControlGuard keep(this);
    const bool isSelected = !child.IsNull() && GetSelected() == child.GetPtr();
    const BOOL isMoved = Layout::SetControlIndex(child, index);
    if (isSelected && isMoved)
        Select(InterfaceOf<CDUITabItem>(child.GetPtr(), "tab_item"), FALSE);
    return isMoved;
}

template <class Layout>
LRESULT CDUITabBar<Layout>::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const bool isOfItem = event.pSender && event.pSender->GetParent() == this;
    switch (isOfItem ? event.Type : 0) {
        case DUIEVENT_ITEMCLICK:
        case DUIEVENT_ITEMDBLCLICK:
            Select(InterfaceOf<CDUITabItem>(event.pSender, "tab_item"), TRUE);
            bHandled = TRUE;
            return 0;
        case DUIEVENT_KEYDOWN:
            if (HandleKey(event))
                bHandled = TRUE;
            return 0;
        default:
            return Layout::ProcessEvent(event, bHandled);
    }
}

template <class Layout>
bool CDUITabBar<Layout>::HandleKey(const tagDUIEvent& event)
{
    constexpr WORD kAlt = 0x20;
    if (event.wKeyState & (MK_CONTROL | kAlt))
        return false;
    switch (event.wParam) {
        case axis::Of<Layout>::kForwardKey:
            MoveSelection(TRUE, TRUE);
            return true;
        case axis::Of<Layout>::kBackwardKey:
            MoveSelection(FALSE, TRUE);
            return true;
        case VK_HOME:
            Select(ItemOf(FindItem(-1, 1, false)), TRUE);
            return true;
        case VK_END:
            Select(ItemOf(FindItem(this->GetControlCount(), -1, false)), TRUE);
            return true;
        default:
            return false;
    }
}

template class CDUITabBar<CDUIHorizontalLayout>;
template class CDUITabBar<CDUIVerticalLayout>;

}  // namespace DUI
