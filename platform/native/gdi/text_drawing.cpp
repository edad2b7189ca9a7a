// Measuring and drawing text.

#include <pango/pangoft2.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>

#include "native/gdi/font_object.h"
#include "native/gdi/text_layout.h"
#include "native/kernel/code_pages.h"

#include <qvui/platform/cstring.h>

using namespace qvui::native;

namespace {

std::string Utf8Of(LPCSTR text, int length)
{
    if (!text)
        return {};
    return SystemToUtf8({text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length)});
}

// Blends the text colour in by coverage. Touched pixels get alpha 0, as the platform's text does.
void BlendCoverage(DeviceContext& context, const RECT& area, const std::uint8_t* coverage, int pitch, COLORREF colour)
{
    const std::uint32_t ink = PixelOf(colour);
    ForEachDrawable(context, area, [&](const RECT& part) {
        for (int y = part.top; y < part.bottom; ++y) {
            const std::uint8_t* row = coverage + static_cast<std::ptrdiff_t>(y - area.top) * pitch - area.left;
            for (int x = part.left; x < part.right; ++x) {
                const std::uint32_t weight = row[x];
                if (weight == 0)
                    continue;
                const std::uint32_t back = context.Target().Get(x, y);
                std::uint32_t mixed = 0;
                for (int shift = 0; shift < 24; shift += 8)
                    mixed |= ((((ink >> shift) & 0xFF) * weight + ((back >> shift) & 0xFF) * (255 - weight) + 127) /
                              255)
                             << shift;
                context.Target().Set(x, y, mixed);
            }
        }
    });
}

// Draws one shaped line with its top-left corner at a point in surface coordinates.
void DrawLineAt(DeviceContext& context, FontObject& font, std::string_view utf8, POINT at, int underline)
{
    if (utf8.empty())
        return;
    const TEXTMETRICA& metrics = font.Metrics();
    const ShapedLine& shaped = font.Shape(utf8);
    PangoLayoutLine* line = pango_layout_get_line_readonly(shaped.layout.get(), 0);
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_pixel_extents(line, &ink, &logical);
    const COLORREF colour = context.state.textColour;
    const RECT drawable = context.Drawable().Bounds();
    const int baseline = at.y + metrics.tmAscent;
    RECT area{at.x + ink.x - 1, baseline + ink.y - 1, at.x + ink.x + ink.width + 1, baseline + ink.y + ink.height + 1};
    // Only the part that can show is rasterised: a line may be a megabyte long.
    const RECT shown = Intersection(area, drawable);
    if (!IsEmptyRect(shown)) {
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
        pango_ft2_render_layout_line(&bitmap, line, at.x - shown.left, baseline - shown.top);
        BlendCoverage(context, shown, coverage.data(), width, colour);
    }
    const int length = shaped.Width();
    if (font.Description().lfUnderline)
        FillPixels(context, {at.x, baseline + 1, at.x + length, baseline + 2}, PixelOf(colour));
    if (font.Description().lfStrikeOut)
        FillPixels(context, {at.x, baseline - metrics.tmAscent / 3, at.x + length, baseline - metrics.tmAscent / 3 + 1},
                   PixelOf(colour));
    if (underline >= 0 && underline < static_cast<int>(utf8.size())) {
        std::size_t end = static_cast<std::size_t>(underline) + 1;
        while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80)
            ++end;
        const int left = at.x + shaped.widths[static_cast<std::size_t>(underline)];
        FillPixels(context, {left, baseline + 1, at.x + shaped.widths[end], baseline + 2}, PixelOf(colour));
    }
}

void FillTextBackground(DeviceContext& context, POINT at, int width, int height)
{
    if (context.state.backMode == OPAQUE)
        FillPixels(context, {at.x, at.y, at.x + width, at.y + height}, PixelOf(context.state.backColour));
}

TextMeasure MeasureOf(FontObject& font)
{
    TextMeasure measure;
    measure.height = font.Metrics().tmHeight;
    measure.averageWidth = font.Metrics().tmAveCharWidth;
    measure.widths = [&font](std::string_view text) -> const std::vector<int>& { return font.Shape(text).widths; };
    return measure;
}

// A clip that lasts for one scope, on top of the context's own.
class ScopedClip {
public:
    ScopedClip(DeviceContext& context, const RECT& logical, bool isWanted) : m_context(context), m_saved(context.state.clip)
    {
        if (!isWanted)
            return;
        Region clip(Normalised({logical.left + context.state.viewport.x, logical.top + context.state.viewport.y,
                                logical.right + context.state.viewport.x, logical.bottom + context.state.viewport.y}));
        if (m_saved)
            clip.Intersect(*m_saved);
        context.SetClip(std::move(clip));
        m_isSet = true;
    }
    ScopedClip(const ScopedClip&) = delete;
    ScopedClip& operator=(const ScopedClip&) = delete;
    ~ScopedClip()
    {
        if (m_isSet)
            m_context.SetClip(std::move(m_saved));
    }

private:
    DeviceContext& m_context;
    std::optional<Region> m_saved;
    bool m_isSet = false;
};

struct Placement {
    int lineHeight;
    int top;     // of the first line, relative to the rectangle's top
    int result;  // what DrawTextA returns
    int drawn;   // lines that are drawn
};

Placement Place(const std::vector<TextLine>& lines, UINT format, int rectHeight, const TEXTMETRICA& metrics)
{
    const int height = metrics.tmHeight + (format & DT_EXTERNALLEADING ? metrics.tmExternalLeading : 0);
    const int count = static_cast<int>(lines.size());
    if (!(format & DT_SINGLELINE)) {
        int drawn = count;
        if (!(format & (DT_NOCLIP | DT_CALCRECT))) {
            // Drawing stops after the first line whose bottom is beyond the rectangle.
            drawn = 0;
            while (drawn < count && (drawn == 0 || drawn * height <= rectHeight))
                ++drawn;
        }
        return {height, 0, drawn * height, drawn};
    }
    int top = 0;
    int result = height;
    if (!(format & DT_CALCRECT) && (format & DT_VCENTER)) {
        top = rectHeight / 2 - height / 2;
        result = top + height;
    } else if (!(format & DT_CALCRECT) && (format & DT_BOTTOM)) {
        top = rectHeight - height;
        result = rectHeight == 0 ? 1 : rectHeight;
    }
    return {height, top, result, count};
}

int AlignedLeft(const RECT& rect, int width, UINT format)
{
    if (format & DT_CENTER)
        return rect.left + (rect.right - rect.left - width) / 2;
    return format & DT_RIGHT ? rect.right - width : rect.left;
}

}  // namespace

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics)
{
    const DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    *metrics = FontOf(context->state)->Metrics();
    return TRUE;
}

BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size)
{
    return GetTextExtentExPointA(dc, text, length, INT_MAX, nullptr, nullptr, size);
}

BOOL GetTextExtentExPointA(HDC dc, LPCSTR text, int length, int widest, int* fit, int* widths, SIZE* size)
{
    const DeviceContext* context = LookUpContext(dc);
    if (!context || length < 0)
        return FALSE;
    const std::shared_ptr<FontObject> font = FontOf(context->state);
    const std::string utf8 = Utf8Of(text, length);
    const ShapedLine& line = font->Shape(utf8);
    *size = {line.Width(), font->Metrics().tmHeight};
    if (!fit && !widths)
        return TRUE;
    // Widths are asked for per byte of the system code page; a character's bytes share its width.
    int fitting = 0;
    std::size_t position = 0;
    const char* end = text + length;
    for (const char* at = text; at < end;) {
        const int bytes = CharacterLength(at, end);
        position = std::min(position + SystemToUtf8({at, static_cast<std::size_t>(bytes)}).size(), utf8.size());
        for (int i = 0; i < bytes; ++i, ++at)
            if (widths)
                widths[at - text] = line.widths[position];
        if (line.widths[position] <= widest)
            fitting = static_cast<int>(at - text);
    }
    if (fit)
        *fit = fitting;
    return TRUE;
}

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length)
{
    return ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(std::max(length, 0)), nullptr);
}

BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT length, const int*)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    if ((options & ETO_OPAQUE) && rect)
        FillOpaqueRectangle(*context, *rect);
    if (!text || length == 0)
        return TRUE;
    const std::shared_ptr<FontObject> font = FontOf(context->state);
    const std::string utf8 = Utf8Of(text, static_cast<int>(length));
    const POINT at = context->ToSurface(x, y);
    const ScopedClip clip(*context, rect ? *rect : RECT{}, rect && (options & ETO_CLIPPED));
    if (!(options & ETO_OPAQUE))
        FillTextBackground(*context, at, font->Shape(utf8).Width(), font->Metrics().tmHeight);
    DrawLineAt(*context, *font, utf8, at, -1);
    return TRUE;
}

int DrawTextA(HDC dc, LPCSTR text, int length, RECT* rect, UINT format)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context || !text || !rect || length < -1)
        return 0;
    const std::shared_ptr<FontObject> font = FontOf(context->state);
    const TEXTMETRICA metrics = font->Metrics();
    const std::string utf8 = Utf8Of(text, length);
    const TextMeasure measure = MeasureOf(*font);
    const int height = rect->bottom - rect->top;
    const bool isBounded = !(format & (DT_CALCRECT | DT_NOCLIP | DT_SINGLELINE)) && metrics.tmHeight > 0;
    const int maxLines = isBounded ? std::max(1, std::max(height, 0) / metrics.tmHeight + 1) : 0;
    const std::vector<TextLine> lines = LayOutText(utf8, format, rect->right - rect->left, maxLines, measure);
    if (utf8.empty()) {
        if (format & DT_CALCRECT)
            *rect = {rect->left, rect->top, rect->left, rect->top + (format & DT_SINGLELINE ? metrics.tmHeight : 0)};
        return metrics.tmHeight;
    }
    const Placement place = Place(lines, format, height, metrics);
    if (format & DT_CALCRECT) {
        int widest = 0;
        for (const TextLine& line : lines)
            widest = std::max(widest, line.width);
        rect->right = rect->left + widest;
        rect->bottom = rect->top + place.result;
        return place.result;
    }
    const ScopedClip clip(*context, *rect, !(format & DT_NOCLIP));
    int top = rect->top + place.top;
    for (int i = 0; i < place.drawn; ++i, top += place.lineHeight) {
        const TextLine& line = lines[static_cast<std::size_t>(i)];
        const POINT at = context->ToSurface(AlignedLeft(*rect, line.inkWidth, format), top);
        if (!(format & DT_PREFIXONLY)) {
            FillTextBackground(*context, at, line.width, metrics.tmHeight);
            DrawLineAt(*context, *font, line.text, at, line.underline);
        }
    }
    return place.result;
}
