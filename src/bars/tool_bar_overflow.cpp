#include "bars/tool_bar_overflow.h"

#include <qvui/render/render_engine.h>

#include "bars/tool_bar_colors.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

constexpr int kSide = 20;
// Half the breadth of an arrowhead, which equals its depth, and the distance between two arrowheads.
constexpr int kReach = 4;
constexpr int kStep = 5;

}  // namespace

ToolBarOverflow::ToolBarOverflow(bool isVertical) : m_isVertical(isVertical)
{
}

CRefPtr<IDUIControl> ToolBarOverflow::Clone()
{
    return new ToolBarOverflow(m_isVertical);
}

BOOL ToolBarOverflow::Activate()
{
    if (!IsVisible(FALSE) || !IsEnabled())
        return FALSE;
    const ControlGuard keep(this);
    // Called through a copy, because the call may destroy the bar, which clears this member.
    if (const auto call = onActivate)
        call();
    return TRUE;
}

void ToolBarOverflow::SetImage(CDUIImageListPtr image)
{
    UIData().m_pBackImage = std::move(image);
    UpdateLayout(TRUE, nullptr);
}

BOOL ToolBarOverflow::EstimateSize(SIZE, SIZE& size)
{
    size = {kSide, kSide};
    if (const CDUIImageListPtr& image = UIData().m_pBackImage; skin::IsLoaded(image))
        size = skin::IconSize(image);
    return TRUE;
}

void ToolBarOverflow::PaintBkgnd(HDC hdc)
{
    if (skin::IsLoaded(UIData().m_pBackImage))
        CDUIButton::PaintBkgnd(hdc);
    else if (GetImageStatus() == BTN_STATUS_HOT || GetImageStatus() == BTN_STATUS_PUSHED)
        CDUIRenderEngine::FillRect(hdc, GetControlRect(), WashColor());
}

void ToolBarOverflow::PaintForgnd(HDC hdc)
{
    if (skin::IsLoaded(UIData().m_pBackImage))
        return;
    const RECT rect = GetControlRect();
    const CARGB color = MarkColor();
    const int depth = kReach + kStep;
    const int length = 2 * kReach;
    const SIZE size = m_isVertical ? SIZE{length, depth} : SIZE{depth, length};
    const int left = geometry::Narrow(geometry::Centred(rect.left, rect.right, size.cx));
    const int top = geometry::Narrow(geometry::Centred(rect.top, rect.bottom, size.cy));
    for (int head = 0; head < 2; ++head) {
        const int x = left + (m_isVertical ? 0 : head * kStep);
        const int y = top + (m_isVertical ? head * kStep : 0);
        const POINT tip{x + kReach, y + kReach};
        const POINT other = m_isVertical ? POINT{x + length, y} : POINT{x, y + length};
        CDUIRenderEngine::DrawLine(hdc, x, y, tip.x, tip.y, 1, color);
        CDUIRenderEngine::DrawLine(hdc, other.x, other.y, tip.x, tip.y, 1, color);
        CDUIRenderEngine::FillRect(hdc, {tip.x, tip.y, tip.x + 1, tip.y + 1}, color);
    }
}

}  // namespace DUI
