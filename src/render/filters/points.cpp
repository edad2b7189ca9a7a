// Filters that compute each pixel from itself alone. Their inner loops process bytes or whole pixels without
// calls or branches, so that compilers vectorise them.

#include <array>
#include <cstdint>

#include <qvui/platform/wide_vectors.h>
#include <qvui/render/filters/image_filter.h>

#include "render/filters/image_rows.h"

namespace DUI {
namespace {

constexpr std::uint32_t kColorBits = 0x00FFFFFF;
constexpr std::uint32_t kAlphaBits = 0xFF000000;

std::uint32_t PixelOf(const CARGB& color)
{
    BYTE pixel[4];
    color.WriteToDIB4(pixel);
    return LoadPixel(pixel);
}

void WritePixel(BYTE* pixel, int pixelSize, const CARGB& color)
{
    if (pixelSize == 4)
        color.WriteToDIB4(pixel);
    else
        color.WriteToDIB3(pixel);
}

// A factor for bytes, with a truncated result, stored as a whole number and the high half of a 16-bit
// product. A channel that is to be preserved has the factor 1, or 0 if the result is a difference.
struct Fraction {
    std::uint16_t whole = 0;
    std::uint16_t part = 0;

    // Exact for every byte: rounding the part up adds less than 256 / 65536 to a product that is a multiple
    // of 1/100.
    static Fraction OfPercent(int percent)
    {
        constexpr int kMostWhole = 255;  // saturates every byte except 0, as any larger factor would
        return {static_cast<std::uint16_t>(std::min(percent / 100, kMostWhole)),
                static_cast<std::uint16_t>((percent % 100 * 0x10000 + 99) / 100)};
    }
    // Uses only 16-bit arithmetic, for which compilers have vector instructions.
    std::uint16_t Of(std::uint16_t byte) const
    {
        const auto wholes = static_cast<std::uint16_t>(byte * whole);
        const auto parts = static_cast<std::uint16_t>((static_cast<std::uint32_t>(byte) * part) >> 16);
        return static_cast<std::uint16_t>(wholes + parts);
    }
};

// Factors for one vector of bytes, which holds a whole number of 32-bit pixels.
constexpr int kLanes = 16;
struct Fractions {
    std::uint16_t whole[kLanes];
    std::uint16_t part[kLanes];
};

Fractions FractionsOf(Fraction color, Fraction alpha, int pixelSize)
{
    Fractions fractions{};
    for (int i = 0; i < kLanes; ++i) {
        const Fraction& fraction = pixelSize == 4 && i % 4 == 3 ? alpha : color;
        fractions.whole[i] = fraction.whole;
        fractions.part[i] = fraction.part;
    }
    return fractions;
}

// Calls change(byte index, lane) for each byte of a row, in groups of a fixed length.
template <class Change>
void ForEachLane(int bytes, Change change)
{
    int i = 0;
    for (; i + kLanes <= bytes; i += kLanes)
        for (int lane = 0; lane < kLanes; ++lane)
            change(i + lane, lane);
    for (int lane = 0; i + lane < bytes; ++lane)
        change(i + lane, lane);
}

// Returns (blue + green + red) / 3. The factor is exact for sums of three bytes.
std::uint32_t MeanOf(std::uint32_t blue, std::uint32_t green, std::uint32_t red)
{
    return (blue + green + red) * 683 >> 11;
}

// Sets blue, green and red of each pixel of a row to tone(their mean).
template <class Tone>
void ReplaceByTone(BYTE* row, int count, int pixelSize, Tone tone)
{
    if (pixelSize == 4) {
        for (int x = 0; x < count; ++x) {
            const std::uint32_t pixel = LoadPixel(row + 4 * x);
            const std::uint32_t mean = MeanOf(pixel & 0xFF, (pixel >> 8) & 0xFF, (pixel >> 16) & 0xFF);
            StorePixel(row + 4 * x, (pixel & kAlphaBits) | tone(mean) * 0x010101);
        }
        return;
    }
    for (int x = 0; x < count; ++x) {
        BYTE* const pixel = row + 3 * x;
        pixel[0] = pixel[1] = pixel[2] = static_cast<BYTE>(tone(MeanOf(pixel[0], pixel[1], pixel[2])));
    }
}

QVUI_WIDE_VECTORS void GreyRow(BYTE* row, int count, int pixelSize)
{
    ReplaceByTone(row, count, pixelSize, [](std::uint32_t mean) { return mean; });
}

QVUI_WIDE_VECTORS void BlackenRow(BYTE* row, int count, int pixelSize, std::uint32_t threshold)
{
    ReplaceByTone(row, count, pixelSize,
                  [threshold](std::uint32_t mean) { return mean > threshold ? 255U : 0U; });
}

// Takes the factors by value: by reference they would be reloaded for every byte, because a byte may alias
// them.
QVUI_WIDE_VECTORS void BrightenRow(BYTE* row, int bytes, Fractions fractions)
{
    ForEachLane(bytes, [row, &fractions](int i, int lane) {
        const Fraction fraction{fractions.whole[lane], fractions.part[lane]};
        row[i] = static_cast<BYTE>(std::min<std::uint16_t>(255, fraction.Of(row[i])));
    });
}

QVUI_WIDE_VECTORS void NegateRow(BYTE* row, int count, int pixelSize)
{
    if (pixelSize == 4) {
        for (int x = 0; x < count; ++x)
            StorePixel(row + 4 * x, LoadPixel(row + 4 * x) ^ kColorBits);
        return;
    }
    for (int i = 0; i < 3 * count; ++i)
        row[i] = static_cast<BYTE>(255 - row[i]);
}

}  // namespace

int CFillIColorFilter::Process(CDibSection* section, const CARGB& color, RECT* rect)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    const BYTE* first = nullptr;
    ForEachRow(*section, PartOf(*section, rect), [&](BYTE* row, int count) {
        if (first) {
            std::memcpy(row, first, static_cast<std::size_t>(count) * pixelSize);
            return;
        }
        for (int x = 0; x < count; ++x)
            WritePixel(row + static_cast<std::ptrdiff_t>(x) * pixelSize, pixelSize, color);
        first = row;
    });
    return TRUE;
}

int CStrippleImageFilter::Process(CDibSection* section, const CARGB& color, unsigned long spacing, RECT* rect)
{
    if (!HasPixels(section) || spacing == 0)
        return FALSE;
    const RECT part = PartOf(*section, rect);
    const int pixelSize = section->GetPixelWidth();
    const unsigned long long step = spacing;
    // The rows start at the part's left edge, but dots are counted from the image's.
    const auto left = static_cast<unsigned long long>(part.left);
    const unsigned long long firstDot = (left + step - 1) / step * step - left;
    auto y = static_cast<unsigned long long>(part.top);
    ForEachRow(*section, part, [&](BYTE* row, int count) {
        if (y++ % step != 0)
            return;
        for (unsigned long long x = firstDot; x < static_cast<unsigned long long>(count); x += step)
            WritePixel(row + x * pixelSize, pixelSize, color);
    });
    return TRUE;
}

int CGrayScaleImageFilter::Process(CDibSection* section, RECT* rect)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    ForEachRow(*section, PartOf(*section, rect),
               [pixelSize](BYTE* row, int count) { GreyRow(row, count, pixelSize); });
    return TRUE;
}

int CWhiteBlackImageFilter::Process(CDibSection* section, RECT* rect, unsigned char threshold)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    ForEachRow(*section, PartOf(*section, rect), [pixelSize, threshold](BYTE* row, int count) {
        BlackenRow(row, count, pixelSize, threshold);
    });
    return TRUE;
}

int CBrightenImageFilter::Process(CDibSection* section, short amount, RECT* rect)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    const Fractions fractions =
        FractionsOf(Fraction::OfPercent(std::max(0, amount + 100)), Fraction::OfPercent(100), pixelSize);
    ForEachRow(*section, PartOf(*section, rect), [&fractions, pixelSize](BYTE* row, int count) {
        BrightenRow(row, count * pixelSize, fractions);
    });
    return TRUE;
}

int CFadeImageFilter::Process(CDibSection* section, const CDibSection* other, short percent)
{
    if (!HasPixels(section) || !HasPixels(other) || WidthOf(*section) != WidthOf(*other) ||
        HeightOf(*section) != HeightOf(*other) || section->GetPixelWidth() != other->GetPixelWidth())
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    const Fractions fractions =
        FractionsOf(Fraction::OfPercent(std::clamp<int>(percent, 0, 100)), {}, pixelSize);
    int y = 0;
    ForEachRow(*section, [&](BYTE* row, int count) {
        const BYTE* const towards = RowFromTop(*other, y++);
        ForEachLane(count * pixelSize, [row, towards, &fractions](int i, int lane) {
            const auto difference = static_cast<std::int16_t>(towards[i] - row[i]);
            const auto sign = static_cast<std::int16_t>(difference >> 15);
            const Fraction fraction{fractions.whole[lane], fractions.part[lane]};
            const std::uint16_t change = fraction.Of(static_cast<std::uint16_t>((difference ^ sign) - sign));
            row[i] = static_cast<BYTE>(row[i] + ((change ^ sign) - sign));
        });
    });
    return TRUE;
}

int CNegativeImageFilter::Process(CDibSection* section)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    ForEachRow(*section, [pixelSize](BYTE* row, int count) { NegateRow(row, count, pixelSize); });
    return TRUE;
}

int CReplaceColourFilter::Process(CDibSection* section, const CARGB& from, const CARGB& to)
{
    if (!HasPixels(section))
        return FALSE;
    const int pixelSize = section->GetPixelWidth();
    const std::uint32_t old = PixelOf(from);
    const std::uint32_t replacement = PixelOf(to);
    ForEachRow(*section, [&](BYTE* row, int count) {
        if (pixelSize == 4) {
            for (int x = 0; x < count; ++x) {
                const std::uint32_t pixel = LoadPixel(row + 4 * x);
                StorePixel(row + 4 * x, pixel == old ? replacement : pixel);
            }
            return;
        }
        for (BYTE* pixel = row; pixel < row + 3 * count; pixel += 3)
            if (pixel[0] == from.GetB() && pixel[1] == from.GetG() && pixel[2] == from.GetR())
                to.WriteToDIB3(pixel);
    });
    return TRUE;
}

// --- contrast ------------------------------------------------------------------------------------

void CContrastFilter::IncreaseContrast(unsigned char& channel, int low, int high, float factor)
{
    if (channel <= low)
        channel = 0;
    else if (channel >= high)
        channel = 255;
    else
        channel =
            static_cast<unsigned char>(static_cast<long long>(static_cast<float>(channel - low) / factor));
}

void CContrastFilter::DecreaseContrast(unsigned char& channel, int amount, float factor)
{
    channel =
        static_cast<unsigned char>(static_cast<long long>(static_cast<float>(channel) / factor) - amount);
}

void CContrastFilter::ChangeContrast(int amount, CARGB& color)
{
    const double span = 255 + 2.0 * (amount < 0 ? amount : -static_cast<double>(amount));
    for (unsigned char* channel : {&color.GetR(), &color.GetG(), &color.GetB()}) {
        if (amount < 0)
            DecreaseContrast(*channel, amount, static_cast<float>(255 / span));
        else
            IncreaseContrast(*channel, amount, 255 - amount, static_cast<float>(span / 255));
    }
}

int CContrastFilter::Process(CDibSection* section, int amount)
{
    if (!HasPixels(section))
        return FALSE;
    // Each result depends only on the channel's value, so all 256 are computed once.
    std::array<BYTE, 256> result;
    for (std::size_t value = 0; value < result.size(); ++value) {
        const auto byte = static_cast<BYTE>(value);
        CARGB color(byte, byte, byte, 0);
        ChangeContrast(amount, color);
        result[value] = color.GetR();
    }
    const int pixelSize = section->GetPixelWidth();
    ForEachRow(*section, [&result, pixelSize](BYTE* row, int count) {
        for (BYTE* pixel = row; pixel < row + static_cast<std::ptrdiff_t>(count) * pixelSize;
             pixel += pixelSize)
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = result[pixel[channel]];
    });
    return TRUE;
}

}  // namespace DUI
