// The pixels that pens touch.

#include <algorithm>
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

// The pixels from a point onwards, in steps of dx and dy: '#' ink, 'o' the background colour, '.' untouched.
std::string Along(const Canvas& canvas, POINT from, int dx, int dy)
{
    std::string pixels;
    for (int x = from.x, y = from.y; x >= 0 && x < canvas.Width() && y < canvas.Height(); x += dx, y += dy)
        pixels += canvas.At(x, y) == 0x00FF0000 ? '#' : canvas.At(x, y) ? 'o' : '.';
    return pixels;
}

std::string Repeated(const std::vector<int>& dashes, std::size_t length, char gap)
{
    std::string row;
    for (std::size_t i = 0; row.size() < length; ++i)
        row.append(static_cast<std::size_t>(dashes[i % dashes.size()]), i % 2 == 0 ? '#' : gap);
    return row.substr(0, length);
}

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

TEST_F(Lines, ContinueWhereTheLastOneEndedAndAreCutByTheClip)
{
    Canvas canvas(6, 3);
    const Scoped pen(canvas, CreatePen(PS_SOLID, 0, kInk));
    IntersectClipRect(canvas, 1, 0, 4, 3);
    MoveToEx(canvas, -1000, 1, nullptr);
    LineTo(canvas, 1000, 1);
    POINT previous{};
    MoveToEx(canvas, -100, -100, &previous);
    EXPECT_EQ(qvui::test::Text(previous), "1000,1");
    LineTo(canvas, 3, 3);
    LineTo(canvas, 3, -1);
    const HGDIOBJ old = SelectObject(canvas, GetStockObject(NULL_PEN));
    LineTo(canvas, 0, 0);
    SelectObject(canvas, old);
    EXPECT_EQ(canvas.Picture(), "...#..\n.###..\n..##..\n") << "the null pen draws nothing";
}

TEST_F(Lines, DashFromWhereThePenWasMovedTo)
{
    const Table<const char*, int, std::vector<int>> styles{
        {"dash", PS_DASH, {18, 6}},
        {"dot", PS_DOT, {3, 3}},
        {"dash dot", PS_DASHDOT, {9, 6, 3, 6}},
        {"dash dot dot", PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}},
    };
    const Table<const char*, POINT, int, int> directions{
        {"rightwards", {0, 0}, 1, 0}, {"leftwards", {59, 2}, -1, 0}, {"diagonal", {0, 0}, 1, 1}};
    for (const auto& [style, number, dashes] : styles)
        for (const int mode : {TRANSPARENT, OPAQUE})
            for (const auto& [direction, from, dx, dy] : directions) {
                Canvas canvas(60, 60);
                const Scoped pen(canvas, CreatePen(number, 1, kInk));
                SetBkMode(canvas, mode);
                SetBkColor(canvas, RGB(0, 0xFF, 0));
                LineTo(canvas, 0, 10);  // whose dashes do not count
                canvas.Fill(0);
                MoveToEx(canvas, from.x, from.y, nullptr);
                LineTo(canvas, from.x + 60 * dx, from.y + 60 * dy);
                EXPECT_EQ(Along(canvas, from, dx, dy), Repeated(dashes, 60, mode == OPAQUE ? 'o' : '.'))
                    << style << ", " << direction;
            }
}

TEST_F(Lines, OfTwoToFivePixelsAreStampsFromStartToEndWithoutDashes)
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
