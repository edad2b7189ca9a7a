#pragma once

#include <qvui/foundation/color.h>

namespace DUI {

/// Drawing operations on a device context. Fills and gradients treat alpha alike: 0 and 255 paint opaque, 1
/// to 254 blend. Borders with rounded corners and lines ignore alpha. Every operation restores the pen, brush
/// and font; none reports errors. Rectangles, points and widths are in pixels, in the context's logical
/// coordinates; empty rectangles paint nothing.
class QVUI_API CDUIRenderEngine {
public:
    CDUIRenderEngine() = default;
    CDUIRenderEngine& operator=(const CDUIRenderEngine&) { return *this; }

    /// An opaque fill sets the context's background colour to `color`.
    static void FillRect(HDC hdc, const RECT& rect, const CARGB& color);
    /// Draws a border inside `rect`; `widths` are the widths of its four sides. If opposite sides would meet,
    /// the whole rectangle is filled.
    static void DrawRectangleBorder(HDC hdc, const RECT& rect, const RECT& widths, const CARGB& color);
    /// Draws an outline with elliptical corners inside `rect`, which excludes its last row and column.
    static void DrawRoundRectBorder(HDC hdc, const RECT& rect, int ellipseWidth, int ellipseHeight,
                                    int penWidth, const CARGB& color);
    /// Draws a gradient from left to right, or from top to bottom if `vertical` is nonzero. Blends by the
    /// mean of both alphas.
    static void DrawGradien(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to, int vertical);
    /// Returns the extent of the text on a single line, whatever the format.
    static SIZE GetTextIdealSize(const CString& text, HFONT font, int width, UINT format);
    /// Calls the platform's function.
    static int DrawTextA(HDC hdc, const char* text, int length, RECT* rect, UINT format);
    /// Draws each double-byte character (in UTF-8, each non-ASCII character) and each run of ASCII on a
    /// separate line, with the block centred vertically. `length` is ignored; the text must be
    /// zero-terminated. Returns the height drawn, which may exceed the rectangle, or 0 without a rectangle or
    /// a text.
    static int DrawVText(HDC hdc, const char* text, int length, RECT* rect, UINT format);
    /// Excludes the end point. Width 0 draws nothing.
    static void DrawLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color);
    static void DrawDashLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color);

private:
    static void GradientFill(HDC hdc, const RECT& rect, DWORD from, DWORD to, int vertical);
    static void BlendGradient(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to, BYTE alpha,
                              int vertical);
};

/// Intersects a context's clip region with a rectangle (device coordinates) for its scope. Afterwards the
/// clip region is the previous clip box. Not copyable: a copy would restore the clipping and delete both
/// regions a second time.
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
