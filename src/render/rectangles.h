#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

// Coordinates come from skins and may be anything; sums wrap around, as the platform's do.

inline int WrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

inline int WrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

/// Negative for inverted rectangles.
inline int Width(const RECT& rect)
{
    return WrappingDifference(rect.right, rect.left);
}

inline int Height(const RECT& rect)
{
    return WrappingDifference(rect.bottom, rect.top);
}

/// The rectangle with each side moved inwards by the widths.
inline RECT Deflated(const RECT& rect, const RECT& widths)
{
    return {WrappingSum(rect.left, widths.left), WrappingSum(rect.top, widths.top),
            WrappingDifference(rect.right, widths.right), WrappingDifference(rect.bottom, widths.bottom)};
}

}  // namespace DUI
