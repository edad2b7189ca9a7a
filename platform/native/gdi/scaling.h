#pragma once

#include <cstdlib>
#include <vector>

#include "native/gdi/device_context.h"

namespace qvui::native {

/// One axis of a scaled copy: maps each destination pixel to a source pixel.
///
/// Enlarging takes the source pixel under the centre of the destination pixel (ties go to the lower one).
/// Shrinking takes the last column, or the first row, of the group of source pixels that falls on the
/// destination pixel.
/// first row of the group of source pixels that falls on one destination pixel.
struct AxisMap {
    int destination;  // first destination pixel
    int length;       // destination pixels
    int source;       // first source pixel
    int sourceLength;
    bool mirrored;
    bool isRow;

    bool IsEmpty() const { return length == 0 || sourceLength == 0; }
    /// Whether each source pixel maps to exactly one destination pixel, in order.
    bool IsUnscaled() const { return length == sourceLength && !mirrored; }
    bool Shrinks() const { return length < sourceLength; }
    /// Writes the source pixels of the destination pixels [first, last) to `samples`.
    void Samples(int first, int last, std::vector<int>& samples) const;
};

/// Maps (source, sourceLength) to (destination, length); negative lengths mirror.
inline AxisMap MapAxis(int destination, int length, int source, int sourceLength, bool isRow)
{
    return {length < 0 ? destination + length + 1 : destination,
            std::abs(length),
            sourceLength < 0 ? source + sourceLength + 1 : source,
            std::abs(sourceLength),
            (length < 0) != (sourceLength < 0),
            isRow};
}

/// How the source pixels that fall on one destination pixel are combined.
enum class Sampling { Point, And, Or, Bilinear };

/// Scales a source for a part of a destination (a non-empty rectangle in surface coordinates). Source pixels
/// outside the surface read as 0. Only one scaler may exist at a time, because its tables are shared.
class Scaler {
public:
    Scaler(const Surface& source, const AxisMap& columns, const AxisMap& rows, Sampling sampling,
           const RECT& part);

    /// For point sampling: rows with the same number have the same pixels.
    int SourceRow(int y) const { return m_tables.rows[static_cast<std::size_t>(y - m_part.top)]; }
    /// Whether all pixels of a row come from one source pixel, and that pixel.
    bool IsOneColumn() const { return m_tables.columns.front() == m_tables.columns.back(); }
    std::uint32_t FirstOfRow(int y) const { return At(m_tables.columns.front(), SourceRow(y)); }

    /// Writes the pixels of `area`, a rectangle inside the part, to rows that are `stride` pixels apart.
    void Scale(const RECT& area, std::uint32_t* out, std::ptrdiff_t stride) const;

private:
    /// The source pixels of a destination pixel that has several: those of [first, second) combined, or two,
    /// of which the second has the weight `weight` / 256.
    struct Span {
        int first;
        int second;
        int weight;
    };
    struct Tables {
        std::vector<int> columns;
        std::vector<int> rows;
        std::vector<Span> spans;
    };
    static Tables& SharedTables();
    static Span GroupOf(const AxisMap& axis, int position);
    static Span NeighboursOf(const AxisMap& axis, int position);

    void ScalePoints(const RECT& area, std::uint32_t* out, std::ptrdiff_t stride) const;
    void CopySamples(const int* columns, std::size_t count, int row, std::uint32_t* out) const;
    std::uint32_t JoinGroup(const Span& columns, const Span& rows) const;
    std::uint32_t Interpolate(const Span& columns, const Span& rows) const;
    std::uint32_t At(int x, int y) const
    {
        return x < 0 || y < 0 || x >= m_source.width || y >= m_source.height ? 0 : m_source.Get(x, y);
    }

    const Surface& m_source;
    const AxisMap& m_rows;
    Sampling m_sampling;
    RECT m_part;
    Tables& m_tables;
    bool m_isInside = false;  // the columns are inside a 32-bit source
    bool m_isShifted;         // whether the columns are consecutive
};

}  // namespace qvui::native
