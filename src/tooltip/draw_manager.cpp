#include <qvui/tooltip/draw_manager.h>

#include <algorithm>
#include <cstdlib>

#include <qvui/render/render_engine.h>

namespace DUI {
namespace {

constexpr int kMostStops = 3;

/// The colours of a gradient at equal distances, as indices: first, middle or last colour.
struct Effect {
    bool isVertical;
    int stopCount;
    int stops[kMostStops];
};

constexpr Effect kEffects[] = {
    {false, 1, {0}},        // TOOLTIP_EFFECT_SOLID
    {false, 2, {0, 2}},     // TOOLTIP_EFFECT_HGRADIENT
    {true, 2, {0, 2}},      // TOOLTIP_EFFECT_VGRADIENT
    {false, 3, {0, 2, 0}},  // TOOLTIP_EFFECT_HCGRADIENT
    {true, 3, {0, 2, 0}},   // TOOLTIP_EFFECT_VCGRADIENT
    {true, 3, {0, 1, 2}},   // TOOLTIP_EFFECT_3VGRADIENT
    {false, 3, {0, 1, 2}},  // TOOLTIP_EFFECT_3HGRADIENT
};
static_assert(std::size(kEffects) == TOOLTIP_EFFECT_3HGRADIENT + 1);

CARGB Opaque(COLORREF color)
{
    CARGB opaque;
    opaque.SetColor(color);
    return opaque;
}

}  // namespace

void CPPDrawManager::FillEffect(HDC hdc, const RECT& rect, int effect, COLORREF crBegin, COLORREF crMid,
                                COLORREF crEnd)
{
    const bool isKnown = effect >= 0 && effect < static_cast<int>(std::size(kEffects));
    const Effect& fill = kEffects[isKnown ? effect : TOOLTIP_EFFECT_SOLID];
    const CARGB colors[kMostStops] = {Opaque(crBegin), Opaque(crMid), Opaque(crEnd)};
    const int partCount = fill.stopCount - 1;
    if (partCount == 0)
        CDUIRenderEngine::FillRect(hdc, rect, colors[fill.stops[0]]);
    const LONG extent = fill.isVertical ? rect.bottom - rect.top : rect.right - rect.left;
    for (int i = 0; i < partCount; ++i) {
        RECT part = rect;
        LONG& first = fill.isVertical ? part.top : part.left;
        LONG& last = fill.isVertical ? part.bottom : part.right;
        last = first + extent * (i + 1) / partCount;
        first += extent * i / partCount;
        CDUIRenderEngine::DrawGradien(hdc, part, colors[fill.stops[i]], colors[fill.stops[i + 1]],
                                      fill.isVertical);
    }
}

void CPPDrawManager::FillTooltip(HDC hdc, const RECT& rect, int corner, int effect, COLORREF crBegin,
                                 COLORREF crMid, COLORREF crEnd)
{
    constexpr int kBorderShade = -40;
    FillEffect(hdc, rect, effect, crBegin, crMid, crEnd);
    DrawBorder(hdc, rect, corner, Shade(crEnd, kBorderShade));
}

void CPPDrawManager::DrawBorder(HDC hdc, const RECT& rect, int corner, COLORREF color)
{
    if (corner <= 0) {
        CDUIRenderEngine::DrawRectangleBorder(hdc, rect, {1, 1, 1, 1}, Opaque(color));
        return;
    }
    // The render engine draws its rounded outline one pixel inside the right and bottom edge.
    const RECT outer{rect.left, rect.top, rect.right + 1, rect.bottom + 1};
    CDUIRenderEngine::DrawRoundRectBorder(hdc, outer, corner, corner, 1, Opaque(color));
}

COLORREF CPPDrawManager::Mix(COLORREF first, COLORREF second, int percent)
{
    percent = std::clamp(percent, 0, 100);
    const auto mixed = [percent](int from, int to) {
        return (from * (100 - percent) + to * percent + 50) / 100;
    };
    return RGB(mixed(GetRValue(first), GetRValue(second)), mixed(GetGValue(first), GetGValue(second)),
               mixed(GetBValue(first), GetBValue(second)));
}

COLORREF CPPDrawManager::Shade(COLORREF color, int percent)
{
    return Mix(color, percent < 0 ? RGB(0, 0, 0) : RGB(255, 255, 255), std::abs(percent));
}

}  // namespace DUI
