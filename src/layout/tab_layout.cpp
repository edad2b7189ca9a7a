#include <qvui/layout/tab_layout.h>

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
         [](CDUITabLayout& tabs, const CString& value) { tabs.SetFirstIndex(ReadInteger(value)); }},
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
}

int CDUITabLayout::SetSelectIndex(int index)
{
    if (index == m_nSelectIndex || index < 0 || index >= GetControlCount())
        return 0;
    m_nSelectIndex = index;
    UpdateControls();
    return 1;
}

void CDUITabLayout::UpdateControls()
{
    if (!GetControlByIndex(m_nSelectIndex))
        return;
    const ControlGuard keep(this);
    LockLayout(TRUE);
    for (const CRefPtr<IDUIControl>& page : layout::AllChildren(*this)) {
        // Asked anew for every page: who loses the focus may select another one.
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
