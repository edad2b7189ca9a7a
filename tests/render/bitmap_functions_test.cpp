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

// A bitmap that is in no context, painted pixel by pixel.
class Source {
public:
    Source(int width, int height, const PixelAt& pixelAt, WORD bitCount = 32)
    {
        m_section.Create(static_cast<DWORD>(width), static_cast<DWORD>(height), bitCount);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                m_section.SetPixel(x, y, Argb(pixelAt(x, y)), TRUE);
    }
    operator HBITMAP() const { return m_section.GetBitmap(); }

private:
    CDibSection m_section;
};

}  // namespace

using BitmapFunctions = RenderTest;

TEST_F(BitmapFunctions, MeasureBitmaps)
{
    const Source bitmap(3, 2, PlacePixel, 24);
    SIZE size{7, 7};
    EXPECT_FALSE(Functions::GetBitmapSize(nullptr, size));
    EXPECT_TRUE(Functions::GetBitmapSize(bitmap, size));
    EXPECT_EQ(size.cx, 3);
    EXPECT_EQ(size.cy, 2);
    EXPECT_EQ(Functions::GetBitmapBitCount(bitmap), 24);
    EXPECT_EQ(Functions::GetBitmapBitCount(Source(1, 1, PlacePixel)), 32);
    EXPECT_EQ(Functions::GetBitmapBitCount(nullptr), 0);
}

TEST_F(BitmapFunctions, CutOutParts)
{
    struct Case {
        const char* name;
        RECT asked, clamped;
        bool isMade;
    };
    const std::vector<Case> cases{
        {"inside", {1, 1, 3, 4}, {1, 1, 3, 4}, true},
        {"clamped to the bitmap", {1, 2, 100, INT_MAX}, {1, 2, 5, 4}, true},
        {"before its start", {-1, 0, 2, 2}, {-1, 0, 2, 2}, true},
        {"beyond its end", {6, 1, 8, 2}, {6, 1, 5, 2}, false},
        {"empty", {2, 2, 2, 4}, {2, 2, 2, 4}, false},
        {"inverted", {3, 3, 1, 1}, {3, 3, 1, 1}, false},
        {"as far as it goes", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {INT_MIN, INT_MIN, 5, 4}, false},
    };
    const Source bitmap(5, 4, PlacePixel);
    for (const Case& c : cases) {
        RECT rect = c.asked;
        const HBITMAP part = Functions::GetSubBitmap(nullptr, bitmap, rect);
        EXPECT_EQ(RectText(rect), RectText(c.clamped)) << c.name;
        ASSERT_EQ(part != nullptr, c.isMade) << c.name;
        if (c.isMade)
            ExpectBitmap(
                part, rect.right - rect.left, rect.bottom - rect.top,
                [&rect](int x, int y) {
                    return x + rect.left < 0 ? 0 : PlacePixel(x + rect.left, y + rect.top);
                },
                c.name);
    }
    RECT rect{0, 0, 1, 1};
    EXPECT_EQ(Functions::GetSubBitmap(nullptr, nullptr, rect), nullptr);
}

// Every unscaled form cuts to the smaller of bitmap and rectangle; the centred one moves into the middle
// first.
TEST_F(BitmapFunctions, UnscaledFormsCutAndCentre)
{
    struct Case {
        const char* name;
        RECT rect;
        RECT plain;    // what the unscaled form covers
        RECT centred;  // and the centred one
    };
    const std::vector<Case> cases{
        {"larger", {1, 1, 9, 8}, {1, 1, 4, 3}, {3, 3, 6, 5}},
        {"odd rest", {0, 0, 8, 5}, {0, 0, 3, 2}, {2, 1, 5, 3}},
        {"smaller", {2, 2, 4, 3}, {2, 2, 4, 3}, {2, 2, 4, 3}},
        {"wider and lower", {1, 1, 8, 2}, {1, 1, 4, 2}, {3, 1, 6, 2}},
    };
    struct Form {
        const char* name;
        bool isCentred;
        std::function<int(HDC, const RECT&)> draw;
    };
    const CARGB key(255, 0, 255, 0);
    const Source bitmap(3, 2, PlacePixel);
    const std::vector<Form> forms{
        {"copied", false, [&](HDC dc, const RECT& r) { return Functions::DrawBitmap(dc, bitmap, r); }},
        {"blended", false,
         [&](HDC dc, const RECT& r) { return Functions::AlphaBlendWithoutStretch(dc, bitmap, r, 255); }},
        {"keyed", false,
         [&](HDC dc, const RECT& r) { return Functions::TransparentBltWithoutStretch(dc, bitmap, r, key); }},
        {"copied", true, [&](HDC dc, const RECT& r) { return Functions::DrawBitmapInCenter(dc, bitmap, r); }},
        {"blended", true,
         [&](HDC dc, const RECT& r) { return Functions::AlphaBlendInCenter(dc, bitmap, r, 255); }},
        {"keyed", true,
         [&](HDC dc, const RECT& r) { return Functions::TransparentBltInCenter(dc, bitmap, r, key); }},
    };
    for (const Case& c : cases)
        for (const Form& form : forms) {
            const Canvas canvas(10, 9);
            EXPECT_TRUE(form.draw(canvas, c.rect)) << c.name;
            const RECT& covered = form.isCentred ? c.centred : c.plain;
            canvas.Expect(
                [&covered](int x, int y) {
                    return Holds(covered, x, y) ? PlacePixel(x - covered.left, y - covered.top) : 0;
                },
                std::string(c.name) + ", " + form.name + (form.isCentred ? ", centred" : ""));
        }
}

TEST_F(BitmapFunctions, ScaledFormsFillTheRectangle)
{
    constexpr std::uint32_t kBackground = 0x00404040;
    const Source bitmap(2, 1, [](int x, int) { return x ? 0x00FF00FFU : 0x80402010U; });
    const auto row = [&bitmap](auto draw) {
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
    const Source bitmap(1, 1, PlacePixel);
    const RECT rect{0, 0, 2, 2};
    const CARGB key;
    EXPECT_FALSE(
        Functions::DrawBitmap(canvas, nullptr, rect) || Functions::DrawBitmap(nullptr, bitmap, rect) ||
        Functions::StretchBitmap(canvas, nullptr, rect) ||
        Functions::AlphaBlend(canvas, nullptr, rect, 255) ||
        Functions::AlphaBlendWithoutStretch(canvas, nullptr, rect, 255) ||
        Functions::TransparentBlt(canvas, nullptr, rect, key) ||
        Functions::TransparentBltWithoutStretch(canvas, nullptr, rect, key) ||
        Functions::DrawBitmapInCenter(canvas, nullptr, rect) ||
        Functions::AlphaBlendInCenter(canvas, nullptr, rect, 255) ||
        Functions::TransparentBltInCenter(canvas, nullptr, rect, key) ||
        Functions::FillBitmap(canvas, nullptr, rect) || Functions::FillBitmap(nullptr, bitmap, rect) ||
        Functions::MiddleStretchDraw(canvas, nullptr, rect) ||
        Functions::MiddleStretchAlphaBlend(canvas, nullptr, rect, 255) ||
        Functions::MiddleStretchTransparentBlt(canvas, nullptr, rect, key));
    EXPECT_EQ(canvas.Picture(), "..\n..\n");
    EXPECT_FALSE(
        Functions::UpdateLayeredWindow(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0));
}

TEST_F(BitmapFunctions, FillRepeatsFromTheBrushOrigin)
{
    const Source bitmap(3, 2, PlacePixel);
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
    struct Case {
        const char* name;
        int size, length;
        std::vector<int> lines;  // which source line each line of the result is; -1 for none
    };
    const std::vector<Case> cases{
        {"longer", 10, 16, {0, 1, 2, 3, 4, 5, 4, 5, 4, 5, 4, 5, 6, 7, 8, 9}},
        {"odd size: the tail is cut", 7, 10, {0, 1, 2, 3, 2, 3, 2, 3, 4, 5}},
        {"odd start: the pattern counts from the edge", 8, 10, {0, 1, 2, 4, 3, 4, 3, 5, 6, 7}},
        {"the same", 6, 6, {0, 1, 2, 3, 4, 5}},
        {"one line", 1, 3, {-1, 0, -1}},
    };
    for (const Case& c : cases)
        for (const int vertical : {0, 1}) {
            const Source bitmap(vertical ? 2 : c.size, vertical ? c.size : 2, PlacePixel);
            const HBITMAP stretched = Functions::GetMiddleStretchBitmap(nullptr, bitmap, c.length, vertical);
            ExpectBitmap(
                stretched, vertical ? 2 : c.length, vertical ? c.length : 2,
                [&](int x, int y) {
                    const int line = c.lines[static_cast<std::size_t>(vertical ? y : x)];
                    return line < 0 ? 0 : PlacePixel(vertical ? x : line, vertical ? line : y);
                },
                c.name);
        }
    EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, nullptr, 5, 1), nullptr);
    EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, Source(4, 4, PlacePixel), 0, 1), nullptr);
    EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, Source(4, 4, PlacePixel), INT_MIN, 1), nullptr);
}

TEST_F(MiddleStretch, ReachesASizeOrCutsToIt)
{
    // Line of a 6-pixel bitmap in one that is longer or as long or shorter.
    const auto lineOf = [](int at, int length) {
        if (length <= 6 || at < 2)
            return at;
        return at >= length - 2 ? 6 - (length - at) : 2 + at % 2;
    };
    const Source bitmap(6, 6, PlacePixel);
    for (const int width : {3, 6, 9})
        for (const int height : {2, 6, 11})
            ExpectBitmap(
                Functions::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{width, height}), width, height,
                [&](int x, int y) { return PlacePixel(lineOf(x, width), lineOf(y, height)); },
                std::to_string(width) + " x " + std::to_string(height));
    for (const SIZE size : {SIZE{0, 5}, SIZE{5, 0}, SIZE{-3, 5}})
        EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, bitmap, size), nullptr);
    EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, nullptr, SIZE{5, 5}), nullptr);
}

TEST_F(MiddleStretch, DrawsInThreeModes)
{
    // A keyed row at the top, which no stretch repeats.
    const Source bitmap(4, 4, [](int, int y) { return y == 0 ? 0x00FF00FFU : 0x80404040U; });
    struct Case {
        const char* name;
        std::function<int(HDC, const RECT&)> draw;
        std::uint32_t top, rest;
    };
    constexpr std::uint32_t kBackground = 0x00202020;
    const std::vector<Case> cases{
        {"copied", [&](HDC dc, const RECT& r) { return Functions::MiddleStretchDraw(dc, bitmap, r); },
         0x00FF00FF, 0x80404040},
        {"keyed",
         [&](HDC dc, const RECT& r) {
             return Functions::MiddleStretchTransparentBlt(dc, bitmap, r, CARGB(255, 0, 255, 0));
         },
         kBackground, 0x00404040},
        {"blended",
         [&](HDC dc, const RECT& r) { return Functions::MiddleStretchAlphaBlend(dc, bitmap, r, 128); },
         Blended(0x00FF00FF, kBackground, 128), Blended(0x80404040, kBackground, 128)},
    };
    for (const Case& c : cases)
        for (const SIZE size : {SIZE{3, 3}, SIZE{3, 6}, SIZE{6, 6}, SIZE{7, 5}}) {
            const Canvas canvas(8, 8, [](int, int) { return kBackground; });
            EXPECT_TRUE(c.draw(canvas, {0, 0, size.cx, size.cy})) << c.name;
            canvas.Expect(
                [&](int x, int y) {
                    const bool isInside = Holds({0, 0, size.cx, size.cy}, x, y);
                    return !isInside ? kBackground : y == 0 ? c.top : c.rest;
                },
                c.name + (' ' + std::to_string(size.cx) + " x " + std::to_string(size.cy)));
        }
}

using BitmapRegion = RenderTest;

namespace {

constexpr std::uint32_t kMagenta = 0xFF00FF;

}  // namespace

TEST_F(BitmapRegion, HoldsEveryPixelThatIsNotKeyed)
{
    struct Case {
        const char* name;
        int width, height;
        std::function<bool(int x, int y)> isInside;
    };
    std::mt19937 random(7);
    const auto noise = [&random](unsigned oneIn) {
        return [&random, oneIn](int, int) { return random() % oneIn != 0; };
    };
    const std::vector<Case> cases{
        {"all keyed", 5, 4, [](int, int) { return false; }},
        {"nothing keyed", 5, 4, [](int, int) { return true; }},
        {"one pixel", 1, 1, [](int, int) { return true; }},
        {"equal rows", 9, 9, [](int x, int) { return x % 3 == 1; }},
        {"gap of rows", 4, 9, [](int, int y) { return y != 4; }},
        {"frame", 12, 9, [](int x, int y) { return x == 0 || y == 0 || x == 11 || y == 8; }},
        {"checkerboard beyond one batch", 101, 97, [](int x, int y) { return (x + y) % 2 == 0; }},
        {"a row beyond one batch", 5001, 3, [](int x, int y) { return x % 2 == 0 || y == 1; }},
        {"noise", 67, 61, noise(2)},
        {"few holes", 67, 61, noise(50)},
    };
    for (const Case& c : cases) {
        std::vector<bool> inside;
        const Source bitmap(c.width, c.height, [&](int x, int y) {
            inside.push_back(c.isInside(x, y));
            return inside.back() ? 0xFFFFFFFEU : 0x12000000U | kMagenta;
        });
        const Scoped region(Functions::BitmapToRgn(bitmap, CARGB(255, 0, 255, 255), 0));
        for (int y = -1; y <= c.height; ++y)
            for (int x = -1; x <= c.width; ++x)
                ASSERT_EQ(PtInRegion(region, x, y) != 0,
                          Holds({0, 0, c.width, c.height}, x, y) &&
                              inside[static_cast<std::size_t>(y * c.width + x)])
                    << c.name << " at " << x << "," << y;
    }
    EXPECT_EQ(Functions::BitmapToRgn(nullptr, CARGB(), 0), nullptr);
}

TEST_F(BitmapRegion, ToleranceReachesUpwardsPerChannel)
{
    struct Case {
        const char* name;
        std::uint32_t pixel;
        bool isKeyed;
    };
    // Key (100, 50, 250), tolerance red 1, green 2, blue 9 (up to 255 only).
    const std::vector<Case> cases{
        {"the colour", 0x6432FA, true},      {"red up", 0x6532FA, true},
        {"red too far", 0x6632FA, false},    {"red below", 0x6332FA, false},
        {"green up", 0x6434FA, true},        {"green too far", 0x6435FA, false},
        {"blue at its end", 0x6432FF, true}, {"blue below", 0x6432F9, false},
        {"all up", 0x6534FF, true},
    };
    for (const WORD bitCount : {WORD{24}, WORD{32}}) {
        const Source bitmap(
            static_cast<int>(cases.size()), 1,
            [&](int x, int) { return cases[static_cast<std::size_t>(x)].pixel; }, bitCount);
        const HRGN region = Functions::BitmapToRgn(bitmap, CARGB(100, 50, 250, 255), RGB(1, 2, 9));
        for (std::size_t x = 0; x < cases.size(); ++x)
            EXPECT_EQ(PtInRegion(region, static_cast<int>(x), 0) == 0, cases[x].isKeyed) << cases[x].name;
        DeleteObject(region);
    }
}
