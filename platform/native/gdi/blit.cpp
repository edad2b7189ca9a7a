// Copies between surfaces: unscaled, scaled and colour-keyed.

#include "native/gdi/blit.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace qvui::native {
namespace {

constexpr std::ptrdiff_t kPixelBytes = 4;  // of 32-bit surfaces

std::uint32_t Combine(DWORD operation, std::uint32_t source, std::uint32_t destination)
{
    switch (operation) {
        case SRCPAINT:
            return source | destination;
        case SRCAND:
            return source & destination;
        case SRCINVERT:
            return source ^ destination;
        case NOTSRCCOPY:
            return ~source;
        default:
            return source;
    }
}

void MoveRows(std::uint8_t* to, std::ptrdiff_t toStep, const std::uint8_t* from, std::ptrdiff_t fromStep,
              int rows, std::size_t bytes)
{
    for (int i = 0; i < rows; ++i, to += toStep, from += fromStep)
        std::memmove(to, from, bytes);
}

// Copies rows in the order that preserves the source when source and target overlap.
void MovePixels(const Blit& blit)
{
    const Surface& target = blit.target->Target();
    const Surface& source = *blit.source;
    const POINT shift = blit.Shift();
    const bool isUpwards = target.top == source.top && shift.y < 0;
    const int step = isUpwards ? -1 : 1;
    ForEachDrawable(*blit.target, blit.Destination(), [&](const RECT& part) {
        const int first = isUpwards ? part.bottom - 1 : part.top;
        MoveRows(target.Row(first) + part.left * kPixelBytes, step * target.stride,
                 source.Row(first + shift.y) + (part.left + shift.x) * kPixelBytes, step * source.stride,
                 part.bottom - part.top, static_cast<std::size_t>(part.right - part.left) * kPixelBytes);
    });
}

// Scales directly into the target's rows, which have 32 bits per pixel.
void ScaleIntoTarget(const Blit& blit, Sampling sampling)
{
    const Surface& target = blit.target->Target();
    ForEachDrawable(*blit.target, blit.Destination(), [&](const RECT& part) {
        const Scaler scaler(*blit.source, blit.columns, blit.rows, sampling, part);
        scaler.Scale(part, target.Row32(part.top) + part.left, target.stride / kPixelBytes);
    });
}

Sampling SamplingOf(const Blit& blit)
{
    switch (blit.IsUnscaled() ? COLORONCOLOR : blit.target->state.stretchMode) {
        case BLACKONWHITE:
            return blit.Shrinks() ? Sampling::And : Sampling::Point;
        case WHITEONBLACK:
            return blit.Shrinks() ? Sampling::Or : Sampling::Point;
        case HALFTONE:
            return Sampling::Bilinear;
        default:
            return Sampling::Point;
    }
}

// Returns null if there is not enough memory.
std::shared_ptr<Surface> CopyOf(const Surface& surface)
{
    auto copy = Surface::Create(surface.width, surface.height, 32, false);
    for (int y = 0; copy && y < surface.height; ++y)
        surface.Load(0, y, surface.width, copy->Row32(y));
    return copy;
}

Blit FromSource(Blit blit, const Surface& source)
{
    blit.source = &source;
    return blit;
}

}  // namespace

Surface& ScalingTile(int width)
{
    constexpr unsigned kNarrowest = 64;
    constexpr unsigned kPixels = 8192;
    static thread_local std::shared_ptr<Surface> tiles[std::bit_width(kWidestTile / kNarrowest)];
    const unsigned rounded = std::bit_ceil(std::clamp<unsigned>(width, kNarrowest, kWidestTile));
    std::shared_ptr<Surface>& tile = tiles[std::bit_width(rounded / kNarrowest) - 1];
    if (!tile)
        tile = Surface::Create(static_cast<int>(rounded), static_cast<int>(kPixels / rounded), 32, false);
    return *tile;
}

Blit PrepareBlit(DeviceContext& target, const RECT& to, const Surface& source, const RECT& from)
{
    Blit blit;
    blit.target = &target;
    blit.source = &source;
    blit.columns = MapAxis(to.left, to.right - to.left, from.left, from.right - from.left, false);
    blit.rows = MapAxis(to.top, to.bottom - to.top, from.top, from.bottom - from.top, true);
    return blit;
}

std::optional<Blit> PrepareBlit(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                int sourceY, int sourceWidth, int sourceHeight)
{
    DeviceContext* target = LookUpContext(dc);
    DeviceContext* from = LookUpContext(source);
    if (!target || !from)
        return std::nullopt;
    return PrepareBlit(*target, target->ToSurface(x, y, width, height), from->Target(),
                       from->ToSurface(sourceX, sourceY, sourceWidth, sourceHeight));
}

void DrawBlit(const Blit& blit, DWORD operation)
{
    if (blit.IsEmpty())
        return;
    const Surface& target = blit.target->Target();
    const bool isCopy = operation == SRCCOPY && target.bitsPerPixel == 32;
    if (isCopy && blit.source->bitsPerPixel == 32 && blit.IsUnscaled() && blit.IsInsideSource()) {
        MovePixels(blit);
        return;
    }
    if (target.top == blit.source->top) {
        if (const std::shared_ptr<Surface> copy = CopyOf(*blit.source))
            DrawBlit(FromSource(blit, *copy), operation);
        return;
    }
    if (isCopy)
        ScaleIntoTarget(blit, SamplingOf(blit));
    else
        JoinScaled(blit, SamplingOf(blit), [operation](std::uint32_t source, std::uint32_t destination) {
            return Combine(operation, source, destination);
        });
}

}  // namespace qvui::native
