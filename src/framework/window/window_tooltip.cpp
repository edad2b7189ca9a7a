#include "framework/window/window_tooltip.h"

#include <qvui/tooltip/tool_tip.h>

namespace DUI {
namespace {

constexpr UINT_PTR kClientTool = 1;

}  // namespace

WindowTooltip::WindowTooltip(HostWindow& host) : m_host(host)
{
}

WindowTooltip::~WindowTooltip() = default;

void WindowTooltip::Create()
{
    m_toolTip = std::make_unique<CPPToolTip>();
    if (!m_toolTip->Create(m_host.handle))
        return;
    m_toolTip->SetBkColor(CARGB(169, 209, 236, 255));
    m_toolTip->SetMargin(5, 5);
    m_toolTip->SetOffset(5, 10);
    OnSize();
}

void WindowTooltip::Destroy()
{
    m_toolTip.reset();
}

void WindowTooltip::OnSize()
{
    if (!m_toolTip || !m_toolTip->GetHWND())
        return;
    RECT client{};
    GetClientRect(m_host.handle, &client);
    m_toolTip->DelTool(m_host.handle, kClientTool);
    m_toolTip->AddTool(m_host.handle, "", client, kClientTool);
}

void WindowTooltip::RelayEvent(MSG* message)
{
    if (m_toolTip)
        m_toolTip->RelayEvent(message);
}

LRESULT WindowTooltip::OnNotifyDisplayTooltip(UINT, WPARAM, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    auto* const notification = reinterpret_cast<NM_TOOLTIP_DISPLAY*>(lParam);
    if (!notification || !m_toolTip || notification->hdr.hwndFrom != m_toolTip->GetHWND() ||
        notification->hdr.code != TOOLTIP_DISPLAY || !notification->ti ||
        notification->ti->nIDTool != kClientTool)
        return 0;
    bHandled = TRUE;
    POINT point = notification->pt;
    ScreenToClient(m_host.handle, &point);
    IDUIControl* const control = m_host.FindAt(point, DUIFIND_VISIBLE | DUIFIND_HITTEST);
    if (!control)
        return 0;
    TOOLTIP_INFO& info = *notification->ti;
    info.nEffect = TOOLTIP_EFFECT_3VGRADIENT;
    info.nMask |= TOOLTIP_MASK_COLORS;
    info.crBegin = TOOLTIP_COLOR_BEGIN;
    info.crMid = TOOLTIP_COLOR_MID;
    info.crEnd = TOOLTIP_COLOR_END;
    info.sTooltip = control->GetTooltip();
    return 0;
}

}  // namespace DUI
