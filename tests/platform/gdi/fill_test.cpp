// Solid fills, frames and gradients.

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
    const std::string picture = "....\n.##.\n....\n";
    EXPECT_EQ(canvas.Picture(), picture);
    const RECT ring{0, 0, 4, 3};
    DrawFocusRect(canvas, &ring);
    EXPECT_NE(canvas.Picture(), picture);
    DrawFocusRect(canvas, &ring);
    EXPECT_EQ(canvas.Picture(), picture) << "the second one takes the first back";
}

using Gradient = PlatformTest;

TEST_F(Gradient, InterpolatesEachComponentIn16BitsWhateverTheClip)
{
    std::mt19937_64 random(12);
    TRIVERTEX ends[] = {Vertex(0, 0, ~0ULL), Vertex(4, 4, ~0ULL)};
    GRADIENT_RECT mesh[] = {{0, 1}, {0, 2}};
    EXPECT_FALSE(GradientFill(Canvas(4, 2), ends, 2, mesh, 2, GRADIENT_FILL_RECT_H)) << "a bad index";
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
