#include "layout/tool_bar_colors.h"

#include "framework/skin_access.h"

namespace DUI {
namespace {

CARGB WithAlpha(CARGB color, unsigned char alpha)
{
    color.SetA(alpha);
    return color;
}

}  // namespace

CARGB MarkColor()
{
    IDUISkinMgr* const manager = skin::Manager();
    const CRefPtr<CTextStyle> style = manager ? manager->GetTextStyle("") : nullptr;
    return style.IsNull() ? CARGB(0, 0, 0, 255) : WithAlpha(style->GetNormalColor(), 255);
}

CARGB LineColor()
{
    return WithAlpha(MarkColor(), 64);
}

CARGB WashColor()
{
    return WithAlpha(MarkColor(), 24);
}

MenuColors PlainMenuColors()
{
    // Rec. 601 luma, to tell light text from dark.
    const CARGB text = MarkColor();
    const int luma = (299 * text.GetR() + 587 * text.GetG() + 114 * text.GetB()) / 1000;
    if (luma > 127)
        return {CARGB(43, 43, 43, 255), CARGB(90, 90, 90, 255)};
    return {CARGB(255, 255, 255, 255), CARGB(160, 160, 160, 255)};
}

}  // namespace DUI
