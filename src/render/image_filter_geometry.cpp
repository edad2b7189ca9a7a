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

// Copies the section's pixels into a section of swapped width and height: the pixel at column x of stored row
// r goes to column place(r) of row placeRow(x). Square tiles keep both sides in the processor's cache.
template <class Pixel>
void Turn(const CDibSection& from, CDibSection& to, bool isLeft)
{
    constexpr int kTile = 16;
    const int width = WidthOf(from);
    const int height = HeightOf(from);
    for (int top = 0; top < width; top += kTile)
        for (int left = 0; left < height; left += kTile)
            for (int row = top; row < std::min(top + kTile, width); ++row) {
                const int x = isLeft ? row : width - 1 - row;
                auto* target = reinterpret_cast<Pixel*>(StoredRow(to, row));
                for (int column = left; column < std::min(left + kTile, height); ++column)
                    target[column] = reinterpret_cast<const Pixel*>(
                        StoredRow(from, isLeft ? height - 1 - column : column))[x];
            }
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
        for (int row = 0; row < HeightOf(*section); ++row) {
            auto* pixels = reinterpret_cast<PixelType*>(StoredRow(*section, row));
            std::reverse(pixels, pixels + WidthOf(*section));
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

void CPixelizeImageFilter::FillAverageColor(unsigned char* block, int lineWidth, int pixelSize, int width,
                                            int height)
{
    if ((pixelSize != 3 && pixelSize != 4) || width < 1 || height < 1)
        return;
    const auto rowOf = [block, lineWidth](int row) {
        return block + static_cast<std::ptrdiff_t>(row) * lineWidth;
    };
    unsigned long long sums[4] = {};
    for (int row = 0; row < height; ++row) {
        const BYTE* pixel = rowOf(row);
        for (int x = 0; x < width; ++x, pixel += pixelSize)
            for (int channel = 0; channel < pixelSize; ++channel)
                sums[channel] += pixel[channel];
    }
    BYTE average[4];
    for (int channel = 0; channel < pixelSize; ++channel)
        average[channel] =
            static_cast<BYTE>(sums[channel] / (static_cast<unsigned long long>(width) * height));
    for (int row = 0; row < height; ++row) {
        BYTE* pixel = rowOf(row);
        for (int x = 0; x < width; ++x, pixel += pixelSize)
            std::memcpy(pixel, average, static_cast<std::size_t>(pixelSize));
    }
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
