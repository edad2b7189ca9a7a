// Measures and draws single lines of text.

#include "native/gdi/fills.h"
#include "native/kernel/code_pages.h"
#include "native/text/text_drawing.h"

using namespace qvui::native;

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
    const std::vector<int>& before = font->Widths(utf8);
    *size = {before.back(), font->Metrics().tmHeight};
    if (!fit && !widths)
        return TRUE;
    // Widths are returned per byte of the system code page; all bytes of a character have its width.
    int fitting = 0;
    std::size_t position = 0;
    const char* end = text + length;
    for (const char* at = text; at < end;) {
        const int bytes = CharacterLength(at, end);
        position =
            std::min(position + SystemToUtf8({at, static_cast<std::size_t>(bytes)}).size(), utf8.size());
        for (int i = 0; i < bytes; ++i, ++at)
            if (widths)
                widths[at - text] = before[position];
        if (before[position] <= widest)
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
    std::optional<ScopedClip> clip;
    if (rect && (options & ETO_CLIPPED))
        clip.emplace(*context, *rect);
    if (!(options & ETO_OPAQUE))
        FillTextBackground(*context, at, font->Widths(utf8).back(), font->Metrics().tmHeight);
    DrawLineAt(*context, *font, utf8, at);
    return TRUE;
}
