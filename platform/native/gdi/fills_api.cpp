// Fills, inversions and single pixels.

#include "native/gdi/fills.h"

using namespace qvui::native;

namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

template <class Change>
void ChangePixels(DeviceContext& context, const RECT& rect, Change change)
{
    ForEachDrawable(context, rect, [&](const RECT& part) {
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                context.Target().Set(x, y, change(context.Target().Get(x, y), x, y));
    });
}

}  // namespace

int FillRect(HDC dc, const RECT* rect, HBRUSH brush)
{
    DeviceContext* context = LookUpContext(dc);
    const auto* const fill = PeekGdiObject<BrushObject>(brush);
    if (!context || !fill || !rect)
        return 0;
    FillRectangle(*context, context->ToSurface(*rect), *fill);
    return 1;
}

int FrameRect(HDC dc, const RECT* rect, HBRUSH brush)
{
    if (IsEmptyRect(*rect))
        return 0;
    const RECT r = *rect;
    const RECT edges[] = {{r.left, r.top, r.right, r.top + 1},
                          {r.left, r.bottom - 1, r.right, r.bottom},
                          {r.left, r.top, r.left + 1, r.bottom},
                          {r.right - 1, r.top, r.right, r.bottom}};
    for (const RECT& edge : edges)
        if (!FillRect(dc, &edge, brush))
            return 0;
    return 1;
}

BOOL InvertRect(HDC dc, const RECT* rect)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    ChangePixels(*context, context->ToSurface(*rect), [](std::uint32_t pixel, int, int) { return ~pixel; });
    return TRUE;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT r = context->ToSurface(Normalised(*rect));
    if (IsEmptyRect(r))
        return TRUE;
    const auto dotted = [&r](std::uint32_t pixel, int x, int y) {
        return ((x - (r.right - 1)) + (y - r.top)) % 2 == 0 ? pixel ^ kColourBits : pixel;
    };
    ChangePixels(*context, {r.left, r.top, r.right, r.top + 1}, dotted);
    if (r.bottom - r.top > 1)
        ChangePixels(*context, {r.left, r.bottom - 1, r.right, r.bottom}, dotted);
    ChangePixels(*context, {r.left, r.top + 1, r.left + 1, r.bottom - 1}, dotted);
    if (r.right - r.left > 1)
        ChangePixels(*context, {r.right - 1, r.top + 1, r.right, r.bottom - 1}, dotted);
    return TRUE;
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT rect = Normalised(context->ToSurface(x, y, width, height));
    const std::uint32_t brush = PixelOf(context->state.brushObject->colour);
    switch (operation) {
        case PATCOPY:
            FillRectangle(*context, rect, *context->state.brushObject);
            return TRUE;
        case BLACKNESS:
            FillPixels(*context, rect, 0);
            return TRUE;
        case WHITENESS:
            FillPixels(*context, rect, 0xFFFFFFFF);
            return TRUE;
        case DSTINVERT:
            ChangePixels(*context, rect, [](std::uint32_t pixel, int, int) { return ~pixel; });
            return TRUE;
        case PATINVERT:
            ChangePixels(*context, rect, [brush](std::uint32_t pixel, int, int) { return pixel ^ brush; });
            return TRUE;
        default:
            return FALSE;
    }
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return CLR_INVALID;
    const POINT at = context->ToSurface(x, y);
    if (!context->Drawable().Contains(at.x, at.y))
        return CLR_INVALID;
    context->Target().Set(at.x, at.y, PixelOf(colour));
    return colour;
}

COLORREF GetPixel(HDC dc, int x, int y)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return CLR_INVALID;
    const POINT at = context->ToSurface(x, y);
    return context->Drawable().Contains(at.x, at.y) ? ColourOf(context->Target().Get(at.x, at.y))
                                                    : CLR_INVALID;
}
