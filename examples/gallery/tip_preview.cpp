#include "gallery/tip_preview.h"

namespace {

// As the library's tooltips have them.
constexpr COLORREF kBegin = RGB(231, 242, 249);
constexpr COLORREF kMiddle = RGB(220, 231, 240);
constexpr COLORREF kEnd = RGB(219, 229, 239);
constexpr int kBorder = 1;
constexpr int kMargin = 5;
constexpr int kBorderShade = -40;

}  // namespace

const DUI::ControlClass& TipPreview::Class()
{
    static const DUI::ControlClass info("TipPreview", &CDUIControlBase::Class(),
                                        "Shows its text as a tooltip does.", {"tip_preview"});
    return info;
}

void TipPreview::PaintForgnd(HDC hdc)
{
    constexpr int kAround = 2 * (kBorder + kMargin);
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
    DUI::CPPDrawManager::FillEffect(hdc, box, DUI::TOOLTIP_EFFECT_3VGRADIENT, kBegin, kMiddle, kEnd);
    DUI::CPPDrawManager::DrawBorder(hdc, box, 0, DUI::CPPDrawManager::Shade(kEnd, kBorderShade));
    InflateRect(&box, -(kBorder + kMargin), -(kBorder + kMargin));
    drawer.Draw(hdc, box);
}
