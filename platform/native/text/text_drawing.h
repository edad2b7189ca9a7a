#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "native/text/font_object.h"

namespace qvui::native {

/// Converts a text of the system code page to UTF-8. A negative length means that it is zero-terminated.
std::string Utf8Of(LPCSTR text, int length);

/// Draws one line of UTF-8 text in the context's text colour. `at` is its top-left corner in surface
/// coordinates.
void DrawLineAt(DeviceContext& context, FontObject& font, std::string_view utf8, POINT at);

/// Draws the glyphs of a shaped run in the colour of `pixel`. `baseline` is its start in surface coordinates.
void DrawGlyphRun(DeviceContext& context, PangoFont* font, PangoGlyphString* glyphs, POINT baseline,
                  std::uint32_t pixel);

/// Fills the character cells of a line with the background colour if the background mode is opaque.
void FillTextBackground(DeviceContext& context, POINT at, int width, int height);

/// Intersects the context's clip with a rectangle (logical coordinates) for one scope.
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
