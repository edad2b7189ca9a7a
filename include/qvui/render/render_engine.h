#pragma once

#include <qvui/foundation/color.h>

namespace DUI {

/// Drawing operations on a device context. Fills and gradients share one rule for alpha: 0 and 255 paint
/// opaque, only 1 to 254 blend; borders with rounded corners and lines ignore alpha. Every operation leaves
/// pen, brush and font as it found them; no operation reports an error. Rectangles, points and widths are in
/// pixels, in the context's logical coordinates; empty rectangles paint nothing.
class QVUI_API CDUIRenderEngine {
public:
    CDUIRenderEngine() = default;
    CDUIRenderEngine& operator=(const CDUIRenderEngine&) { return *this; }

    /// An opaque fill leaves its colour as the context's background colour.
    static void FillRect(HDC hdc, const RECT& rect, const CARGB& color);
    /// A border band inside `rect`; `widths` are the four thicknesses. Bands that would meet fill the
    /// rectangle.
    static void DrawRectangleBorder(HDC hdc, const RECT& rect, const RECT& widths, const CARGB& color);
    /// An outline inside `rect`, without its last row and column, whose corners are quarters of an ellipse.
    static void DrawRoundRectBorder(HDC hdc, const RECT& rect, int ellipseWidth, int ellipseHeight,
                                    int penWidth, const CARGB& color);
    /// From left to right, or from top to bottom when `vertical` is nonzero. Blends by the mean of both
    /// alphas.
    static void DrawGradien(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to, int vertical);
    /// The extent of the text on one line, whatever the format says.
    static SIZE GetTextIdealSize(const CString& text, HFONT font, int width, UINT format);
    /// The platform's own.
    static int DrawTextA(HDC hdc, const char* text, int length, RECT* rect, UINT format);
    /// Each double-byte character (each non-ASCII one, in UTF-8) and each run of ASCII on a line of its own,
    /// the block centred vertically. `length` is not used: the text ends at its zero. Returns the height
    /// drawn, which may exceed the rectangle; 0 without a rectangle or a text.
    static int DrawVText(HDC hdc, const char* text, int length, RECT* rect, UINT format);
    /// The end point is left out; width 0 draws nothing.
    static void DrawLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color);
    static void DrawDashLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color);

private:
    static void GradientFill(HDC hdc, const RECT& rect, DWORD from, DWORD to, int vertical);
    static void BlendGradient(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to, BYTE alpha,
                              int vertical);
};

/// Narrows a context's clipping to a rectangle (device coordinates) for its scope; afterwards the clipping is
/// the old clip box. Not copyable: a copy would restore the clipping and delete both regions a second time.
class QVUI_API CDUIRenderClip {
public:
    CDUIRenderClip(HDC hdc, const RECT& rect);
    CDUIRenderClip(const CDUIRenderClip&) = delete;
    CDUIRenderClip& operator=(const CDUIRenderClip&) = delete;
    ~CDUIRenderClip();

private:
    HDC m_hDC;
    HRGN m_hClip;
    HRGN m_hSaved;
};

}  // namespace DUI
