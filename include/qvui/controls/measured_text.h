#pragma once

#include <qvui/skin/font_object.h>

namespace DUI {

/// The size of a text on one line, remembered: layouts ask for it twice at every pass, and it changes only
/// with the text, the font and the format. Holds the font that it measured with.
class QVUI_API MeasuredText {
public:
    /// The extent in pixels; 0 by 0 without a font.
    SIZE Get(const CString& text, const CRefPtr<CFontObject>& font, UINT format);

private:
    CString m_strText;
    CRefPtr<CFontObject> m_pFont;
    unsigned m_nFontVersion = 0;
    UINT m_nFormat = 0;
    SIZE m_size{0, 0};
};

}  // namespace DUI
