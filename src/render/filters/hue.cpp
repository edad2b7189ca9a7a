// Filters for hue and saturation. Their results equal those of CHLSColor, bit for bit. The conversions of
// CHLSColor take most of the time, so for larger pictures the scaler below shares intermediate results
// between pixels.

#include <memory>

#include <qvui/foundation/color.h>
#include <qvui/render/filters/image_filter.h>

#include "render/filters/image_rows.h"

namespace DUI {
namespace {

struct Factors {
    double hue = 1;
    double saturation = 1;
};

void ScaleExactly(BYTE* pixel, const Factors& factors)
{
    CHLSColor color(pixel[2], pixel[1], pixel[0]);
    color.ToHLS();
    color.m_hue *= factors.hue;
    color.m_saturation *= factors.saturation;
    color.ToRGB();
    pixel[0] = color.m_blue;
    pixel[1] = color.m_green;
    pixel[2] = color.m_red;
}

BYTE ByteOf(double share)
{
    return static_cast<BYTE>(static_cast<int>(share * 255));
}

// Scales many pixels. The range of a pixel's channels depends only on its largest and smallest channel and is
// looked up in a table. Within each sixth of the hue circle one channel is at the top of the range and one at
// the bottom, so only the third must be computed.
class HlsScaler {
public:
    explicit HlsScaler(const Factors& factors)
        : m_factors(factors),
          m_ranges(new Range[IndexOf(255, 255) + 1])
    {
        for (int largest = 0; largest < 256; ++largest)
            for (int smallest = 0; smallest <= largest; ++smallest)
                m_ranges[IndexOf(largest, smallest)] = RangeOf(largest, smallest, factors.saturation);
    }

    void Scale(BYTE* pixel) const
    {
        const int red = pixel[2];
        const int green = pixel[1];
        const int blue = pixel[0];
        const int largest = std::max({red, green, blue});
        const int smallest = std::min({red, green, blue});
        const Range& range = m_ranges[IndexOf(largest, smallest)];
        if (largest == smallest) {
            pixel[0] = pixel[1] = pixel[2] = range.bottomByte;
            return;
        }
        // If channels tie for the largest, red precedes green and green precedes blue.
        const int which = blue > std::max(red, green) ? 2 : red < green;
        constexpr double kBase[3] = {360, 120, 240};
        const int differences[3] = {green - blue, blue - red, red - green};
        double hue = static_cast<double>(differences[which] * 60) / (largest - smallest) + kBase[which];
        hue -= hue >= 360 ? 360 : 0;
        hue *= m_factors.hue;
        // The same corrections as in CHLSColor.
        hue = hue < 0 ? 0 : hue >= 359 ? 358.9999 : hue;

        const int part = static_cast<int>(hue * (1.0 / 60));
        const double within = hue - 60 * part;
        // Close to the border of a sixth, rounding decides which part applies, so the exact computation is
        // used.
        constexpr double kMargin = 1e-6;
        if (hue > 0 && (within < kMargin || within > 60 - kMargin)) {
            ScaleExactly(pixel, m_factors);
            return;
        }
        const Part& shape = kParts[part];
        const double slope = shape.sign * (hue + shape.shift) + shape.start;
        const BYTE bytes[3] = {range.bottomByte, ByteOf(range.bottom + range.height * slope / 60),
                               range.topByte};
        pixel[0] = bytes[shape.blue];
        pixel[1] = bytes[shape.green];
        pixel[2] = bytes[shape.red];
    }

private:
    // The range of a pixel's channels after scaling.
    struct Range {
        double bottom;
        double height;
        BYTE bottomByte;
        BYTE topByte;
    };

    // A sixth of the hue circle. For each channel: 0 bottom, 1 between, 2 top. The position of the middle
    // channel, 0 to 60, is sign * (hue + shift) + start, computed in the order of CHLSColor's operations.
    struct Part {
        BYTE red, green, blue;
        double sign, shift, start;
    };
    static constexpr Part kParts[6] = {
        {2, 1, 0, 1, 0, 0},    {1, 2, 0, -1, 120, 240}, {0, 2, 1, 1, -120, 0},
        {0, 1, 2, -1, 0, 240}, {1, 0, 2, 1, 120, -360}, {2, 0, 1, -1, -120, 240},
    };

    static int IndexOf(int largest, int smallest) { return largest * (largest + 1) / 2 + smallest; }

    static Range RangeOf(int largest, int smallest, double factor)
    {
        const int sum = largest + smallest;
        const int difference = largest - smallest;
        const double luminance = difference == 0 ? smallest / 255.0 : sum / 510.0;
        double saturation = 0;
        if (difference != 0)
            saturation = static_cast<double>(difference) / (luminance <= 0.5 ? sum : 510 - sum);
        saturation = std::clamp(saturation * factor, 0.0, 1.0);
        const double top =
            luminance <= 0.5 ? luminance * (1 + saturation) : luminance + saturation - luminance * saturation;
        const double bottom = 2 * luminance - top;
        return {bottom, top - bottom, ByteOf(bottom), ByteOf(top)};
    }

    Factors m_factors;
    std::unique_ptr<Range[]> m_ranges;
};

template <class Scale>
void ScaleEveryPixel(CDibSection& section, Scale scale)
{
    const int pixelSize = section.GetPixelWidth();
    ForEachRow(section, [pixelSize, scale](BYTE* row, int count) {
        for (BYTE* pixel = row; pixel < row + static_cast<std::ptrdiff_t>(count) * pixelSize;
             pixel += pixelSize)
            scale(pixel);
    });
}

int ScaleHls(CDibSection* section, const Factors& factors)
{
    if (!HasPixels(section))
        return FALSE;
    // About the number of entries of the lookup table; smaller images do not justify building it.
    constexpr long long kWorthATable = 1 << 15;
    if (static_cast<long long>(WidthOf(*section)) * HeightOf(*section) < kWorthATable) {
        ScaleEveryPixel(*section, [&factors](BYTE* pixel) { ScaleExactly(pixel, factors); });
        return TRUE;
    }
    const HlsScaler scaler(factors);
    ScaleEveryPixel(*section, [&scaler](BYTE* pixel) { scaler.Scale(pixel); });
    return TRUE;
}

double FactorOf(short amount)
{
    return (amount + 100.0) / 100.0;
}

}  // namespace

int CHueChangeFilter::Process(CDibSection* section, short amount)
{
    return ScaleHls(section, {FactorOf(amount), 1});
}

int CSaturationChangeFilter::Process(CDibSection* section, short amount)
{
    return ScaleHls(section, {1, FactorOf(amount)});
}

}  // namespace DUI
