#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "native/gdi/zeroed_memory.h"

namespace qvui::native {

/// A rectangle of pixels: 32 bits (blue, green, red, alpha) or 24 bits (blue, green, red). `stride` is the
/// distance in bytes from a row to the one below it, negative when the rows are stored bottom-up.
struct Surface {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 32;
    std::ptrdiff_t stride = 0;
    std::uint8_t* top = nullptr;
    std::vector<std::uint8_t, ZeroedMemory<std::uint8_t>> storage;

    /// A zeroed surface; null when the size is not positive or too large to hold.
    static std::shared_ptr<Surface> Create(int width, int height, int bitsPerPixel, bool bottomUp);

    std::uint8_t* Row(int y) const { return top + y * stride; }
    std::uint32_t* Row32(int y) const { return reinterpret_cast<std::uint32_t*>(Row(y)); }
    std::uint32_t Get(int x, int y) const;
    void Set(int x, int y, std::uint32_t pixel) const;
    /// Copies `count` pixels of a row out to or in from 32-bit pixels; 24-bit pixels read with alpha 0.
    void Load(int x, int y, int count, std::uint32_t* pixels) const;
    void Store(int x, int y, int count, const std::uint32_t* pixels) const;
};

}  // namespace qvui::native
