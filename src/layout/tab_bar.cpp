#include <qvui/layout/tab_bar.h>

#include <algorithm>

#include <qvui/layout/tab_layout.h>

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
         [](Bar& bar, const CString& value) { bar.SetTabLayoutName(value); }},
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
CDUITabBar<Layout>::CDUITabBar(const CDUITabBar& other) = default;

template <class Layout>
void* CDUITabBar<Layout>::GetInterface(const CString& name)
{
    if (EqualNoCase(name.View(), "tab_bar"))
        return static_cast<IDUITabBar*>(this);
    return Layout::GetInterface(name);
}

template <class Layout>
void CDUITabBar<Layout>::SetControlRect(const RECT& rect)
{
    this->StoreControlRect(rect);
    layout::LayOutLine<axis::Of<Layout>>(*this, layout::Leftover::Nobody);
}

// --- the tabs ----------------------------------------------------------------------------------------------

template <class Layout>
CDUITabItem* CDUITabBar<Layout>::ItemOf(int childIndex) const
{
    return InterfaceOf<CDUITabItem>(this->GetControlByIndex(childIndex), "tab_item");
}

// The next child, in steps of 1 or -1, that is a tab the user may select; -1 when there is none.
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

// The items themselves know which of them is selected, so adding, removing and copying keep it right.
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
    int number = 0;
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i); item && number++ == index)
            return Select(item, bNotify);
    return FALSE;
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
    // Who lost the focus may have selected another tab meanwhile, and then that one has been reported.
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
}

// Always one tab that the keyboard can reach, so that it finds the bar.
template <class Layout>
void CDUITabBar<Layout>::UpdateTabStops()
{
    CDUITabItem* stop = GetSelected();
    if (!stop || !IsUsable(*stop))
        stop = ItemOf(FindItem(-1, 1, false));
    for (int i = 0; i < this->GetControlCount(); ++i)
        if (CDUITabItem* const item = ItemOf(i))
            item->MakeTabStop(item == stop);
}

template <class Layout>
IDUIControl* CDUITabBar<Layout>::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    // Before a walk that looks for tab stops: tabs may have been hidden or disabled since.
    if ((flags & DUIFIND_ENABLED) && !(flags & DUIFIND_HITTEST))
        UpdateTabStops();
    return Layout::FindControl(proc, pData, flags);
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

// The one with the number that select_index or else the tab layout gives, or the last one before it.
template <class Layout>
CDUITabItem* CDUITabBar<Layout>::FirstItem(IDUITabLayout* pages) const
{
    const int wanted = m_nFirstIndex < 0 && pages ? pages->GetSelectIndex() : m_nFirstIndex;
    if (wanted < 0)
        return ItemOf(FindItem(-1, 1, false));
    CDUITabItem* last = nullptr;
    int number = 0;
    for (int i = 0; i < this->GetControlCount() && number <= wanted; ++i)
        if (CDUITabItem* const item = ItemOf(i)) {
            last = item;
            ++number;
        }
    return last;
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
    // The window remembers names, and what was added since is not among them.
    IDUIControl* root = this;
    while (root->GetParent())
        root = root->GetParent();
    return AsTabLayout(root->FindControl(&IsTabLayoutOfName, &m_strTabLayout, 0));
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
    if (GetSelected())
        UpdateTabStops();
    else
        Select(item, FALSE);
}

template <class Layout>
void CDUITabBar<Layout>::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    const bool wasHere = !child.IsNull() && child->GetParent() == this;
    Layout::AfterRemoveControl(child);
    CDUITabItem* const item = InterfaceOf<CDUITabItem>(child.GetPtr(), "tab_item");
    if (!item || !wasHere)
        return;
    item->SetCheck(FALSE);
    item->MakeTabStop(true);
    if (this->GetControlMgr() && !GetSelected())
        Select(FirstItem(FindTabLayout()), FALSE);
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
