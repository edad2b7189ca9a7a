#pragma once

#include <qvui/foundation/color.h>

namespace DUI {

/// Operations on bitmap handles. Handles passed in stay the caller's; handles returned are new and the
/// caller's to delete. Results are FALSE or null on failure.
class QVUI_API CBitmapCommonFunction {
public:
    static int GetBitmapSize(HBITMAP bitmap, SIZE& size);
    static unsigned char GetBitmapBitCount(HBITMAP bitmap);
    /// A 32-bit copy of a part; the rectangle's right and bottom are clamped in place to the bitmap.
    static HBITMAP GetSubBitmap(HDC hdc, HBITMAP bitmap, RECT& rect);

    static int DrawBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int StretchBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int AlphaBlendWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    static int TransparentBltWithoutStretch(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    static int DrawBitmapInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int AlphaBlendInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int TransparentBltInCenter(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);
    /// Repeats the bitmap over the rectangle from the context's brush origin.
    static int FillBitmap(HDC hdc, HBITMAP bitmap, const RECT& rect);

    /// The bitmap made `length` long along one axis by repeating its two middle rows or columns.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, int length, int vertical);
    /// The bitmap at exactly this size: enlarged by its middle, cut and never shrunk.
    static HBITMAP GetMiddleStretchBitmap(HDC hdc, HBITMAP bitmap, SIZE size);
    static int MiddleStretchDraw(HDC hdc, HBITMAP bitmap, const RECT& rect);
    static int MiddleStretchAlphaBlend(HDC hdc, HBITMAP bitmap, const RECT& rect, unsigned char alpha);
    static int MiddleStretchTransparentBlt(HDC hdc, HBITMAP bitmap, const RECT& rect, const CARGB& key);

    /// The platform's UpdateLayeredWindow, looked up at run time; FALSE where the platform lacks it.
    static int UpdateLayeredWindow(HWND hwnd, HDC hdcDst, POINT* ptDst, SIZE* size, HDC hdcSrc, POINT* ptSrc,
                                   DWORD key, BLENDFUNCTION* blend, DWORD flags);
    /// All pixels whose red, green and blue do not each lie within [channel, channel + tolerance's byte];
    /// the tolerance is read like a COLORREF.
    static HRGN BitmapToRgn(HBITMAP bitmap, const CARGB& color, DWORD tolerance);
};

}  // namespace DUI
