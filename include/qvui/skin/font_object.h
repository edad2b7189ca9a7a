#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/platform.h>

namespace DUI {

/// One platform font and the description it is made from. Setters change the description alone; the font
/// follows with the next CreateFontA. The object owns the handle, so it cannot be copied.
class QVUI_API CFontObject : public CDUIObject {
public:
    /// No font yet; the description is the system's default GUI font in the character set of the system's
    /// language.
    CFontObject();
    CFontObject(const CFontObject&) = delete;
    CFontObject& operator=(const CFontObject&) = delete;
    ~CFontObject() override;

    /// Makes the font anew; 1 when there is one, 0 with the handle null otherwise. An earlier handle is gone
    /// either way.
    int CreateFontA();
    /// Borrowed; valid until the font is made anew or the object goes.
    HFONT GetFont() const { return m_hFont; }
    /// 0 before the first CreateFontA, which gives each font that it makes another number in the process: for
    /// those who remember what they measured with it.
    unsigned GetVersion() const { return m_nVersion; }
    int IsNull() const { return m_hFont == nullptr; }

    /// As in the platform's LOGFONT: negative is the em size in pixels, positive the cell height.
    void SetHeight(int height) { m_logFont.lfHeight = height; }
    void SetWeight(int weight) { m_logFont.lfWeight = weight; }
    void SetItalic(int italic) { m_logFont.lfItalic = static_cast<BYTE>(italic); }
    void SetUnderline(int underline) { m_logFont.lfUnderline = static_cast<BYTE>(underline); }
    void SetStrikeout(int strikeout) { m_logFont.lfStrikeOut = static_cast<BYTE>(strikeout); }
    /// Keeps the first 30 bytes, or fewer so that no character is split; null is ignored.
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
