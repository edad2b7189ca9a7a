#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"
#include "support/geometry_text.h"
#include "support/platform_bitmap.h"

using qvui::test::BitmapInfo;
using PixelAt = std::function<std::uint32_t(int x, int y)>;

/// A memory bitmap whose pixels are read and written as AARRGGBB, top row first. All start as 0; a negative
/// height makes a top-down section.
class Canvas : public qvui::test::MemoryBitmap {
public:
    Canvas(int width, int height, int bitsPerPixel = 32);
    Canvas(int width, int height, const PixelAt& pixelAt, int bitsPerPixel = 32);

    int Width() const { return m_width; }
    int Height() const { return m_height; }

    std::uint32_t At(int x, int y) const;
    void Set(int x, int y, std::uint32_t pixel);
    /// Sets every pixel to what `pixelAt` answers for it.
    void Paint(const PixelAt& pixelAt);
    void Fill(std::uint32_t pixel);
    std::vector<std::uint32_t> Pixels() const;
    /// Fails with the first pixel that is not what `pixelAt` answers, in the bits of `mask`.
    void Expect(const PixelAt& pixelAt, const std::string& name = {}, std::uint32_t mask = 0xFFFFFFFF) const;
    /// Fails when a canvas of the same size has other pixels.
    void ExpectSame(const Canvas& other, const std::string& name = {}) const;
    /// One line of text per row; '#' where the pixel is not 0.
    std::string Picture() const;
    /// One line of text per row, a letter for every pixel.
    std::string Letters(const std::function<char(std::uint32_t pixel)>& letterOf) const;

private:
    std::uint8_t* Address(int x, int y) const;

    int m_width;
    int m_height;
    std::size_t m_bytes;  // of a pixel
    std::size_t m_stride;
    bool m_isTopDown;
};

/// A GDI object that is deleted at the end of its scope; selected into `dc` until then when one is given.
template <class Handle>
class Scoped {
public:
    explicit Scoped(Handle handle) : m_handle(handle) {}
    Scoped(HDC dc, Handle handle) : m_handle(handle), m_dc(dc), m_previous(SelectObject(dc, handle)) {}
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;
    ~Scoped()
    {
        if (m_dc)
            SelectObject(m_dc, m_previous);
        DeleteObject(m_handle);
    }
    operator Handle() const { return m_handle; }

private:
    Handle m_handle;
    HDC m_dc = nullptr;
    HGDIOBJ m_previous = nullptr;
};
template <class Handle>
Scoped(Handle) -> Scoped<Handle>;
template <class Handle>
Scoped(HDC, Handle) -> Scoped<Handle>;

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

/// A pixel that tells where it stands, with alpha 0.
constexpr std::uint32_t PlacePixel(int x, int y)
{
    return static_cast<std::uint32_t>((x + 1) << 16 | (y + 1) << 8 | 0x55);
}

/// Whether a point lies in a rectangle.
constexpr bool Holds(const RECT& rect, int x, int y)
{
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

/// The platform's rounding division by 255.
constexpr std::uint32_t Over255(std::uint32_t value)
{
    return (value + 127) / 255;
}

/// Channel 0 (blue) to 3 (alpha) of a pixel.
constexpr std::uint32_t Channel(std::uint32_t pixel, int channel)
{
    return (pixel >> (8 * channel)) & 0xFF;
}

inline std::string RectText(const RECT& rect)
{
    return qvui::test::Text(rect);
}
