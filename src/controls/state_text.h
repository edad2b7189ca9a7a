#pragma once

#include <qvui/skin/text_style.h>

/// Text in the colour and font that a text style has for a control's state.
namespace DUI {

/// The four looks of a text style.
enum class TextState { Normal, Hover, Select, Disable };

/// Black without a style.
COLORREF StateColor(const CTextStyle* style, TextState state);
/// The style's normal font where it has none for the state; null without a style or font. Borrowed.
HFONT StateFont(const CTextStyle* style, TextState state);

/// Draws a text over what is there; nothing without a text, a style or a font.
void DrawStateText(HDC hdc, const CString& text, RECT place, const CTextStyle* style, TextState color,
                   TextState font);

}  // namespace DUI
