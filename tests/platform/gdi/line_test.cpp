// The pixels that pens touch.

#include <cstdlib>
#include <set>
#include <utility>

#include "platform/gdi/canvas.h"

namespace {

constexpr COLORREF kInk = RGB(0xFF, 0, 0);
using Points = std::set<std::pair<int, int>>;

Points Touched(const Canvas& canvas)
{
    Points points;
    for (int y = 0; y < canvas.Height(); ++y)
        for (int x = 0; x < canvas.Width(); ++x)
            if (canvas.At(x, y))
                points.emplace(x, y);
    return points;
}

// For each step along the longer axis the nearest point of the other, the smaller one of two.
Points ThinLine(int x, int y, int dx, int dy)
{
    Points points;
    const bool isSteep = std::abs(dy) > std::abs(dx);
    const int length = std::max(std::abs(dx), std::abs(dy));
    for (int i = 0; i < length; ++i) {
        const int exact = (isSteep ? dx : dy) * i;  // in units of 1 / length
        int nearest = -length;
        for (int candidate = -length; candidate <= length; ++candidate)
            if (std::abs(candidate * length - exact) < std::abs(nearest * length - exact))
                nearest = candidate;
        const int along = (isSteep ? dy : dx) < 0 ? -i : i;
        points.emplace(x + (isSteep ? nearest : along), y + (isSteep ? along : nearest));
    }
    return points;
}

std::string Row(const Canvas& canvas, int y)
{
    std::string row;
    for (int x = 0; x < canvas.Width(); ++x)
        row += canvas.At(x, y) == 0x00FF0000 ? '#' : canvas.At(x, y) ? 'o' : '.';
    return row;
}

std::string Repeated(const std::vector<int>& dashes, int length, char gap)
{
    std::string row;
    for (std::size_t i = 0; static_cast<int>(row.size()) < length; ++i)
        row.append(static_cast<std::size_t>(dashes[i % dashes.size()]), i % 2 == 0 ? '#' : gap);
    return row.substr(0, static_cast<std::size_t>(length));
}

struct Dashes {
    const char* name;
    int style;
    std::vector<int> lengths;
};

const std::vector<Dashes> kDashes{
    {"dash", PS_DASH, {18, 6}},
    {"dot", PS_DOT, {3, 3}},
    {"dash dot", PS_DASHDOT, {9, 6, 3, 6}},
    {"dash dot dot", PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}},
};

}  // namespace

using Lines = PlatformTest;

TEST_F(Lines, OfOnePixelTouchTheNearestPixelOfEachStepExceptTheLast)
{
    constexpr int kFarthest = 24;
    for (int dy = -kFarthest; dy <= kFarthest; ++dy)
        for (int dx = -kFarthest; dx <= kFarthest; dx += 1 + (dy & 1)) {
            Canvas canvas(2 * kFarthest + 3, 2 * kFarthest + 3);
            const Scoped pen(canvas, CreatePen(PS_SOLID, 1, kInk));
            MoveToEx(canvas, kFarthest + 1, kFarthest + 1, nullptr);
            EXPECT_TRUE(LineTo(canvas, kFarthest + 1 + dx, kFarthest + 1 + dy));
            ASSERT_EQ(Touched(canvas), ThinLine(kFarthest + 1, kFarthest + 1, dx, dy)) << dx << ',' << dy;
        }
}

TEST_F(Lines, ContinueWhereTheLastOneEnded)
{
    Canvas canvas(8, 4);
    const Scoped pen(canvas, CreatePen(PS_SOLID, 0, kInk));
    POINT previous{9, 9};
    MoveToEx(canvas, 1, 0, &previous);
    EXPECT_EQ(previous.x, 0);
    LineTo(canvas, 6, 0);
    LineTo(canvas, 6, 3);
    MoveToEx(canvas, 0, 0, &previous);
    EXPECT_EQ(previous.x, 6);
    EXPECT_EQ(previous.y, 3);
    EXPECT_EQ(canvas.Picture(), ".######.\n......#.\n......#.\n........\n");
}

TEST_F(Lines, AreCutByTheClipAndSurviveAbsurdCoordinates)
{
    const Canvas canvas(6, 3);
    const Scoped pen(static_cast<HDC>(canvas), CreatePen(PS_SOLID, 1, kInk));
    IntersectClipRect(canvas, 1, 0, 4, 3);
    MoveToEx(canvas, -1000, 1, nullptr);
    LineTo(canvas, 1000, 1);
    MoveToEx(canvas, -100, -100, nullptr);
    LineTo(canvas, 100, 100);
    const HGDIOBJ old = SelectObject(canvas, GetStockObject(NULL_PEN));
    LineTo(canvas, 0, 0);
    SelectObject(canvas, old);
    EXPECT_EQ(canvas.Picture(), "......\n.###..\n..#...\n") << "the null pen draws nothing";
}

TEST_F(Lines, DashFromTheirStart)
{
    for (const Dashes& dashes : kDashes)
        for (const int mode : {TRANSPARENT, OPAQUE}) {
            const std::string expected = Repeated(dashes.lengths, 60, mode == OPAQUE ? 'o' : '.');
            Canvas canvas(60, 60);
            const Scoped pen(canvas, CreatePen(dashes.style, 1, kInk));
            SetBkMode(canvas, mode);
            SetBkColor(canvas, RGB(0, 0xFF, 0));
            LineTo(canvas, 60, 0);
            EXPECT_EQ(Row(canvas, 0), expected) << dashes.name;
            canvas.Fill(0);
            MoveToEx(canvas, 59, 2, nullptr);
            LineTo(canvas, -1, 2);
            EXPECT_EQ(Row(canvas, 2), std::string(expected.rbegin(), expected.rend()))
                << dashes.name << ", leftwards";
            canvas.Fill(0);
            MoveToEx(canvas, 0, 0, nullptr);
            LineTo(canvas, 60, 60);
            for (int i = 0; i < 60; ++i)
                ASSERT_EQ(Row(canvas, i)[static_cast<std::size_t>(i)], expected[static_cast<std::size_t>(i)])
                    << dashes.name << ", diagonal " << i;
        }
}

TEST_F(Lines, DashAnewAfterThePenIsMovedAndSolidlyWhenWide)
{
    Canvas canvas(40, 5);
    const Scoped pen(canvas, CreatePen(PS_DASH, 1, kInk));
    SetBkMode(canvas, TRANSPARENT);
    LineTo(canvas, 10, 0);
    MoveToEx(canvas, 5, 1, nullptr);
    LineTo(canvas, 40, 1);
    EXPECT_EQ(Row(canvas, 1), "....." + Repeated({18, 6}, 35, '.'));
    const Scoped wide(canvas, CreatePen(PS_DASH, 2, kInk));
    MoveToEx(canvas, 0, 3, nullptr);
    LineTo(canvas, 40, 3);
    EXPECT_EQ(Row(canvas, 3), std::string(40, '#'));
}

TEST_F(Lines, OfTwoToFivePixelsAreStampsFromStartToEnd)
{
    for (int width = 2; width <= 5; ++width)
        for (const POINT delta : {POINT{7, 0}, POINT{-7, 0}, POINT{0, 6}, POINT{0, -6}, POINT{1, 0}})
            for (const int style : {PS_SOLID, PS_DASH}) {
                Points expected;
                for (int i = 0; i <= std::abs(delta.x + delta.y); ++i) {
                    const int left = 12 + (delta.x > 0 ? i : delta.x < 0 ? -i : 0) - width / 2;
                    const int top = 12 + (delta.y > 0 ? i : delta.y < 0 ? -i : 0) - width / 2;
                    for (int y = 0; y < width; ++y)
                        for (int x = 0; x < width; ++x) {
                            const bool isCorner = (x == 0 || x == width - 1) && (y == 0 || y == width - 1);
                            if (width == 2 || !isCorner)
                                expected.emplace(left + x, top + y);
                        }
                }
                Canvas canvas(25, 25);
                const Scoped pen(canvas, CreatePen(style, width, kInk));
                MoveToEx(canvas, 12, 12, nullptr);
                LineTo(canvas, 12 + delta.x, 12 + delta.y);
                ASSERT_EQ(Touched(canvas), expected)
                    << "width " << width << " by " << delta.x << ',' << delta.y << '\n'
                    << canvas.Picture();
            }
}
