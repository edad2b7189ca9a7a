#include <qvui/bars/tab_layout.h>

#include <algorithm>
#include <vector>

#include "framework/control_guard.h"
#include "layout/children.h"

namespace DUI {
namespace {

const AttributeTable<CDUITabLayout>& Attributes()
{
    static const AttributeTable<CDUITabLayout> table{
        {"select_index",
         {AttributeKind::Integer, "0"},
         "The page that is shown first, counted from 0.",
         &CDUITabLayout::SetFirstIndex},
    };
    return table;
}

}  // namespace

const ControlClass& CDUITabLayout::Class()
{
    static const ControlClass info("CDUITabLayout", &CDUICanvas::Class(),
                                   "Pages on top of one another, of which one is shown.", {"tab_layout"},
                                   &Attributes());
    return info;
}

CDUITabLayout::CDUITabLayout()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

void CDUITabLayout::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    layout::PlaceAll(*this, GetContentRect());
}

void CDUITabLayout::OnCreate()
{
    UpdateControls();
    TellFollowers(IDUITabFollower::Change::Added);
}

int CDUITabLayout::SetSelectIndex(int index)
{
    if (index == m_nSelectIndex || index < 0 || index >= GetControlCount())
        return 0;
    const ControlGuard keep(this);
    m_nSelectIndex = index;
    UpdateControls();
    TellFollowers(IDUITabFollower::Change::Selected);
    return 1;
}

// --- pages that come and go --------------------------------------------------------------------------------

void CDUITabLayout::AfterAddControl(CRefPtr<IDUIControl> child)
{
    if (!GetControlMgr()) {
        IDUITabLayout::AfterAddControl(child);
        return;
    }
    const ControlGuard keep(this);
    const int place = GetControlIndex(child);
    const bool isLast = place == GetControlCount() - 1;
    if (!isLast && place <= m_nSelectIndex)
        ++m_nSelectIndex;
    m_nSelectIndex = std::clamp(m_nSelectIndex, 0, GetControlCount() - 1);
    // Set before the page is attached, so that two pages are never visible at once.
    child->SetVisible(place == m_nSelectIndex);
    IDUITabLayout::AfterAddControl(child);
    UpdateControls();
    TellFollowers(IDUITabFollower::Change::Added);
}

void CDUITabLayout::BeforeRemoveControl(CRefPtr<IDUIControl> child)
{
    IDUITabLayout::BeforeRemoveControl(child);
    m_nRemoving = GetControlIndex(child);
}

void CDUITabLayout::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    const int place = std::exchange(m_nRemoving, -1);
    if (!GetControlMgr() || place < 0) {
        IDUITabLayout::AfterRemoveControl(child);
        return;
    }
    const ControlGuard keep(this);
    if (place < m_nSelectIndex)
        --m_nSelectIndex;
    m_nSelectIndex = std::clamp(m_nSelectIndex, 0, std::max(GetControlCount() - 1, 0));
    UpdateControls();
    IDUITabLayout::AfterRemoveControl(child);
    TellFollowers(IDUITabFollower::Change::Removed);
}

void CDUITabLayout::RemoveAllControl()
{
    IDUITabLayout::RemoveAllControl();
    if (GetControlMgr())
        m_nSelectIndex = 0;
}

// A move is a removal and an insertion, between which another page is shown.
BOOL CDUITabLayout::SetControlIndex(CRefPtr<IDUIControl> child, int index)
{
    const ControlGuard keep(this);
    const bool isShown =
        GetControlMgr() && !child.IsNull() && GetControlByIndex(m_nSelectIndex) == child.GetPtr();
    const BOOL isMoved = IDUITabLayout::SetControlIndex(child, index);
    const int place = isShown && isMoved ? GetControlIndex(child) : -1;
    if (place >= 0) {
        m_nSelectIndex = place;
        UpdateControls();
        TellFollowers(IDUITabFollower::Change::Added);
    }
    return isMoved;
}

// Followers are searched on each call, because names and controls change.
void CDUITabLayout::TellFollowers(IDUITabFollower::Change change)
{
    static const CString kFollower("tab_follower");
    if (!GetControlMgr())
        return;
    IDUIControl* root = this;
    while (root->GetParent())
        root = root->GetParent();
    std::vector<CRefPtr<IDUIControl>> followers;
    const auto collect = [](IDUIControl* control, void* data) -> IDUIControl* {
        if (control->GetInterface(kFollower))
            static_cast<std::vector<CRefPtr<IDUIControl>>*>(data)->emplace_back(control);
        return nullptr;
    };
    root->FindControl(collect, &followers, 0);
    const ControlGuard keep(this);
    for (const CRefPtr<IDUIControl>& follower : followers)
        static_cast<IDUITabFollower*>(follower->GetInterface(kFollower))->OnPages(*this, change);
}

// --- showing -----------------------------------------------------------------------------------------------

void CDUITabLayout::UpdateControls()
{
    if (!GetControlByIndex(m_nSelectIndex))
        return;
    const ControlGuard keep(this);
    LockLayout(TRUE);
    for (const CRefPtr<IDUIControl>& page : layout::AllChildren(*this)) {
        // Checked for each page, because a focus handler may select another page.
        const bool isSelected = page.GetPtr() == GetControlByIndex(m_nSelectIndex);
        page->SetVisible(isSelected);
        if (!isSelected)
            CheckAndResetFocus(page.GetPtr());
    }
    LockLayout(FALSE);
    UpdateLayout(FALSE, nullptr);
}

void CDUITabLayout::CheckAndResetFocus(IDUIControl* page)
{
    for (const IDUIControl* control = GetFocusControl(); control; control = control->GetParent())
        if (control == page) {
            page->SetFocus(FALSE);
            return;
        }
}

}  // namespace DUI
