#include <qvui/controls/progress_bar.h>

#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

const AttributeTable<CDUIProgressBar>& Attributes()
{
    static const AttributeTable<CDUIProgressBar> attributes{
        {"back_image", AttributeKind::Image, "Strip: icon 0 the empty bar, icon 1 the full bar.",
         [](CDUIProgressBar& bar, const CString& value) { bar.SetUIData({skin::Image(value)}); }},
        {"range",
         {AttributeKind::IntPair, "0,0", "", {.resets = "pos"}},
         "Minimum and maximum.",
         &CDUIProgressBar::SetRange},
        {"pos", {AttributeKind::Integer, "0"}, "The position, cut to the range.", &CDUIProgressBar::SetPos},
    };
    return attributes;
}

}  // namespace

const ControlClass& CDUIProgressBar::Class()
{
    static const ControlClass theClass(
        "CDUIProgressBar", &CDUIControlBase::Class(), "What horizontal and vertical progress bars share.",
        {"progress_bar"}, &Attributes(),
        {{"DUINOTIFY_PROGRESSPOS", "The position changed; wParam is the new one."}});
    return theClass;
}

CDUIProgressBar::~CDUIProgressBar() = default;

BOOL CDUIProgressBar::EstimateSize(SIZE, SIZE& size)
{
    const SIZE icon = skin::IconSize(m_uiData.m_pImage);
    size = OuterSize(icon.cx, icon.cy);
    return TRUE;
}

bool CDUIProgressBar::HasBothImages() const
{
    return skin::IsLoaded(m_uiData.m_pImage) && m_uiData.m_pImage->GetItemCount() >= 2;
}

RECT CDUIProgressBar::GetProgressRect()
{
    const RECT content = GetContentRect();
    if (m_nMin >= m_nMax)
        return {content.left, content.top, content.left, content.top};
    const double fraction = (static_cast<double>(m_nPos) - m_nMin) / (static_cast<double>(m_nMax) - m_nMin);
    const auto reached = [fraction](LONGLONG length) {
        return static_cast<LONGLONG>(fraction * static_cast<double>(length));
    };
    if (IsVertical())
        return MakeRect(content.left, content.bottom - reached(Height(content)), content.right,
                        content.bottom);
    return MakeRect(content.left, content.top, content.left + reached(Width(content)), content.bottom);
}

void CDUIProgressBar::PaintBkgnd(HDC hdc)
{
    if (HasBothImages())
        m_uiData.m_pImage->DrawImage(hdc, GetContentRect(), 0);
}

void CDUIProgressBar::PaintForgnd(HDC hdc)
{
    if (!HasBothImages())
        return;
    const RECT reached = GetProgressRect();
    if (IsRectEmpty(&reached))
        return;
    // The full image keeps its geometry; the clip decides how much of it shows.
    const CDUIRenderClip clip(hdc, reached);
    m_uiData.m_pImage->DrawImage(hdc, GetContentRect(), 1);
}

void CDUIProgressBar::SetRange(int nMin, int nMax)
{
    m_nMin = nMin;
    m_nMax = std::max(nMin, nMax);
    m_nPos = std::clamp(m_nPos, m_nMin, m_nMax);
}

void CDUIProgressBar::GetRange(int& nMin, int& nMax)
{
    nMin = m_nMin;
    nMax = m_nMax;
}

void CDUIProgressBar::SetPos(int nPos)
{
    const int position = std::clamp(nPos, m_nMin, m_nMax);
    if (position == m_nPos)
        return;
    const ControlGuard keep(this);
    m_nPos = position;
    SendNotify(DUINOTIFY_PROGRESSPOS, static_cast<WPARAM>(position), 0);
    UpdateLayout(FALSE, nullptr);
}

int CDUIProgressBar::GetPos()
{
    return m_nPos;
}

BOOL CDUIProgressBar::OffsetPos(int nOffset)
{
    const LONGLONG wanted = LONGLONG{m_nPos} + nOffset;
    const bool isInside = wanted >= m_nMin && wanted <= m_nMax;
    SetPos(Narrow(wanted));
    return isInside;
}

void CDUIProgressBar::SetUIData(const CProgressBarUIData& data)
{
    m_uiData = data;
}

const CProgressBarUIData& CDUIProgressBar::GetUIData()
{
    return m_uiData;
}

const ControlClass& CDUIHorizontalProgressBar::Class()
{
    static const ControlClass theClass("CDUIHorizontalProgressBar", &CDUIProgressBar::Class(),
                                       "A progress bar that fills from the left.", {});
    return theClass;
}

const ControlClass& CDUIVerticalProgressBar::Class()
{
    static const ControlClass theClass("CDUIVerticalProgressBar", &CDUIProgressBar::Class(),
                                       "A progress bar that fills from the bottom.", {});
    return theClass;
}

}  // namespace DUI
