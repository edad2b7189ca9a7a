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

// Step i of n: each component in 16 bits, cut to its high byte.
std::uint32_t ColourBetween(const TRIVERTEX& first, const TRIVERTEX& last, int i, int n)
{
    const auto step = [=](USHORT from, USHORT to) {
        return static_cast<std::uint32_t>(((from * (n - i) + to * i) / n) >> 8);
    };
    return step(first.Blue, last.Blue) | (step(first.Green, last.Green) << 8) |
           (step(first.Red, last.Red) << 16) | (step(first.Alpha, last.Alpha) << 24);
}

}  // namespace

using Fills = PlatformTest;

TEST_F(Fills, AndFramesStopBeforeTheRightAndBottomEdge)
{
    const auto brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    for (const RECT& rect : {RECT{1, 1, 4, 4}, RECT{1, 1, 1, 3}, RECT{1, 2, 5, 3}, RECT{2, 2, 3, 3},
                             RECT{-5, -5, 50, 50}, RECT{6, 0, 9, 3}})
        for (const int bitsPerPixel : {32, 24})
            for (const bool isFrame : {false, true}) {
                const Canvas canvas(6, 5, bitsPerPixel);
                (isFrame ? FrameRect : FillRect)(canvas, &rect, brush);
                const RECT inside{rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1};
                canvas.Expect(
                    [&](int x, int y) {
                        return Holds(rect, x, y) && !(isFrame && Holds(inside, x, y)) ? kColourBits : 0;
                    },
                    RectText(rect), kColourBits);
            }
    const Canvas canvas(4, 3);
    const RECT inverted{3, 2, 1, 1};
    ExtTextOutA(canvas, 0, 0, ETO_OPAQUE, &inverted, "", 0, nullptr);
    EXPECT_EQ(canvas.Picture(), "....\n.##.\n....\n");
}

TEST_F(Fills, AFocusRectangleIsTakenBackByASecondOne)
{
    const Canvas canvas(8, 8, PlacePixel);
    const RECT ring{1, 1, 7, 7};
    DrawFocusRect(canvas, &ring);
    EXPECT_NE(canvas.Pixels(), Canvas(8, 8, PlacePixel).Pixels());
    DrawFocusRect(canvas, &ring);
    canvas.Expect(PlacePixel);
}

using Gradient = PlatformTest;

TEST_F(Gradient, InterpolatesEachComponentIn16BitsWhateverTheClip)
{
    std::mt19937_64 random(12);
    for (int round = 0; round < 40; ++round) {
        const bool isVertical = round % 2 != 0;
        const bool isReversed = round % 4 >= 2;
        const int length = static_cast<int>(random() % 90) + 1;
        const TRIVERTEX first = Vertex(2, 3, random());
        const TRIVERTEX last = Vertex(2 + (isVertical ? 4 : length), 3 + (isVertical ? length : 4), random());
        const Canvas canvas(100, 100);
        ExcludeClipRect(canvas, 4, 4, 9, 9);
        const ULONG mode = isVertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H;
        ASSERT_TRUE(isReversed ? Fill(canvas, last, first, mode) : Fill(canvas, first, last, mode));
        canvas.Expect(
            [&](int x, int y) {
                return Holds({2, 3, last.x, last.y}, x, y) && !Holds({4, 4, 9, 9}, x, y)
                           ? ColourBetween(first, last, isVertical ? y - 3 : x - 2, length)
                           : 0;
            },
            std::to_string(length) + (isVertical ? ", vertical" : ", horizontal") +
                (isReversed ? ", reversed" : ""));
    }
}

TEST_F(Gradient, DrawsNothingWhenEmptyAndRefusesABadIndex)
{
    const Canvas canvas(4, 2);
    EXPECT_TRUE(Fill(canvas, Vertex(1, 1, ~0ULL), Vertex(1, 3, ~0ULL), GRADIENT_FILL_RECT_H));
    TRIVERTEX ends[] = {Vertex(0, 0, ~0ULL), Vertex(4, 4, ~0ULL)};
    GRADIENT_RECT mesh[] = {{0, 1}, {0, 2}};
    EXPECT_FALSE(GradientFill(canvas, ends, 2, mesh, 2, GRADIENT_FILL_RECT_H));
    EXPECT_EQ(canvas.Picture(), "....\n....\n");
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
            SetBrushOrgEx(canvas, origin.x, origin.y, nullptr);
            SetViewportOrgEx(canvas, viewport.x, viewport.y, nullptr);
            const RECT rect{-viewport.x, -viewport.y, 8, 5};
            FillRect(canvas, &rect, brush);
            canvas.Expect(
                [&](int x, int y) { return pattern[((y - origin.y + 6) % 2) * 3 + (x - origin.x + 6) % 3]; },
                qvui::test::Text(origin));
        }
}

TEST_F(PatternBrush, OutlivesItsBitmapAndFillsByEveryOperation)
{
    const std::uint32_t pattern[] = {0x5A000001, 2};
    const HBITMAP bitmap = CreateBitmap(2, 1, 1, 32, pattern);
    const Scoped brush(CreatePatternBrush(bitmap));
    DeleteObject(bitmap);
    const Scoped region(CreateRectRgn(0, 0, 4, 1));
    const Table<const char*, std::function<void(HDC)>> fills{
        {"PatBlt", [](HDC dc) { PatBlt(dc, 0, 0, 4, 1, PATCOPY); }},
        {"BitBlt", [](HDC dc) { BitBlt(dc, 0, 0, 4, 1, nullptr, 0, 0, PATCOPY); }},
        {"FillRgn", [&](HDC dc) { FillRgn(dc, region, brush); }},
        {"Rectangle", [](HDC dc) { Rectangle(dc, 0, 0, 5, 2); }},
    };
    for (const auto& [name, fill] : fills) {
        const Canvas canvas(4, 1);
        const HGDIOBJ oldBrush = SelectObject(canvas, static_cast<HBRUSH>(brush));
        SelectObject(canvas, GetStockObject(NULL_PEN));
        fill(canvas);
        EXPECT_EQ(canvas.Pixels(), (std::vector{pattern[0], pattern[1], pattern[0], pattern[1]})) << name;
        SelectObject(canvas, oldBrush);
    }
}
