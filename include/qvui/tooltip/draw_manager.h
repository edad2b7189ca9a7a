#pragma once

#include <qvui/tooltip/tool_tip.h>

namespace DUI {

/// Paints backgrounds with up to three colours, and their shades and borders.
class QVUI_API CPPDrawManager {
public:
    CPPDrawManager() = delete;

    /// Fills a rectangle (device coordinates). `effect` is a TOOLTIP_EFFECT; any other value fills solidly.
    static void FillEffect(HDC hdc, const RECT& rect, int effect, COLORREF crBegin, COLORREF crMid,
                           COLORREF crEnd);
    /// Fills a tooltip's background: as FillEffect, with a one-pixel border in a darker shade of the last
    /// colour.
    static void FillTooltip(HDC hdc, const RECT& rect, int corner, int effect, COLORREF crBegin,
                            COLORREF crMid, COLORREF crEnd);
    /// Draws a one-pixel border inside the rectangle. `corner` is the diameter of its rounded corners, 0 for
    /// square ones.
    static void DrawBorder(HDC hdc, const RECT& rect, int corner, COLORREF color);

    /// Returns the colour `percent` of the way from the first to the second; `percent` is clamped to 0..100.
    static COLORREF Mix(COLORREF first, COLORREF second, int percent);
    /// Returns a colour `percent` of the way to black (-100 to -1) or to white (1 to 100).
    static COLORREF Shade(COLORREF color, int percent);
};

}  // namespace DUI
