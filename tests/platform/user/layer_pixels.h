#pragma once

#include <cstdint>

#include "support/platform_bitmap.h"

namespace qvui::test {

/// The pixels of a layered window, transparent at first; they may be premultiplied.
class LayerPixels {
public:
    explicit LayerPixels(SIZE size) : m_size(size), m_bitmap(BitmapInfo(size.cx, -size.cy)) {}

    /// Pixels in rows from the top, 0xAARRGGBB.
    std::uint32_t& operator[](int index) { return static_cast<std::uint32_t*>(m_bitmap.Bits())[index]; }
    BOOL Show(HWND window, BYTE opacity, DWORD flags = ULW_ALPHA, COLORREF key = 0, POINT* place = nullptr)
    {
        POINT origin{0, 0};
        BLENDFUNCTION blend{AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
        return UpdateLayeredWindow(window, nullptr, place, &m_size, m_bitmap, &origin, key, &blend, flags);
    }

private:
    SIZE m_size;
    MemoryBitmap m_bitmap;
};

}  // namespace qvui::test
