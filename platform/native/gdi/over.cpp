#include "native/gdi/over.h"

#include <cstring>

#include <qvui/platform/wide_vectors.h>

#include "native/gdi/surface.h"

namespace qvui::native {
namespace {

constexpr std::uint32_t kHalves = 0x00FF00FF;

// Multiplies two channels at once, one in each 16-bit half of the number: value * weight / 255, rounded to
// nearest. Neither half overflows into the other, and the division is exact for all values that occur.
inline std::uint32_t WeighHalves(std::uint32_t halves, std::uint32_t weight)
{
    const std::uint32_t product = halves * weight + 0x00800080;
    return ((product + ((product >> 8) & kHalves)) >> 8) & kHalves;
}

inline std::uint32_t Weigh(std::uint32_t pixel, std::uint32_t weight)
{
    return WeighHalves(pixel & kHalves, weight) | WeighHalves(pixel >> 8 & kHalves, weight) << 8;
}

// Two channels of a pixel as one 16-bit number.
using Channels __attribute__((may_alias)) = std::uint16_t;
constexpr std::size_t kBlock = 16;  // pixels

inline void BlendBlock(const Channels* source, const Channels* rests, Channels* target)
{
    for (std::size_t i = 0; i < 2 * kBlock; ++i) {
        const std::uint32_t rest = rests[i];
        const auto low = static_cast<std::uint16_t>((target[i] & 0xFF) * rest + 0x80);
        const auto high = static_cast<std::uint16_t>((target[i] >> 8) * rest + 0x80);
        // The high half of a product with 0x101 is an exact division by 255 for the values that occur here.
        const auto lowShare = static_cast<std::uint16_t>(std::uint32_t{low} * 0x101 >> 16);
        const auto highShare = static_cast<std::uint16_t>(std::uint32_t{high} * 0x101 >> 16);
        target[i] = static_cast<std::uint16_t>(source[i] + (lowShare | highShare << 8));
    }
}

}  // namespace

// Rows are processed in blocks of a fixed size, two channels at a time, so that compilers vectorise the loop
// with 16-bit multiplications.
QVUI_WIDE_VECTORS void BlendRow(const std::uint32_t* source, std::uint32_t* target, std::size_t count)
{
    for (; count >= kBlock; count -= kBlock, source += kBlock, target += kBlock) {
        std::uint32_t rests[kBlock];
        for (std::size_t i = 0; i < kBlock; ++i)
            rests[i] = (255 - (source[i] >> 24)) * 0x00010001;
        BlendBlock(reinterpret_cast<const Channels*>(source), reinterpret_cast<const Channels*>(rests),
                   reinterpret_cast<Channels*>(target));
    }
    for (std::size_t i = 0; i < count; ++i)
        target[i] = source[i] + Weigh(target[i], 255 - (source[i] >> 24));
}

QVUI_WIDE_VECTORS void BlendPixel(std::uint32_t source, std::uint32_t* target, std::size_t count)
{
    const std::uint32_t rest = 255 - (source >> 24);
    if (rest == 0) {
        Repeat(source, count, target);
        return;
    }
    std::uint32_t sources[kBlock];
    std::uint32_t rests[kBlock];
    for (std::size_t i = 0; i < kBlock; ++i) {
        sources[i] = source;
        rests[i] = rest * 0x00010001;
    }
    for (; count >= kBlock; count -= kBlock, target += kBlock)
        BlendBlock(reinterpret_cast<const Channels*>(sources), reinterpret_cast<const Channels*>(rests),
                   reinterpret_cast<Channels*>(target));
    for (std::size_t i = 0; i < count; ++i)
        target[i] = source + Weigh(target[i], rest);
}

QVUI_WIDE_VECTORS void WeighRow(std::uint32_t* pixels, std::size_t count, unsigned alpha)
{
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = Weigh(pixels[i], alpha);
}

}  // namespace qvui::native
