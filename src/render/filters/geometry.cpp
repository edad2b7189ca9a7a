// Filters that move pixels, and the filter that averages blocks of pixels.

#include <memory>

#include <qvui/render/filters/image_filter.h>

#include "render/filters/image_rows.h"

namespace DUI {
namespace {

template <int size>
struct Pixel {
    BYTE bytes[size];
};

bool CanMovePixels(const CDibSection* section)
{
    return HasPixels(section) && HasColorPixels(*section);
}

// Calls `operation` with a null pointer of the section's pixel type.
template <class Operation>
int WithPixelType(const CDibSection& section, Operation operation)
{
    return section.GetBitCount() == 24 ? operation(static_cast<Pixel<3>*>(nullptr))
                                       : operation(static_cast<Pixel<4>*>(nullptr));
}

// Loads four adjacent pixels as numbers. Three-byte pixels are loaded as two numbers, so that no byte beyond
// them is read.
template <int size>
void LoadFour(const BYTE* pixels, std::uint32_t (&four)[4])
{
    if constexpr (size == 3) {
        constexpr std::uint64_t kPixel = 0xFFFFFF;
        std::uint64_t low;
        std::uint32_t high;
        std::memcpy(&low, pixels, sizeof low);
        std::memcpy(&high, pixels + sizeof low, sizeof high);
        four[0] = static_cast<std::uint32_t>(low & kPixel);
        four[1] = static_cast<std::uint32_t>(low >> 24 & kPixel);
        four[2] = static_cast<std::uint32_t>(low >> 48 | (high & 0xFF) << 16);
        four[3] = high >> 8;
    } else {
        std::memcpy(four, pixels, sizeof four);
    }
}

template <int size>
void StoreFour(const std::uint32_t (&four)[4], BYTE* pixels)
{
    if constexpr (size == 3) {
        const std::uint64_t low =
            four[0] | static_cast<std::uint64_t>(four[1]) << 24 | static_cast<std::uint64_t>(four[2]) << 48;
        const std::uint32_t high = four[2] >> 16 | four[3] << 8;
        std::memcpy(pixels, &low, sizeof low);
        std::memcpy(pixels + sizeof low, &high, sizeof high);
    } else {
        std::memcpy(pixels, four, sizeof four);
    }
}

// A rectangle of pixels to transpose: the pixel at (x, y) is written to (y, x), relative to the first pixel
// of each rectangle. The steps are the distances in bytes between rows.
struct Turned {
    const BYTE* from;
    std::ptrdiff_t fromStep;
    BYTE* to;
    std::ptrdiff_t toStep;
    int width;
    int height;

    template <int size>
    Turned Part(int x, int y, int partWidth, int partHeight) const
    {
        return {from + y * fromStep + x * size,
                fromStep,
                to + x * toStep + y * size,
                toStep,
                partWidth,
                partHeight};
    }
};

template <int size>
void TurnPixels(const Turned& part)
{
    for (int x = 0; x < part.width; ++x)
        for (int y = 0; y < part.height; ++y)
            std::memcpy(part.to + x * part.toStep + y * size, part.from + y * part.fromStep + x * size, size);
}

constexpr int kCacheLine = 64;

// Prefetches one cache line of each of the next four rows to be written.
inline void PrepareRows(const BYTE* rows, std::ptrdiff_t step)
{
    for (int i = 0; i < 4; ++i)
        __builtin_prefetch(rows + i * step, 1);
}

// Transposes blocks of four rows and columns, and the remaining pixels one by one.
template <int size>
void TurnTile(const Turned& tile)
{
    constexpr int kPixelsPerLine = kCacheLine / (4 * size) * 4;
    int x = 0;
    for (; x + 4 <= tile.width; x += 4) {
        int y = 0;
        for (; y + 4 <= tile.height; y += 4) {
            const Turned part = tile.Part<size>(x, y, 4, 4);
            if (y % kPixelsPerLine == 0 && x + 8 <= tile.width)
                PrepareRows(part.to + 4 * part.toStep, part.toStep);
            std::uint32_t block[4][4] = {};
            for (int i = 0; i < 4; ++i)
                LoadFour<size>(part.from + i * part.fromStep, block[i]);
            for (int i = 0; i < 4; ++i)
                StoreFour<size>({block[0][i], block[1][i], block[2][i], block[3][i]},
                                part.to + i * part.toStep);
        }
        TurnPixels<size>(tile.Part<size>(x, y, 4, tile.height - y));
    }
    TurnPixels<size>(tile.Part<size>(x, 0, tile.width - x, tile.height));
}

// Copies a tile's pixels into a buffer with rows of kSide pixels, and returns a tile that reads from it.
template <int kSide, int size>
Turned GatherTile(const Turned& tile, BYTE* buffer)
{
    constexpr int kRowsAhead = 8;
    constexpr std::ptrdiff_t kStep = kSide * size;
    for (int row = 0; row < tile.height; ++row) {
        BYTE* const to = buffer + row * kStep;
        const BYTE* const from = tile.from + row * tile.fromStep;
        if (row + kRowsAhead < tile.height)
            for (int at = 0; at < kStep; at += kCacheLine)
                __builtin_prefetch(from + kRowsAhead * tile.fromStep + at);
        if (tile.width == kSide)  // a constant length lets the compiler inline the copy
            std::memcpy(to, from, kStep);
        else
            std::memcpy(to, from, static_cast<std::size_t>(tile.width) * size);
    }
    return {buffer, kStep, tile.to, tile.toStep, tile.width, tile.height};
}

// Processes tiles through a buffer, so that rows read and columns written stay in the processor's cache, even
// if the distance between rows is a power of two.
template <int size>
void Turn(const Turned& whole)
{
    constexpr int kSide = 64;
    BYTE buffer[kSide * kSide * size];
    for (int y = 0; y < whole.height; y += kSide)
        for (int x = 0; x < whole.width; x += kSide) {
            const Turned tile =
                whole.Part<size>(x, y, std::min(kSide, whole.width - x), std::min(kSide, whole.height - y));
            TurnTile<size>(GatherTile<kSide, size>(tile, buffer));
        }
}

// Reverses a row of three- or four-byte pixels; `copy` holds the row and one more byte. Moving four bytes at
// once is faster than three; the fourth is overwritten by the next pixel.
template <int size>
void ReverseRow(BYTE* row, const BYTE* copy, int width)
{
    const BYTE* from = copy + static_cast<std::ptrdiff_t>(width - 1) * size;
    for (int x = 0; x < width - 1; ++x, row += size, from -= size)
        std::memcpy(row, from, 4);
    std::memcpy(row, copy, size);
}

int Rotate(CDibSection* section, bool isLeft)
{
    if (!CanMovePixels(section))
        return FALSE;
    return WithPixelType(*section, [section, isLeft](auto* type) -> int {
        using PixelType = std::remove_pointer_t<decltype(type)>;
        CDibSection turned;
        if (!turned.Create(static_cast<DWORD>(HeightOf(*section)), static_cast<DWORD>(WidthOf(*section)),
                           section->GetBitCount()))
            return FALSE;
        const int width = WidthOf(*section);
        const int height = HeightOf(*section);
        const std::ptrdiff_t fromLine = section->GetLineWidth();
        const std::ptrdiff_t toLine = turned.GetLineWidth();
        if (isLeft)
            Turn<sizeof(PixelType)>(
                {StoredRow(*section, height - 1), -fromLine, StoredRow(turned, 0), toLine, width, height});
        else
            Turn<sizeof(PixelType)>(
                {StoredRow(*section, 0), fromLine, StoredRow(turned, width - 1), -toLine, width, height});
        return section->Transfer(&turned);
    });
}

}  // namespace

int CSelectImageFilter::Process(CDibSection* source, CDibSection* target, RECT* rect)
{
    if (source == target || !target || !CanMovePixels(source))
        return FALSE;
    const RECT part = PartOf(*source, rect);
    if (IsRectEmpty(&part))
        return FALSE;
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    if (!target->Create(static_cast<DWORD>(width), static_cast<DWORD>(height), source->GetBitCount()))
        return FALSE;
    const auto pixelSize = static_cast<std::size_t>(source->GetPixelWidth());
    for (int y = 0; y < height; ++y)
        std::memcpy(RowFromTop(*target, y), RowFromTop(*source, part.top + y) + part.left * pixelSize,
                    width * pixelSize);
    return TRUE;
}

int CMirrorImageFilter::Process(CDibSection* section)
{
    if (!CanMovePixels(section))
        return FALSE;
    return WithPixelType(*section, [section](auto* type) -> int {
        using PixelType = std::remove_pointer_t<decltype(type)>;
        const std::size_t bytes = WidthOf(*section) * sizeof(PixelType);
        const std::unique_ptr<BYTE[]> copy(new BYTE[bytes + 1]);
        for (int row = 0; row < HeightOf(*section); ++row) {
            std::memcpy(copy.get(), StoredRow(*section, row), bytes);
            ReverseRow<sizeof(PixelType)>(StoredRow(*section, row), copy.get(), WidthOf(*section));
        }
        return TRUE;
    });
}

int CFlipImageFilter::Process(CDibSection* section)
{
    if (!CanMovePixels(section))
        return FALSE;
    const std::size_t size = section->GetLineWidth();
    for (int low = 0, high = HeightOf(*section) - 1; low < high; ++low, --high)
        std::swap_ranges(StoredRow(*section, low), StoredRow(*section, low) + size,
                         StoredRow(*section, high));
    return TRUE;
}

int CRotateLeftFilter::Process(CDibSection* section)
{
    return Rotate(section, true);
}

int CRotateRightFilter::Process(CDibSection* section)
{
    return Rotate(section, false);
}

// --- blocks --------------------------------------------------------------------------------------

namespace {

template <int size>
void AverageBlock(BYTE* block, std::ptrdiff_t lineWidth, int width, int height)
{
    unsigned long long sums[size] = {};
    for (int row = 0; row < height; ++row)
        for (int x = 0; x < width; ++x)
            for (int channel = 0; channel < size; ++channel)
                sums[channel] += block[row * lineWidth + x * size + channel];
    Pixel<size> average;
    const unsigned long long count = static_cast<unsigned long long>(width) * height;
    for (int channel = 0; channel < size; ++channel)
        average.bytes[channel] = static_cast<BYTE>(sums[channel] / count);
    for (int row = 0; row < height; ++row)
        std::fill_n(reinterpret_cast<Pixel<size>*>(block + row * lineWidth), width, average);
}

}  // namespace

void CPixelizeImageFilter::FillAverageColor(unsigned char* block, int lineWidth, int pixelSize, int width,
                                            int height)
{
    if (width < 1 || height < 1)
        return;
    if (pixelSize == 3)
        AverageBlock<3>(block, lineWidth, width, height);
    else if (pixelSize == 4)
        AverageBlock<4>(block, lineWidth, width, height);
}

int CPixelizeImageFilter::Process(CDibSection* section, int blockSize)
{
    if (!HasPixels(section))
        return FALSE;
    const int width = WidthOf(*section);
    const int height = HeightOf(*section);
    const int pixelSize = section->GetPixelWidth();
    const int size = std::max(2, std::min(blockSize, width));
    for (int row = 0; row < height; row += std::min(size, height - row)) {
        BYTE* const pixels = StoredRow(*section, row);
        for (int x = 0; x < width; x += std::min(size, width - x))
            FillAverageColor(pixels + static_cast<std::ptrdiff_t>(x) * pixelSize,
                             static_cast<int>(section->GetLineWidth()), pixelSize, std::min(size, width - x),
                             std::min(size, height - row));
    }
    return TRUE;
}

}  // namespace DUI
