#include "platform/gdi/canvas.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

Canvas::Canvas(int width, int height, int bitsPerPixel)
    : m_dc(CreateCompatibleDC(nullptr)),
      m_width(width),
      m_height(std::abs(height)),
      m_bytes(bitsPerPixel / 8),
      m_isTopDown(height < 0)
{
    const BITMAPINFO info = BitmapInfo(width, height, bitsPerPixel);
    void* bits = nullptr;
    m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<std::uint8_t*>(bits);
    m_previous = SelectObject(m_dc, m_bitmap);
}

Canvas::~Canvas()
{
    SelectObject(m_dc, m_previous);
    DeleteObject(m_bitmap);
    DeleteDC(m_dc);
}

std::uint8_t* Canvas::Address(int x, int y) const
{
    const std::ptrdiff_t stride = (static_cast<std::ptrdiff_t>(m_width) * m_bytes + 3) / 4 * 4;
    return m_bits + stride * (m_isTopDown ? y : m_height - 1 - y) + static_cast<std::ptrdiff_t>(x) * m_bytes;
}

std::uint32_t Canvas::At(int x, int y) const
{
    GdiFlush();
    return Read(Address(x, y));
}

std::uint32_t Canvas::Read(const std::uint8_t* address) const
{
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, address, static_cast<std::size_t>(m_bytes));
    return pixel;
}

void Canvas::Set(int x, int y, std::uint32_t pixel)
{
    GdiFlush();
    std::memcpy(Address(x, y), &pixel, static_cast<std::size_t>(m_bytes));
}

void Canvas::Paint(const PixelAt& pixelAt)
{
    GdiFlush();
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const std::uint32_t pixel = pixelAt(x, y);
            std::memcpy(Address(x, y), &pixel, static_cast<std::size_t>(m_bytes));
        }
}

void Canvas::Fill(std::uint32_t pixel)
{
    Paint([pixel](int, int) { return pixel; });
}

std::vector<std::uint32_t> Canvas::Pixels() const
{
    GdiFlush();
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            pixels.push_back(Read(Address(x, y)));
    return pixels;
}

void Canvas::Expect(const PixelAt& pixelAt, const std::string& name, std::uint32_t mask) const
{
    GdiFlush();
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            if (const std::uint32_t pixel = Read(Address(x, y)) & mask, expected = pixelAt(x, y) & mask;
                pixel != expected) {
                ADD_FAILURE() << name << " at " << x << ',' << y << std::hex << ": " << pixel << ", not "
                              << expected;
                return;
            }
}

std::string Canvas::Picture(std::uint32_t background) const
{
    return Letters([background](std::uint32_t pixel) { return pixel == background ? '.' : '#'; });
}

std::string Canvas::Letters(const std::function<char(std::uint32_t pixel)>& letterOf) const
{
    GdiFlush();
    std::string text;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x)
            text += letterOf(Read(Address(x, y)));
        text += '\n';
    }
    return text;
}

std::string Canvas::DifferenceFrom(const Canvas& other) const
{
    const std::vector<std::uint32_t> mine = Pixels();
    const std::vector<std::uint32_t> others = other.Pixels();
    std::string text;
    int count = 0;
    for (std::size_t i = 0; i < mine.size(); ++i) {
        if (mine[i] == others[i] || ++count > 4)
            continue;
        const auto width = static_cast<std::size_t>(m_width);
        char pixel[80];
        std::snprintf(pixel, sizeof pixel, " %zu,%zu: %08X, not %08X;", i % width, i / width, mine[i],
                      others[i]);
        text += pixel;
    }
    return count == 0 ? "" : std::to_string(count) + " pixels:" + text;
}

BITMAPINFO BitmapInfo(int width, int height, int bitsPerPixel)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    return info;
}

std::string RectText(const RECT& rect)
{
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) +
           "," + std::to_string(rect.bottom);
}
