#pragma once

#include <qvui/foundation/color.h>

namespace DUI {

/// Operations on bitmap handles. Bitmaps passed in are not owned and must not be selected into a context;
/// returned handles are new, and the caller deletes them. Functions return FALSE or null on failure, in
/// particular for a null bitmap. Rectangles are in the context's logical coordinates.
///
/// Bitmaps are copied, blended by their own premultiplied alpha times a constant alpha, or drawn without the
/// pixels of a key colour. Each of these exists at the bitmap's own size clipped to the rectangle, scaled to
/// the rectangle, and centred in it.
/// pixels of a key colour; each at its own size cut to the rectangle, scaled into it, or centred in it.
class QVUI_API CBitmapCommonFunction {
public:
    /// Gets the size in pixels.
    static int GetBitmapSize(HBITMAP bitmap, SIZE& size);
    /// Returns the bits per pixel, or 0 for a null bitmap.
    static unsigned char GetBitmapBitCount(HBITMAP bitmap);
    /// Returns a 32-bit copy of a part. The rectangle's right and bottom are clamped to the bitmap in place.
    static HBITMAP GetSubBitmap(HDC hdc, HBITMAP bitmap, RECT& rect);

    /// Draws at the bitmap's own size, clipped to the rectangle.
    static int DrawBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    /// Scales by the context's stretch mode.
    static int StretchBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int AlphaBlendWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    static int TransparentBltWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    /// Like the unscaled functions, but centred if the rectangle is larger than the bitmap.
    static int DrawBitmapInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlendInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBltInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    /// Repeats the bitmap over the rectangle, aligned to the context's brush origin.
    static int FillBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);

    /// Returns a 32-bit bitmap `length` pixels long along one axis, extended by repeating the two middle rows
    /// (`vertical`) or columns.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, int length, int vertical);
    /// Returns the bitmap at exactly this size: enlarged by repeating its middle, or cut; never scaled down.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, SIZE size);
    /// Like the unscaled functions, after enlarging the bitmap by its middle if the rectangle is larger.
    static int MiddleStretchDraw(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int MiddleStretchAlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int MiddleStretchTransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);

    /// Calls the platform's UpdateLayeredWindow, looked up at run time. Returns FALSE if the platform lacks
    /// it.
    static int UpdateLayeredWindow(HWND hwnd, HDC hdcDst, POINT* ptDst, SIZE* size, HDC hdcSrc, POINT* ptSrc,
                                   DWORD key, BLENDFUNCTION* blend, DWORD flags);
    /// Returns the region of all pixels except those whose red, green and blue each lie within [channel,
    /// channel + the tolerance of that channel]. The tolerance has the format of a COLORREF.
    static HRGN BitmapToRgn(HBITMAP bitmap, const CARGB& color, DWORD tolerance);
};

}  // namespace DUI
