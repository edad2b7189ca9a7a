#pragma once

#include <qvui/foundation/color.h>

namespace DUI {

/// Operations on bitmap handles. Handles passed in stay the caller's and must not be selected into a context;
/// handles returned are new and the caller's to delete. Results are FALSE or null on failure, for a null
/// bitmap above all. Rectangles are in the context's logical coordinates.
///
/// Bitmaps are drawn copied, blended by their own premultiplied alpha times a constant alpha, or without the
/// pixels of a key colour; each at its own size cut to the rectangle, scaled into it, or centred in it.
class QVUI_API CBitmapCommonFunction {
public:
    /// In pixels.
    static int GetBitmapSize(HBITMAP bitmap, SIZE& size);
    /// Bits per pixel; 0 for a null bitmap.
    static unsigned char GetBitmapBitCount(HBITMAP bitmap);
    /// A 32-bit copy of a part; the rectangle's right and bottom are clamped in place to the bitmap.
    static HBITMAP GetSubBitmap(HDC hdc, HBITMAP bitmap, RECT& rect);

    /// At its own size, cut to the rectangle.
    static int DrawBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    /// Scaled by the context's stretch mode.
    static int StretchBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int AlphaBlendWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    static int TransparentBltWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    /// As the unscaled forms, in the middle of a rectangle that is larger than the bitmap.
    static int DrawBitmapInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlendInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBltInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    /// Repeats the bitmap over the rectangle from the context's brush origin.
    static int FillBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);

    /// The bitmap made `length` pixels long along one axis by repeating its two middle rows (`vertical`) or
    /// columns; 32 bits deep.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, int length, int vertical);
    /// The bitmap at exactly this size: enlarged by its middle, cut and never shrunk.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, SIZE size);
    /// The unscaled forms, after enlarging the bitmap by its middle to a rectangle that is larger.
    static int MiddleStretchDraw(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int MiddleStretchAlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int MiddleStretchTransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);

    /// The platform's UpdateLayeredWindow, looked up at run time; FALSE where the platform lacks it.
    static int UpdateLayeredWindow(HWND hwnd, HDC hdcDst, POINT* ptDst, SIZE* size, HDC hdcSrc, POINT* ptSrc,
                                   DWORD key, BLENDFUNCTION* blend, DWORD flags);
    /// The region of all pixels whose red, green and blue do not each lie within [channel, channel +
    /// tolerance's byte]; the tolerance is read like a COLORREF.
    static HRGN BitmapToRgn(HBITMAP bitmap, const CARGB& color, DWORD tolerance);
};

}  // namespace DUI
