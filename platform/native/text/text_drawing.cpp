// Drawing of single lines of text.

#include "native/text/text_drawing.h"

#include <pango/pangoft2.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>

#include <qvui/platform/cstring.h>

#include "native/gdi/fills.h"
#include "native/kernel/code_pages.h"

namespace qvui::native {
namespace {

// Mixes two channels at once, rounded to nearest; the products fit in 16 bits. For t < 65535, t / 255 is (t +
// 1 + (t >> 8)) >> 8.
std::uint32_t Mixed(std::uint32_t ink, std::uint32_t back, std::uint32_t weight)
{
    const auto mix = [weight](std::uint32_t one, std::uint32_t other) {
        const std::uint32_t sum = one * weight + other * (255 - weight) + 0x007F007F;
        return ((sum + 0x00010001 + ((sum >> 8) & 0x00FF00FF)) >> 8) & 0x00FF00FF;
    };
    return mix(ink & 0x00FF00FF, back & 0x00FF00FF) | (mix((ink >> 8) & 0xFF, (back >> 8) & 0xFF) << 8);
}

// Blends a colour by coverage. Modified pixels get alpha 0, as on the platform.
void BlendCoverage(DeviceContext& context, const RECT& area, const std::uint8_t* coverage, int pitch,
                   std::uint32_t ink)
{
    const Surface& target = context.Target();
    const auto blend = [ink](std::uint32_t back, std::uint32_t weight) {
        return weight == 255 ? ink & 0x00FFFFFF : Mixed(ink, back, weight);
    };
    ForEachDrawable(context, area, [&](const RECT& part) {
        for (int y = part.top; y < part.bottom; ++y) {
            const std::uint8_t* row =
                coverage + static_cast<std::ptrdiff_t>(y - area.top) * pitch - area.left;
            if (target.bitsPerPixel == 32) {
                std::uint32_t* const pixels = target.Row32(y);
                for (int x = part.left; x < part.right; ++x)
                    if (row[x] != 0)
                        pixels[x] = blend(pixels[x], row[x]);
                continue;
            }
            for (int x = part.left; x < part.right; ++x)
                if (row[x] != 0)
                    target.Set(x, y, blend(target.Get(x, y), row[x]));
        }
    });
}

// Draws the bitmap that `render(bitmap, x, y)` rasterises with its baseline at (x, y). `ink` is relative to
// the baseline.
template <class Render>
void DrawRendered(DeviceContext& context, const PangoRectangle& ink, POINT baseline, std::uint32_t pixel,
                  Render render)
{
    const RECT area{baseline.x + ink.x - 1, baseline.y + ink.y - 1, baseline.x + ink.x + ink.width + 1,
                    baseline.y + ink.y + ink.height + 1};
    // Only the visible part is rasterised, because a line may be a megabyte long.
    const RECT shown = Intersection(area, context.Drawable().Bounds());
    if (IsEmptyRect(shown))
        return;
    static thread_local std::vector<std::uint8_t> coverage;
    const int width = shown.right - shown.left;
    const int height = shown.bottom - shown.top;
    coverage.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    FT_Bitmap bitmap{};
    bitmap.rows = static_cast<unsigned>(height);
    bitmap.width = static_cast<unsigned>(width);
    bitmap.pitch = width;
    bitmap.buffer = coverage.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    render(&bitmap, baseline.x - shown.left, baseline.y - shown.top);
    BlendCoverage(context, shown, coverage.data(), width, pixel);
}

void DrawGlyphs(DeviceContext& context, PangoLayoutLine* line, POINT baseline)
{
    PangoRectangle ink;
    pango_layout_line_get_pixel_extents(line, &ink, nullptr);
    DrawRendered(context, ink, baseline, PixelOf(context.state.textColour),
                 [&](FT_Bitmap* bitmap, int x, int y) { pango_ft2_render_layout_line(bitmap, line, x, y); });
}

}  // namespace

std::string Utf8Of(LPCSTR text, int length)
{
    if (!text)
        return {};
    std::string utf8 =
        SystemToUtf8({text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length)});
    std::replace(utf8.begin(), utf8.end(), '\0', ' ');  // a zero would end the text for the shaper
    return utf8;
}

void DrawLineAt(DeviceContext& context, FontObject& font, std::string_view utf8, POINT at)
{
    if (utf8.empty())
        return;
    const TEXTMETRICA& metrics = font.Metrics();
    const ShapedLine& shaped = font.Shape(utf8);
    const int baseline = at.y + metrics.tmAscent;
    DrawGlyphs(context, pango_layout_get_line_readonly(shaped.layout.get(), 0), {at.x, baseline});
    const auto rule = [&](int y) {
        FillPixels(context, {at.x, y, at.x + shaped.Width(), y + 1}, PixelOf(context.state.textColour));
    };
    if (font.Description().lfUnderline)
        rule(baseline + 1);
    if (font.Description().lfStrikeOut)
        rule(baseline - metrics.tmAscent / 3);
}

void DrawGlyphRun(DeviceContext& context, PangoFont* font, PangoGlyphString* glyphs, POINT baseline,
                  std::uint32_t pixel)
{
    PangoRectangle ink;
    pango_glyph_string_extents(glyphs, font, &ink, nullptr);
    pango_extents_to_pixels(&ink, nullptr);
    DrawRendered(context, ink, baseline, pixel,
                 [&](FT_Bitmap* bitmap, int x, int y) { pango_ft2_render(bitmap, font, glyphs, x, y); });
}

void FillTextBackground(DeviceContext& context, POINT at, int width, int height)
{
    if (context.state.backMode == OPAQUE)
        FillPixels(context, {at.x, at.y, at.x + width, at.y + height}, PixelOf(context.state.backColour));
}

ScopedClip::ScopedClip(DeviceContext& context, const RECT& logical)
    : m_context(context),
      m_saved(context.state.clip)
{
    RECT device = Normalised(logical);
    OffsetRect(&device, context.state.viewport.x, context.state.viewport.y);
    Region clip(device);
    if (m_saved)
        clip.Intersect(*m_saved);
    context.SetClip(std::move(clip));
}

}  // namespace qvui::native
