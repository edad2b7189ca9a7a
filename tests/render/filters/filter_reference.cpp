#include "render/filters/filter_reference.h"

#include <qvui/foundation/color.h>

#include <algorithm>
#include <map>
#include <utility>

#include "render/render_test.h"

Model::Model(const DUI::CDibSection& section)
    : Model(section.GetDibHeader()->biWidth, section.GetDibHeader()->biHeight, section.GetBitCount())
{
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const DUI::CARGB color = section.GetPixel(x, y, TRUE);
            At(x, y) = {color.GetB(), color.GetG(), color.GetR(), color.GetA()};
        }
}

void Model::Randomise(std::mt19937& random)
{
    // Extremes are where formulas break.
    const auto randomByte = [&random] {
        const unsigned kind = random() % 8;
        return static_cast<int>(kind == 0 ? 0U : kind == 1 ? 255U : random() % 256);
    };
    for (Channels& pixel : m_pixels)
        pixel = {randomByte(), randomByte(), randomByte(), m_bitCount == 32 ? randomByte() : 0};
}

void Model::Store(DUI::CDibSection& section) const
{
    section.Create(static_cast<DWORD>(m_width), static_cast<DWORD>(m_height), static_cast<WORD>(m_bitCount));
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const Channels& c = At(x, y);
            section.SetPixel(x, y,
                             DUI::CARGB(static_cast<BYTE>(c[2]), static_cast<BYTE>(c[1]),
                                        static_cast<BYTE>(c[0]), static_cast<BYTE>(c[3])),
                             TRUE);
        }
}

Model Convoluted(const Model& source, const KernelModel& kernel)
{
    Model result = source;
    for (int y = 1; y + 1 < source.Height(); ++y)
        for (int x = 1; x + 1 < source.Width(); ++x)
            for (std::size_t channel = 0; channel < 3; ++channel) {
                int sum = 0;
                for (int row = 0; row < 3; ++row)
                    for (int column = 0; column < 3; ++column)
                        sum += kernel.weights[row][column] * source.At(x + column - 1, y + 1 - row)[channel];
                int value = sum / kernel.divisor + kernel.offset;
                if (kernel.isClamped)
                    value = std::clamp(value, 0, 255);
                result.At(x, y)[channel] = value & 0xFF;
            }
    return result;
}

Model RotatedLeft(const Model& source)
{
    Model result(source.Height(), source.Width(), source.BitCount());
    for (int y = 0; y < source.Height(); ++y)
        for (int x = 0; x < source.Width(); ++x)
            result.At(y, source.Width() - 1 - x) = source.At(x, y);
    return result;
}

Model Pixelized(const Model& source, int blockSize)
{
    const int size = std::max(std::min(blockSize, source.Width()), 2);
    // Which block, counted from the left and from the bottom.
    const auto blockOf = [&source, size](int x, int y) {
        return std::pair(x / size, (source.Height() - 1 - y) / size);
    };
    std::map<std::pair<int, int>, std::array<int, 5>> sums;  // of the channels, and the count of pixels
    for (int y = 0; y < source.Height(); ++y)
        for (int x = 0; x < source.Width(); ++x) {
            std::array<int, 5>& sum = sums[blockOf(x, y)];
            for (std::size_t channel = 0; channel < 4; ++channel)
                sum[channel] += source.At(x, y)[channel];
            ++sum[4];
        }
    Model result = source;
    for (int y = 0; y < source.Height(); ++y)
        for (int x = 0; x < source.Width(); ++x)
            for (std::size_t channel = 0; channel < 4; ++channel) {
                const std::array<int, 5>& sum = sums[blockOf(x, y)];
                result.At(x, y)[channel] = sum[channel] / sum[4];
            }
    return result;
}

int Contrasted(int value, int amount)
{
    if (amount < 0) {
        const auto factor = static_cast<float>(255.0 / (255.0 + 2.0 * amount));
        return (static_cast<int>(static_cast<float>(value) / factor) - amount) & 0xFF;
    }
    if (value <= amount)
        return 0;
    if (value >= 255 - amount)
        return 255;
    const auto factor = static_cast<float>((255.0 - 2.0 * amount) / 255.0);
    return static_cast<int>(static_cast<float>(value - amount) / factor) & 0xFF;
}

Model::Channels HlsScaled(const Model::Channels& pixel, double hueFactor, double saturationFactor)
{
    DUI::CHLSColor color(static_cast<BYTE>(pixel[2]), static_cast<BYTE>(pixel[1]),
                         static_cast<BYTE>(pixel[0]));
    color.ToHLS();
    color.m_hue *= hueFactor;
    color.m_saturation *= saturationFactor;
    color.ToRGB();
    return {color.m_blue, color.m_green, color.m_red, pixel[3]};
}
