#pragma once

#include <qvui/tooltip/tool_tip.h>

namespace DUI {

/// Paints backgrounds that run through up to three colours, and the shades and borders that go with them.
class QVUI_API CPPDrawManager {
public:
    CPPDrawManager() = delete;

    /// Fills a rectangle (device coordinates). `effect` is a TOOLTIP_EFFECT; any other number is solid.
    static void FillEffect(HDC hdc, const RECT& rect, int effect, COLORREF crBegin, COLORREF crMid,
                           COLORREF crEnd);
    /// A tooltip's ground: the same with a one-pixel border in a darker shade of the last colour.
    static void FillTooltip(HDC hdc, const RECT& rect, int corner, int effect, COLORREF crBegin,
                            COLORREF crMid, COLORREF crEnd);
    /// A one-pixel border inside the rectangle; `corner` is the diameter of its corners' curves, 0 for square
    /// ones.
    static void DrawBorder(HDC hdc, const RECT& rect, int corner, COLORREF color);

    /// The colour `percent` of the way from the first to the second, 0 to 100; other numbers count as the
    /// nearer of these.
    static COLORREF Mix(COLORREF first, COLORREF second, int percent);
    /// A colour `percent` of the way to black (-100 to -1) or to white (1 to 100).
    static COLORREF Shade(COLORREF color, int percent);
};

}  // namespace DUI
