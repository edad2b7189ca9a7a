#pragma once

#include <qvui/foundation/color.h>
#include <qvui/skin/font_object.h>

namespace DUI {

/// How a control draws its text: DrawText flags, and a font and a colour for each state. A skin switch
/// changes styles in place, so every holder of a style gets the new values. A copy shares the fonts.
class QVUI_API CTextStyle : public CDUIObject {
public:
    void SetTextFormat(DWORD format) { m_nFormat = format; }
    DWORD GetTextFormat() const { return m_nFormat; }

    void SetNormalFont(CRefPtr<CFontObject> font) { m_pNormalFont = std::move(font); }
    void SetHoverFont(CRefPtr<CFontObject> font) { m_pHoverFont = std::move(font); }
    void SetSelectFont(CRefPtr<CFontObject> font) { m_pSelectFont = std::move(font); }
    void SetDisableFont(CRefPtr<CFontObject> font) { m_pDisableFont = std::move(font); }
    CRefPtr<CFontObject> GetNormalFont() const { return m_pNormalFont; }
    /// Returns the font's version (see CFontObject) without sharing ownership; 0 without a font.
    unsigned GetNormalFontVersion() const { return m_pNormalFont.IsNull() ? 0 : m_pNormalFont->GetVersion(); }
    CRefPtr<CFontObject> GetHoverFont() const { return m_pHoverFont; }
    CRefPtr<CFontObject> GetSelectFont() const { return m_pSelectFont; }
    CRefPtr<CFontObject> GetDisableFont() const { return m_pDisableFont; }

    void SetNormalColor(const CARGB& color) { m_normalColor = color; }
    void SetHoverColor(const CARGB& color) { m_hoverColor = color; }
    void SetSelectColor(const CARGB& color) { m_selectColor = color; }
    void SetDisableColor(const CARGB& color) { m_disableColor = color; }
    CARGB GetNormalColor() const { return m_normalColor; }
    CARGB GetHoverColor() const { return m_hoverColor; }
    CARGB GetSelectColor() const { return m_selectColor; }
    CARGB GetDisableColor() const { return m_disableColor; }

    /// A name for the application's use; skins do not set it.
    void SetTextStyleName(const CString& name) { m_strName = name; }
    CString GetTextStyleName() const { return m_strName; }

private:
    DWORD m_nFormat = 0;
    CRefPtr<CFontObject> m_pNormalFont;
    CRefPtr<CFontObject> m_pHoverFont;
    CRefPtr<CFontObject> m_pDisableFont;
    CRefPtr<CFontObject> m_pSelectFont;
    CARGB m_normalColor;
    CARGB m_disableColor;
    CARGB m_hoverColor;
    CARGB m_selectColor;
    CString m_strName;
};

}  // namespace DUI
