#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <qvui/render/dib_section.h>

namespace DUI {

// Row-wise access to a section's pixels, for the image filters.

inline bool HasPixels(const CDibSection* section)
{
    return section && !section->IsNull();
}

inline bool HasColorPixels(const CDibSection& section)
{
    return section.GetBitCount() == 24 || section.GetBitCount() == 32;
}

inline int WidthOf(const CDibSection& section)
{
    return section.GetDibHeader()->biWidth;
}

inline int HeightOf(const CDibSection& section)
{
    return section.GetDibHeader()->biHeight;
}

/// Returns a row in storage order: row 0 is the bottom. Pending drawing is finished first.
inline BYTE* StoredRow(const CDibSection& section, int row)
{
    return section.GetBits() + static_cast<std::ptrdiff_t>(row) * section.GetLineWidth();
}

inline BYTE* RowFromTop(const CDibSection& section, int y)
{
    return StoredRow(section, HeightOf(section) - 1 - y);
}

inline std::uint32_t LoadPixel(const BYTE* pixel)
{
    std::uint32_t value;
    std::memcpy(&value, pixel, sizeof value);
    return value;
}

inline void StorePixel(BYTE* pixel, std::uint32_t value)
{
    std::memcpy(pixel, &value, sizeof value);
}

/// Returns the part of an image inside a rectangle, whose right and bottom are clamped in place; null means
/// the whole image. The result may be empty.
inline RECT PartOf(const CDibSection& section, RECT* rect)
{
    if (!rect)
        return {0, 0, WidthOf(section), HeightOf(section)};
    rect->right = std::min<LONG>(rect->right, WidthOf(section));
    rect->bottom = std::min<LONG>(rect->bottom, HeightOf(section));
    return {std::max<LONG>(rect->left, 0), std::max<LONG>(rect->top, 0), rect->right, rect->bottom};
}

/// Calls operation(first byte, number of pixels) for each row of a part, for sections of 24 and 32 bits.
template <class Operation>
void ForEachRow(CDibSection& section, const RECT& part, Operation operation)
{
    if (!HasColorPixels(section) || IsRectEmpty(&part))
        return;
    for (int y = part.top; y < part.bottom; ++y)
        operation(RowFromTop(section, y) + static_cast<std::ptrdiff_t>(part.left) * section.GetPixelWidth(),
                  part.right - part.left);
}

template <class Operation>
void ForEachRow(CDibSection& section, Operation operation)
{
    ForEachRow(section, {0, 0, WidthOf(section), HeightOf(section)}, operation);
}

}  // namespace DUI
