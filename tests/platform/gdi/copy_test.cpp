// Unscaled copies, colour-keyed copies and device-independent bitmaps.

#include <algorithm>
#include <random>

#include "platform/gdi/canvas.h"

namespace {

// The pixels as letters; '.' for 0.
std::string Letters(const Canvas& canvas)
{
    return canvas.Letters([](std::uint32_t pixel) { return pixel ? static_cast<char>(pixel) : '.'; });
}

// Rows of 32-bit pixels in storage order, from letters.
std::vector<std::uint32_t> Rows(const std::string& letters)
{
    return {letters.begin(), letters.end()};
}

}  // namespace

using Copying = PlatformTest;

TEST_F(Copying, TakesOnlyWhatTheSourceHas)
{
    struct Case {
        const char* name;
        int x, y, width, height, sourceX, sourceY;
        RECT drawn;  // in the target
    };
    const std::vector<Case> cases{
        {"all", 1, 1, 3, 2, 0, 0, {1, 1, 4, 3}},
        {"more than the source", 1, 1, 5, 5, 1, 1, {1, 1, 3, 2}},
        {"before the source", 0, 0, 4, 4, -2, -1, {2, 1, 4, 3}},
        {"outside the source", 0, 0, 3, 3, 5, 5, {0, 0, 0, 0}},
        {"outside the target", -2, -1, 3, 2, 0, 0, {0, 0, 1, 1}},
    };
    const Canvas source(3, 2, PlacePixel);
    for (const Case& c : cases) {
        const Canvas target(6, 6);
        EXPECT_TRUE(BitBlt(target, c.x, c.y, c.width, c.height, source, c.sourceX, c.sourceY, SRCCOPY))
            << c.name;
        target.Expect(
            [&c](int x, int y) {
                return Holds(c.drawn, x, y) ? PlacePixel(x - c.x + c.sourceX, y - c.y + c.sourceY) : 0;
            },
            c.name);
    }
}

TEST_F(Copying, WithinOneBitmapMovesTheOldPixels)
{
    for (const DWORD operation : {static_cast<DWORD>(SRCCOPY), static_cast<DWORD>(SRCINVERT)})
        for (const int height : {5, -5})
            for (int dx = -2; dx <= 2; ++dx)
                for (int dy = -2; dy <= 2; ++dy) {
                    const Canvas canvas(5, height, PlacePixel);
                    BitBlt(canvas, 1 + dx, 1 + dy, 3, 3, canvas, 1, 1, operation);
                    canvas.Expect(
                        [=](int x, int y) {
                            if (!Holds({1, 1, 4, 4}, x - dx, y - dy))
                                return PlacePixel(x, y);
                            return PlacePixel(x - dx, y - dy) ^ (operation == SRCCOPY ? 0 : PlacePixel(x, y));
                        },
                        "by " + std::to_string(dx) + ',' + std::to_string(dy) + ", height " +
                            std::to_string(height));
                }
}

TEST_F(Copying, WithinOneBitmapScalesTheOldPixels)
{
    const Canvas canvas(10, 10, PlacePixel);
    SetStretchBltMode(canvas, COLORONCOLOR);
    StretchBlt(canvas, 1, 1, 8, 8, canvas, 0, 0, 4, 4, SRCCOPY);
    canvas.Expect([](int x, int y) {
        return Holds({1, 1, 9, 9}, x, y) ? PlacePixel((x - 1) / 2, (y - 1) / 2) : PlacePixel(x, y);
    });
}

TEST_F(Copying, FollowsTheViewportOriginsAndTheClip)
{
    const Canvas source(4, 1, [](int x, int) { return static_cast<std::uint32_t>('a' + x); });
    SetViewportOrgEx(source, 1, 0, nullptr);
    const Canvas target(6, 1);
    SetViewportOrgEx(target, 2, 0, nullptr);
    IntersectClipRect(target, -1, 0, 2, 1);
    BitBlt(target, -2, 0, 5, 1, source, -1, 0, SRCCOPY);
    EXPECT_EQ(Letters(target), ".bcd..\n");
}

using ColourKey = PlatformTest;

TEST_F(ColourKey, LeavesOutThePixelsOfTheKeyColour)
{
    struct Case {
        const char* name;
        UINT key;
        bool isKeyed;
    };
    const std::vector<Case> cases{
        {"the colour", RGB(1, 2, 3), true},
        {"another colour", RGB(1, 2, 4), false},
        {"red and blue swapped", RGB(3, 2, 1), false},
        {"a colour by its parts", RGB(1, 2, 3) | 0x02000000U, true},
        {"a palette index", RGB(1, 2, 3) | 0x01000000U, false},
        {"no colour at all", RGB(1, 2, 3) | 0xFF000000U, false},
    };
    const Canvas source(2, 1, [](int x, int) { return x ? 0x00FFFFFFU : 0x00010203U; });
    for (const Case& c : cases) {
        const Canvas target(2, 1, [](int, int) { return 0x00777777U; });
        EXPECT_TRUE(TransparentBlt(target, 0, 0, 2, 1, source, 0, 0, 2, 1, c.key)) << c.name;
        EXPECT_EQ(target.At(0, 0), c.isKeyed ? 0x00777777U : 0x00010203U) << c.name;
        EXPECT_EQ(target.At(1, 0), 0x00FFFFFFU) << c.name;
    }
}

TEST_F(ColourKey, PointSamplesWhenEnlarging)
{
    std::mt19937 random(4);
    constexpr std::uint32_t kKey = 0x00FF00FF;
    const Canvas source(7, 5, [&random](int, int) {
        return random() % 3 == 0 ? kKey : static_cast<std::uint32_t>(random() & 0xFFFFFF);
    });
    for (const SIZE size : {SIZE{7, 5}, SIZE{8, 6}, SIZE{15, 5}, SIZE{23, 31}}) {
        const Canvas target(size.cx, size.cy, [](int, int) { return 0x00123456U; });
        EXPECT_TRUE(TransparentBlt(target, 0, 0, size.cx, size.cy, source, 0, 0, 7, 5, RGB(0xFF, 0, 0xFF)));
        target.Expect(
            [&](int x, int y) {
                const std::uint32_t pixel =
                    source.At(((2 * x + 1) * 7 + 2 * size.cx - 1) / (2 * size.cx) - 1,
                              ((2 * y + 1) * 5 + 2 * size.cy - 1) / (2 * size.cy) - 1);
                return pixel == kKey ? 0x00123456 : pixel;
            },
            std::to_string(size.cx) + 'x' + std::to_string(size.cy));
    }
}

TEST_F(ColourKey, RefusesNegativeExtents)
{
    const Canvas source(4, 4, PlacePixel);
    const Canvas target(4, 4);
    EXPECT_FALSE(TransparentBlt(target, 3, 0, -2, 2, source, 0, 0, 2, 2, 0));
    EXPECT_FALSE(TransparentBlt(target, 0, 3, 2, -2, source, 0, 0, 2, 2, 0));
    EXPECT_FALSE(TransparentBlt(target, 0, 0, 2, 2, source, 3, 0, -2, 2, 0));
    EXPECT_EQ(target.Picture(), "....\n....\n....\n....\n");
}

using DeviceIndependentBitmaps = PlatformTest;

TEST_F(DeviceIndependentBitmaps, DrawUprightInBothOrientations)
{
    struct Case {
        const char* name;
        int height;
        int sourceX, sourceY, width, rows;
        const char* expected;
    };
    // Storage order is "ab", "cd", "ef".
    const std::vector<Case> cases{
        {"bottom-up", 3, 0, 0, 2, 3, "ef\ncd\nab\n"},
        {"top-down", -3, 0, 0, 2, 3, "ab\ncd\nef\n"},
        {"bottom-up, the lowest row", 3, 0, 0, 2, 1, "ab\n..\n..\n"},
        {"bottom-up, the upper two rows", 3, 1, 1, 1, 2, "f.\nd.\n..\n"},
    };
    const std::vector<std::uint32_t> rows = Rows("abcdef");
    for (const Case& c : cases) {
        const BITMAPINFO info = BitmapInfo(2, c.height, 32);
        const Canvas stretched(2, 3);
        EXPECT_EQ(StretchDIBits(stretched, 0, 0, c.width, c.rows, c.sourceX, c.sourceY, c.width, c.rows,
                                rows.data(), &info, DIB_RGB_COLORS, SRCCOPY),
                  3)
            << c.name;
        EXPECT_EQ(Letters(stretched), c.expected) << c.name;
        const Canvas set(2, 3);
        EXPECT_NE(SetDIBitsToDevice(set, 0, 0, static_cast<DWORD>(c.width), static_cast<DWORD>(c.rows),
                                    c.sourceX, c.sourceY, 0, 3, rows.data(), &info, DIB_RGB_COLORS),
                  0)
            << c.name;
        EXPECT_EQ(Letters(set), c.expected) << c.name;
    }
}

TEST_F(DeviceIndependentBitmaps, PadRowsOf24BitsToFourBytes)
{
    const std::uint8_t rows[] = {1, 2, 3, 0, 4, 5, 6, 0};
    const BITMAPINFO info = BitmapInfo(1, 2, 24);
    const Canvas canvas(1, 2);
    SetDIBitsToDevice(canvas, 0, 0, 1, 2, 0, 0, 0, 2, rows, &info, DIB_RGB_COLORS);
    EXPECT_EQ(canvas.At(0, 0) & 0xFFFFFF, 0x060504U);
    EXPECT_EQ(canvas.At(0, 1) & 0xFFFFFF, 0x030201U);
}

TEST_F(DeviceIndependentBitmaps, AreReadBackInTheOrderAskedFor)
{
    const Canvas canvas(2, 3, [](int x, int y) { return static_cast<std::uint32_t>('a' + 2 * y + x); });
    const HBITMAP bitmap = canvas.Bitmap();
    const auto readBack = [&](BITMAPINFO info, void* rows) {
        EXPECT_EQ(GetDIBits(canvas, bitmap, 0, 3, rows, &info, DIB_RGB_COLORS), 3);
    };
    std::vector<std::uint32_t> rows(6);
    readBack(BitmapInfo(2, 3, 32), rows.data());
    EXPECT_EQ(rows, Rows("efcdab"));
    readBack(BitmapInfo(2, -3, 32), rows.data());
    EXPECT_EQ(rows, Rows("abcdef"));
    std::string bytes(24, '.');
    readBack(BitmapInfo(2, 3, 24), bytes.data());
    std::replace(bytes.begin(), bytes.end(), '\0', '.');
    EXPECT_EQ(bytes, "e..f....c..d....a..b....");
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    EXPECT_NE(GetDIBits(canvas, bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(info.bmiHeader.biWidth, 2);
    EXPECT_EQ(info.bmiHeader.biHeight, 3);
    EXPECT_EQ(info.bmiHeader.biBitCount, 32);
}

TEST_F(DeviceIndependentBitmaps, LieInMemoryAsTheirHeaderSays)
{
    void* bits = nullptr;
    for (const int height : {2, -2}) {
        const BITMAPINFO info = BitmapInfo(3, height, 24);
        const Scoped bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        ASSERT_NE(bits, nullptr);
        DIBSECTION section{};
        EXPECT_EQ(GetObjectA(bitmap, sizeof section, &section), static_cast<int>(sizeof section));
        EXPECT_EQ(section.dsBm.bmWidth, 3);
        EXPECT_EQ(section.dsBm.bmHeight, 2);
        EXPECT_EQ(section.dsBm.bmWidthBytes, 12);
        EXPECT_EQ(section.dsBm.bmBitsPixel, 24);
        EXPECT_EQ(section.dsBm.bmBits, bits);
        EXPECT_EQ(section.dsBmih.biHeight, 2) << "positive for both orders";
        EXPECT_EQ(section.dsBmih.biSizeImage, 24U);
    }
    for (const BITMAPINFO& info : {BitmapInfo(0, 4, 32), BitmapInfo(4, 0, 32), BitmapInfo(-4, 4, 32)})
        EXPECT_EQ(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr)
            << info.bmiHeader.biWidth << 'x' << info.bmiHeader.biHeight;
}
