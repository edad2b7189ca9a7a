#pragma once

#include <qvui/render/dib_section.h>

#include <array>
#include <cstdint>
#include <random>
#include <vector>

/// A picture as the filters' formulas speak of it: channels blue, green, red and alpha, rows from the top.
/// The operations here are slow and follow the formulas word by word.
class Model {
public:
    using Channels = std::array<int, 4>;

    Model(int width, int height, int bitCount)
        : m_width(width),
          m_height(height),
          m_bitCount(bitCount),
          m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }
    explicit Model(const DUI::CDibSection& section);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    int BitCount() const { return m_bitCount; }
    Channels& At(int x, int y) { return m_pixels[static_cast<std::size_t>(y * m_width + x)]; }
    const Channels& At(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * m_width + x)]; }
    bool operator==(const Model& other) const = default;

    /// Fills with random channels; in 24 bits alpha is 0.
    void Randomise(std::mt19937& random);
    /// Makes the section hold these pixels.
    void Store(DUI::CDibSection& section) const;

private:
    int m_width;
    int m_height;
    int m_bitCount;
    std::vector<Channels> m_pixels;
};

/// The nine weights with the row below first, as the kernels are published.
struct KernelModel {
    int weights[3][3];
    int divisor;
    int offset;
    bool isClamped;
};

Model Convoluted(const Model& source, const KernelModel& kernel);
Model RotatedLeft(const Model& source);
Model Pixelized(const Model& source, int blockSize);
/// One channel after a change of contrast.
int Contrasted(int value, int amount);
/// Blue, green and red with hue and saturation multiplied.
Model::Channels HlsScaled(const Model::Channels& pixel, double hueFactor, double saturationFactor);
