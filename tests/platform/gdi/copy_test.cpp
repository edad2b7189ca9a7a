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

TEST_F(Copying, TakesOnlyWhatTheSourceHas)
{
    const struct {
        const char* name;
        int x, y, width, height, sourceX, sourceY;
        RECT drawn;  // in the target
    } cases[] = {
        {"all", 1, 1, 3, 2, 0, 0, {1, 1, 4, 3}},
        {"more than the source", 1, 1, 5, 5, 1, 1, {1, 1, 3, 2}},
        {"before the source", 0, 0, 4, 4, -2, -1, {2, 1, 4, 3}},
        {"outside the source", 0, 0, 3, 3, 5, 5, {0, 0, 0, 0}},
        {"outside the target", -2, -1, 3, 2, 0, 0, {0, 0, 1, 1}},
    };
    const Canvas source(3, 2, PlacePixel);
    for (const auto& c : cases) {
        const Canvas target(6, 6);
        EXPECT_TRUE(BitBlt(target, c.x, c.y, c.width, c.height, source, c.sourceX, c.sourceY, SRCCOPY));
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
    const Table<const char*, UINT, bool> cases{
        {"the colour", RGB(1, 2, 3), true},
        {"another colour", RGB(1, 2, 4), false},
        {"red and blue swapped", RGB(3, 2, 1), false},
        {"a colour by its parts", RGB(1, 2, 3) | 0x02000000U, true},
        {"a palette index", RGB(1, 2, 3) | 0x01000000U, false},
        {"no colour at all", RGB(1, 2, 3) | 0xFF000000U, false},
    };
    constexpr std::uint32_t kBefore = 0x00777777, kOther = 0x00FFFFFF;
    const Canvas source(2, 1, [](int x, int) { return x ? kOther : 0x00010203U; });
    for (const auto& [name, key, isKeyed] : cases)
        for (const int scale : {1, 2}) {
            const Canvas target(2 * scale, 1, [](int, int) { return kBefore; });
            EXPECT_TRUE(TransparentBlt(target, 0, 0, 2 * scale, 1, source, 0, 0, 2, 1, key)) << name;
            EXPECT_EQ(target.At(scale - 1, 0), isKeyed ? kBefore : 0x00010203U) << name;
            EXPECT_EQ(target.At(scale, 0), kOther) << name;
        }
}

TEST_F(ColourKey, RefusesNegativeExtents)
{
    const Canvas source(4, 2, PlacePixel);
    const Canvas target(4, 2);
    EXPECT_FALSE(TransparentBlt(target, 3, 0, -2, 2, source, 0, 0, 2, 2, 0));
    EXPECT_FALSE(TransparentBlt(target, 0, 2, 2, -2, source, 0, 0, 2, 2, 0));
    EXPECT_FALSE(TransparentBlt(target, 0, 0, 2, 2, source, 3, 0, -2, 2, 0));
    EXPECT_EQ(target.Picture(), "....\n....\n");
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
        const Canvas stretched(2, 3);
        EXPECT_EQ(StretchDIBits(stretched, 0, 0, size.cx, size.cy, from.x, from.y, size.cx, size.cy,
                                rows.data(), &info, DIB_RGB_COLORS, SRCCOPY),
                  3)
            << name;
        EXPECT_EQ(Letters(stretched), expected) << name;
        const Canvas set(2, 3);
        EXPECT_NE(SetDIBitsToDevice(set, 0, 0, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy),
                                    from.x, from.y, 0, 3, rows.data(), &info, DIB_RGB_COLORS),
                  0)
            << name;
        EXPECT_EQ(Letters(set), expected) << name;
    }
}

TEST_F(DeviceIndependentBitmaps, AreReadBackInTheOrderAskedFor)
{
    const Canvas canvas(2, 3, [](int x, int y) { return static_cast<std::uint32_t>('a' + 2 * y + x); });
    const HBITMAP bitmap = canvas.Bitmap();
    const auto readBack = [&](BITMAPINFO info, void* rows) {
        EXPECT_EQ(GetDIBits(canvas, bitmap, 0, 3, rows, &info, DIB_RGB_COLORS), 3);
    };
    std::vector<std::uint32_t> rows(6);
    readBack(BitmapInfo(2, 3), rows.data());
    EXPECT_EQ(rows, Rows("efcdab"));
    readBack(BitmapInfo(2, -3), rows.data());
    EXPECT_EQ(rows, Rows("abcdef"));
    std::string bytes(24, '.');
    readBack(BitmapInfo(2, 3, 24), bytes.data());
    const Canvas again(2, 3);
    const BITMAPINFO padded = BitmapInfo(2, 3, 24);
    SetDIBitsToDevice(again, 0, 0, 2, 3, 0, 0, 0, 3, bytes.data(), &padded, DIB_RGB_COLORS);
    again.Expect([&](int x, int y) { return canvas.At(x, y); }, "24 bits", kColourBits);
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
    for (const int height : {2, -2}) {
        const Canvas canvas(3, height, 24);
        DIBSECTION section{};
        EXPECT_EQ(GetObjectA(canvas.Bitmap(), sizeof section, &section), static_cast<int>(sizeof section));
        EXPECT_EQ(section.dsBm.bmHeight, 2);
        EXPECT_EQ(section.dsBm.bmWidthBytes, 12);
        EXPECT_EQ(section.dsBm.bmBits, canvas.Bits());
        EXPECT_EQ(section.dsBmih.biHeight, 2) << "positive for both orders";
        EXPECT_EQ(section.dsBmih.biSizeImage, 24U);
    }
    for (const SIZE size : {SIZE{0, 4}, SIZE{4, 0}, SIZE{-4, 4}})
        EXPECT_EQ(qvui::test::MemoryBitmap(BitmapInfo(size.cx, size.cy)).Bitmap(), nullptr);
}
