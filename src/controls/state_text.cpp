#include "controls/state_text.h"
#include "render/dc_scopes.h"

#include <qvui/render/render_engine.h>

namespace DUI {
namespace {

struct Look {
    CARGB (CTextStyle::*color)() const;
    CRefPtr<CFontObject> (CTextStyle::*font)() const;
};

// In the order of TextState.
constexpr Look kLooks[] = {
    {&CTextStyle::GetNormalColor, &CTextStyle::GetNormalFont},
    {&CTextStyle::GetHoverColor, &CTextStyle::GetHoverFont},
    {&CTextStyle::GetSelectColor, &CTextStyle::GetSelectFont},
    {&CTextStyle::GetDisableColor, &CTextStyle::GetDisableFont},
};

const Look& LookOf(TextState state)
{
    return kLooks[static_cast<std::size_t>(state)];
}

}  // namespace

COLORREF StateColor(const CTextStyle* style, TextState state)
{
    return style ? (style->*LookOf(state).color)().GetColor() : 0;
}

HFONT StateFont(const CTextStyle* style, TextState state)
{
    if (!style)
        return nullptr;
    CRefPtr<CFontObject> font = (style->*LookOf(state).font)();
    if (font.IsNull())
        font = style->GetNormalFont();
    return font.IsNull() ? nullptr : font->GetFont();
}

void DrawStateText(HDC hdc, const CString& text, RECT place, const CTextStyle* style, TextState color,
                   TextState font)
{
    const HFONT selected = StateFont(style, font);
    if (text.IsEmpty() || !selected)
        return;
    const SelectScope scope(hdc, selected);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, StateColor(style, color));
    CDUIRenderEngine::DrawTextA(hdc, text, text.GetLength(), &place, style->GetTextFormat());
}

}  // namespace DUI
