#include "bars/tool_bar_colors.h"

#include "skin/skin_access.h"

namespace DUI {
namespace {

CARGB WithAlpha(CARGB color, unsigned char alpha)
{
    color.SetA(alpha);
    return color;
}

// Light text implies a dark background. Uses Rec. 601 luma.
bool IsTextLight()
{
    const CARGB text = MarkColor();
    return (299 * text.GetR() + 587 * text.GetG() + 114 * text.GetB()) / 1000 > 127;
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
    return IsTextLight() ? CARGB(255, 255, 255, 64) : CARGB(0, 0, 0, 128);
}

CARGB WashColor()
{
    return IsTextLight() ? CARGB(255, 255, 255, 24) : CARGB(0, 0, 0, 77);
}

MenuColors PlainMenuColors()
{
    if (IsTextLight())
        return {CARGB(43, 43, 43, 255), CARGB(90, 90, 90, 255)};
    return {CARGB(255, 255, 255, 255), CARGB(160, 160, 160, 255)};
}

}  // namespace DUI
