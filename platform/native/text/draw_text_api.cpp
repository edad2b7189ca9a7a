// DrawTextA: draws or measures lines of text in a rectangle.

#include <algorithm>
#include <cstring>

#include "native/gdi/fills.h"
#include "native/kernel/code_pages.h"
#include "native/text/text_drawing.h"
#include "native/text/text_layout.h"

using namespace qvui::native;

namespace {

// The format flags and the tab stop in pixels: eight average characters, or the number in bits 8 to 15, which
// are then not flags.
struct TextFormat {
    UINT flags;
    int tabStop;
};

TextFormat ReadFormat(UINT format, const TEXTMETRICA& metrics)
{
    constexpr UINT kCountBits = 0xFF00;
    constexpr int kDefaultStop = 8;
    int columns = kDefaultStop;
    if (format & DT_TABSTOP) {
        columns = static_cast<int>((format & kCountBits) >> 8);
        format &= ~kCountBits;
    }
    return {format, std::max<int>(columns * metrics.tmAveCharWidth, 1)};
}

// The position of the first line and the result of DrawTextA.
struct Placement {
    int lineHeight;
    int top;  // of the first line, relative to the rectangle's top
    int result;
};

Placement Place(int lineCount, UINT format, int rectHeight, const TEXTMETRICA& metrics)
{
    const int height = metrics.tmHeight + (format & DT_EXTERNALLEADING ? metrics.tmExternalLeading : 0);
    if (!(format & DT_SINGLELINE))
        return {height, 0, lineCount * height};
    if (format & DT_VCENTER) {
        const int top = rectHeight / 2 - height / 2;
        return {height, top, top + height};
    }
    if (format & DT_BOTTOM)
        return {height, rectHeight - height, rectHeight == 0 ? 1 : rectHeight};
    return {height, 0, height};
}

// Drawing stops after the first line whose bottom is below the rectangle. Returns 0 for no limit.
int MostLines(UINT format, int rectHeight, int lineHeight)
{
    if ((format & (DT_CALCRECT | DT_NOCLIP | DT_SINGLELINE)) || lineHeight <= 0)
        return 0;
    return std::max(rectHeight, 0) / lineHeight + 1;
}

int AlignedLeft(const RECT& rect, int width, UINT format)
{
    const int free = rect.right - rect.left - width;
    if (format & DT_CENTER)
        return rect.left + (free - (free < 0 ? 1 : 0)) / 2;  // rounded down
    return format & DT_RIGHT ? rect.right - width : rect.left;
}

void DrawLine(DeviceContext& context, FontObject& font, LineMeasure& measure, const TextLine& line, POINT at)
{
    FillTextBackground(context, at, line.width, font.Metrics().tmHeight);
    for (const LineMeasure::Part& part : measure.Parts(line.text))
        DrawLineAt(context, font, part.text, {at.x + part.left, at.y});
    if (line.underline < 0)
        return;
    const auto character = static_cast<std::size_t>(line.underline);
    const std::vector<int>& widths = measure.Widths(line.text);
    const int row = at.y + font.Metrics().tmAscent + 1;
    FillPixels(context,
               {at.x + widths[character], row, at.x + widths[NextCharacter(line.text, character)], row + 1},
               PixelOf(context.state.textColour));
}

// Implements DT_MODIFYSTRING: stores the last shortened line in the caller's buffer, which has room for four
// more bytes.
void StoreShortened(const std::vector<TextLine>& lines, LPSTR text, int length)
{
    const auto line =
        std::find_if(lines.rbegin(), lines.rend(), [](const TextLine& l) { return l.isShortened; });
    if (line == lines.rend())
        return;
    const std::string shortened = Utf8ToSystem(line->text);
    const std::size_t room = (length < 0 ? std::strlen(text) : static_cast<std::size_t>(length)) + 3;
    const std::size_t count = std::min(shortened.size(), room);
    std::memcpy(text, shortened.data(), count);
    text[count] = '\0';
}

void CalculateRect(RECT& rect, const std::vector<TextLine>& lines, int height)
{
    int widest = 0;
    for (const TextLine& line : lines)
        widest = std::max(widest, line.width);
    rect.right = rect.left + widest;
    rect.bottom = rect.top + height;
}

}  // namespace

int DrawTextA(HDC dc, LPCSTR text, int length, RECT* rect, UINT format)
{
    DeviceContext* context = LookUpContext(dc);
    // A length of 0 draws nothing; an empty zero-terminated text still has one line.
    if (!context || !rect || length < -1 || length == 0)
        return 0;
    if (!text)
        text = "";
    const std::shared_ptr<FontObject> font = FontOf(context->state);
    const TEXTMETRICA metrics = font->Metrics();
    const auto [flags, tabStop] = ReadFormat(format, metrics);
    LineMeasure measure(
        [&font](std::string_view part) -> const std::vector<int>& { return font->Widths(part); }, tabStop);
    const int height = rect->bottom - rect->top;
    const std::string utf8 = Utf8Of(text, length);
    const std::vector<TextLine> lines = LayOutText(utf8, flags, rect->right - rect->left,
                                                   MostLines(flags, height, metrics.tmHeight), measure);
    if (utf8.empty()) {
        if (flags & DT_CALCRECT)
            CalculateRect(*rect, {}, flags & DT_SINGLELINE ? metrics.tmHeight : 0);
        return metrics.tmHeight;
    }
    const Placement place = Place(static_cast<int>(lines.size()), flags, height, metrics);
    if (flags & DT_MODIFYSTRING)
        StoreShortened(lines, const_cast<LPSTR>(text), length);
    if (flags & DT_CALCRECT) {
        CalculateRect(*rect, lines, place.result);
        return place.result;
    }
    std::optional<ScopedClip> clip;
    if (!(flags & DT_NOCLIP))
        clip.emplace(*context, *rect);
    int top = rect->top + place.top;
    for (const TextLine& line : lines) {
        if (!(flags & DT_PREFIXONLY))
            DrawLine(*context, *font, measure, line,
                     context->ToSurface(AlignedLeft(*rect, line.inkWidth, flags), top));
        top += place.lineHeight;
    }
    return place.result;
}
