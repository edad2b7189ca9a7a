#include "gallery/tip_preview.h"

namespace {

constexpr int kInset = 1 + 5;  // a tooltip's border and margin

}  // namespace

const DUI::ControlClass& TipPreview::Class()
{
    static const DUI::ControlClass info("TipPreview", &CDUIControlBase::Class(),
                                        "Shows its text as a tooltip does.", {"tip_preview"});
    return info;
}

void TipPreview::PaintForgnd(HDC hdc)
{
    constexpr int kAround = 2 * kInset;
    const RECT content = GetContentRect();
    const int width = content.right - content.left;
    const int height = content.bottom - content.top;
    if (width <= kAround || height <= kAround)
        return;
    DUI::CPPHtmlDrawer drawer;
    drawer.SetText(GetText());
    const SIZE text = drawer.Measure(hdc, width - kAround, height - kAround);
    const int top = content.top + (height - text.cy - kAround) / 2;
    RECT box{content.left, top, content.left + text.cx + kAround, top + text.cy + kAround};
    DUI::CPPDrawManager::FillTooltip(hdc, box, 0, DUI::TOOLTIP_EFFECT_3VGRADIENT, DUI::TOOLTIP_COLOR_BEGIN,
                                     DUI::TOOLTIP_COLOR_MID, DUI::TOOLTIP_COLOR_END);
    InflateRect(&box, -kInset, -kInset);
    drawer.Draw(hdc, box);
}
