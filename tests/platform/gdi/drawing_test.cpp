// Lines and gradients against models of them, and what a script of drawing cannot say.

#include <algorithm>
#include <cstdlib>
#include <random>

#include "platform/gdi/gdi_script.h"

namespace {

constexpr COLORREF kInk = RGB(0xFF, 0, 0);
constexpr std::uint32_t kInkPixel = 0xFF0000;

// For each step along the longer axis the nearest point of the other, the smaller one of two.
void SetThinLine(Canvas& canvas, int x, int y, int dx, int dy)
{
    const bool isSteep = std::abs(dy) > std::abs(dx);
    const int length = std::max(std::abs(dx), std::abs(dy));
    for (int i = 0; i < length; ++i) {
        const int exact = (isSteep ? dx : dy) * i;  // in units of 1 / length
        int nearest = -length;
        for (int candidate = -length; candidate <= length; ++candidate)
            if (std::abs(candidate * length - exact) < std::abs(nearest * length - exact))
                nearest = candidate;
        const int along = (isSteep ? dy : dx) < 0 ? -i : i;
        canvas.Set(x + (isSteep ? nearest : along), y + (isSteep ? along : nearest), kInkPixel);
    }
}

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

using Lines = PlatformTest;

TEST_F(Lines, OfOnePixelTouchTheNearestPixelOfEachStepExceptTheLast)
{
    constexpr int kFarthest = 24;
    for (int dy = -kFarthest; dy <= kFarthest; ++dy)
        for (int dx = -kFarthest; dx <= kFarthest; dx += 1 + (dy & 1)) {
            Canvas canvas(2 * kFarthest + 3, 2 * kFarthest + 3),
                expected(2 * kFarthest + 3, 2 * kFarthest + 3);
            const Scoped pen(canvas, CreatePen(PS_SOLID, 1, kInk));
            MoveToEx(canvas, kFarthest + 1, kFarthest + 1, nullptr);
            EXPECT_TRUE(LineTo(canvas, kFarthest + 1 + dx, kFarthest + 1 + dy));
            SetThinLine(expected, kFarthest + 1, kFarthest + 1, dx, dy);
            canvas.ExpectSame(expected, std::to_string(dx) + ',' + std::to_string(dy));
        }
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

using Objects = PlatformTest;

TEST_F(Objects, DescribeThemselves)
{
    LOGPEN pen{};
    EXPECT_EQ(GetObjectA(GetStockObject(BLACK_PEN), sizeof pen, &pen), static_cast<int>(sizeof pen));
    EXPECT_EQ(pen.lopnColor, RGB(0, 0, 0));
    LOGBRUSH brush{};
    EXPECT_EQ(GetObjectA(GetStockObject(WHITE_BRUSH), sizeof brush, &brush), static_cast<int>(sizeof brush));
    EXPECT_EQ(brush.lbColor, RGB(255, 255, 255));
}

using Bitmaps = PlatformTest;

TEST_F(Bitmaps, NeedASizeAndFillInAHeaderOnRequest)
{
    for (const SIZE size : {SIZE{0, 4}, SIZE{4, 0}, SIZE{-4, 4}})
        EXPECT_EQ(qvui::test::MemoryBitmap(BitmapInfo(size.cx, size.cy)).Bitmap(), nullptr);
    const Canvas canvas(2, 3);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    EXPECT_NE(GetDIBits(canvas, canvas.Bitmap(), 0, 0, nullptr, &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(info.bmiHeader.biHeight, 3);
    EXPECT_EQ(info.bmiHeader.biBitCount, 32);
}

using Drawing = PlatformTest;

TEST_F(Drawing, GoesAsTheScriptsSay)
{
    qvui::test::CheckScripts<GdiScript>("gdi/scripts");
}
