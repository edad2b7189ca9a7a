#include <algorithm>
#include <unordered_set>
#include <utility>

#include <qvui/framework/control_base.h>
#include <qvui/render/render_engine.h>

#include "framework/content_walk.h"
#include "framework/control_guard.h"

// The part of the base control that concerns its children: adding, removing, searching and painting them.

namespace DUI {
namespace {

// Takes the controls of `removed` out of the list.
void Withdraw(std::vector<CRefPtr<IDUIControl>>& list, const std::vector<CRefPtr<IDUIControl>>& removed)
{
    std::unordered_set<const IDUIControl*> isRemoved;
    for (const CRefPtr<IDUIControl>& control : removed)
        isRemoved.insert(control.GetPtr());
    list.erase(
        std::remove_if(list.begin(), list.end(),
                       [&isRemoved](const auto& entry) { return isRemoved.count(entry.GetPtr()) > 0; }),
        list.end());
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

// For the scope in which a control leaves its place in the tree for another one.
class CDUIControlBase::MoveScope {
public:
    MoveScope(CDUIControlBase& parent, const CRefPtr<IDUIControl>& child)
        : m_keep(&parent),
          m_parent(parent),
          m_child(child),
          m_pMgr(child.IsNull() ? nullptr : parent.m_pMgr)
    {
        Tell(1);
    }
    MoveScope(const MoveScope&) = delete;
    MoveScope& operator=(const MoveScope&) = delete;
    ~MoveScope() { Tell(0); }

private:
    void Tell(WPARAM begins)
    {
        if (m_pMgr && m_parent.m_pMgr == m_pMgr)
            m_parent.Request(DUIREQUEST_MOVE, begins, 0, m_child.GetPtr());
    }

    ControlGuard m_keep;
    CDUIControlBase& m_parent;
    CRefPtr<IDUIControl> m_child;
    IDUIControlMgr* m_pMgr;
};

BOOL CDUIControlBase::BeforeAddControl(CRefPtr<IDUIControl> child)
{
    if (child.IsNull() || IsInside(child.GetPtr()) || IsChild(child.GetPtr()))
        return FALSE;
    const ControlGuard keepThis(this);
    if (IDUIControl* const former = child->GetParent(); former && former != this) {
        const ControlGuard keep(former);
        former->RemoveControl(child);
    } else {
        // The root of another window, or one that a window handed out.
        child->DetachWindow();
    }
    // A handler may have found another parent for it, or put it above this control.
    if ((child->GetParent() && child->GetParent() != this) || IsInside(child.GetPtr()) ||
        IsChild(child.GetPtr()))
        return FALSE;
    child->SetParent(this);
    return TRUE;
}

void CDUIControlBase::AfterAddControl(CRefPtr<IDUIControl> child)
{
    if (!IsAttached() || child.IsNull())
        return;
    const ControlGuard keep(this);
    child->AttachWindow(GetControlMgr());
    UpdateLayout(TRUE, nullptr);
}

void CDUIControlBase::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    // What is no child stays as it is.
    if (child.IsNull() || child->GetParent() != this)
        return;
    const ControlGuard keep(this);
    const unsigned additions = s_nAdditions;
    if (GetControlMgr()) {
        child->DetachWindow();
        UpdateLayout(TRUE, nullptr);
    }
    // Unless a handler has put it back.
    if (child->GetParent() == this && (additions == s_nAdditions || !IsChild(child.GetPtr())))
        child->SetParent(nullptr);
}

BOOL CDUIControlBase::AddControl(CRefPtr<IDUIControl> child)
{
    const ControlGuard keep(this);
    const MoveScope move(*this, !child.IsNull() && child->GetParent() ? child : CRefPtr<IDUIControl>());
    if (!BeforeAddControl(child))
        return FALSE;
    ++s_nAdditions;
    m_children.push_back(child);
    AfterAddControl(child);
    return TRUE;
}

BOOL CDUIControlBase::AddControlAt(int index, CRefPtr<IDUIControl> child)
{
    if (index < 0 || index >= GetControlCount())
        return FALSE;
    const ControlGuard keep(this);
    const MoveScope move(*this, !child.IsNull() && child->GetParent() ? child : CRefPtr<IDUIControl>());
    if (!BeforeAddControl(child))
        return FALSE;
    ++s_nAdditions;
    // Taking the child from a former parent may have shortened the list.
    m_children.insert(m_children.begin() + std::min(index, GetControlCount()), child);
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
    const ControlGuard keep(this);
    std::vector<CRefPtr<IDUIControl>> released;
    if (GetControlMgr()) {
        released = m_children;
        for (const CRefPtr<IDUIControl>& child : released)
            if (child->GetParent() == this)
                child->DetachWindow();
    }
    // Destructors of children must not find them in the list any more. Those that handlers have added stay.
    if (released.empty() || released == m_children)
        released = std::exchange(m_children, {});
    else
        Withdraw(m_children, released);
    for (const CRefPtr<IDUIControl>& child : released)
        if (child->GetParent() == this)
            child->SetParent(nullptr);
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
    const MoveScope move(*this, child);
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
    return content_walk::Find(*this, proc, pData, flags, [&]() -> IDUIControl* {
        for (std::size_t i = 0; i < m_children.size(); ++i)
            if (IDUIControl* const found = m_children[i]->FindControl(proc, pData, flags))
                return found;
        return nullptr;
    });
}

void CDUIControlBase::DoPaint(HDC hdc, const RECT& rcPaint)
{
    PaintBkgnd(hdc);
    PaintForgnd(hdc);
    PaintText(hdc);
    PaintBorder(hdc);
    if (m_children.empty() && !HorizontalScrollBarOf(*this) && !VerticalScrollBarOf(*this))
        return;
    content_walk::Paint(*this, hdc, rcPaint, [&] {
        for (std::size_t i = 0; i < m_children.size(); ++i)
            if (content_walk::IsShownIn(*m_children[i].GetPtr(), rcPaint))
                m_children[i]->DoPaint(hdc, rcPaint);
    });
}

}  // namespace DUI
