#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/cimage.h>
#include <qvui/render/dib_section.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

#include "platform/gdi/canvas.h"
#include "support/leak_check.h"
#include "support/screenshot.h"

namespace DUI {

inline void PrintTo(const CDibSection& section, std::ostream* out)
{
    *out << "a section of " << section.GetDibHeader()->biWidth << " x " << section.GetDibHeader()->biHeight;
}

}  // namespace DUI

/// A test that fails when it leaves an object of the platform or a counted object behind.
class RenderTest : public testing::Test {
protected:
    ~RenderTest() override { EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), m_counted) << "counted objects"; }

private:
    qvui::test::LeakCheck m_leaks;
    std::size_t m_counted = DUI::CRefCountBase::GetLiveCount();
};

/// A colour from AARRGGBB.
inline DUI::CARGB Argb(std::uint32_t color)
{
    return {static_cast<unsigned char>(color >> 16), static_cast<unsigned char>(color >> 8),
            static_cast<unsigned char>(color), static_cast<unsigned char>(color >> 24)};
}

/// AARRGGBB of a colour.
inline std::uint32_t Bits(const DUI::CARGB& color)
{
    return color.GetB() | (static_cast<std::uint32_t>(color.GetG()) << 8) |
           (static_cast<std::uint32_t>(color.GetR()) << 16) |
           (static_cast<std::uint32_t>(color.GetA()) << 24);
}

/// A section painted pixel by pixel, which is in no context.
struct Section : DUI::CDibSection {
    Section(int width, int height, const PixelAt& pixelAt, WORD bitCount = 32)
    {
        Create(static_cast<DWORD>(width), static_cast<DWORD>(height), bitCount);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                SetPixel(x, y, Argb(pixelAt(x, y)), TRUE);
    }
    operator HBITMAP() const { return GetBitmap(); }
};

/// What the platform's blend makes of one pixel: per-pixel alpha times the constant alpha, premultiplied.
/// Only for pixels whose sums stay below 256.
inline std::uint32_t Blended(std::uint32_t source, std::uint32_t destination, std::uint32_t alpha)
{
    const std::uint32_t rest = 255 - Over255(Channel(source, 3) * alpha);
    std::uint32_t pixel = 0;
    for (int channel = 0; channel < 4; ++channel)
        pixel |= (Over255(Channel(source, channel) * alpha) + Over255(Channel(destination, channel) * rest))
                 << (8 * channel);
    return pixel;
}

/// One pixel of a two-colour gradient: each channel is 16 bits wide, interpolated, and cut to its high byte.
inline std::uint32_t GradientPixel(std::uint32_t from, std::uint32_t to, int position, int length)
{
    std::uint32_t pixel = 0xFF000000;
    for (int channel = 0; channel < 3; ++channel) {
        const std::int64_t first = static_cast<std::int64_t>(Channel(from, channel)) << 8;
        const std::int64_t last = static_cast<std::int64_t>(Channel(to, channel)) << 8;
        const std::int64_t mixed = (first * (length - position) + last * position) / length;
        pixel |= static_cast<std::uint32_t>(mixed >> 8) << (8 * channel);
    }
    return pixel;
}

/// Writes a picture file: 32 bits with straight alpha, or 24 bits.
inline std::string WritePicture(const char* name, int width, int height, bool hasAlpha,
                                const PixelAt& pixelAt)
{
    CImage image;
    image.Create(width, height, hasAlpha ? 32 : 24);
    image.SetHasAlphaChannel(hasAlpha);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int channel = 0; channel < (hasAlpha ? 4 : 3); ++channel)
                static_cast<std::uint8_t*>(image.GetPixelAddress(x, y))[channel] =
                    static_cast<std::uint8_t>(Channel(pixelAt(x, y), channel));
    const std::string path = qvui::test::OutputPath(name);
    EXPECT_EQ(image.Save(path.c_str()), S_OK);
    return path;
}

inline std::vector<unsigned char> FileBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
