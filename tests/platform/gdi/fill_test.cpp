// Solid fills and frames, gradients and pattern brushes.

#include <random>

#include "platform/gdi/canvas.h"

namespace {

TRIVERTEX Vertex(int x, int y, std::uint64_t components)
{
    const auto part = [components](int shift) { return static_cast<USHORT>(components >> shift); };
    return {x, y, part(48), part(32), part(16), part(0)};
}

BOOL Fill(HDC dc, TRIVERTEX first, TRIVERTEX last, ULONG mode)
{
    TRIVERTEX ends[] = {first, last};
    GRADIENT_RECT mesh{0, 1};
    return GradientFill(dc, ends, 2, &mesh, 1, mode);
}

std::uint32_t Step(USHORT first, USHORT last, int i, int n)
{
    return static_cast<std::uint32_t>(((first * (n - i) + last * i) / n) >> 8);
}

std::uint32_t GradientPixel(const TRIVERTEX& first, const TRIVERTEX& last, int i, int n)
{
    return Step(first.Blue, last.Blue, i, n) | (Step(first.Green, last.Green, i, n) << 8) |
           (Step(first.Red, last.Red, i, n) << 16) | (Step(first.Alpha, last.Alpha, i, n) << 24);
}

}  // namespace

using Fills = PlatformTest;

TEST_F(Fills, StopBeforeTheRightAndBottomEdge)
{
    struct Case {
        const char* name;
        RECT rect;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"inside", {1, 1, 3, 2}, "....\n.##.\n....\n"},
        {"empty", {1, 1, 1, 3}, "....\n....\n....\n"},
        {"beyond every edge", {-5, -5, 50, 50}, "####\n####\n####\n"},
        {"outside", {4, 0, 9, 3}, "....\n....\n....\n"},
    };
    const auto brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    for (const Case& c : cases)
        for (const int bitsPerPixel : {32, 24}) {
            const Canvas canvas(4, 3, bitsPerPixel);
            EXPECT_NE(FillRect(canvas, &c.rect, brush), 0) << c.name;
            EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
        }
    const Canvas canvas(4, 3);
    const RECT inverted{3, 2, 1, 1};
    ExtTextOutA(canvas, 0, 0, ETO_OPAQUE, &inverted, "", 0, nullptr);
    EXPECT_EQ(canvas.Picture(), "....\n.##.\n....\n");
}

TEST_F(Fills, FramesAndFocusRectangles)
{
    struct Case {
        const char* name;
        RECT rect;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"ring", {1, 0, 5, 3}, ".####.\n.#..#.\n.####.\n......\n"},
        {"one row", {1, 1, 5, 2}, "......\n.####.\n......\n......\n"},
        {"one pixel", {2, 2, 3, 3}, "......\n......\n..#...\n......\n"},
    };
    for (const Case& c : cases) {
        Canvas canvas(6, 4);
        FrameRect(canvas, &c.rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
        canvas.Paint(PlacePixel);
        DrawFocusRect(canvas, &c.rect);
        DrawFocusRect(canvas, &c.rect);
        canvas.Expect(PlacePixel, c.name);
    }
    const Canvas canvas(8, 8);
    const RECT ring{1, 1, 7, 7};
    DrawFocusRect(canvas, &ring);
    EXPECT_NE(canvas.Pixels(), std::vector<std::uint32_t>(64, 0));
}

using Gradient = PlatformTest;

TEST_F(Gradient, InterpolatesEachComponentIn16Bits)
{
    std::mt19937_64 random(12);
    for (int round = 0; round < 40; ++round) {
        const bool isVertical = round % 2 != 0;
        const bool isReversed = round % 4 >= 2;
        const int length = static_cast<int>(random() % 90) + 1;
        const TRIVERTEX first = Vertex(2, 3, random());
        TRIVERTEX last = Vertex(2 + (isVertical ? 4 : length), 3 + (isVertical ? length : 4), random());
        const Canvas canvas(100, 100);
        const ULONG mode = isVertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H;
        ASSERT_TRUE(isReversed ? Fill(canvas, last, first, mode) : Fill(canvas, first, last, mode));
        canvas.Expect(
            [&](int x, int y) {
                return Holds({2, 3, last.x, last.y}, x, y)
                           ? GradientPixel(first, last, isVertical ? y - 3 : x - 2, length)
                           : 0;
            },
            std::to_string(length) + (isVertical ? ", vertical" : ", horizontal") +
                (isReversed ? ", reversed" : ""));
    }
}

TEST_F(Gradient, IsNotMovedByTheClip)
{
    const TRIVERTEX first = Vertex(-5, 0, 0x0000FFFF80000000);
    const TRIVERTEX last = Vertex(25, 2, 0xFFFF0000FF00FF00);
    const Canvas canvas(20, 2);
    ExcludeClipRect(canvas, 4, 0, 9, 2);
    ASSERT_TRUE(Fill(canvas, first, last, GRADIENT_FILL_RECT_H));
    canvas.Expect([&](int x, int) { return x >= 4 && x < 9 ? 0 : GradientPixel(first, last, x + 5, 30); });
}

TEST_F(Gradient, DrawsNothingWhenEmptyAndRefusesABadIndex)
{
    const Canvas canvas(4, 4);
    EXPECT_TRUE(Fill(canvas, Vertex(1, 1, ~0ULL), Vertex(1, 3, ~0ULL), GRADIENT_FILL_RECT_H));
    EXPECT_TRUE(Fill(canvas, Vertex(1, 1, ~0ULL), Vertex(3, 1, ~0ULL), GRADIENT_FILL_RECT_V));
    TRIVERTEX ends[] = {Vertex(0, 0, ~0ULL), Vertex(4, 4, ~0ULL)};
    GRADIENT_RECT mesh[] = {{0, 1}, {0, 2}};
    EXPECT_FALSE(GradientFill(canvas, ends, 2, mesh, 2, GRADIENT_FILL_RECT_H));
    EXPECT_EQ(canvas.Picture(), "....\n....\n....\n....\n");
}

using PatternBrush = PlatformTest;

TEST_F(PatternBrush, StartsAtTheBrushOriginInDeviceCoordinates)
{
    const std::uint32_t pattern[] = {'a', 'b', 'c', 'd', 'e', 'f'};  // abc over def
    const Scoped bitmap(CreateBitmap(3, 2, 1, 32, pattern));
    const Scoped brush(CreatePatternBrush(bitmap));
    for (const POINT origin : {POINT{0, 0}, POINT{1, 0}, POINT{-4, 5}})
        for (const POINT viewport : {POINT{0, 0}, POINT{2, 1}}) {
            const Canvas canvas(8, 5);
            POINT previous{9, 9};
            EXPECT_TRUE(SetBrushOrgEx(canvas, origin.x, origin.y, &previous));
            EXPECT_EQ(previous.x, 0);
            SetViewportOrgEx(canvas, viewport.x, viewport.y, nullptr);
            const RECT rect{-viewport.x, -viewport.y, 8, 5};
            FillRect(canvas, &rect, brush);
            canvas.Expect(
                [&](int x, int y) { return pattern[((y - origin.y + 6) % 2) * 3 + (x - origin.x + 6) % 3]; },
                std::to_string(origin.x) + ',' + std::to_string(origin.y));
        }
}

TEST_F(PatternBrush, OutlivesItsBitmapAndFillsByEveryOperation)
{
    const std::uint32_t pattern[] = {1, 2};
    const HBITMAP bitmap = CreateBitmap(2, 1, 1, 32, pattern);
    const Scoped brush(CreatePatternBrush(bitmap));
    const RECT first{0, 0, 1, 1};
    FillRect(Canvas(1, 1), &first, brush);
    DeleteObject(bitmap);
    const Scoped region(CreateRectRgn(0, 0, 4, 1));
    const std::vector<std::pair<const char*, std::function<void(HDC)>>> fills{
        {"PatBlt", [](HDC dc) { PatBlt(dc, 0, 0, 4, 1, PATCOPY); }},
        {"BitBlt", [](HDC dc) { BitBlt(dc, 0, 0, 4, 1, nullptr, 0, 0, PATCOPY); }},
        {"FillRgn", [&](HDC dc) { FillRgn(dc, region, brush); }},
        {"Rectangle", [](HDC dc) { Rectangle(dc, 0, 0, 5, 2); }},
    };
    for (const auto& [name, fill] : fills) {
        const Canvas canvas(4, 1);
        const HGDIOBJ oldBrush = SelectObject(canvas, static_cast<HBRUSH>(brush));
        const HGDIOBJ oldPen = SelectObject(canvas, GetStockObject(NULL_PEN));
        fill(canvas);
        EXPECT_EQ(canvas.Pixels(), (std::vector<std::uint32_t>{1, 2, 1, 2})) << name;
        SelectObject(canvas, oldPen);
        SelectObject(canvas, oldBrush);
    }
}
