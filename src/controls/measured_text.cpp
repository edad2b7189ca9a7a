#include <qvui/controls/measured_text.h>

#include <qvui/render/render_engine.h>

namespace DUI {

SIZE MeasuredText::Get(const CString& text, const CRefPtr<CFontObject>& font, UINT format)
{
    if (font.IsNull() || font->IsNull())
        return {0, 0};
    const bool isKnown =
        m_pFont == font && m_nFontVersion == font->GetVersion() && m_nFormat == format && m_strText == text;
    if (!isKnown) {
        m_size = CDUIRenderEngine::GetTextIdealSize(text, font->GetFont(), 0, format);
        m_strText = text;
        m_pFont = font;
        m_nFontVersion = font->GetVersion();
        m_nFormat = format;
    }
    return m_size;
}

}  // namespace DUI
