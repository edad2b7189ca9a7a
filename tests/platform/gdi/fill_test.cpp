// Gradients and pattern brushes.

#include <random>

#include "platform/gdi/canvas.h"

namespace {

TRIVERTEX Vertex(int x, int y, std::uint64_t components)
{
    return {x,
            y,
            static_cast<USHORT>(components >> 48),
            static_cast<USHORT>(components >> 32),
            static_cast<USHORT>(components >> 16),
            static_cast<USHORT>(components)};
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
        Canvas canvas(100, 100);
        const ULONG mode = isVertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H;
        ASSERT_TRUE(isReversed ? Fill(canvas, last, first, mode) : Fill(canvas, first, last, mode));
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                const bool isInside = x >= 2 && x < last.x && y >= 3 && y < last.y;
                ASSERT_EQ(canvas.At(x, y),
                          isInside ? GradientPixel(first, last, isVertical ? y - 3 : x - 2, length) : 0)
                    << length << (isVertical ? " vertical " : " horizontal ") << isReversed << " at " << x
                    << ',' << y;
            }
    }
}

TEST_F(Gradient, IsNotMovedByTheClip)
{
    const TRIVERTEX first = Vertex(-5, 0, 0x0000FFFF80000000);
    const TRIVERTEX last = Vertex(25, 2, 0xFFFF0000FF00FF00);
    Canvas canvas(20, 2);
    ExcludeClipRect(canvas, 4, 0, 9, 2);
    ASSERT_TRUE(Fill(canvas, first, last, GRADIENT_FILL_RECT_H));
    for (int x = 0; x < 20; ++x)
        EXPECT_EQ(canvas.At(x, 1), x >= 4 && x < 9 ? 0 : GradientPixel(first, last, x + 5, 30)) << x;
}

TEST_F(Gradient, DrawsNothingWhenEmptyAndRefusesABadIndex)
{
    Canvas canvas(4, 4);
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
    for (const POINT origin : {POINT{0, 0}, POINT{1, 0}, POINT{-4, 5}})
        for (const POINT viewport : {POINT{0, 0}, POINT{2, 1}}) {
            Canvas canvas(8, 5);
            const Scoped bitmap(CreateBitmap(3, 2, 1, 32, pattern));
            const Scoped brush(CreatePatternBrush(bitmap));
            POINT previous{9, 9};
            EXPECT_TRUE(SetBrushOrgEx(canvas, origin.x, origin.y, &previous));
            EXPECT_EQ(previous.x, 0);
            SetViewportOrgEx(canvas, viewport.x, viewport.y, nullptr);
            const RECT rect{-viewport.x, -viewport.y, 8, 5};
            FillRect(canvas, &rect, brush);
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < 8; ++x)
                    ASSERT_EQ(canvas.At(x, y), pattern[((y - origin.y + 6) % 2) * 3 + (x - origin.x + 6) % 3])
                        << origin.x << ',' << origin.y << " at " << x << ',' << y;
        }
}

TEST_F(PatternBrush, OutlivesItsBitmapAndFillsByEveryOperation)
{
    const std::uint32_t pattern[] = {1, 2};
    HBRUSH brush = nullptr;
    {
        const Scoped bitmap(CreateBitmap(2, 1, 1, 32, pattern));
        brush = CreatePatternBrush(bitmap);
        Canvas canvas(2, 1);
        const RECT rect{0, 0, 2, 1};
        FillRect(canvas, &rect, brush);
    }
    const std::vector<std::uint32_t> expected{1, 2, 1, 2};
    const Scoped region(CreateRectRgn(0, 0, 4, 1));
    const std::vector<std::function<void(HDC)>> fills{
        [](HDC dc) { PatBlt(dc, 0, 0, 4, 1, PATCOPY); },
        [](HDC dc) { BitBlt(dc, 0, 0, 4, 1, nullptr, 0, 0, PATCOPY); },
        [brush](HDC dc) { FillRgn(dc, CreateRectRgn(0, 0, 0, 0), brush); },
        [](HDC dc) { Rectangle(dc, 0, 0, 5, 2); },
    };
    for (std::size_t i = 0; i < fills.size(); ++i) {
        Canvas canvas(4, 1);
        const HGDIOBJ oldBrush = SelectObject(canvas, brush);
        const HGDIOBJ oldPen = SelectObject(canvas, GetStockObject(NULL_PEN));
        if (i == 2)
            FillRgn(canvas, region, brush);
        else
            fills[i](canvas);
        EXPECT_EQ(canvas.Pixels(), expected) << i;
        SelectObject(canvas, oldPen);
        SelectObject(canvas, oldBrush);
    }
    DeleteObject(brush);
}
