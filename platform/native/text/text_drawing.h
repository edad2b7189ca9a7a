#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "native/text/font_object.h"

namespace qvui::native {

/// A text of the system code page as UTF-8; a negative length means up to the zero byte.
std::string Utf8Of(LPCSTR text, int length);

/// Draws one line of UTF-8 text in the context's text colour, its top-left corner at a point in surface
/// coordinates.
void DrawLineAt(DeviceContext& context, FontObject& font, std::string_view utf8, POINT at);

/// Draws glyphs of a shaped run, their baseline's start in surface coordinates, in the colour of a pixel.
void DrawGlyphRun(DeviceContext& context, PangoFont* font, PangoGlyphString* glyphs, POINT baseline,
                  std::uint32_t pixel);

/// Fills the cells of a line with the background colour in the opaque mode.
void FillTextBackground(DeviceContext& context, POINT at, int width, int height);

/// A rectangle (logical coordinates) that the context's clip is cut to for one scope.
class ScopedClip {
public:
    ScopedClip(DeviceContext& context, const RECT& logical);
    ScopedClip(const ScopedClip&) = delete;
    ScopedClip& operator=(const ScopedClip&) = delete;
    ~ScopedClip() { m_context.SetClip(std::move(m_saved)); }

private:
    DeviceContext& m_context;
    std::optional<Region> m_saved;
};

}  // namespace qvui::native
