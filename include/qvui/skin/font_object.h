#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/platform.h>

namespace DUI {

/// A platform font and its description. Setters change only the description; the next CreateFontA applies it.
/// The object owns the handle and cannot be copied.
class QVUI_API CFontObject : public CDUIObject {
public:
    /// Starts without a font. The description is that of the system's default GUI font, with the character
    /// set of the system's language.
    CFontObject();
    CFontObject(const CFontObject&) = delete;
    CFontObject& operator=(const CFontObject&) = delete;
    ~CFontObject() override;

    /// Creates the font from the description. Returns 1 on success; on failure returns 0, and the handle is
    /// null. The previous handle is released in any case.
    int CreateFontA();
    /// Not owned; valid until the font is created again or the object is destroyed.
    HFONT GetFont() const { return m_hFont; }
    /// A process-wide number that identifies the font created last, or 0 before the first CreateFontA. Use it
    /// to invalidate cached measurements.
    unsigned GetVersion() const { return m_nVersion; }
    int IsNull() const { return m_hFont == nullptr; }

    /// As lfHeight of LOGFONT: negative is the em size in pixels, positive the cell height in pixels.
    void SetHeight(int height) { m_logFont.lfHeight = height; }
    void SetWeight(int weight) { m_logFont.lfWeight = weight; }
    void SetItalic(int italic) { m_logFont.lfItalic = static_cast<BYTE>(italic); }
    void SetUnderline(int underline) { m_logFont.lfUnderline = static_cast<BYTE>(underline); }
    void SetStrikeout(int strikeout) { m_logFont.lfStrikeOut = static_cast<BYTE>(strikeout); }
    /// Keeps the first 30 bytes, or fewer if a character would be split. Null is ignored.
    void SetFaceName(const char* name);

    int GetHeight() const { return m_logFont.lfHeight; }
    int GetWeight() const { return m_logFont.lfWeight; }
    int GetItalic() const { return m_logFont.lfItalic; }
    int GetUnderline() const { return m_logFont.lfUnderline; }
    int GetStrikeout() const { return m_logFont.lfStrikeOut; }
    const char* GetFaceName() const { return m_logFont.lfFaceName; }

protected:
    void DeleteObject();

private:
    HFONT m_hFont = nullptr;
    unsigned m_nVersion = 0;
    LOGFONTA m_logFont{};
};

}  // namespace DUI
