#pragma once

#include <pixman.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>
#include <vector>

#include "native/gdi/zeroed_memory.h"

#include <qvui/platform/native/gdi.h>

namespace qvui::native {

/// Writes a pixel `count` times with the C library's wmemset, which uses the processor's vector instructions.
inline void Repeat(std::uint32_t pixel, std::size_t count, std::uint32_t* out)
{
    static_assert(sizeof(wchar_t) == sizeof pixel);
    std::wmemset(reinterpret_cast<wchar_t*>(out), static_cast<wchar_t>(pixel), count);
}

/// A rectangle of pixels: 32 bits (blue, green, red, alpha) or 24 bits (blue, green, red). `stride` is the
/// distance in bytes from a row to the one below it, negative when the rows are stored bottom-up.
class Surface {
public:
    Surface() = default;
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface();

    int width = 0;
    int height = 0;
    int bitsPerPixel = 32;
    std::ptrdiff_t stride = 0;
    std::uint8_t* top = nullptr;
    std::vector<std::uint8_t, ZeroedMemory<std::uint8_t>> storage;

    /// Creates a zeroed surface. Returns null if the size is not positive or too large.
    static std::shared_ptr<Surface> Create(int width, int height, int bitsPerPixel, bool bottomUp);

    RECT Bounds() const { return {0, 0, width, height}; }
    bool Contains(const RECT& rect) const
    {
        return rect.left >= 0 && rect.top >= 0 && rect.right <= width && rect.bottom <= height;
    }
    std::uint8_t* Row(int y) const { return top + y * stride; }
    std::uint32_t* Row32(int y) const { return reinterpret_cast<std::uint32_t*>(Row(y)); }
    std::uint32_t Get(int x, int y) const
    {
        std::uint32_t pixel = 0;
        Load(x, y, 1, &pixel);
        return pixel;
    }
    void Set(int x, int y, std::uint32_t pixel) const { Store(x, y, 1, &pixel); }
    /// Copies `count` pixels of a row to or from 32-bit pixels; 24-bit pixels are read with alpha 0.
    void Load(int x, int y, int count, std::uint32_t* pixels) const
    {
        if (bitsPerPixel == 32)
            std::memcpy(pixels, Row32(y) + x, static_cast<std::size_t>(count) * sizeof *pixels);
        else
            Load24(x, y, count, pixels);
    }
    void Store(int x, int y, int count, const std::uint32_t* pixels) const
    {
        if (bitsPerPixel == 32)
            std::memmove(Row32(y) + x, pixels, static_cast<std::size_t>(count) * sizeof *pixels);
        else
            Store24(x, y, count, pixels);
    }
    /// Returns the same pixels as a pixman image, which the surface owns.
    pixman_image_t* Image() const;

private:
    void Load24(int x, int y, int count, std::uint32_t* pixels) const;
    void Store24(int x, int y, int count, const std::uint32_t* pixels) const;

    mutable pixman_image_t* m_image = nullptr;
};

}  // namespace qvui::native
