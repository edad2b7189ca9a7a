#include <qvui/render/bitmap_functions.h>

#include <algorithm>

#include <qvui/render/dib_section.h>

#include "foundation/rect.h"
#include "render/memory_context.h"

namespace DUI {
namespace {

using namespace wrapping;

BLENDFUNCTION PerPixel(unsigned char alpha)
{
    return {AC_SRC_OVER, 0, alpha, AC_SRC_ALPHA};
}

// Returns a rectangle of the bitmap's size, centred in `rect`, along each axis where `rect` is larger.
RECT Centred(HBITMAP bitmap, RECT rect)
{
    SIZE size{};
    CBitmapCommonFunction::GetBitmapSize(bitmap, size);
    if (Width(rect) > size.cx) {
        rect.left += (Width(rect) - size.cx) / 2;
        rect.right = rect.left + size.cx;
    }
    if (Height(rect) > size.cy) {
        rect.top += (Height(rect) - size.cy) / 2;
        rect.bottom = rect.top + size.cy;
    }
    return rect;
}

// Draws with the unscaled function, after enlarging the bitmap by its middle if the rectangle is larger.
template <class Draw>
int MiddleStretched(HDC hdc, HBITMAP bitmap, const RECT& rect, Draw draw)
{
    SIZE size{};
    if (!CBitmapCommonFunction::GetBitmapSize(bitmap, size))
        return FALSE;
    if (Width(rect) <= size.cx && Height(rect) <= size.cy)
        return draw(bitmap);
    const HBITMAP stretched =
        CBitmapCommonFunction::GetMiddleStretchBitmap(hdc, bitmap, SIZE{Width(rect), Height(rect)});
    if (!stretched)
        return FALSE;
    const int result = draw(stretched);
    DeleteObject(stretched);
    return result;
}

}  // namespace

int CBitmapCommonFunction::GetBitmapSize(HBITMAP bitmap, SIZE& size)
{
    BITMAP description{};
    if (!bitmap || !GetObjectA(bitmap, sizeof description, &description))
        return FALSE;
    size = {description.bmWidth, description.bmHeight};
    return TRUE;
}

unsigned char CBitmapCommonFunction::GetBitmapBitCount(HBITMAP bitmap)
{
    BITMAP description{};
    GetObjectA(bitmap, sizeof description, &description);
    return static_cast<unsigned char>(description.bmBitsPixel);
}

HBITMAP CBitmapCommonFunction::GetSubBitmap(HDC, HBITMAP bitmap, RECT& rect)
{
    SIZE size{};
    if (IsRectEmpty(&rect) || !GetBitmapSize(bitmap, size))
        return nullptr;
    rect.right = std::min(rect.right, size.cx);
    rect.bottom = std::min(rect.bottom, size.cy);
    CDibSection part;
    if (IsRectEmpty(&rect) ||
        !part.Create(static_cast<DWORD>(Width(rect)), static_cast<DWORD>(Height(rect)), 32))
        return nullptr;
    {
        const MemoryContext source(bitmap);
        const MemoryContext target(part.GetBitmap());
        BitBlt(target.Get(), 0, 0, Width(rect), Height(rect), source.Get(), rect.left, rect.top, SRCCOPY);
    }
    return part.Detach();
}

int CBitmapCommonFunction::DrawBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect)
{
    SIZE size{};
    if (!hdc || !GetBitmapSize(bitmap, size))
        return FALSE;
    const MemoryContext memory(bitmap);
    return BitBlt(hdc, rect.left, rect.top, std::min<int>(size.cx, Width(rect)),
                  std::min<int>(size.cy, Height(rect)), memory.Get(), 0, 0, SRCCOPY);
}

int CBitmapCommonFunction::StretchBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect)
{
    SIZE size{};
    if (!hdc || !GetBitmapSize(bitmap, size))
        return FALSE;
    const MemoryContext memory(bitmap);
    return StretchBlt(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0, size.cx,
                      size.cy, SRCCOPY);
}

int CBitmapCommonFunction::AlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return FALSE;
    const MemoryContext memory(bitmap);
    return ::AlphaBlend(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0, size.cx,
                        size.cy, PerPixel(alpha));
}

int CBitmapCommonFunction::AlphaBlendWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect,
                                                    unsigned char alpha)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return FALSE;
    const int width = std::min<int>(size.cx, Width(rect));
    const int height = std::min<int>(size.cy, Height(rect));
    const MemoryContext memory(bitmap);
    return ::AlphaBlend(hdc, rect.left, rect.top, width, height, memory.Get(), 0, 0, width, height,
                        PerPixel(alpha));
}

int CBitmapCommonFunction::TransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return FALSE;
    const MemoryContext memory(bitmap);
    return ::TransparentBlt(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0, size.cx,
                            size.cy, key.GetColor());
}

int CBitmapCommonFunction::TransparentBltWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect,
                                                        const CARGB& key)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return FALSE;
    const int width = std::min<int>(size.cx, Width(rect));
    const int height = std::min<int>(size.cy, Height(rect));
    const MemoryContext memory(bitmap);
    return ::TransparentBlt(hdc, rect.left, rect.top, width, height, memory.Get(), 0, 0, width, height,
                            key.GetColor());
}

int CBitmapCommonFunction::DrawBitmapInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect)
{
    return DrawBitmap(hdc, bitmap, Centred(bitmap, rect));
}

int CBitmapCommonFunction::AlphaBlendInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha)
{
    return AlphaBlendWithoutStretch(hdc, bitmap, Centred(bitmap, rect), alpha);
}

int CBitmapCommonFunction::TransparentBltInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key)
{
    return TransparentBltWithoutStretch(hdc, bitmap, Centred(bitmap, rect), key);
}

int CBitmapCommonFunction::FillBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect)
{
    if (!hdc || !bitmap)
        return FALSE;
    const HBRUSH brush = CreatePatternBrush(bitmap);
    const int result = FillRect(hdc, &rect, brush);
    DeleteObject(brush);
    return result;
}

HBITMAP CBitmapCommonFunction::GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, int length, int vertical)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return nullptr;
    // Handles both axes with one implementation: `along` returns a rectangle covering [from, to) on the axis.
    const int half = (vertical ? size.cy : size.cx) / 2;
    const int whole = vertical ? size.cy : size.cx;
    const int breadth = vertical ? size.cx : size.cy;
    const auto along = [&](int from, int to) {
        return vertical ? RECT{0, from, breadth, to} : RECT{from, 0, to, breadth};
    };
    RECT headRect = along(0, half - 1);
    RECT middleRect = along(half - 1, half + 1);
    RECT tailRect = along(half + 1, whole);
    const HBITMAP head = GetSubBitmap(hdc, bitmap, headRect);
    const HBITMAP middle = GetSubBitmap(hdc, bitmap, middleRect);
    const HBITMAP tail = GetSubBitmap(hdc, bitmap, tailRect);
    CDibSection result;
    const auto lengthwise = static_cast<DWORD>(std::max(length, 0));
    if (result.Create(vertical ? static_cast<DWORD>(breadth) : lengthwise,
                      vertical ? lengthwise : static_cast<DWORD>(breadth), 32)) {
        const MemoryContext memory(result.GetBitmap());
        DrawBitmap(memory.Get(), head, along(0, half - 1));
        FillBitmap(memory.Get(), middle, along(half - 1, length - half + 1));
        DrawBitmap(memory.Get(), tail, along(length - half + 1, length));
    }
    for (const HBITMAP part : {head, middle, tail})
        if (part)
            DeleteObject(part);
    return result.Detach();
}

HBITMAP CBitmapCommonFunction::GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, SIZE wanted)
{
    SIZE size{};
    if (wanted.cx == 0 || wanted.cy == 0 || !GetBitmapSize(bitmap, size))
        return nullptr;
    RECT cut{0, 0, wanted.cx, wanted.cy};
    if (wanted.cx <= size.cx && wanted.cy <= size.cy)
        return GetSubBitmap(hdc, bitmap, cut);
    HBITMAP stretched = nullptr;
    if (size.cx < wanted.cx)
        stretched = GetMiddleStretchBitmap(hdc, bitmap, wanted.cx, FALSE);
    if (wanted.cy > size.cy) {
        const HBITMAP taller = GetMiddleStretchBitmap(hdc, stretched ? stretched : bitmap, wanted.cy, TRUE);
        if (stretched)
            DeleteObject(stretched);
        stretched = taller;
    }
    if (!GetBitmapSize(stretched, size) || size.cx < wanted.cx || size.cy < wanted.cy)
        return stretched;
    const HBITMAP result = GetSubBitmap(hdc, stretched, cut);
    DeleteObject(stretched);
    return result;
}

int CBitmapCommonFunction::MiddleStretchDraw(HDC hdc, HBITMAP bitmap, const RECT& rect)
{
    return MiddleStretched(hdc, bitmap, rect, [&](HBITMAP drawn) { return DrawBitmap(hdc, drawn, rect); });
}

int CBitmapCommonFunction::MiddleStretchAlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect,
                                                   unsigned char alpha)
{
    return MiddleStretched(hdc, bitmap, rect,
                           [&](HBITMAP drawn) { return AlphaBlendWithoutStretch(hdc, drawn, rect, alpha); });
}

int CBitmapCommonFunction::MiddleStretchTransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect,
                                                       const CARGB& key)
{
    return MiddleStretched(hdc, bitmap, rect, [&](HBITMAP drawn) {
        return TransparentBltWithoutStretch(hdc, drawn, rect, key);
    });
}

int CBitmapCommonFunction::UpdateLayeredWindow(HWND hwnd, HDC hdcDst, POINT* ptDst, SIZE* size, HDC hdcSrc,
                                               POINT* ptSrc, DWORD key, BLENDFUNCTION* blend, DWORD flags)
{
    using Function = BOOL(WINAPI*)(HWND, HDC, POINT*, SIZE*, HDC, POINT*, COLORREF, BLENDFUNCTION*, DWORD);
    const HMODULE module = GetModuleHandleA("User32.dll");
    if (!module)
        return FALSE;
    const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, "UpdateLayeredWindow")));
    return function ? function(hwnd, hdcDst, ptDst, size, hdcSrc, ptSrc, key, blend, flags) : FALSE;
}

}  // namespace DUI
