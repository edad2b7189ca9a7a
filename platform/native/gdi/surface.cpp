#include "native/gdi/surface.h"

#include <cstring>

namespace qvui::native {
namespace {

// Larger surfaces than this are not worth having: sizes come from skins, which may be broken.
constexpr std::int64_t kLargestSurface = std::int64_t{1} << 31;

}  // namespace

std::shared_ptr<Surface> Surface::Create(int width, int height, int bitsPerPixel, bool bottomUp)
{
    const std::int64_t stride = ((static_cast<std::int64_t>(width) * bitsPerPixel + 31) / 32) * 4;
    if (width <= 0 || height <= 0 || stride * height > kLargestSurface)
        return nullptr;
    auto surface = std::make_shared<Surface>();
    surface->width = width;
    surface->height = height;
    surface->bitsPerPixel = bitsPerPixel;
    surface->storage.resize(static_cast<std::size_t>(stride * height));
    surface->stride = bottomUp ? -stride : stride;
    surface->top = surface->storage.data() + (bottomUp ? stride * (height - 1) : 0);
    return surface;
}

std::uint32_t Surface::Get(int x, int y) const
{
    std::uint32_t pixel = 0;
    Load(x, y, 1, &pixel);
    return pixel;
}

void Surface::Set(int x, int y, std::uint32_t pixel) const
{
    Store(x, y, 1, &pixel);
}

void Surface::Load(int x, int y, int count, std::uint32_t* pixels) const
{
    if (bitsPerPixel == 32) {
        std::memcpy(pixels, Row32(y) + x, static_cast<std::size_t>(count) * 4);
        return;
    }
    const std::uint8_t* from = Row(y) + x * 3;
    for (int i = 0; i < count; ++i, from += 3)
        pixels[i] = static_cast<std::uint32_t>(from[0] | (from[1] << 8) | (from[2] << 16));
}

void Surface::Store(int x, int y, int count, const std::uint32_t* pixels) const
{
    if (bitsPerPixel == 32) {
        std::memmove(Row32(y) + x, pixels, static_cast<std::size_t>(count) * 4);
        return;
    }
    std::uint8_t* to = Row(y) + x * 3;
    for (int i = 0; i < count; ++i, to += 3) {
        to[0] = static_cast<std::uint8_t>(pixels[i]);
        to[1] = static_cast<std::uint8_t>(pixels[i] >> 8);
        to[2] = static_cast<std::uint8_t>(pixels[i] >> 16);
    }
}

}  // namespace qvui::native
