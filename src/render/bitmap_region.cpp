// Regions from colour keys.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include <qvui/render/bitmap_functions.h>

namespace DUI {
namespace {

// The union of many regions, joined in pairs of similar size: joining each part to all before it would copy
// the early ones again and again.
class RegionUnion {
public:
    RegionUnion() = default;
    RegionUnion(const RegionUnion&) = delete;
    RegionUnion& operator=(const RegionUnion&) = delete;
    ~RegionUnion()
    {
        for (const Joined& joined : m_joined)
            DeleteObject(joined.region);
    }

    /// Takes ownership.
    void Add(HRGN part)
    {
        if (!part)
            return;
        m_joined.push_back({part, 1});
        while (m_joined.size() > 1 && m_joined.back().parts >= m_joined[m_joined.size() - 2].parts)
            JoinLastTwo();
    }

    /// The union, the caller's to delete; empty when nothing was added.
    HRGN Take()
    {
        while (m_joined.size() > 1)
            JoinLastTwo();
        if (m_joined.empty())
            return CreateRectRgn(0, 0, 0, 0);
        const HRGN region = m_joined.back().region;
        m_joined.clear();
        return region;
    }

private:
    struct Joined {
        HRGN region;
        int parts;
    };

    void JoinLastTwo()
    {
        const Joined last = m_joined.back();
        m_joined.pop_back();
        CombineRgn(m_joined.back().region, m_joined.back().region, last.region, RGN_OR);
        DeleteObject(last.region);
        m_joined.back().parts += last.parts;
    }

    std::vector<Joined> m_joined;
};

// Makes a region of the runs of rows, given from the top to the bottom.
class RegionBuilder {
public:
    RegionBuilder() { Restart(); }

    void Add(int left, int right, int y)
    {
        if (m_data->header.nCount == kMostAtOnce)
            Flush();
        m_data->rects[m_data->header.nCount++] = {left, y, right, y + 1};
    }

    /// Ends a row. One whose runs are those of the row above makes that one taller instead.
    void EndRow()
    {
        const DWORD end = m_data->header.nCount;
        RECT* const above = m_data->rects + m_rowAbove;
        RECT* const row = m_data->rects + m_row;
        const bool isSame = m_row - m_rowAbove == end - m_row && end > m_row && above->bottom == row->top &&
                            std::equal(row, m_data->rects + end, above, [](const RECT& a, const RECT& b) {
                                return a.left == b.left && a.right == b.right;
                            });
        if (isSame) {
            for (DWORD i = m_rowAbove; i < m_row; ++i)
                ++m_data->rects[i].bottom;
            m_data->header.nCount = m_row;
            return;
        }
        m_rowAbove = m_row;
        m_row = end;
    }

    HRGN Take()
    {
        Flush();
        return m_union.Take();
    }

private:
    // A longer list would take the platform too long to sort.
    static constexpr DWORD kMostAtOnce = 2000;

    // Laid out as RGNDATA.
    struct Data {
        RGNDATAHEADER header;
        RECT rects[kMostAtOnce];
    };

    void Restart()
    {
        m_data->header = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, 0, 0, {0x7FFFFFFF, 0x7FFFFFFF, 0, 0}};
        m_rowAbove = m_row = 0;
    }

    void Flush()
    {
        RGNDATAHEADER& header = m_data->header;
        if (header.nCount == 0)
            return;
        for (DWORD i = 0; i < header.nCount; ++i) {
            const RECT& rect = m_data->rects[i];
            header.rcBound = {
                std::min(header.rcBound.left, rect.left), std::min(header.rcBound.top, rect.top),
                std::max(header.rcBound.right, rect.right), std::max(header.rcBound.bottom, rect.bottom)};
        }
        const auto size = static_cast<DWORD>(sizeof header + header.nCount * sizeof(RECT));
        m_union.Add(ExtCreateRegion(nullptr, size, reinterpret_cast<const RGNDATA*>(m_data.get())));
        Restart();
    }

    std::unique_ptr<Data> m_data{new Data};
    DWORD m_rowAbove = 0;  // where the rectangles of the last two rows start
    DWORD m_row = 0;
    RegionUnion m_union;
};

// Which pixels count as transparent: each channel between a low and a high bound.
class ColorBounds {
public:
    ColorBounds(const CARGB& color, DWORD tolerance)
        : m_blue(color.GetB(), tolerance >> 16),
          m_green(color.GetG(), tolerance >> 8),
          m_red(color.GetR(), tolerance)
    {
    }

    /// 1 or 0 for each pixel of a row.
    void Mark(const std::uint32_t* pixels, int count, std::uint8_t* isTransparent) const
    {
        for (int i = 0; i < count; ++i)
            isTransparent[i] = static_cast<std::uint8_t>(
                m_blue.Holds(pixels[i]) & m_green.Holds(pixels[i] >> 8) & m_red.Holds(pixels[i] >> 16));
    }

private:
    struct Channel {
        Channel(int from, DWORD tolerance)
            : low(from),
              high(std::min(255, from + static_cast<int>(tolerance & 0xFF)))
        {
        }
        int Holds(std::uint32_t shifted) const
        {
            const int value = static_cast<int>(shifted & 0xFF);
            return (value >= low) & (value <= high);
        }

        int low;
        int high;
    };

    Channel m_blue;
    Channel m_green;
    Channel m_red;
};

// The bitmap's pixels, top row first; null when they could not be read.
std::unique_ptr<std::uint32_t[]> PixelsOf(HBITMAP bitmap, const SIZE& size)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::unique_ptr<std::uint32_t[]> pixels(new std::uint32_t[static_cast<std::size_t>(size.cx) * size.cy]);
    const HDC screen = GetDC(nullptr);
    const int rows =
        GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.cy), pixels.get(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return rows == size.cy ? std::move(pixels) : nullptr;
}

}  // namespace

HRGN CBitmapCommonFunction::BitmapToRgn(HBITMAP bitmap, const CARGB& color, DWORD tolerance)
{
    SIZE size{};
    if (!GetBitmapSize(bitmap, size))
        return nullptr;
    const auto pixels = PixelsOf(bitmap, size);
    if (!pixels)
        return nullptr;
    const ColorBounds transparent(color, tolerance);
    std::vector<std::uint8_t> isTransparent(static_cast<std::size_t>(size.cx));
    const std::uint8_t* const begin = isTransparent.data();
    const std::uint8_t* const end = begin + size.cx;
    const auto next = [end](const std::uint8_t* from, int mark) {
        const void* found = std::memchr(from, mark, static_cast<std::size_t>(end - from));
        return found ? static_cast<const std::uint8_t*>(found) : end;
    };
    RegionBuilder builder;
    for (int y = 0; y < size.cy; ++y) {
        transparent.Mark(pixels.get() + static_cast<std::ptrdiff_t>(y) * size.cx, size.cx,
                         isTransparent.data());
        for (const std::uint8_t* run = next(begin, 0); run < end;) {
            const std::uint8_t* const stop = next(run, 1);
            builder.Add(static_cast<int>(run - begin), static_cast<int>(stop - begin), y);
            run = next(stop, 0);
        }
        builder.EndRow();
    }
    return builder.Take();
}

}  // namespace DUI
