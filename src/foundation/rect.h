#pragma once

#include <algorithm>
#include <limits>

#include <qvui/platform/platform.h>

// Arithmetic on rectangles and sizes. Coordinates come from skins and may be any 32-bit numbers.

/// For layout: sums are computed in 64 bits and results saturate to 32 bits.
namespace DUI::geometry {

inline LONGLONG Wide(LONG value)
{
    return value;
}

inline LONG Narrow(LONGLONG value)
{
    using Limits = std::numeric_limits<LONG>;
    const auto narrow = static_cast<LONG>(value);
    if (__builtin_expect(narrow == value, 1))
        return narrow;
    return value < 0 ? Limits::min() : Limits::max();
}

inline LONGLONG Width(const RECT& rect)
{
    return Wide(rect.right) - rect.left;
}
inline LONGLONG Height(const RECT& rect)
{
    return Wide(rect.bottom) - rect.top;
}

inline RECT MakeRect(LONGLONG left, LONGLONG top, LONGLONG right, LONGLONG bottom)
{
    return {Narrow(left), Narrow(top), Narrow(right), Narrow(bottom)};
}

/// The rectangle deflated by a margin on each side; inverted where the margins are too large.
inline RECT Shrink(const RECT& rect, const RECT& margin)
{
    return MakeRect(Wide(rect.left) + margin.left, Wide(rect.top) + margin.top,
                    Wide(rect.right) - margin.right, Wide(rect.bottom) - margin.bottom);
}

/// The intersection; all zero if it is empty.
inline RECT Intersection(const RECT& left, const RECT& right)
{
    RECT result{0, 0, 0, 0};
    IntersectRect(&result, &left, &right);
    return result;
}

/// The start of `length` pixels in the middle of the span from `start` to `end`; `start` when they do not
/// fit.
inline LONGLONG Centred(LONG start, LONG end, LONGLONG length)
{
    const LONGLONG free = Wide(end) - start - length;
    return free > 0 ? start + free / 2 : start;
}

}  // namespace DUI::geometry

/// For drawing: sums wrap around, as the platform's do.
namespace DUI::wrapping {

inline int Sum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

inline int Difference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

/// Negative for inverted rectangles.
inline int Width(const RECT& rect)
{
    return Difference(rect.right, rect.left);
}

inline int Height(const RECT& rect)
{
    return Difference(rect.bottom, rect.top);
}

/// The rectangle with each side moved inwards by the widths.
inline RECT Deflated(const RECT& rect, const RECT& widths)
{
    return {Sum(rect.left, widths.left), Sum(rect.top, widths.top), Difference(rect.right, widths.right),
            Difference(rect.bottom, widths.bottom)};
}

}  // namespace DUI::wrapping
