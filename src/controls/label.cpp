#include <qvui/controls/label.h>

#include <qvui/render/render_engine.h>

#include "controls/pointer_state.h"
#include "controls/state_text.h"
#include "foundation/rect.h"
#include "render/dc_scopes.h"
#include "skin/skin_access.h"

namespace DUI {

using namespace geometry;

const AttributeTable<CDUILabel>& CDUILabel::LabelAttributes()
{
    static const AttributeTable<CDUILabel> attributes{
        {"enable_shadowtext",
         {AttributeKind::Boolean, "false", "", {.accumulates = true}},
         "\"true\" draws a shadow of the text, one pixel to the right and down; other values change nothing.",
         [](CDUILabel& label, const CString& value) {
             if (IsTrue(value))
                 label.m_bShadow = true;
         }},
        {"shadowtext_color",
         {AttributeKind::Color, "#FF000000"},
         "The shadow's colour.",
         [](CDUILabel& label, const CString& value) { label.m_shadowColor = skin::Color(value).GetColor(); }},
        {"back_image", AttributeKind::Image, "The image behind the text, in the content rectangle.",
         &CDUILabel::m_pBackImage},
    };
    return attributes;
}

const ControlClass& CDUILabel::Class()
{
    static const ControlClass theClass("CDUILabel", &CDUIControlBase::Class(),
                                       "A text, with a shadow when wanted, over a background image.",
                                       {"label"}, &LabelAttributes());
    return theClass;
}

CDUILabel::~CDUILabel() = default;

BOOL CDUILabel::EstimateSize(SIZE, SIZE& size)
{
    const CRefPtr<CTextStyle> style = GetTextStyle();
    if (GetText().IsEmpty() || style.IsNull() || style->GetNormalFont().IsNull())
        return FALSE;
    const SIZE text = MeasureText(style->GetTextFormat());
    const SIZE fixed = GetFixedSize();
    size = {fixed.cx ? fixed.cx : text.cx, fixed.cy ? fixed.cy : text.cy};
    return TRUE;
}

LRESULT CDUILabel::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    pointer_state::Follow(*this, event.Type, DUISTATUS_HOT);
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

void CDUILabel::PaintBkgnd(HDC hdc)
{
    if (!skin::IsLoaded(m_pBackImage))
        return;
    const RECT content = GetContentRect();
    const CDUIRenderClip clip(hdc, content);
    const StretchModeScope smooth(hdc, HALFTONE);
    m_pBackImage->DrawImage(hdc, content, 0);
}

void CDUILabel::PaintText(HDC hdc)
{
    const CString& text = GetText();
    const CRefPtr<CTextStyle> style = GetTextStyle();
    if (text.IsEmpty() || style.IsNull())
        return;
    const SelectScope font(hdc, GetFontByStatus());
    SetBkMode(hdc, TRANSPARENT);
    const auto draw = [&](COLORREF color, RECT rect) {
        SetTextColor(hdc, color);
        CDUIRenderEngine::DrawTextA(hdc, text, text.GetLength(), &rect, style->GetTextFormat());
    };
    const RECT content = GetContentRect();
    if (m_bShadow)
        draw(m_shadowColor, Shrink(content, {1, 1, -1, -1}));
    draw(GetLabelTextColor(), content);
}

COLORREF CDUILabel::GetLabelTextColor()
{
    const DWORD status = GetStatus();
    const TextState state = (status & DUISTATUS_DISABLED) ? TextState::Disable
                            : (status & DUISTATUS_HOT)    ? TextState::Hover
                                                          : TextState::Normal;
    return StateColor(GetTextStyle().GetPtr(), state);
}

HFONT CDUILabel::GetFontByStatus()
{
    const DWORD status = GetStatus();
    const TextState state = (status & DUISTATUS_DISABLED) ? TextState::Disable
                            : (status & DUISTATUS_PUSHED) ? TextState::Select
                            : (status & DUISTATUS_HOT)    ? TextState::Hover
                                                          : TextState::Normal;
    return StateFont(GetTextStyle().GetPtr(), state);
}

}  // namespace DUI
