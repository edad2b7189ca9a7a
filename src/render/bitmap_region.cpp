// Creates regions from colour keys.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include <qvui/render/bitmap_functions.h>
#include <qvui/render/dib_section.h>

#include "render/memory_context.h"

namespace DUI {
namespace {

// The union of many regions, combined in pairs of similar size: combining each part with all previous ones
// would copy the early parts repeatedly.
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

    /// Returns the union, which the caller deletes; empty if nothing was added.
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

// Builds a region from runs of pixels, passed row by row from top to bottom.
class RegionBuilder {
public:
    RegionBuilder() { Restart(); }

    void Add(int left, int right, int y)
    {
        if (m_data->header.nCount == kMostAtOnce)
            Flush();
        m_data->rects[m_data->header.nCount++] = {left, y, right, y + 1};
    }

    /// Ends a row. If its runs equal those of the row above, the rectangles above are made taller instead.
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
    // The platform takes too long to sort longer lists.
    static constexpr DWORD kMostAtOnce = 2000;

    // Same layout as RGNDATA.
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

// Determines which pixels are transparent: each channel lies between a low and a high bound. Rows are
// processed as bytes, several pixels at once, in loops that compilers vectorise.
class ColorBounds {
public:
    ColorBounds(const CARGB& color, DWORD tolerance)
    {
        const BYTE channels[3] = {color.GetB(), color.GetG(), color.GetR()};
        for (int i = 0; i < kLanes; ++i) {
            // Alpha is ignored.
            const int channel = i % 4;
            const int reach = static_cast<int>(tolerance >> (8 * (2 - channel % 3)) & 0xFF);
            m_low[i] = channel == 3 ? 0 : channels[channel];
            m_range[i] = static_cast<BYTE>(channel == 3 ? 255 : std::min(255 - m_low[i], reach));
        }
    }

    /// Sets each pixel's mark to 1 (transparent) or 0; `scratch` must have room for a row.
    void Mark(const BYTE* pixels, int count, std::uint32_t* scratch, std::uint8_t* isTransparent) const
    {
        const int bytes = 4 * count;
        const int whole = bytes - bytes % kLanes;
        auto* const excess = reinterpret_cast<BYTE*>(scratch);
        MarkExcess(pixels, whole, excess, m_low, m_range);
        for (int i = whole; i < bytes; ++i)
            excess[i] = Excess(pixels[i], m_low[i % 4], m_range[i % 4]);
        for (int x = 0; x < count; ++x)
            isTransparent[x] = scratch[x] == 0;
    }

private:
    static constexpr int kLanes = 16;

    // How far a byte is outside its range; 0 inside.
    static BYTE Excess(BYTE byte, BYTE low, BYTE range)
    {
        const auto above = static_cast<BYTE>(byte - low);
        return static_cast<BYTE>(above > range ? above - range : 0);
    }

    static void MarkExcess(const BYTE* __restrict pixels, int bytes, BYTE* __restrict excess,
                           const BYTE (&low)[kLanes], const BYTE (&range)[kLanes])
    {
        for (int i = 0; i < bytes; i += kLanes)
            for (int lane = 0; lane < kLanes; ++lane)
                excess[i + lane] = Excess(pixels[i + lane], low[lane], range[lane]);
    }

    BYTE m_low[kLanes];
    BYTE m_range[kLanes];
};

// Adds the runs of pixels in a row that are not transparent.
void AddRuns(const std::vector<std::uint8_t>& isTransparent, int y, RegionBuilder& builder)
{
    const std::uint8_t* const begin = isTransparent.data();
    const std::uint8_t* const end = begin + isTransparent.size();
    const auto next = [end](const std::uint8_t* from, int mark) {
        const void* found = std::memchr(from, mark, static_cast<std::size_t>(end - from));
        return found ? static_cast<const std::uint8_t*>(found) : end;
    };
    for (const std::uint8_t* run = next(begin, 0); run < end;) {
        const std::uint8_t* const stop = next(run, 1);
        builder.Add(static_cast<int>(run - begin), static_cast<int>(stop - begin), y);
        run = next(stop, 0);
    }
    builder.EndRow();
}

}  // namespace

HRGN CBitmapCommonFunction::BitmapToRgn(HBITMAP bitmap, const CARGB& color, DWORD tolerance)
{
    // The pixels are copied in bands of a few rows, which fit in the processor's cache.
    constexpr int kBand = 32;
    SIZE size{};
    CDibSection band;
    if (!GetBitmapSize(bitmap, size) || !band.Create(static_cast<DWORD>(size.cx), kBand, 32))
        return nullptr;
    const MemoryContext source(bitmap);
    const MemoryContext target(band.GetBitmap());
    if (!source.HasBitmap() || !target.HasBitmap())
        return nullptr;
    const ColorBounds transparent(color, tolerance);
    std::vector<std::uint32_t> scratch(static_cast<std::size_t>(size.cx));
    std::vector<std::uint8_t> isTransparent(scratch.size());
    RegionBuilder builder;
    for (int top = 0; top < size.cy; top += std::min<int>(kBand, size.cy - top)) {
        const int rows = std::min<int>(kBand, size.cy - top);
        BitBlt(target.Get(), 0, 0, size.cx, rows, source.Get(), 0, top, SRCCOPY);
        const BYTE* const bits = band.GetBits();
        for (int row = 0; row < rows; ++row) {
            const BYTE* const pixels =
                bits + static_cast<std::ptrdiff_t>(kBand - 1 - row) * band.GetLineWidth();
            transparent.Mark(pixels, size.cx, scratch.data(), isTransparent.data());
            AddRuns(isTransparent, top + row, builder);
        }
    }
    return builder.Take();
}

}  // namespace DUI
