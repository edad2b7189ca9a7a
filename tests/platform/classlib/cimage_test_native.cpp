// Pictures in ways that only the native decoders are trusted with.

#include <algorithm>

#include "platform/classlib/picture_files.h"
#include "platform/platform_test.h"

using NativeImages = PlatformTest;

TEST_F(NativeImages, OfDamagedTiffFilesAreReadSafely)
{
    for (const char* name : {"rgb.tif", "lzw.tif", "deflate.tif", "grey.tif"})
        LoadEveryDamage(name);
}

TEST_F(NativeImages, OfIconsMayBeWholePngFiles)
{
    const Bytes png = FileBytes(kData + "rgba8.png");
    Bytes icon{0, 0, 1, 0,  1, 0, 4, 3, 0, 0, 1, 0, 32, 0, static_cast<std::uint8_t>(png.size()),
               0, 0, 0, 22, 0, 0, 0};
    icon.insert(icon.end(), png.begin(), png.end());
    CImage expected;
    CImage image;
    ASSERT_EQ(LoadBytes(expected, png), S_OK);
    ASSERT_EQ(LoadBytes(image, icon), S_OK);
    ASSERT_EQ(image.GetWidth(), 4);
    for (int y = 0; y < 3; ++y)
        EXPECT_TRUE(std::equal(static_cast<std::uint8_t*>(image.GetPixelAddress(0, y)),
                               static_cast<std::uint8_t*>(image.GetPixelAddress(0, y)) + 16,
                               static_cast<std::uint8_t*>(expected.GetPixelAddress(0, y))))
            << y;
}

// A screen of 6 x 5 pixels with a frame of 4 x 3 at 1,2, or one that does not fit on it.
TEST_F(NativeImages, OfGifFilesAreAsLargeAsTheirScreen)
{
    const Table<const char*, std::uint8_t, std::uint8_t, int> cases{
        {"inside", 1, 2, 12}, {"partly outside", 4, 3, 4}, {"outside", 6, 0, 0}};
    for (const auto& [name, left, top, expected] : cases) {
        Bytes gif = FileBytes(kData + "rgb.gif");
        const auto frame =
            static_cast<std::size_t>(std::find(gif.begin() + 13, gif.end(), 0x2C) - gif.begin());
        gif[6] = 6;
        gif[8] = 5;
        gif[frame + 1] = left;
        gif[frame + 3] = top;
        CImage image;
        ASSERT_EQ(LoadBytes(image, gif), S_OK) << name;
        ASSERT_EQ(image.GetWidth(), 6) << name;
        ASSERT_EQ(image.GetHeight(), 5) << name;
        ASSERT_EQ(image.GetBPP(), 32) << name;
        int filled = 0;
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 6; ++x)
                if (static_cast<std::uint8_t*>(image.GetPixelAddress(x, y))[3] == 0xFF) {
                    EXPECT_TRUE(x >= left && y >= top) << name;
                    ++filled;
                }
        EXPECT_EQ(filled, expected) << name;
    }
}

// Codes that are broken in every way that a decoder must notice, four bits each after three for the first
// ones.
TEST_F(NativeImages, OfGifFilesWithBrokenCodesFail)
{
    const auto gifOf = [](const Bytes& codes) {
        Bytes gif{'G', 'I', 'F', '8', '9', 'a', 2, 0, 1, 0, 0, 0, 0, 0x2C, 0, 0, 0, 0, 2, 0, 1, 0, 0, 2};
        gif.push_back(static_cast<std::uint8_t>(codes.size()));
        gif.insert(gif.end(), codes.begin(), codes.end());
        gif.insert(gif.end(), {0, 0x3B});
        return gif;
    };
    // The first three bits are the first code; 4 clears, 5 ends, 6 is the first that is made.
    const Table<const char*, Bytes, bool> cases{
        {"two pixels", {0b01'000'100, 0}, true},
        {"a pixel and the code that it makes", {0b10'000'100, 1}, true},
        {"end too early", {0b01'000'100, 1}, false},
        {"no more bytes", {0b00'000'100}, false},
        {"a code that is not made yet", {0b11'000'100, 1}, false},
        {"a made code at the start", {0b00'110'100, 0}, false},
    };
    for (const auto& [name, codes, loads] : cases) {
        CImage image;
        EXPECT_EQ(SUCCEEDED(LoadBytes(image, gifOf(codes))), loads) << name;
    }
}
