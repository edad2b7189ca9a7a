// Pictures of every format, whole and broken.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "platform/classlib/picture_files.h"
#include "platform/platform_test.h"
#include "support/screenshot.h"

namespace {

constexpr int kWidth = 4;
constexpr int kHeight = 3;
using Pixels = std::vector<std::uint32_t>;  // AARRGGBB, top row first

// What data/make-images.sh puts into the pictures.
constexpr std::uint32_t kColours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0x000000, 0x808080,
                                      0xFFFF00, 0x00FFFF, 0xFF00FF, 0xFF8000, 0x102030, 0xC8DCF0};
constexpr std::uint32_t kAlphas[] = {255, 200, 128, 64};

enum class Alpha { None, Opaque, Columns };

// The alpha bits of the pixel that is stored at a place.
std::uint32_t AlphaOf(Alpha alpha, std::size_t i)
{
    return alpha == Alpha::None ? 0 : alpha == Alpha::Opaque ? 0xFF000000 : kAlphas[i % kWidth] << 24;
}

Pixels Colours(Alpha alpha, std::size_t count = kWidth * kHeight)
{
    Pixels pixels(count);
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = kColours[i % std::size(kColours)] | AlphaOf(alpha, i);
    return pixels;
}

Pixels Greys(Alpha alpha)
{
    Pixels pixels(kWidth * kHeight);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint32_t>(i) * 20 * 0x010101 | AlphaOf(alpha, i);
    return pixels;
}

Pixels Bits(std::uint32_t clear, std::uint32_t set, const std::string& pattern)
{
    Pixels pixels;
    for (const char bit : pattern)
        pixels.push_back(bit == '1' ? set : clear);
    return pixels;
}

Pixels WithClearPixel(Pixels pixels, std::size_t i)
{
    pixels[i] &= 0xFFFFFF;
    return pixels;
}

struct Pictures {
    std::vector<std::string> files;
    Pixels pixels;
    bool hasAlpha = false;
    int tolerance = 0;
};

const std::vector<Pictures>& AllPictures()
{
    static const std::vector<Pictures> pictures{
        {{"rgb8.png", "rgb16.png", "palette8.png", "palette4.png", "rgb.gif", "animated.gif", "4.bmp",
          "8.bmp", "8-rle.bmp", "24.bmp", "24-top-down.bmp", "32.bmp", "rgb.tif", "lzw.tif", "deflate.tif"},
         Colours(Alpha::None)},
        {{"interlaced.gif"}, Colours(Alpha::None, 3 * kWidth * kHeight)},
        {{"16.bmp", "565.bmp"}, Colours(Alpha::None), false, 8},
        {{"rgba8.png", "rgba16.png", "rgba8-interlaced.png", "palette8-alpha.png", "rgba.ico"},
         Colours(Alpha::Columns),
         true},
        {{"opaque.ico"}, Colours(Alpha::Opaque), true},
        {{"rgb8-key.png", "transparent.gif"}, WithClearPixel(Colours(Alpha::Opaque), 1), true},
        {{"grey8.png", "grey16.png"}, Greys(Alpha::Opaque), true},
        {{"grey8-key.png"}, WithClearPixel(Greys(Alpha::Opaque), 2), true},
        {{"greya8.png"}, Greys(Alpha::Columns), true},
        {{"grey.tif"}, Greys(Alpha::None)},
        {{"grey1.png"}, Bits(0xFF000000, 0xFFFFFFFF, "010110101111"), true},
        {{"1.bmp"}, Bits(0x0A141E, 0xC8D2DC, "010101010101")},
        {{"colour.jpg", "progressive.jpg"}, Pixels(256, 0xC86432), false, 3},
        {{"grey.jpg"}, Pixels(256, 0x5A5A5A), false, 3},
    };
    return pictures;
}

Pixels PixelsOf(const CImage& image)
{
    Pixels pixels;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, image.GetPixelAddress(x, y), static_cast<std::size_t>(image.GetBPP() / 8));
            pixels.push_back(pixel);
        }
    return pixels;
}

// Whether each channel of an image's pixels is near enough. The colour of clear pixels does not count.
bool AreNear(const Pixels& pixels, const Pictures& expected)
{
    bool areNear = pixels.size() == expected.pixels.size();
    for (std::size_t i = 0; areNear && i < pixels.size(); ++i) {
        const bool isClear = expected.hasAlpha && expected.pixels[i] >> 24 == 0;
        for (int shift = isClear ? 24 : 0; shift < 32; shift += 8)
            areNear = areNear &&
                      std::abs(static_cast<int>((pixels[i] >> shift) & 0xFF) -
                               static_cast<int>((expected.pixels[i] >> shift) & 0xFF)) <= expected.tolerance;
    }
    return areNear;
}

}  // namespace

using Images = PlatformTest;

TEST_F(Images, OfEveryFormatHaveTheirPixelsAndFailWhenTheirHalfIsMissing)
{
    for (const Pictures& pictures : AllPictures())
        for (const std::string& file : pictures.files) {
            CImage image;
            ASSERT_EQ(image.Load((kData + file).c_str()), S_OK) << file;
            EXPECT_EQ(image.GetBPP(), pictures.hasAlpha ? 32 : 24) << file;
            EXPECT_EQ(image.GetHasAlphaChannel() != FALSE, pictures.hasAlpha) << file;
            EXPECT_EQ(image.GetTransparentColor(), CLR_INVALID) << file;
            const Pixels pixels = PixelsOf(image);
            EXPECT_TRUE(AreNear(pixels, pictures)) << file << "\n is " << testing::PrintToString(pixels)
                                                   << "\nnot " << testing::PrintToString(pictures.pixels);
            const Bytes whole = FileBytes(kData + file);
            ASSERT_EQ(LoadBytes(image, whole), S_OK) << file;
            EXPECT_EQ(PixelsOf(image), pixels) << file;
            EXPECT_TRUE(FAILED(LoadBytes(image, Cut(whole, whole.size() / 2)))) << file;
            EXPECT_TRUE(image.IsNull()) << file;
        }
}

TEST_F(Images, OfPngSuiteAreTheSameOnBothTargets)
{
    const Table<const char*, int, std::uint32_t> cases{{"basn0g04.png", 32, 2713567232U},
                                                       {"basn2c16.png", 24, 3855734584U},
                                                       {"basn3p04.png", 24, 70370304U},
                                                       {"ftbwn0g16.png", 32, 3349107542U}};
    for (const auto& [file, bits, expected] : cases) {
        CImage image;
        ASSERT_EQ(image.Load((kData + "pngsuite/" + file).c_str()), S_OK) << file;
        EXPECT_EQ(image.GetBPP(), bits) << file;
        std::uint32_t sum = 0;
        for (const std::uint32_t pixel : PixelsOf(image))
            sum = sum * 31 + pixel;
        EXPECT_EQ(sum, expected) << file;
    }
}

TEST_F(Images, AreBottomUpSectionsAndEmptyAfterAFailure)
{
    CImage image;
    ASSERT_EQ(image.Load((kData + "rgb8.png").c_str()), S_OK);
    EXPECT_EQ(image.GetPitch(), -12);
    EXPECT_EQ(image.GetBits(), image.GetPixelAddress(0, 0));
    DIBSECTION section{};
    ASSERT_EQ(GetObjectA(image, sizeof section, &section), static_cast<int>(sizeof section));
    EXPECT_EQ(static_cast<std::uint8_t*>(section.dsBm.bmBits) + 24, image.GetBits())
        << "the top row is stored last";
    EXPECT_TRUE(FAILED(image.Load((kData + "missing.png").c_str())));
    EXPECT_TRUE(image.IsNull());
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_TRUE(FAILED(image.Load((kData + "make-images.sh").c_str())));
    EXPECT_TRUE(FAILED(LoadBytes(image, {})));
    EXPECT_TRUE(FAILED(image.Load(static_cast<IStream*>(nullptr))));
}

TEST_F(Images, OfDamagedPngFilesFail)
{
    CImage image;
    for (const std::string name : {"rgb8.png", "rgba8.png", "palette8.png", "grey8.png"}) {
        const Bytes whole = FileBytes(kData + name);
        ForEachCut(Cut(whole, whole.size() - 4), [&](const Bytes& cut) {
            EXPECT_TRUE(FAILED(LoadBytes(image, cut))) << name << ", " << cut.size() << " bytes";
        });
        for (const std::size_t at : {std::size_t{1}, std::size_t{18}, std::size_t{25}, whole.size() - 20}) {
            Bytes changed = whole;
            changed[at] ^= 0x55;
            EXPECT_TRUE(FAILED(LoadBytes(image, changed))) << name << ", byte " << at;
        }
    }
}

// Without the TIFF files: the windows target's decoder reads outside of a damaged one, and may not come back.
TEST_F(Images, OfAnyBrokenFileAreReadSafely)
{
    for (const Pictures& pictures : AllPictures())
        for (const std::string& file : pictures.files)
            if (file.find(".tif") == std::string::npos)
                LoadEveryDamage(file);
}

TEST_F(Images, OfAbsurdSizesFail)
{
    const Table<std::string, std::size_t, Bytes> cases{
        {"rgb8.png", 16, {0x7F, 0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0xFF, 0xFF}},
        {"rgb.gif", 6, {0xFF, 0xFF, 0xFF, 0xFF}},
        {"24.bmp", 18, {0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0x7F}},
        {"24.bmp", 22, {0, 0, 0, 0x80}},
        {"24.bmp", 10, {0xFF, 0xFF, 0xFF, 0x7F}},
        {"8-rle.bmp", 18, {0, 0x10, 0, 0, 0, 0x10, 0, 0}},
        {"16.bmp", 30, {37, 0}},  // compressed in no known way
        {"rgb.tif", 4, {0xFF, 0xFF, 0xFF, 0x7F}},
        {"rgb.tif", 48, {16, 0}},  // a width of a type that decoders read from elsewhere
        {"rgb.tif", 150, {0xFF, 0xFF}},
        {"rgb.tif", 190, {0x42, 1, 4, 0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F}},
    };
    for (const auto& [file, at, size] : cases) {
        Bytes bytes = FileBytes(kData + file);
        std::copy(size.begin(), size.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
        CImage image;
        EXPECT_TRUE(FAILED(LoadBytes(image, bytes))) << file << ", byte " << at;
    }
}

TEST_F(Images, AreMadeEmptyAndSavedAsPng)
{
    const std::string path = qvui::test::OutputPath("saved.png");
    for (const int bits : {24, 32}) {
        CImage image;
        ASSERT_TRUE(image.Create(kWidth, kHeight, bits)) << bits;
        EXPECT_EQ(PixelsOf(image), Pixels(kWidth * kHeight, 0)) << bits;
        const Pixels pixels = Colours(bits == 32 ? Alpha::Columns : Alpha::None);
        for (int i = 0; i < kWidth * kHeight; ++i)
            std::memcpy(image.GetPixelAddress(i % kWidth, i / kWidth), &pixels[static_cast<std::size_t>(i)],
                        static_cast<std::size_t>(bits / 8));
        image.SetHasAlphaChannel(bits == 32);
        ASSERT_EQ(image.Save(path.c_str()), S_OK) << bits;
        CImage again;
        ASSERT_EQ(again.Load(path.c_str()), S_OK) << bits;
        EXPECT_EQ(again.GetBPP(), bits);
        EXPECT_EQ(PixelsOf(again), pixels) << bits;
    }
    std::remove(path.c_str());
}

TEST_F(Images, ThatCannotBeMadeOrSavedFail)
{
    CImage image;
    EXPECT_TRUE(FAILED(image.Save((kData + "nothing.png").c_str()))) << "nothing to save";
    ASSERT_TRUE(image.Create(1, 1, 24));
    EXPECT_EQ(image.SetTransparentColor(RGB(1, 2, 3)), CLR_INVALID);
    EXPECT_EQ(image.GetTransparentColor(), RGB(1, 2, 3));
    EXPECT_TRUE(FAILED(image.Save((kData + "no/such/folder.png").c_str())));
    EXPECT_FALSE(image.Create(0, 4, 32));
    EXPECT_FALSE(image.Create(4, -4, 32));
    EXPECT_TRUE(image.IsNull());
}
