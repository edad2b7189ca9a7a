#pragma once

#include <memory>
#include <unordered_map>

#include "native/text/font_object.h"
#include "native/text_services/formats.h"

namespace qvui::native {

/// Pixels of a length in twips on the screen.
int PixelsOfTwips(LONG twips);

/// The font of a character format at a zoom, and where its text stands on a line. Pixels.
struct FormatFont {
    std::shared_ptr<FontObject> font;
    int ascent = 0;   // above the line's baseline, the rise included
    int descent = 0;  // below it
    int rise = 0;     // of superscripts and of an offset, above the baseline
};

/// The fonts of a document's formats, each made when it is first asked for.
class FormatFonts {
public:
    explicit FormatFonts(const FormatPool<CharFormat>& formats) : m_formats(formats) {}

    /// Valid until the next Forget.
    const FormatFont& operator[](FormatId format);
    double Zoom() const { return m_zoom; }
    void SetZoom(double zoom);
    /// Drops the fonts of one format, whose value has changed, or all.
    void Forget(FormatId format) { m_fonts.erase(format); }
    void Forget() { m_fonts.clear(); }

private:
    const FormatPool<CharFormat>& m_formats;
    std::unordered_map<FormatId, FormatFont> m_fonts;
    double m_zoom = 1;
};

}  // namespace qvui::native
