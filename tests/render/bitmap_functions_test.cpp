#include <qvui/render/bitmap_functions.h>

#include <climits>
#include <functional>
#include <random>

#include "render/render_test.h"

using DUI::CARGB;
using DUI::CDibSection;
using Functions = DUI::CBitmapCommonFunction;

namespace {

std::uint32_t PlacePixel(int x, int y)
{
    return static_cast<std::uint32_t>(0x00010000 * (x + 1) + 0x00000100 * (y + 1) + 0x55);
}

// The pixels of a new bitmap, which is deleted; empty for none.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

Picture Take(HBITMAP bitmap)
{
    SIZE size{};
    if (!Functions::GetBitmapSize(bitmap, size))
        return {};
    CDibSection section;
    section.Create(bitmap, 32);
    Picture picture{size.cx, size.cy, {}};
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            picture.pixels.push_back(Bits(section.GetPixel(x, y, TRUE)));
    DeleteObject(bitmap);
    return picture;
}

void ExpectPixels(const Picture& picture, int width, int height,
                  const std::function<std::uint32_t(int x, int y)>& expected, const std::string& name)
{
    ASSERT_EQ(picture.width, width) << name;
    ASSERT_EQ(picture.height, height) << name;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(picture.At(x, y), expected(x, y)) << name << " at " << x << "," << y;
}

// A bitmap that is in no context, painted pixel by pixel.
class Source {
public:
    Source(int width, int height, const std::function<std::uint32_t(int x, int y)>& pixelAt,
           WORD bitCount = 32)
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
        const Picture part = Take(Functions::GetSubBitmap(nullptr, bitmap, rect));
        EXPECT_EQ(RectText(rect), RectText(c.clamped)) << c.name;
        ASSERT_EQ(part.width != 0, c.isMade) << c.name;
        if (!c.isMade)
            continue;
        const auto expected = [&rect](int x, int y) {
            return x + rect.left < 0 ? 0 : PlacePixel(x + rect.left, y + rect.top);
        };
        ExpectPixels(part, rect.right - rect.left, rect.bottom - rect.top, expected, c.name);
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
        int (*draw)(HDC, HBITMAP, const RECT&);
        bool isCentred;
    };
    static const CARGB kKey(255, 0, 255, 0);
    const std::vector<Form> forms{
        {"copied", [](HDC dc, HBITMAP b, const RECT& r) { return Functions::DrawBitmap(dc, b, r); }, false},
        {"blended",
         [](HDC dc, HBITMAP b, const RECT& r) { return Functions::AlphaBlendWithoutStretch(dc, b, r, 255); },
         false},
        {"keyed",
         [](HDC dc, HBITMAP b, const RECT& r) {
             return Functions::TransparentBltWithoutStretch(dc, b, r, kKey);
         },
         false},
        {"copied, centred",
         [](HDC dc, HBITMAP b, const RECT& r) { return Functions::DrawBitmapInCenter(dc, b, r); }, true},
        {"blended, centred",
         [](HDC dc, HBITMAP b, const RECT& r) { return Functions::AlphaBlendInCenter(dc, b, r, 255); }, true},
        {"keyed, centred",
         [](HDC dc, HBITMAP b, const RECT& r) { return Functions::TransparentBltInCenter(dc, b, r, kKey); },
         true},
    };
    const Source bitmap(3, 2, PlacePixel);
    for (const Case& c : cases)
        for (const Form& form : forms) {
            Canvas canvas(10, 9);
            EXPECT_TRUE(form.draw(canvas, bitmap, c.rect)) << c.name;
            const RECT& covered = form.isCentred ? c.centred : c.plain;
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 10; ++x) {
                    const std::uint32_t expected =
                        Holds(covered, x, y) ? PlacePixel(x - covered.left, y - covered.top) : 0;
                    ASSERT_EQ(canvas.At(x, y), expected)
                        << c.name << ", " << form.name << " at " << x << "," << y;
                }
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
        for (int y = 1; y < 6; ++y)
            for (int x = 1; x < 8; ++x)
                EXPECT_EQ(canvas.At(x, y), PlacePixel((x - origin.x + 3) % 3, (y - origin.y + 2) % 2));
        EXPECT_EQ(canvas.At(0, 0), 0U);
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
            const Picture picture =
                Take(Functions::GetMiddleStretchBitmap(nullptr, bitmap, c.length, vertical));
            const auto expected = [&](int x, int y) {
                const int line = c.lines[static_cast<std::size_t>(vertical ? y : x)];
                return line < 0 ? 0 : PlacePixel(vertical ? x : line, vertical ? line : y);
            };
            if (c.size == 1)
                EXPECT_EQ(picture.pixels.size(), 2U * static_cast<std::size_t>(c.length))
                    << "no line to repeat well";
            else
                ExpectPixels(picture, vertical ? 2 : c.length, vertical ? c.length : 2, expected, c.name);
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
        for (const int height : {2, 6, 11}) {
            const Picture picture =
                Take(Functions::GetMiddleStretchBitmap(nullptr, bitmap, SIZE{width, height}));
            ExpectPixels(
                picture, width, height,
                [&](int x, int y) { return PlacePixel(lineOf(x, width), lineOf(y, height)); },
                std::to_string(width) + " x " + std::to_string(height));
        }
    for (const SIZE size : {SIZE{0, 5}, SIZE{5, 0}, SIZE{-3, 5}})
        EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, bitmap, size), nullptr);
    EXPECT_EQ(Functions::GetMiddleStretchBitmap(nullptr, nullptr, SIZE{5, 5}), nullptr);
}

TEST_F(MiddleStretch, DrawsInThreeModes)
{
    // Opaque green with one keyed pixel in the middle, which the stretch repeats.
    const Source bitmap(4, 1, [](int x, int) { return x == 1 ? 0x00FF00FFU : 0x00008000U; });
    const CARGB key(255, 0, 255, 0);
    const auto draw = [](int width, auto operation) {
        Canvas canvas(8, 1);
        canvas.Fill(0x00000011);
        EXPECT_TRUE(operation(canvas, RECT{0, 0, width, 1}));
        return canvas.Picture(0x11);
    };
    EXPECT_EQ(draw(3, [&](HDC dc, const RECT& r) { return Functions::MiddleStretchDraw(dc, bitmap, r); }),
              "###.....\n");
    EXPECT_EQ(
        draw(3, [&](HDC dc,
                    const RECT& r) { return Functions::MiddleStretchTransparentBlt(dc, bitmap, r, key); }),
        "#.#.....\n");
    const Source tall(4, 4, [](int, int y) { return y == 0 ? 0x00FF00FFU : 0x00008000U; });
    for (const int width : {6, 7}) {
        Canvas canvas(8, 8);
        canvas.Fill(0x00000011);
        EXPECT_TRUE(Functions::MiddleStretchTransparentBlt(canvas, tall, {0, 0, width, 6}, key));
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                EXPECT_EQ(canvas.At(x, y), x < width && y > 0 && y < 6 ? 0x8000U : 0x11U) << x << "," << y;
        EXPECT_TRUE(Functions::MiddleStretchDraw(canvas, tall, {0, 0, width, 6}));
        EXPECT_EQ(canvas.At(width - 1, 0), 0xFF00FFU);
    }
    const Source translucent(4, 4, [](int, int) { return 0x80404040U; });
    Canvas canvas(6, 6);
    canvas.Fill(0x00202020);
    EXPECT_TRUE(Functions::MiddleStretchAlphaBlend(canvas, translucent, {0, 0, 6, 6}, 128));
    EXPECT_EQ(canvas.At(5, 5), Blended(0x80404040, 0x202020, 128));
}

using BitmapRegion = RenderTest;

namespace {

constexpr std::uint32_t kMagenta = 0xFF00FF;

void ExpectRegion(HRGN region, int width, int height, const std::function<bool(int x, int y)>& isInside,
                  const std::string& name)
{
    ASSERT_NE(region, nullptr) << name;
    for (int y = -1; y <= height; ++y)
        for (int x = -1; x <= width; ++x) {
            const bool expected = x >= 0 && y >= 0 && x < width && y < height && isInside(x, y);
            ASSERT_EQ(PtInRegion(region, x, y) != 0, expected) << name << " at " << x << "," << y;
        }
    DeleteObject(region);
}

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
        ExpectRegion(
            Functions::BitmapToRgn(bitmap, CARGB(255, 0, 255, 255), 0), c.width, c.height,
            [&](int x, int y) { return inside[static_cast<std::size_t>(y * c.width + x)]; }, c.name);
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
