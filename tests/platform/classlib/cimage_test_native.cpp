// Pictures in ways that only the native decoders are trusted with.

#include <algorithm>

#include "platform/classlib/picture_files.h"
#include "platform/platform_test.h"

using NativeImages = PlatformTest;

TEST_F(NativeImages, OfDamagedTiffFilesAreReadSafely)
{
    for (const char* name : {"rgb.tif", "lzw.tif", "deflate.tif", "grey.tif"})
        LoadEveryDamage(FileBytes(name));
}

TEST_F(NativeImages, OfIconsMayBeWholePngFiles)
{
    const Bytes png = FileBytes("rgba8.png");
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
