#include "platform/gdi/canvas.h"

#include <cstdlib>
#include <cstring>

Canvas::Canvas(int width, int height, int bitsPerPixel)
    : MemoryBitmap(BitmapInfo(width, height, bitsPerPixel)),
      m_width(width),
      m_height(std::abs(height)),
      m_bytes(static_cast<std::size_t>(bitsPerPixel) / 8),
      m_stride((static_cast<std::size_t>(width) * m_bytes + 3) / 4 * 4),
      m_isTopDown(height < 0)
{
}

Canvas::Canvas(int width, int height, const PixelAt& pixelAt, int bitsPerPixel)
    : Canvas(width, height, bitsPerPixel)
{
    Paint(pixelAt);
}

std::uint8_t* Canvas::Address(int x, int y) const
{
    return static_cast<std::uint8_t*>(Bits()) +
           m_stride * static_cast<std::size_t>(m_isTopDown ? y : m_height - 1 - y) +
           static_cast<std::size_t>(x) * m_bytes;
}

std::uint32_t Canvas::At(int x, int y) const
{
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, Address(x, y), m_bytes);
    return pixel;
}

void Canvas::Set(int x, int y, std::uint32_t pixel)
{
    std::memcpy(Address(x, y), &pixel, m_bytes);
}

void Canvas::Paint(const PixelAt& pixelAt)
{
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            Set(x, y, pixelAt(x, y));
}

void Canvas::Fill(std::uint32_t pixel)
{
    const std::size_t length = static_cast<std::size_t>(m_width) * m_bytes;
    for (int x = 0; x < m_width; ++x)
        Set(x, 0, pixel);
    for (int y = 1; y < m_height; ++y)
        std::memcpy(Address(0, y), Address(0, 0), length);
}

std::vector<std::uint32_t> Canvas::Pixels() const
{
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            pixels.push_back(At(x, y));
    return pixels;
}

void Canvas::Expect(const PixelAt& pixelAt, const std::string& name, std::uint32_t mask) const
{
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            if (const std::uint32_t pixel = At(x, y) & mask, expected = pixelAt(x, y) & mask;
                pixel != expected) {
                ADD_FAILURE() << name << " at " << x << ',' << y << std::hex << ": " << pixel << ", not "
                              << expected;
                return;
            }
}

void Canvas::ExpectSame(const Canvas& other, const std::string& name) const
{
    if (std::memcmp(Bits(), other.Bits(), m_stride * static_cast<std::size_t>(m_height)) != 0)
        Expect([&other](int x, int y) { return other.At(x, y); }, name);
}

std::string Canvas::Picture() const
{
    return Letters([](std::uint32_t pixel) { return pixel ? '#' : '.'; });
}

std::string Canvas::Letters(const std::function<char(std::uint32_t pixel)>& letterOf) const
{
    std::string text;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x)
            text += letterOf(At(x, y));
        text += '\n';
    }
    return text;
}
