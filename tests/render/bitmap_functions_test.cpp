#include <qvui/render/bitmap_functions.h>

#include <climits>
#include <functional>
#include <random>

#include "render/render_test.h"

using DUI::CARGB;
using DUI::CDibSection;
using Functions = DUI::CBitmapCommonFunction;

namespace {

// Compares a new bitmap, which is deleted.
void ExpectBitmap(HBITMAP bitmap, int width, int height, const PixelAt& expected, const std::string& name)
{
    SIZE size{};
    ASSERT_TRUE(Functions::GetBitmapSize(bitmap, size)) << name;
    ASSERT_EQ(size.cx, width) << name;
    ASSERT_EQ(size.cy, height) << name;
    CDibSection section;
    section.Create(bitmap, 32);
    DeleteObject(bitmap);
    const Canvas canvas(width, height, [&](int x, int y) { return Bits(section.GetPixel(x, y, TRUE)); });
    canvas.Expect(expected, name);
}

using Draw = std::function<int(HDC, const RECT&)>;

}  // namespace

using BitmapFunctions = RenderTest;

TEST_F(BitmapFunctions, CutOutParts)
{
    const Table<const char*, RECT, RECT, bool> cases{
        {"inside", {1, 1, 3, 4}, {1, 1, 3, 4}, true},
        {"clamped to the bitmap", {1, 2, 100, INT_MAX}, {1, 2, 5, 4}, true},
        {"before its start", {-1, 0, 2, 2}, {-1, 0, 2, 2}, true},
        {"beyond its end", {6, 1, 8, 2}, {6, 1, 5, 2}, false},
        {"empty", {2, 2, 2, 4}, {2, 2, 2, 4}, false},
        {"inverted", {3, 3, 1, 1}, {3, 3, 1, 1}, false},
        {"as far as it goes", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {INT_MIN, INT_MIN, 5, 4}, false},
    };
    const Section bitmap(5, 4, PlacePixel);
    for (const auto& [name, asked, clamped, isMade] : cases) {
        RECT rect = asked;
        const HBITMAP part = Functions::GetSubBitmap(nullptr, bitmap, rect);
        EXPECT_EQ(RectText(rect), RectText(clamped)) << name;
        ASSERT_EQ(part != nullptr, isMade) << name;
        if (isMade)
            ExpectBitmap(
                part, rect.right - rect.left, rect.bottom - rect.top,
                [&rect](int x, int y) {
                    return x + rect.left < 0 ? 0 : PlacePixel(x + rect.left, y + rect.top);
                },
                name);
    }
}

// Every unscaled form cuts to the smaller of bitmap and rectangle; the centred one moves into the middle
// first.
TEST_F(BitmapFunctions, UnscaledFormsCutAndCentre)
{
    // The rectangle, what the unscaled form covers, and the centred one.
    const Table<const char*, RECT, RECT, RECT> cases{
        {"larger", {1, 1, 9, 8}, {1, 1, 4, 3}, {3, 3, 6, 5}},
        {"odd rest", {0, 0, 8, 5}, {0, 0, 3, 2}, {2, 1, 5, 3}},
        {"smaller", {2, 2, 4, 3}, {2, 2, 4, 3}, {2, 2, 4, 3}},
        {"wider and lower", {1, 1, 8, 2}, {1, 1, 4, 2}, {3, 1, 6, 2}},
    };
    const CARGB key(255, 0, 255, 0);
    const Section bitmap(3, 2, PlacePixel);
    using F = Functions;
    const Table<const char*, bool, Draw> forms{
        {"copied", false, [&](HDC dc, const RECT& r) { return F::DrawBitmap(dc, bitmap, r); }},
        {"blended", false,
         [&](HDC dc, const RECT& r) { return F::AlphaBlendWithoutStretch(dc, bitmap, r, 255); }},
        {"keyed", false,
         [&](HDC dc, const RECT& r) { return F::TransparentBltWithoutStretch(dc, bitmap, r, key); }},
        {"copied", true, [&](HDC dc, const RECT& r) { return F::DrawBitmapInCenter(dc, bitmap, r); }},
        {"blended", true, [&](HDC dc, const RECT& r) { return F::AlphaBlendInCenter(dc, bitmap, r, 255); }},
        {"keyed", true, [&](HDC dc, const RECT& r) { return F::TransparentBltInCenter(dc, bitmap, r, key); }},
    };
    for (const auto& [name, rect, plain, centred] : cases)
        for (const auto& [form, isCentred, draw] : forms) {
            const Canvas canvas(10, 9);
            EXPECT_TRUE(draw(canvas, rect)) << name;
            const RECT covered = isCentred ? centred : plain;
            canvas.Expect(
                [&covered](int x, int y) {
                    return Holds(covered, x, y) ? PlacePixel(x - covered.left, y - covered.top) : 0;
                },
                std::string(name) + ", " + form + (isCentred ? ", centred" : ""));
        }
}

TEST_F(BitmapFunctions, ScaledFormsFillTheRectangle)
{
    constexpr std::uint32_t kBackground = 0x00404040;
    const Section bitmap(2, 1, [](int x, int) { return x ? 0x00FF00FFU : 0x80402010U; });
    const auto row = [](auto draw) {
        Canvas canvas(4, 1);
        canvas.Fill(kBackground);
        EXPECT_TRUE(draw(canvas, RECT{0, 0, 4, 1}));
        return canvas.Pixels();
    };
    EXPECT_EQ(row([&](HDC dc, const RECT& r) { return Functions::StretchBitmap(dc, bitmap, r); }),
              (std::vector<std::uint32_t>{0x80402010, 0x80402010, 0xFF00FF, 0xFF00FF}));
    const std::uint32_t blended = Blended(0x80402010, kBackground, 200);
    const auto blend = row([&](HDC dc, const RECT& r) { return Functions::AlphaBlend(dc, bitmap, r, 200); });
    EXPECT_EQ(blend[0], blended);
    EXPECT_EQ(blend[1], blended);
    EXPECT_EQ(row([&](HDC dc, const RECT& r) {
                  return Functions::TransparentBlt(dc, bitmap, r, CARGB(255, 0, 255, 9));
              }),
              (std::vector<std::uint32_t>{0x402010, 0x402010, kBackground, kBackground}));
}

TEST_F(BitmapFunctions, FailWithoutABitmapOrAContext)
{
    Canvas canvas(2, 2);
    const Section bitmap(1, 1, PlacePixel, 24);
    RECT rect{0, 0, 1, 1};
    const CARGB key;
    using F = Functions;
    EXPECT_FALSE(
        F::DrawBitmap(canvas, nullptr, rect) || F::DrawBitmap(nullptr, bitmap, rect) ||
        F::StretchBitmap(canvas, nullptr, rect) || F::AlphaBlend(canvas, nullptr, rect, 255) ||
        F::AlphaBlendWithoutStretch(canvas, nullptr, rect, 255) ||
        F::TransparentBlt(canvas, nullptr, rect, key) ||
        F::TransparentBltWithoutStretch(canvas, nullptr, rect, key) ||
        F::DrawBitmapInCenter(canvas, nullptr, rect) || F::AlphaBlendInCenter(canvas, nullptr, rect, 255) ||
        F::TransparentBltInCenter(canvas, nullptr, rect, key) || F::FillBitmap(canvas, nullptr, rect) ||
        F::FillBitmap(nullptr, bitmap, rect) || F::MiddleStretchDraw(canvas, nullptr, rect) ||
        F::MiddleStretchAlphaBlend(canvas, nullptr, rect, 255) ||
        F::MiddleStretchTransparentBlt(canvas, nullptr, rect, key) ||
        F::UpdateLayeredWindow(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0));
    EXPECT_EQ(canvas.Picture(), "..\n..\n");
    SIZE size{7, 7};
    EXPECT_FALSE(F::GetBitmapSize(nullptr, size));
    EXPECT_EQ(F::GetBitmapBitCount(nullptr), 0);
    EXPECT_EQ(F::GetBitmapBitCount(bitmap), 24);
    EXPECT_FALSE(F::GetSubBitmap(nullptr, nullptr, rect) ||
                 F::GetMiddleStretchBitmap(nullptr, nullptr, 5, 1) ||
                 F::GetMiddleStretchBitmap(nullptr, bitmap, 0, 1) ||
                 F::GetMiddleStretchBitmap(nullptr, bitmap, INT_MIN, 1) ||
                 F::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{0, 5}) ||
                 F::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{5, 0}) ||
                 F::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{5, -3}) ||
                 F::GetMiddleStretchBitmap(nullptr, nullptr, SIZE{5, 5}) || F::BitmapToRgn(nullptr, key, 0));
}

TEST_F(BitmapFunctions, FillRepeatsFromTheBrushOrigin)
{
    const Section bitmap(3, 2, PlacePixel);
    for (const POINT origin : {POINT{0, 0}, POINT{1, 1}}) {
        Canvas canvas(8, 6);
        SetBrushOrgEx(canvas, origin.x, origin.y, nullptr);
        EXPECT_TRUE(Functions::FillBitmap(canvas, bitmap, {1, 1, 8, 6}));
        canvas.Expect([&origin](int x, int y) {
            return x < 1 || y < 1 ? 0 : PlacePixel((x - origin.x + 3) % 3, (y - origin.y + 2) % 2);
        });
    }
}

using MiddleStretch = RenderTest;

TEST_F(MiddleStretch, RepeatsTheTwoMiddleLines)
{
    // Which source line each line of the result is; -1 for none.
    const Table<const char*, int, std::vector<int>> cases{
        {"longer", 10, {0, 1, 2, 3, 4, 5, 4, 5, 4, 5, 4, 5, 6, 7, 8, 9}},
        {"odd size: the tail is cut", 7, {0, 1, 2, 3, 2, 3, 2, 3, 4, 5}},
        {"odd start: the pattern counts from the edge", 8, {0, 1, 2, 4, 3, 4, 3, 5, 6, 7}},
        {"the same", 6, {0, 1, 2, 3, 4, 5}},
        {"one line", 1, {-1, 0, -1}},
    };
    for (const auto& [name, size, lines] : cases)
        for (const int vertical : {0, 1}) {
            const Section bitmap(vertical ? 2 : size, vertical ? size : 2, PlacePixel);
            const int length = static_cast<int>(lines.size());
            ExpectBitmap(
                Functions::GetMiddleStretchBitmap(nullptr, bitmap, length, vertical), vertical ? 2 : length,
                vertical ? length : 2,
                [&, &lines = lines](int x, int y) {
                    const int line = lines[static_cast<std::size_t>(vertical ? y : x)];
                    return line < 0 ? 0 : PlacePixel(vertical ? x : line, vertical ? line : y);
                },
                name);
        }
}

TEST_F(MiddleStretch, ReachesASizeOrCutsToIt)
{
    // Line of a 6-pixel bitmap in one that is longer or as long or shorter.
    const auto lineOf = [](int at, int length) {
        if (length <= 6 || at < 2)
            return at;
        return at >= length - 2 ? 6 - (length - at) : 2 + at % 2;
    };
    const Section bitmap(6, 6, PlacePixel);
    for (const int width : {3, 6, 9})
        for (const int height : {2, 6, 11})
            ExpectBitmap(
                Functions::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{width, height}), width, height,
                [&](int x, int y) { return PlacePixel(lineOf(x, width), lineOf(y, height)); },
                std::to_string(width) + " x " + std::to_string(height));
}

TEST_F(MiddleStretch, DrawsInThreeModes)
{
    // A keyed row at the top, which no stretch repeats.
    const Section bitmap(4, 4, [](int, int y) { return y == 0 ? 0x00FF00FFU : 0x80404040U; });
    constexpr std::uint32_t kBackground = 0x00202020;
    const CARGB key(255, 0, 255, 0);
    using F = Functions;
    const Table<const char*, Draw, std::uint32_t, std::uint32_t> cases{
        {"copied", [&](HDC dc, const RECT& r) { return F::MiddleStretchDraw(dc, bitmap, r); }, 0x00FF00FF,
         0x80404040},
        {"keyed", [&](HDC dc, const RECT& r) { return F::MiddleStretchTransparentBlt(dc, bitmap, r, key); },
         kBackground, 0x00404040},
        {"blended", [&](HDC dc, const RECT& r) { return F::MiddleStretchAlphaBlend(dc, bitmap, r, 128); },
         Blended(0x00FF00FF, kBackground, 128), Blended(0x80404040, kBackground, 128)},
    };
    for (const auto& [name, draw, top, rest] : cases)
        for (const SIZE size : {SIZE{3, 3}, SIZE{3, 6}, SIZE{6, 6}, SIZE{7, 5}}) {
            const Canvas canvas(8, 8, [](int, int) { return kBackground; });
            EXPECT_TRUE(draw(canvas, {0, 0, size.cx, size.cy})) << name;
            canvas.Expect(
                [&, first = top, others = rest](int x, int y) {
                    return !Holds({0, 0, size.cx, size.cy}, x, y) ? kBackground : y == 0 ? first : others;
                },
                name + (' ' + qvui::test::Text(size)));
        }
}

using BitmapRegion = RenderTest;

TEST_F(BitmapRegion, HoldsEveryPixelThatIsNotKeyed)
{
    std::mt19937 random(7);
    const auto noise = [&random](unsigned oneIn) {
        return [&random, oneIn](int, int) { return random() % oneIn != 0; };
    };
    const Table<const char*, SIZE, std::function<bool(int x, int y)>> cases{
        {"all keyed", {5, 4}, [](int, int) { return false; }},
        {"one pixel", {1, 1}, [](int, int) { return true; }},
        {"equal rows", {9, 9}, [](int x, int) { return x % 3 == 1; }},
        {"gap of rows", {4, 9}, [](int, int y) { return y != 4; }},
        {"frame", {12, 9}, [](int x, int y) { return x == 0 || y == 0 || x == 11 || y == 8; }},
        {"checkerboard beyond one batch", {101, 97}, [](int x, int y) { return (x + y) % 2 == 0; }},
        {"a row beyond one batch", {5001, 3}, [](int x, int y) { return x % 2 == 0 || y == 1; }},
        {"noise", {67, 61}, noise(2)},
        {"few holes", {67, 61}, noise(50)},
    };
    for (const auto& [name, size, isInside] : cases) {
        std::vector<bool> inside;
        const Section bitmap(size.cx, size.cy, [&, &isKept = isInside](int x, int y) {
            inside.push_back(isKept(x, y));
            return inside.back() ? 0xFFFFFFFEU : 0x12FF00FFU;
        });
        const Scoped region(Functions::BitmapToRgn(bitmap, CARGB(255, 0, 255, 255), 0));
        for (int y = -1; y <= size.cy; ++y)
            for (int x = -1; x <= size.cx; ++x)
                ASSERT_EQ(PtInRegion(region, x, y) != 0,
                          Holds({0, 0, size.cx, size.cy}, x, y) &&
                              inside[static_cast<std::size_t>(y * size.cx + x)])
                    << name << " at " << x << "," << y;
    }
}

TEST_F(BitmapRegion, ToleranceReachesUpwardsPerChannel)
{
    // Key (100, 50, 250), tolerance red 1, green 2, blue 9 (up to 255 only).
    const Table<const char*, std::uint32_t, bool> cases{
        {"the colour", 0x6432FA, true},      {"red up", 0x6532FA, true},
        {"red too far", 0x6632FA, false},    {"red below", 0x6332FA, false},
        {"green up", 0x6434FA, true},        {"green too far", 0x6435FA, false},
        {"blue at its end", 0x6432FF, true}, {"blue below", 0x6432F9, false},
    };
    for (const WORD bitCount : {WORD{24}, WORD{32}})
        for (const auto& [name, pixel, isKeyed] : cases) {
            const Section bitmap(
                1, 1, [color = pixel](int, int) { return color; }, bitCount);
            const Scoped region(Functions::BitmapToRgn(bitmap, CARGB(100, 50, 250, 255), RGB(1, 2, 9)));
            EXPECT_EQ(PtInRegion(region, 0, 0) == 0, isKeyed) << name;
        }
}
