#include "framework/window/host_window.h"

#include <algorithm>

namespace DUI {

Targets::~Targets()
{
    for (Target* const target : m_list) {
        target->m_pCalls = nullptr;
        target->Clear();
    }
}

void Targets::Forget(const IDUIControl* control)
{
    for (Target* const target : m_list)
        if (target->Get() == control)
            target->Clear();
}

Target::Target(Targets& calls, IDUIControl* control)
    : m_pCalls(&calls),
      m_keep(control),
      m_isOwned(!control || control->GetRefCount() > 0)
{
    if (m_isOwned)
        m_pOwned = control;
    else
        m_pUnowned = control;
    calls.m_list.push_back(this);
}

Target::~Target()
{
    if (m_pCalls)
        m_pCalls->m_list.erase(std::find(m_pCalls->m_list.begin(), m_pCalls->m_list.end(), this));
}

void Target::Clear()
{
    m_pOwned = nullptr;
    m_pUnowned = nullptr;
}

IDUIControl* HostWindow::Find(FindControlProc callback, void* data, UINT flags) const
{
    return root.IsNull() ? nullptr : root->FindControl(callback, data, flags);
}

IDUIControl* HostWindow::FindAt(POINT point, UINT flags) const
{
    const auto containsPoint = [](IDUIControl* control, void* data) {
        const RECT rect = control->GetControlRect();
        return PtInRect(&rect, *static_cast<const POINT*>(data)) ? control : nullptr;
    };
    return Find(containsPoint, &point, flags);
}

POINT HostWindow::PointerPosition() const
{
    POINT position{};
    GetCursorPos(&position);
    ScreenToClient(handle, &position);
    return position;
}

bool HostWindow::Deliver(IDUIControl* target, const tagDUIEvent& event, BOOL& bHandled)
{
    const Target keep(calls, target);
    target->OnDUIEvent(event, bHandled);
    return keep.IsManagerAlive();
}

}  // namespace DUI
