#pragma once

#include <qvui/render/dib_section.h>

namespace DUI {

// Pixel operations on sections of 24 and 32 bits. Each class has one static operation, Process, which changes
// the section and returns TRUE. It returns FALSE, with the section unchanged, if the section is null or has
// no bitmap, and in the cases that the class lists. Sections of other depths are left unchanged; cropping,
// mirroring, flipping and rotating then return FALSE. Alpha bytes are preserved, except by the fill, the dot
// grid and the colour replacement. All results are exact to the bit.
//
// A rectangle (pixels from the image's top-left corner) limits an operation; null means the whole image. Its
// right and bottom are clamped to the image in place, a left or top outside the image is treated as 0, and an
// empty rectangle changes nothing.

// --- convolutions --------------------------------------------------------------------------------

/// A kernel that computes each colour byte from its neighbourhood. Applications may derive from it.
class QVUI_API CDibFilter {
public:
    /// `half` is half the kernel's width: the number of rows and columns at each edge that are not filtered.
    explicit CDibFilter(int half = 1) : m_nHalf(half > 0 ? half : 0) {}
    CDibFilter(const CDibFilter&) = default;
    CDibFilter& operator=(const CDibFilter&) = default;

    /// Returns the filtered value of the byte at `src`. The neighbours of the same channel are `pixelSize`
    /// bytes away in the row, and `lineWidth` bytes away in the row below (minus) and above (plus).
    virtual unsigned char Kernel(unsigned char* src, int pixelSize, int lineWidth) = 0;
    virtual ~CDibFilter() = default;
    /// Filters a row of `width` pixels from `src` into `dst`. The first and last `half` pixels and all alpha
    /// bytes are copied.
    virtual void Filter24bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth);
    virtual void Filter32bpp(unsigned char* dst, unsigned char* src, int width, int lineWidth);

    int GetHalf() const { return m_nHalf; }

private:
    int m_nHalf;
};

/// A kernel of nine weights: k1x for the row below, k2x for the row itself, k3x for the row above. The result
/// is (sum of weight * byte) / divisor, truncated toward zero, + offset. It is clamped to 0..255 if `clamp`
/// is 1; otherwise its low 8 bits are used. `name` is the address of a global pointer to the kernel's display
/// name.
template <int k11, int k12, int k13, int k21, int k22, int k23, int k31, int k32, int k33, int divisor,
          int offset, int clamp, const char** name>
class CDib33Filter : public CDibFilter {
public:
    static_assert(divisor != 0);
    static constexpr int kWeights[9] = {k11, k12, k13, k21, k22, k23, k31, k32, k33};
    static constexpr int kDivisor = divisor;
    static constexpr int kOffset = offset;
    static constexpr int kClamp = clamp;

    static const char* GetName() { return *name; }

    unsigned char Kernel(unsigned char* src, int pixelSize, int lineWidth) override
    {
        long long sum = 0;
        for (int i = 0; i < 9; ++i)
            sum +=
                static_cast<long long>(kWeights[i]) * src[(i / 3 - 1) * lineWidth + (i % 3 - 1) * pixelSize];
        const long long value = sum / divisor + offset;
        if (clamp == 1)
            return static_cast<unsigned char>(value < 0 ? 0 : value > 255 ? 255 : value);
        return static_cast<unsigned char>(value & 0xFF);
    }
};

/// The display names of the built-in kernels.
extern QVUI_API const char* szSmooth;
extern QVUI_API const char* szGuasianSmooth;
extern QVUI_API const char* szSharpening;
extern QVUI_API const char* szLaplasian;
extern QVUI_API const char* szEmboss135;
extern QVUI_API const char* szEmboss90;

/// The built-in kernels.
enum Convolute_Type {
    CONVOLUTE_SMOOTH = 1,
    CONVOLUTE_GUASIAN_SMOOTH = 2,
    CONVOLUTE_SHARPENING = 3,
    CONVOLUTE_LAPLASIAN = 4,
    CONVOLUTE_EMBOSS_135 = 5,
    CONVOLUTE_EMBOSS_90 = 6,
};

/// Filters every pixel with a kernel, which always reads unfiltered pixels. Returns FALSE if no row is
/// filtered: for a null kernel, an unknown type, an image with too few rows for the kernel, and depths other
/// than 24 and 32.
class QVUI_API CConvoluteFilter {
public:
    static int Process(CDibSection* section, CDibFilter* kernel);
    static int Process(CDibSection* section, Convolute_Type type);
};

class QVUI_API CSharpenImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Gaussian smoothing.
class QVUI_API CGaussImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Emboss from 135 degrees.
class QVUI_API CEmbossImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Laplacian edge detection.
class QVUI_API CEdgeImageFilter {
public:
    static int Process(CDibSection* section);
};

// --- points --------------------------------------------------------------------------------------

/// Fills with a colour, including alpha in 32 bits.
class QVUI_API CFillIColorFilter {
public:
    static int Process(CDibSection* section, const CARGB& color, RECT* rect);
};

/// Draws a dot grid: sets the pixels whose x and y, from the image's top-left corner, are multiples of the
/// spacing. In 32 bits alpha is set too. Returns FALSE for spacing 0.
class QVUI_API CStrippleImageFilter {
public:
    static int Process(CDibSection* section, const CARGB& color, unsigned long spacing, RECT* rect);
};

/// Sets blue, green and red to their truncated mean.
class QVUI_API CGrayScaleImageFilter {
public:
    static int Process(CDibSection* section, RECT* rect);
};

/// Sets pixels to white if the truncated mean of blue, green and red is above the threshold, otherwise to
/// black.
class QVUI_API CWhiteBlackImageFilter {
public:
    static int Process(CDibSection* section, RECT* rect, unsigned char threshold);
};

/// Sets each channel v to v * (amount + 100) / 100, at most 255: 0 changes nothing, 100 doubles, and -100 or
/// less gives black.
class QVUI_API CBrightenImageFilter {
public:
    static int Process(CDibSection* section, short amount, RECT* rect);
};

/// Moves each channel toward the other image's by a percentage, clamped to 0..100; results are truncated.
/// Returns FALSE if the sizes or the bytes per pixel differ.
class QVUI_API CFadeImageFilter {
public:
    static int Process(CDibSection* section, const CDibSection* other, short percent);
};

/// Sets each channel v to 255 - v.
class QVUI_API CNegativeImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Replaces the pixels of one colour by another. In 32 bits alpha is compared and replaced too.
class QVUI_API CReplaceColourFilter {
public:
    static int Process(CDibSection* section, const CARGB& from, const CARGB& to);
};

/// A positive amount c stretches the range c..255 - c to 0..255; a negative amount c compresses 0..255 to
/// -c..255 + c.
class QVUI_API CContrastFilter {
public:
    static int Process(CDibSection* section, int amount);

    static void ChangeContrast(int amount, CARGB& color);
    /// Maps values up to `low` to 0, from `high` on to 255, and values between to (v - low) / factor,
    /// truncated.
    static void IncreaseContrast(unsigned char& channel, int low, int high, float factor);
    /// Maps v to v / factor, truncated, - amount.
    static void DecreaseContrast(unsigned char& channel, int amount, float factor);
};

/// Multiplies every pixel's hue by (amount + 100) / 100. Results of 359 degrees or more become 358.9999.
class QVUI_API CHueChangeFilter {
public:
    static int Process(CDibSection* section, short amount);
};

/// Multiplies every pixel's saturation by (amount + 100) / 100, clamped to 0..1.
class QVUI_API CSaturationChangeFilter {
public:
    static int Process(CDibSection* section, short amount);
};

// --- geometry ------------------------------------------------------------------------------------

/// Averages blocks of n by n pixels, including alpha; n must be at least 2 and at most the width. Blocks are
/// aligned to the bottom left, so partial blocks are at the top and at the right.
class QVUI_API CPixelizeImageFilter {
public:
    static int Process(CDibSection* section, int blockSize);

    /// Averages one block whose first pixel (bottom left) is at `block`.
    static void FillAverageColor(unsigned char* block, int lineWidth, int pixelSize, int width, int height);
};

/// Crops a rectangle into `target`. Returns FALSE, with the target unchanged, if both sections are the same
/// or the rectangle is empty; returns FALSE, with the target empty, if there is not enough memory.
class QVUI_API CSelectImageFilter {
public:
    static int Process(CDibSection* source, CDibSection* target, RECT* rect);
};

/// Mirrors horizontally (left and right are exchanged).
class QVUI_API CMirrorImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Flips vertically (top and bottom are exchanged).
class QVUI_API CFlipImageFilter {
public:
    static int Process(CDibSection* section);
};

/// Rotates by 90 degrees counter-clockwise. Returns FALSE if there is not enough memory.
class QVUI_API CRotateLeftFilter {
public:
    static int Process(CDibSection* section);
};

/// Rotates by 90 degrees clockwise. Returns FALSE if there is not enough memory.
class QVUI_API CRotateRightFilter {
public:
    static int Process(CDibSection* section);
};

}  // namespace DUI
