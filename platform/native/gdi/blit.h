#pragma once

#include <optional>

#include "native/gdi/scaling.h"

namespace qvui::native {

/// A copy from a rectangle of one surface to a rectangle of another.
struct Blit {
    DeviceContext* target;
    const Surface* source;
    AxisMap columns;
    AxisMap rows;

    /// The rectangles in coordinates of the target and source surfaces, normalised.
    RECT Destination() const
    {
        return {columns.destination, rows.destination, columns.destination + columns.length,
                rows.destination + rows.length};
    }
    RECT Origin() const
    {
        return {columns.source, rows.source, columns.source + columns.sourceLength,
                rows.source + rows.sourceLength};
    }
    bool IsEmpty() const { return columns.IsEmpty() || rows.IsEmpty(); }
    /// Whether each source pixel maps to exactly one target pixel, in order.
    bool IsUnscaled() const { return columns.IsUnscaled() && rows.IsUnscaled(); }
    bool Shrinks() const { return columns.Shrinks() || rows.Shrinks(); }
    bool IsInsideSource() const { return source->Contains(Origin()); }
    /// The offset from a target pixel to its source pixel, for an unscaled copy.
    POINT Shift() const { return {columns.source - columns.destination, rows.source - rows.destination}; }
};

/// Prepares a copy between rectangles in surface coordinates; negative extents mirror.
Blit PrepareBlit(DeviceContext& target, const RECT& to, const Surface& source, const RECT& from);

/// The same between two contexts, in their logical coordinates. Returns nothing if either handle is invalid.
std::optional<Blit> PrepareBlit(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                int sourceY, int sourceWidth, int sourceHeight);

/// Copies with a raster operation, scaling by the target's stretch mode. Overlapping source and target are
/// handled as if the source were copied first.
void DrawBlit(const Blit& blit, DWORD operation);

/// Returns a surface of 32-bit pixels, reused by all scaled copies: as wide as `width` where possible, and
/// small enough to stay in the processor's cache until it is drawn.
constexpr int kWidestTile = 2048;
Surface& ScalingTile(int width);

/// Scales the source in tiles and calls `write(area, tile)` for each: a drawable rectangle of the target, and
/// the surface that holds its pixels in the upper left corner.
template <class Write>
void ForEachTile(const Blit& blit, Sampling sampling, Write write)
{
    ForEachDrawable(*blit.target, blit.Destination(), [&](const RECT& part) {
        Surface& tile = ScalingTile(part.right - part.left);
        const Scaler scaler(*blit.source, blit.columns, blit.rows, sampling, part);
        for (int top = part.top; top < part.bottom; top += tile.height)
            for (int left = part.left; left < part.right; left += tile.width) {
                const RECT area = Intersection({left, top, left + tile.width, top + tile.height}, part);
                scaler.Scale(area, tile.Row32(0), tile.width);
                write(area, tile);
            }
    });
}

/// Scales, and sets every target pixel to `join(source pixel, target pixel)`.
template <class Join>
void JoinScaled(const Blit& blit, Sampling sampling, Join join)
{
    const Surface& target = blit.target->Target();
    ForEachTile(blit, sampling, [&](const RECT& area, const Surface& tile) {
        const int width = area.right - area.left;
        std::uint32_t row[kWidestTile];
        for (int y = area.top; y < area.bottom; ++y) {
            const std::uint32_t* const pixels = tile.Row32(y - area.top);
            target.Load(area.left, y, width, row);
            for (int i = 0; i < width; ++i)
                row[i] = join(pixels[i], row[i]);
            target.Store(area.left, y, width, row);
        }
    });
}

}  // namespace qvui::native
