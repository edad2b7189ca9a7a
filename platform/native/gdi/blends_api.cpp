// AlphaBlend: blends premultiplied pixels, or plain pixels with a constant alpha.

#include <algorithm>
#include <memory>

#include "native/gdi/blit.h"
#include "native/gdi/over.h"

using namespace qvui::native;

namespace {

struct UnrefImage {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, UnrefImage>;

Image MaskOf(BYTE alpha)
{
    if (alpha == 255)
        return nullptr;
    const auto wide = static_cast<std::uint16_t>(alpha * 0x101);
    const pixman_color_t colour{0, 0, 0, wide};
    return Image(pixman_image_create_solid_fill(&colour));
}

bool IsBrighterThanItsAlpha(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    return (pixel & 0xFF) > alpha || (pixel >> 8 & 0xFF) > alpha || (pixel >> 16 & 0xFF) > alpha;
}

// "Over" for a source pixel whose colour exceeds its alpha: a channel sum above 255 carries into the next
// channel.
std::uint32_t OverSpilling(std::uint32_t source, std::uint32_t destination, std::uint32_t constantAlpha)
{
    const auto share = [](std::uint32_t value, std::uint32_t weight) { return (value * weight + 127) / 255; };
    const std::uint32_t rest = 255 - share(source >> 24, constantAlpha);
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= (share(source >> shift & 0xFF, constantAlpha) + share(destination >> shift & 0xFF, rest))
                  << shift;
    return result;
}

// Whether one pixel whose colour exceeds its alpha is stretched over a rectangle. Pictures are premultiplied
// when they are loaded, so only a fill colour can exceed its alpha.
bool IsSpillingFill(const Blit& blit)
{
    const RECT from = blit.Origin();
    return from.right - from.left == 1 && from.bottom - from.top == 1 &&
           IsBrighterThanItsAlpha(blit.source->Row32(from.top)[from.left]);
}

// Premultiplied "over" with a constant alpha. pixman rounds exactly as the platform does.
void BlendPremultiplied(const Blit& blit, BYTE alpha)
{
    const Image mask = MaskOf(alpha);
    pixman_image_t* const target = blit.target->Target().Image();
    const auto over = [&](const Surface& source, int x, int y, const RECT& part) {
        pixman_image_composite32(PIXMAN_OP_OVER, source.Image(), mask.get(), target, x, y, 0, 0, part.left,
                                 part.top, part.right - part.left, part.bottom - part.top);
    };
    if (blit.IsUnscaled()) {
        const auto [dx, dy] = blit.Shift();
        ForEachDrawable(*blit.target, blit.Destination(), [&, dx = dx, dy = dy](const RECT& part) {
            over(*blit.source, part.left + dx, part.top + dy, part);
        });
    } else {
        ForEachTile(blit, Sampling::Point,
                    [&](const RECT& area, const Surface& tile) { over(tile, 0, 0, area); });
    }
}

// The same, scaled into 32-bit pixels row by row. Repeated rows are scaled only once; rows of a single colour
// are not scaled at all.
void BlendScaled(const Blit& blit, BYTE alpha)
{
    const Surface& target = blit.target->Target();
    ForEachDrawable(*blit.target, blit.Destination(), [&](const RECT& part) {
        const Scaler scaler(*blit.source, blit.columns, blit.rows, Sampling::Point, part);
        if (scaler.IsOneColumn()) {
            for (LONG y = part.top; y < part.bottom; ++y) {
                std::uint32_t pixel = scaler.FirstOfRow(y);
                WeighRow(&pixel, 1, alpha);
                BlendPixel(pixel, target.Row32(y) + part.left,
                           static_cast<std::size_t>(part.right - part.left));
            }
            return;
        }
        std::uint32_t row[kWidestTile];
        for (LONG left = part.left; left < part.right; left += kWidestTile) {
            const LONG right = std::min<LONG>(left + kWidestTile, part.right);
            const auto count = static_cast<std::size_t>(right - left);
            for (LONG y = part.top; y < part.bottom; ++y) {
                if (y == part.top || scaler.SourceRow(y) != scaler.SourceRow(y - 1)) {
                    scaler.Scale({left, y, right, y + 1}, row, kWidestTile);
                    if (alpha != 255)
                        WeighRow(row, count, alpha);
                }
                BlendRow(row, target.Row32(y) + left, count);
            }
        }
    });
}

// Mixes two channels at once, one in each 16-bit half of the number: (s * alpha + d * (255 - alpha) + 127) /
// 255. Neither half overflows into the other, and the division is exact for all values that occur.
std::uint32_t MixHalves(std::uint32_t source, std::uint32_t destination, std::uint32_t alpha)
{
    constexpr std::uint32_t kHalves = 0x00FF00FF;
    const std::uint32_t sum =
        (source & kHalves) * alpha + (destination & kHalves) * (255 - alpha) + 0x007F007F;
    return ((sum + 0x00010001 + ((sum >> 8) & kHalves)) >> 8) & kHalves;
}

// Blends pixels without an alpha channel by a constant alpha.
void BlendConstant(const Blit& blit, std::uint32_t alpha)
{
    JoinScaled(blit, Sampling::Point, [alpha](std::uint32_t source, std::uint32_t destination) {
        return MixHalves(source, destination, alpha) | MixHalves(source >> 8, destination >> 8, alpha) << 8;
    });
}

}  // namespace

BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, BLENDFUNCTION blend)
{
    const std::optional<Blit> blit =
        PrepareBlit(dc, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight);
    if (!blit || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0)
        return FALSE;
    const bool isPerPixel = (blend.AlphaFormat & AC_SRC_ALPHA) != 0;
    if (!blit->IsInsideSource() || (isPerPixel && blit->source->bitsPerPixel != 32))
        return FALSE;
    if (blit->IsEmpty())
        return TRUE;
    const bool isOneSurface = blit->target->Target().top == blit->source->top;
    if (isOneSurface && !IsEmptyRect(Intersection(blit->Destination(), blit->Origin())))
        return FALSE;
    if (isPerPixel && IsSpillingFill(*blit))
        JoinScaled(*blit, Sampling::Point,
                   [alpha = blend.SourceConstantAlpha](std::uint32_t from, std::uint32_t to) {
                       return OverSpilling(from, to, alpha);
                   });
    else if (isPerPixel && !blit->IsUnscaled() && blit->target->Target().bitsPerPixel == 32)
        BlendScaled(*blit, blend.SourceConstantAlpha);
    else if (isPerPixel)
        BlendPremultiplied(*blit, blend.SourceConstantAlpha);
    else
        BlendConstant(*blit, blend.SourceConstantAlpha);
    return TRUE;
}
