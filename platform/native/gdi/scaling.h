#pragma once

#include <vector>

#include "native/gdi/device_context.h"

namespace qvui::native {

/// One axis of a scaled copy: where each destination pixel takes its source pixel from.
///
/// Enlarging takes the pixel under the centre, ties to the lower; shrinking takes the last column or the
/// first row of the group of source pixels that falls on one destination pixel.
struct AxisMap {
    int destination;  // first destination pixel
    int length;       // destination pixels, positive
    int source;       // first source pixel
    int sourceLength;
    bool mirrored;
    bool isRow;

    /// The source pixel of a destination pixel.
    int Sample(int position) const;
    /// The group of source pixels [first, last) of a destination pixel.
    std::pair<int, int> Group(int position) const;
};

/// The axis of a copy from (source, sourceLength) to (destination, length); negative lengths mirror.
AxisMap MapAxis(int destination, int length, int source, int sourceLength, bool isRow);

/// How several source pixels that fall on one destination pixel are joined.
enum class Sampling { Point, And, Or, Bilinear };

/// Scales the source into `pixels`, row after row, for the destination rectangle `part` (surface
/// coordinates). Source pixels outside the source surface read as 0.
void ScalePixels(const Surface& source, const AxisMap& columns, const AxisMap& rows, const RECT& part,
                 Sampling sampling, std::vector<std::uint32_t>& pixels);

}  // namespace qvui::native
