#include <algorithm>

#include <qvui/framework/control_base.h>
#include <qvui/render/render_engine.h>

#include "framework/control_guard.h"
#include "framework/scroll_bars.h"

// The part of the base control that concerns its children: adding, removing, searching and painting them.

namespace DUI {
namespace {

bool IsShownIn(IDUIControl& control, const RECT& rcPaint)
{
    const RECT rect = control.GetControlRect();
    RECT common;
    return (control.GetStyle() & DUISTYLE_VISIBLE) && IntersectRect(&common, &rect, &rcPaint);
}

}  // namespace

// The parent pointer answers for every control that was never here, so that adding costs nothing per child.
bool CDUIControlBase::IsChild(const IDUIControl* child) const
{
    return child->GetParent() == this &&
           std::any_of(m_children.begin(), m_children.end(),
                       [child](const auto& entry) { return entry.GetPtr() == child; });
}

bool CDUIControlBase::IsInside(const IDUIControl* other) const
{
    for (const IDUIControl* control = this; control; control = control->GetParent())
        if (control == other)
            return true;
    return false;
}

BOOL CDUIControlBase::BeforeAddControl(CRefPtr<IDUIControl> child)
{
    // A control without children holds nobody, so only the others can be an ancestor.
    if (child.IsNull() || child.GetPtr() == this || IsChild(child.GetPtr()) ||
        (child->GetControlCount() > 0 && IsInside(child.GetPtr())))
        return FALSE;
    child->SetParent(this);
    return TRUE;
}

void CDUIControlBase::AfterAddControl(CRefPtr<IDUIControl> child)
{
    if (!GetControlMgr() || child.IsNull())
        return;
    const ControlGuard keep(this);
    child->AttachWindow(GetControlMgr());
    UpdateLayout(TRUE, nullptr);
}

void CDUIControlBase::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    if (child.IsNull())
        return;
    if (GetControlMgr()) {
        const ControlGuard keep(this);
        child->DetachWindow();
        UpdateLayout(TRUE, nullptr);
    }
    child->SetParent(nullptr);
}

BOOL CDUIControlBase::AddControl(CRefPtr<IDUIControl> child)
{
    if (!BeforeAddControl(child))
        return FALSE;
    m_children.push_back(child);
    AfterAddControl(child);
    return TRUE;
}

BOOL CDUIControlBase::AddControlAt(int index, CRefPtr<IDUIControl> child)
{
    if (index < 0 || index >= GetControlCount() || !BeforeAddControl(child))
        return FALSE;
    m_children.insert(m_children.begin() + index, child);
    AfterAddControl(child);
    return TRUE;
}

BOOL CDUIControlBase::RemoveControl(CRefPtr<IDUIControl> child)
{
    BeforeRemoveControl(child);
    m_children.erase(std::remove(m_children.begin(), m_children.end(), child), m_children.end());
    AfterRemoveControl(child);
    return TRUE;
}

BOOL CDUIControlBase::RemoveControlAt(int index)
{
    if (index < 0 || index >= GetControlCount())
        return FALSE;
    const CRefPtr<IDUIControl> child = ChildAt(static_cast<std::size_t>(index));
    BeforeRemoveControl(child);
    // The hook may have changed the list.
    const auto place = std::find(m_children.begin(), m_children.end(), child);
    if (place != m_children.end())
        m_children.erase(place);
    AfterRemoveControl(child);
    return TRUE;
}

void CDUIControlBase::RemoveAllControl()
{
    if (GetControlMgr())
        for (std::size_t i = 0; i < m_children.size(); ++i) {
            const CRefPtr<IDUIControl> child = m_children[i];
            child->DetachWindow();
        }
    for (const CRefPtr<IDUIControl>& child : m_children)
        child->SetParent(nullptr);
    // Destructors of children must not find them in the list any more.
    const std::vector<CRefPtr<IDUIControl>> released = std::move(m_children);
    m_children.clear();
    UpdateLayout(FALSE, nullptr);
}

IDUIControl* CDUIControlBase::GetControlByIndex(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    return index < 0 || place >= m_children.size() ? nullptr : m_children[place].GetPtr();
}

int CDUIControlBase::GetControlIndex(CRefPtr<IDUIControl> child)
{
    const auto place = std::find(m_children.begin(), m_children.end(), child);
    return place == m_children.end() ? -1 : static_cast<int>(place - m_children.begin());
}

BOOL CDUIControlBase::SetControlIndex(CRefPtr<IDUIControl> child, int index)
{
    RemoveControl(child);
    return AddControlAt(index, child);
}

IDUIControl* CDUIControlBase::GetNextSiblingControl(CRefPtr<IDUIControl> child)
{
    return GetControlByIndex(GetControlIndex(child) + 1);
}

IDUIControl* CDUIControlBase::GetPrevSiblingControl(CRefPtr<IDUIControl> child)
{
    return GetControlByIndex(GetControlIndex(child) - 1);
}

IDUIControl* CDUIControlBase::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    if ((flags & DUIFIND_VISIBLE) && !(GetStyle() & DUISTYLE_VISIBLE))
        return nullptr;
    if ((flags & DUIFIND_ENABLED) && (GetStatus() & DUISTATUS_DISABLED))
        return nullptr;
    if (flags & DUIFIND_ME_FIRST)
        if (IDUIControl* const found = proc(this, pData))
            return found;
    for (std::size_t i = 0; i < m_children.size(); ++i)
        if (IDUIControl* const found = m_children[i]->FindControl(proc, pData, flags))
            return found;
    for (IDUIControl* const bar : {HorizontalScrollBarOf(*this), VerticalScrollBarOf(*this)})
        if (bar)
            if (IDUIControl* const found = bar->FindControl(proc, pData, flags))
                return found;
    if (flags & DUIFIND_HITTEST) {
        const RECT rect = GetControlRect();
        if (!PtInRect(&rect, *static_cast<const POINT*>(pData)) || (GetStyle() & DUISTYLE_TRANSPARENT))
            return nullptr;
    }
    return proc(this, pData);
}

void CDUIControlBase::DoPaint(HDC hdc, const RECT& rcPaint)
{
    PaintBkgnd(hdc);
    PaintForgnd(hdc);
    PaintText(hdc);
    PaintBorder(hdc);
    IDUIControl* const bars[] = {HorizontalScrollBarOf(*this), VerticalScrollBarOf(*this)};
    if (m_children.empty() && !bars[0] && !bars[1])
        return;
    const RECT content = GetContentRect();
    const CDUIRenderClip clip(hdc, content);
    for (std::size_t i = 0; i < m_children.size(); ++i)
        if (IsShownIn(*m_children[i].GetPtr(), rcPaint))
            m_children[i]->DoPaint(hdc, rcPaint);
    for (IDUIControl* const bar : bars)
        if (bar && bar->IsVisible(FALSE))
            bar->DoPaint(hdc, rcPaint);
}

}  // namespace DUI
