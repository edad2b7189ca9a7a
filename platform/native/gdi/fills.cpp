#include "native/gdi/fills.h"

#include <algorithm>
#include <array>

namespace qvui::native {
namespace {

int Modulo(int value, int divisor)
{
    const int rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

// The pattern is aligned to the brush origin in device coordinates; the viewport origin does not move it.
void FillWithPattern(DeviceContext& context, const RECT& part, const Surface& pattern)
{
    const int originX =
        Saturated(static_cast<std::int64_t>(context.state.brushOrigin.x) + context.Origin().x);
    const int originY =
        Saturated(static_cast<std::int64_t>(context.state.brushOrigin.y) + context.Origin().y);
    for (int y = part.top; y < part.bottom; ++y) {
        const std::uint32_t* row = pattern.Row32(Modulo(y - originY, pattern.height));
        int start = Modulo(part.left - originX, pattern.width);
        for (int x = part.left; x < part.right; start = 0) {
            const int count = std::min(pattern.width - start, static_cast<int>(part.right) - x);
            context.Target().Store(x, y, count, row + start);
            x += count;
        }
    }
}

}  // namespace

void FillPart(const Surface& surface, const RECT& part, std::uint32_t pixel)
{
    if (surface.bitsPerPixel != 32) {
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                surface.Set(x, y, pixel);
        return;
    }
    const auto count = static_cast<std::size_t>(part.right - part.left);
    const std::ptrdiff_t stride = surface.stride;
    std::uint8_t* row = surface.Row(part.top) + part.left * sizeof pixel;
    for (int y = part.top; y < part.bottom; ++y, row += stride)
        Repeat(pixel, count, reinterpret_cast<std::uint32_t*>(row));
}

void FillPixels(DeviceContext& context, const RECT& rect, std::uint32_t pixel)
{
    ForEachDrawable(context, rect, [&](const RECT& part) { FillPart(context.Target(), part, pixel); });
}

void FillOpaqueRectangle(DeviceContext& context, RECT rect)
{
    FillPixels(context, context.ToSurface(Normalised(rect)), PixelOf(context.state.backColour));
}

void FillRectangle(DeviceContext& context, const RECT& rect, const BrushObject& brush)
{
    if (brush.isNull)
        return;
    if (brush.pattern)
        ForEachDrawable(context, rect,
                        [&](const RECT& part) { FillWithPattern(context, part, *brush.pattern); });
    else
        FillPixels(context, rect, PixelOf(brush.colour));
}

void FillRegion(DeviceContext& context, const Region& region, const BrushObject& brush)
{
    for (const pixman_box32_t& box : region.Boxes())
        FillRectangle(context, {box.x1, box.y1, box.x2, box.y2}, brush);
}

}  // namespace qvui::native
