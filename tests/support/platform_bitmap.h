#pragma once

#include <qvui/platform/platform.h>

namespace qvui::test {

/// The description of a bitmap without a palette; a negative height is top-down.
inline BITMAPINFO BitmapInfo(int width, int height, int bitsPerPixel = 32)
{
    return {
        {sizeof(BITMAPINFOHEADER), width, height, 1, static_cast<WORD>(bitsPerPixel), BI_RGB, 0, 0, 0, 0, 0},
        {}};
}

/// A memory context that draws on a DIB section of its own, whose bytes start as 0.
class MemoryBitmap {
public:
    explicit MemoryBitmap(const BITMAPINFO& info)
        : m_bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0)),
          m_previous(SelectObject(m_dc, m_bitmap))
    {
    }
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;
    ~MemoryBitmap()
    {
        SelectObject(m_dc, m_previous);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }

    operator HDC() const { return m_dc; }
    HBITMAP Bitmap() const { return m_bitmap; }
    /// The first stored row; what was drawn is there.
    void* Bits() const
    {
        GdiFlush();
        return m_bits;
    }

private:
    HDC m_dc = CreateCompatibleDC(nullptr);
    void* m_bits = nullptr;
    HBITMAP m_bitmap;
    HGDIOBJ m_previous;
};

}  // namespace qvui::test
