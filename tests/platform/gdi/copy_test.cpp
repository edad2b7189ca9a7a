// Unscaled copies, colour-keyed copies and device-independent bitmaps.

#include <algorithm>

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

TEST_F(Copying, TakesOnlyWhatTheSourceHasFromItsOrigin)
{
    const struct {
        const char* name;
        int x, y, width, height, sourceX, sourceY;
        RECT drawn;  // in the target
    } cases[] = {
        {"more than the source", 1, 1, 5, 5, 1, 1, {1, 1, 3, 2}},
        {"before the source", 0, 0, 4, 4, -2, -1, {2, 1, 4, 3}},
        {"outside the source", 0, 0, 3, 3, 5, 5, {0, 0, 0, 0}},
        {"outside the target", -2, -1, 3, 2, 0, 0, {0, 0, 1, 1}},
    };
    const Canvas source(3, 2, PlacePixel);
    SetViewportOrgEx(source, 1, 0, nullptr);
    for (const auto& c : cases) {
        const Canvas target(6, 6);
        EXPECT_TRUE(BitBlt(target, c.x, c.y, c.width, c.height, source, c.sourceX - 1, c.sourceY, SRCCOPY));
        target.Expect(
            [&c](int x, int y) {
                return Holds(c.drawn, x, y) ? PlacePixel(x - c.x + c.sourceX, y - c.y + c.sourceY) : 0;
            },
            c.name);
    }
}

TEST_F(Copying, WithinOneBitmapMovesAndScalesTheOldPixels)
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
                        "height " + std::to_string(height) + " by " + qvui::test::Text(POINT{dx, dy}));
                }
    const Canvas canvas(10, 10, PlacePixel);
    SetStretchBltMode(canvas, COLORONCOLOR);
    StretchBlt(canvas, 1, 1, 8, 8, canvas, 0, 0, 4, 4, SRCCOPY);
    canvas.Expect([](int x, int y) {
        return Holds({1, 1, 9, 9}, x, y) ? PlacePixel((x - 1) / 2, (y - 1) / 2) : PlacePixel(x, y);
    });
}

using ColourKey = PlatformTest;

TEST_F(ColourKey, IsAColourInEveryForm)
{
    const Table<const char*, UINT, bool> cases{
        {"the colour", RGB(1, 2, 3), true},
        {"red and blue swapped", RGB(3, 2, 1), false},
        {"a colour by its parts", RGB(1, 2, 3) | 0x02000000U, true},
        {"a palette index", RGB(1, 2, 3) | 0x01000000U, false},
        {"no colour at all", RGB(1, 2, 3) | 0xFF000000U, false},
    };
    const Canvas source(2, 1, [](int x, int) { return x ? 9U : 0x00010203U; });
    EXPECT_FALSE(TransparentBlt(Canvas(4, 2), 3, 0, -2, 1, source, 0, 0, 2, 1, 0)) << "negative extents";
    EXPECT_FALSE(TransparentBlt(Canvas(4, 2), 0, 0, 2, 1, source, 1, 0, -2, 1, 0));
    for (const auto& [name, key, isKeyed] : cases)
        for (const int scale : {1, 2}) {
            const Canvas target(2 * scale, 1, [](int, int) { return 0xC1777777; });
            EXPECT_TRUE(TransparentBlt(target, 0, 0, 2 * scale, 1, source, 0, 0, 2, 1, key)) << name;
            EXPECT_EQ(target.At(scale - 1, 0), isKeyed ? 0x00777777U : 0x00010203U)
                << name;  // without its alpha
            EXPECT_EQ(target.At(scale, 0), 9U) << name;
        }
}

using DeviceIndependentBitmaps = PlatformTest;

TEST_F(DeviceIndependentBitmaps, DrawUprightInBothOrientations)
{
    // Storage order is "ab", "cd", "ef".
    const Table<const char*, int, POINT, SIZE, const char*> cases{
        {"bottom-up", 3, {0, 0}, {2, 3}, "ef\ncd\nab\n"},
        {"top-down", -3, {0, 0}, {2, 3}, "ab\ncd\nef\n"},
        {"bottom-up, the lowest row", 3, {0, 0}, {2, 1}, "ab\n..\n..\n"},
        {"bottom-up, the upper two rows", 3, {1, 1}, {1, 2}, "f.\nd.\n..\n"},
    };
    const std::vector<std::uint32_t> rows = Rows("abcdef");
    for (const auto& [name, height, from, size, expected] : cases) {
        const BITMAPINFO info = BitmapInfo(2, height);
        const Canvas set(2, 3);
        EXPECT_NE(SetDIBitsToDevice(set, 0, 0, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy),
                                    from.x, from.y, 0, 3, rows.data(), &info, DIB_RGB_COLORS),
                  0)
            << name;
        EXPECT_EQ(Letters(set), expected) << name;
    }
}

TEST_F(DeviceIndependentBitmaps, AreReadBackInTheOrderAskedForAndLieInMemoryAsTheirHeaderSays)
{
    const Canvas canvas(2, 3, [](int x, int y) { return static_cast<std::uint32_t>('a' + 2 * y + x); });
    const auto readBack = [&](BITMAPINFO info, void* rows) {
        EXPECT_EQ(GetDIBits(canvas, canvas.Bitmap(), 0, 3, rows, &info, DIB_RGB_COLORS), 3);
    };
    std::vector<std::uint32_t> rows(6);
    readBack(BitmapInfo(2, 3), rows.data());
    EXPECT_EQ(rows, Rows("efcdab"));
    std::string bytes(24, '.');
    readBack(BitmapInfo(2, -3, 24), bytes.data());
    std::replace(bytes.begin(), bytes.end(), '\0', '.');
    EXPECT_EQ(bytes, "a..b....c..d....e..f....");
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    EXPECT_NE(GetDIBits(canvas, canvas.Bitmap(), 0, 0, nullptr, &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(info.bmiHeader.biHeight, 3);
    EXPECT_EQ(info.bmiHeader.biBitCount, 32);
    const Canvas topDown(3, -2, 24);
    DIBSECTION section{};
    EXPECT_EQ(GetObjectA(topDown.Bitmap(), sizeof section, &section), static_cast<int>(sizeof section));
    EXPECT_EQ(section.dsBm.bmWidthBytes, 12);
    EXPECT_EQ(section.dsBmih.biHeight, 2) << "positive for both orders";
    EXPECT_EQ(section.dsBmih.biSizeImage, 24U);
    for (const SIZE size : {SIZE{0, 4}, SIZE{4, 0}, SIZE{-4, 4}})
        EXPECT_EQ(qvui::test::MemoryBitmap(BitmapInfo(size.cx, size.cy)).Bitmap(), nullptr);
}
