// 3 x 3 convolutions.

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <qvui/render/filters/image_filter.h>

#include "render/filters/image_rows.h"

namespace DUI {

const char* szSmooth = "Smooth";
const char* szGuasianSmooth = "Guasian Smooth";
const char* szSharpening = "Sharpening";
const char* szLaplasian = "Laplasian";
const char* szEmboss135 = "Emboss 135";
const char* szEmboss90 = "Emboss 90_50%";

namespace {

// Copies the pixels at both ends of a row that a kernel does not filter. Returns the number of pixels between
// them.
int CopyEnds(BYTE* dst, const BYTE* src, int width, int half, int pixelSize)
{
    if (width <= 2LL * half) {
        std::memcpy(dst, src, static_cast<std::size_t>(width) * pixelSize);
        return 0;
    }
    const std::size_t bytes = static_cast<std::size_t>(half) * pixelSize;
    const std::size_t last = static_cast<std::size_t>(width - half) * pixelSize;
    std::memcpy(dst, src, bytes);
    std::memcpy(dst + last, src + last, bytes);
    return width - 2 * half;
}

}  // namespace

void CDibFilter::Filter24bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth)
{
    constexpr int kPixel = 3;
    const int first = m_nHalf * kPixel;
    const int last = first + CopyEnds(dst, src, width, m_nHalf, kPixel) * kPixel;
    for (int i = first; i < last; ++i)
        dst[i] = Kernel(src + i, kPixel, lineWidth);
}

void CDibFilter::Filter32bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth)
{
    constexpr int kPixel = 4;
    const int first = m_nHalf * kPixel;
    const int last = first + CopyEnds(dst, src, width, m_nHalf, kPixel) * kPixel;
    for (int i = first; i < last; i += kPixel) {
        for (int channel = 0; channel < 3; ++channel)
            dst[i + channel] = Kernel(src + i + channel, kPixel, lineWidth);
        dst[i + 3] = src[i + 3];
    }
}

namespace {

// A built-in kernel that computes whole rows: the loops have no calls or branches, use 16-bit sums, and
// multiply by the reciprocal instead of dividing, so that compilers vectorise them.
template <class Published>
class RowFilter final : public Published {
public:
    void Filter24bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth) override
    {
        FilterRow<3>(dst, src, width, lineWidth);
    }

    void Filter32bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth) override
    {
        FilterRow<4>(dst, src, width, lineWidth);
        for (int x = 0; x < width; ++x)
            StorePixel(dst + 4 * x,
                       (LoadPixel(dst + 4 * x) & 0x00FFFFFF) | (LoadPixel(src + 4 * x) & 0xFF000000));
    }

private:
    static constexpr int SumOf(int sign)
    {
        int sum = 0;
        for (const int weight : Published::kWeights)
            sum += weight * sign > 0 ? weight : 0;
        return sum * 255;
    }
    static constexpr int kLargest = SumOf(1);
    static constexpr int kSmallest = SumOf(-1);
    static constexpr int kDivisor = Published::kDivisor;
    static constexpr int kReciprocal = 0x10000 / kDivisor + 1;

    // Whether multiplying by the reciprocal and taking the high half gives the exact quotient.
    static constexpr bool DividesExactly()
    {
        for (int i = 0; i <= std::max(kLargest, -kSmallest); ++i)
            if ((i * static_cast<long long>(kReciprocal)) >> 16 != i / kDivisor)
                return false;
        return true;
    }
    static_assert(kDivisor > 0 && kLargest <= INT16_MAX && kSmallest >= INT16_MIN);
    static_assert(kDivisor == 1 || DividesExactly());

    static std::int16_t Divided(std::int16_t sum)
    {
        if constexpr (kDivisor == 1)
            return sum;
        // The magnitude is divided, because truncation is toward zero. A clamped kernel without an offset can
        // drop negative sums.
        constexpr bool kIsSigned = kSmallest < 0 && !(Published::kClamp == 1 && Published::kOffset == 0);
        const auto sign = static_cast<std::int16_t>(kIsSigned ? sum >> 15 : 0);
        const auto magnitude = static_cast<std::uint16_t>(kIsSigned ? (sum ^ sign) - sign
                                                          : sum > 0 ? sum
                                                                    : 0);
        const auto quotient =
            static_cast<std::uint16_t>((static_cast<std::uint32_t>(magnitude) * kReciprocal) >> 16);
        return static_cast<std::int16_t>((quotient ^ sign) - sign);
    }

    template <int pixelSize>
    static void FilterRow(BYTE* __restrict dst, const BYTE* src, int width, int lineWidth)
    {
        const int first = pixelSize;
        const int last = first + CopyEnds(dst, src, width, 1, pixelSize) * pixelSize;
        const BYTE* const rows[3] = {src - lineWidth, src, src + lineWidth};
        for (int i = first; i < last; ++i) {
            std::int16_t sum = 0;
            for (int k = 0; k < 9; ++k)
                sum = static_cast<std::int16_t>(sum + Published::kWeights[k] *
                                                          rows[k / 3][i + (k % 3 - 1) * pixelSize]);
            auto value = static_cast<std::int16_t>(Divided(sum) + Published::kOffset);
            if constexpr (Published::kClamp == 1)
                value = std::clamp<std::int16_t>(value, 0, 255);
            dst[i] = static_cast<BYTE>(value);
        }
    }
};

RowFilter<CDib33Filter<1, 1, 1, 1, 1, 1, 1, 1, 1, 9, 0, 0, &szSmooth>> g_smooth;
RowFilter<CDib33Filter<0, 1, 0, 1, 4, 1, 0, 1, 0, 8, 0, 0, &szGuasianSmooth>> g_gaussianSmooth;
RowFilter<CDib33Filter<0, -1, 0, -1, 9, -1, 0, -1, 0, 5, 0, 1, &szSharpening>> g_sharpening;
RowFilter<CDib33Filter<-1, -1, -1, -1, 8, -1, -1, -1, -1, 1, 128, 1, &szLaplasian>> g_laplacian;
RowFilter<CDib33Filter<1, 0, 0, 0, 0, 0, 0, 0, -1, 1, 128, 1, &szEmboss135>> g_emboss135;
RowFilter<CDib33Filter<0, 1, 0, 0, 0, 0, 0, -1, 0, 2, 128, 1, &szEmboss90>> g_emboss90;

// Indexed by Convolute_Type.
CDibFilter* const g_kernels[] = {nullptr,      &g_smooth,    &g_gaussianSmooth, &g_sharpening,
                                 &g_laplacian, &g_emboss135, &g_emboss90};

// Returns the number of rows after its own that a kernel may read. An application's kernel may read any row.
int ReachOf(const CDibFilter* kernel, const CDibSection& section)
{
    const bool isBuiltIn =
        std::find(std::begin(g_kernels), std::end(g_kernels), kernel) != std::end(g_kernels);
    return isBuiltIn ? kernel->GetHalf() : HeightOf(section);
}

// Filters in place, holding filtered rows back until no kernel needs the unfiltered ones any more.
class RowsInPlace {
public:
    /// A row is written back `delay` rows after it was filtered.
    RowsInPlace(CDibSection& section, int delay)
        : m_section(section),
          m_delay(delay),
          m_lineWidth(section.GetLineWidth()),
          m_held(new BYTE[static_cast<std::size_t>(delay + 1) * section.GetLineWidth()])
    {
    }

    /// Returns the buffer for a filtered row, initialised with the unfiltered row.
    BYTE* Hold(int row)
    {
        std::memcpy(Held(row), StoredRow(m_section, row), m_lineWidth);
        return Held(row);
    }
    void Release(int row) { std::memcpy(StoredRow(m_section, row), Held(row), m_lineWidth); }

private:
    BYTE* Held(int row) { return m_held.get() + static_cast<std::size_t>(row % (m_delay + 1)) * m_lineWidth; }

    CDibSection& m_section;
    int m_delay;
    std::size_t m_lineWidth;
    std::unique_ptr<BYTE[]> m_held;
};

}  // namespace

int CConvoluteFilter::Process(CDibSection* section, CDibFilter* kernel)
{
    if (!HasPixels(section) || !kernel || !HasColorPixels(*section))
        return FALSE;
    const int first = kernel->GetHalf();
    const int last = HeightOf(*section) - first;
    if (first >= last)
        return FALSE;
    const int lineWidth = static_cast<int>(section->GetLineWidth());
    const auto filter = section->GetBitCount() == 24 ? &CDibFilter::Filter24bpp : &CDibFilter::Filter32bpp;
    const int reach = std::min(ReachOf(kernel, *section), last - first);
    RowsInPlace rows(*section, reach);
    for (int row = first; row < last; ++row) {
        (kernel->*filter)(rows.Hold(row), StoredRow(*section, row), WidthOf(*section), lineWidth);
        if (row - first >= reach)
            rows.Release(row - reach);
    }
    for (int row = last - reach; row < last; ++row)
        rows.Release(row);
    return TRUE;
}

int CConvoluteFilter::Process(CDibSection* section, Convolute_Type type)
{
    const auto index = static_cast<std::size_t>(type);
    return Process(section, index < std::size(g_kernels) ? g_kernels[index] : nullptr);
}

int CSharpenImageFilter::Process(CDibSection* section)
{
    return CConvoluteFilter::Process(section, CONVOLUTE_SHARPENING);
}

int CGaussImageFilter::Process(CDibSection* section)
{
    return CConvoluteFilter::Process(section, CONVOLUTE_GUASIAN_SMOOTH);
}

int CEmbossImageFilter::Process(CDibSection* section)
{
    return CConvoluteFilter::Process(section, CONVOLUTE_EMBOSS_135);
}

int CEdgeImageFilter::Process(CDibSection* section)
{
    return CConvoluteFilter::Process(section, CONVOLUTE_LAPLASIAN);
}

}  // namespace DUI
