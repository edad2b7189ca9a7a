#pragma once

#include <cstdint>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// The pixels of a layered window, transparent at first; they may be premultiplied.
class LayerPixels {
public:
    explicit LayerPixels(SIZE size) : m_size(size)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &m_rows, nullptr, 0);
        m_previous = SelectObject(m_memory, m_bitmap);
    }
    LayerPixels(const LayerPixels&) = delete;
    LayerPixels& operator=(const LayerPixels&) = delete;
    ~LayerPixels()
    {
        SelectObject(m_memory, m_previous);
        DeleteDC(m_memory);
        DeleteObject(m_bitmap);
    }

    /// Pixels in rows from the top, 0xAARRGGBB.
    std::uint32_t& operator[](int index) { return static_cast<std::uint32_t*>(m_rows)[index]; }
    BOOL Show(HWND window, BYTE opacity, DWORD flags = ULW_ALPHA, COLORREF key = 0, POINT* place = nullptr)
    {
        POINT origin{0, 0};
        BLENDFUNCTION blend{AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
        return UpdateLayeredWindow(window, nullptr, place, &m_size, m_memory, &origin, key, &blend, flags);
    }

private:
    SIZE m_size;
    void* m_rows = nullptr;
    HBITMAP m_bitmap;
    HDC m_memory = CreateCompatibleDC(nullptr);
    HGDIOBJ m_previous;
};

}  // namespace qvui::test
