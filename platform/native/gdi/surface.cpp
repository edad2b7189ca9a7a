#include "native/gdi/surface.h"

namespace qvui::native {
namespace {

// Limits the size of a surface in bytes, because sizes come from skins, which may be invalid.
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

Surface::~Surface()
{
    if (m_image)
        pixman_image_unref(m_image);
}

pixman_image_t* Surface::Image() const
{
    if (!m_image)
        m_image =
            pixman_image_create_bits(bitsPerPixel == 32 ? PIXMAN_a8r8g8b8 : PIXMAN_r8g8b8, width, height,
                                     reinterpret_cast<std::uint32_t*>(top), static_cast<int>(stride));
    return m_image;
}

void Surface::Load24(int x, int y, int count, std::uint32_t* pixels) const
{
    const std::uint8_t* from = Row(y) + x * 3;
    for (int i = 0; i < count; ++i, from += 3)
        pixels[i] = static_cast<std::uint32_t>(from[0] | (from[1] << 8) | (from[2] << 16));
}

void Surface::Store24(int x, int y, int count, const std::uint32_t* pixels) const
{
    std::uint8_t* to = Row(y) + x * 3;
    for (int i = 0; i < count; ++i, to += 3) {
        to[0] = static_cast<std::uint8_t>(pixels[i]);
        to[1] = static_cast<std::uint8_t>(pixels[i] >> 8);
        to[2] = static_cast<std::uint8_t>(pixels[i] >> 16);
    }
}

}  // namespace qvui::native
