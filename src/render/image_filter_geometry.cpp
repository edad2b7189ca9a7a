// The filters that move pixels, and the one that joins them to blocks.

#include <memory>

#include <qvui/render/image_filter.h>

#include "render/image_rows.h"

namespace DUI {
namespace {

template <int size>
struct Pixel {
    BYTE bytes[size];
};

// Calls operation(a null pointer to the section's kind of pixel); FALSE for pixels that are not whole bytes.
template <class Operation>
int WithPixelType(const CDibSection& section, Operation operation)
{
    switch (section.GetPixelWidth()) {
        case 1:
            return operation(static_cast<Pixel<1>*>(nullptr));
        case 2:
            return operation(static_cast<Pixel<2>*>(nullptr));
        case 3:
            return operation(static_cast<Pixel<3>*>(nullptr));
        case 4:
            return operation(static_cast<Pixel<4>*>(nullptr));
        default:
            return FALSE;
    }
}

// Copies the section's pixels into a section of swapped width and height, turned. The source is read in tiles
// of short rows and many of them, through a buffer: so the target is written in long runs, and neither a row
// length that is a power of two nor the many pages touched defeat the processor's caches.
template <class Pixel>
void Turn(const CDibSection& from, CDibSection& to, bool isLeft)
{
    constexpr int kTileWidth = 32;
    constexpr int kTileHeight = 256;
    const std::unique_ptr<Pixel[]> tile(new Pixel[kTileWidth * kTileHeight]);
    const int width = WidthOf(from);
    const int height = HeightOf(from);
    for (int left = 0; left < width; left += kTileWidth)
        for (int low = 0; low < height; low += kTileHeight) {
            const int columns = std::min(kTileWidth, width - left);
            const int rows = std::min(kTileHeight, height - low);
            for (int i = 0; i < rows; ++i) {
                const int row = isLeft ? height - 1 - (low + i) : low + i;
                const BYTE* const pixels = StoredRow(from, row) + left * sizeof(Pixel);
                if (columns == kTileWidth)  // a constant length is copied without a call
                    std::memcpy(&tile[i * kTileWidth], pixels, kTileWidth * sizeof(Pixel));
                else
                    std::memcpy(&tile[i * kTileWidth], pixels, columns * sizeof(Pixel));
            }
            for (int column = 0; column < columns; ++column) {
                const int row = isLeft ? left + column : width - 1 - (left + column);
                auto* const run = reinterpret_cast<Pixel*>(StoredRow(to, row)) + low;
                for (int i = 0; i < rows; ++i)
                    run[i] = tile[i * kTileWidth + column];
            }
        }
}

// Reverses a row's pixels; `copy` holds the row and a byte more. Moving four bytes at once is faster than
// moving three, and the fourth is overwritten by the next pixel.
template <int size>
void ReverseRow(BYTE* row, const BYTE* copy, int width)
{
    constexpr int kMoved = size == 3 ? 4 : size;
    const BYTE* from = copy + static_cast<std::ptrdiff_t>(width - 1) * size;
    for (int x = 0; x < width - 1; ++x, row += size, from -= size)
        std::memcpy(row, from, kMoved);
    std::memcpy(row, copy, size);
}

int Rotate(CDibSection* section, bool isLeft)
{
    if (!HasPixels(section))
        return FALSE;
    return WithPixelType(*section, [section, isLeft](auto* type) -> int {
        using PixelType = std::remove_pointer_t<decltype(type)>;
        CDibSection turned;
        if (!turned.Create(static_cast<DWORD>(HeightOf(*section)), static_cast<DWORD>(WidthOf(*section)),
                           section->GetBitCount()))
            return FALSE;
        Turn<PixelType>(*section, turned, isLeft);
        return section->Transfer(&turned);
    });
}

}  // namespace

int CSelectImageFilter::Process(CDibSection* source, CDibSection* target, RECT* rect)
{
    if (source == target || !target || !HasPixels(source))
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
    if (!HasPixels(section))
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
    if (!HasPixels(section))
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

// --- blocks
// -------------------------------------------------------------------------------------------------

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
    for (int row = 0; row < height; row += std::min(size, height - row))
        for (int x = 0; x < width; x += std::min(size, width - x))
            FillAverageColor(StoredRow(*section, row) + static_cast<std::ptrdiff_t>(x) * pixelSize,
                             static_cast<int>(section->GetLineWidth()), pixelSize, std::min(size, width - x),
                             std::min(size, height - row));
    return TRUE;
}

}  // namespace DUI
