// Lines, shapes, fills and gradients.

#include <algorithm>
#include <cstdlib>
#include <random>
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

constexpr COLORREF kFill = RGB(0, 0, 0xFF);

// '#' for the pen, 'b' for the brush, 'o' for the gaps of dashes; rows are divided by a space.
std::string Drawn(const Canvas& canvas)
{
    std::string picture = canvas.Letters([](std::uint32_t pixel) {
        return pixel == 0x00FF0000 ? '#' : pixel == 0x000000FF ? 'b' : pixel ? 'o' : '.';
    });
    std::replace(picture.begin(), picture.end(), '\n', ' ');
    return picture;
}

// How far each row of the corner at the top left is set in.
std::vector<int> Insets(int width, int height)
{
    const Canvas canvas(50, 50);
    const Scoped ink(static_cast<HDC>(canvas), CreatePen(PS_SOLID, 1, kInk));
    RoundRect(canvas, 0, 0, 50, 50, width, height);
    std::vector<int> insets;
    for (int y = 0; y < 25; ++y) {
        int x = 0;
        while (x < 50 && canvas.At(x, y) == 0)
            ++x;
        insets.push_back(x);
    }
    return insets;
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

using Shapes = PlatformTest;

TEST_F(Shapes, AreOutlinedAndFilled)
{
    constexpr int kSquare = 0;  // or the width and height of a corner's ellipse
    const struct {
        const char* name;
        int style, width;
        int left, top, right, bottom, ellipse;
        std::string picture;
    } cases[] = {
        {"one pixel", PS_SOLID, 1, 1, 1, 6, 4, kSquare, "....... .#####. .#bbb#. .#####. ....... "},
        {"inverted", PS_SOLID, 1, 6, 4, 1, 1, kSquare, "....... .#####. .#bbb#. .#####. ....... "},
        {"width 0", PS_SOLID, 0, 1, 1, 4, 4, kSquare, "..... .###. .#b#. .###. ..... "},
        {"no inside", PS_SOLID, 1, 1, 1, 3, 3, kSquare, ".... .##. .##. .... "},
        {"no pen", PS_NULL, 1, 1, 1, 6, 4, kSquare, "....... .bbbb.. .bbbb.. ....... ....... "},
        {"two", PS_SOLID, 2, 1, 1, 7, 6, kSquare, "#######. #######. ##bbb##. ##bbb##. #######. #######. "},
        {"three", PS_SOLID, 3, 1, 1, 9, 7, kSquare,
         ".########. ########## ########## ###bbbb### ###bbbb### ########## ########## .########. "},
        {"inside frame", PS_INSIDEFRAME, 2, 1, 0, 8, 6, kSquare,
         ".####### .####### .##bbb## .##bbb## .####### .####### "},
        {"dashes start at the top right and run counter-clockwise", PS_DOT, 1, 0, 0, 13, 6, kSquare,
         "#ooo###ooo### #bbbbbbbbbbbo #bbbbbbbbbbb# obbbbbbbbbbb# obbbbbbbbbbb# o###ooo###ooo "},
        {"corners of eight", PS_SOLID, 1, 0, 0, 11, 8, 8,
         "..#######.. .#bbbbbbb#. #bbbbbbbbb# #bbbbbbbbb# #bbbbbbbbb# #bbbbbbbbb# .#bbbbbbb#. ..#######.. "},
        {"corners of twelve", PS_SOLID, 1, 0, 0, 13, 12, 12,
         "....#####.... ..##bbbbb##.. .#bbbbbbbbb#. .#bbbbbbbbb#. #bbbbbbbbbbb# #bbbbbbbbbbb# "
         "#bbbbbbbbbbb# #bbbbbbbbbbb# .#bbbbbbbbb#. .#bbbbbbbbb#. ..##bbbbb##.. ....#####.... "},
        {"corners of eight, no pen", PS_NULL, 1, 0, 0, 11, 7, 8,
         "..bbbbbbb.. .bbbbbbbbb. bbbbbbbbbbb bbbbbbbbbbb bbbbbbbbbbb .bbbbbbbbb. ..bbbbbbb.. "},
        {"square corners, no pen", PS_NULL, 1, 0, 0, 4, 4, 1, "bbb. bbb. bbb. .... "},
    };
    for (const auto& c : cases) {
        const std::size_t columns = c.picture.find(' ');
        const Canvas canvas(static_cast<int>(columns), static_cast<int>(c.picture.size() / (columns + 1)));
        const Scoped brush(static_cast<HDC>(canvas), CreateSolidBrush(kFill));
        const Scoped pen(static_cast<HDC>(canvas), CreatePen(c.style, c.width, kInk));
        SetBkColor(canvas, RGB(0, 0xFF, 0));
        if (c.ellipse == kSquare)
            Rectangle(canvas, c.left, c.top, c.right, c.bottom);
        else
            RoundRect(canvas, c.left, c.top, c.right, c.bottom, c.ellipse, c.ellipse);
        EXPECT_EQ(Drawn(canvas), c.picture) << c.name;
    }
}

TEST_F(Shapes, RoundedCornersAreQuartersOfAnEllipse)
{
    const Table<int, int, std::vector<int>> cases{
        {0, 0, {0, 0}},
        {2, 2, {0, 0}},
        {3, 3, {1, 0}},
        {5, 5, {1, 0, 0}},
        {6, 6, {2, 1, 0}},
        {8, 8, {2, 1, 0, 0}},
        {12, 8, {3, 2, 1, 0}},
        {10, 10, {3, 2, 1, 0, 0}},
        {12, 13, {4, 2, 1, 1, 0, 0}},
        {21, 20, {7, 5, 4, 3, 2, 1, 1, 0}},
        {40, 40, {16, 13, 10, 9, 8, 6, 5, 5, 4, 3, 2, 2, 2, 1, 1, 1, 0, 0, 0, 0}},
    };
    for (const auto& [width, height, insets] : cases) {
        std::vector<int> expected = insets;
        expected.resize(25, 0);
        EXPECT_EQ(Insets(width, height), expected) << width << 'x' << height;
    }
    EXPECT_EQ(Insets(200, 90), Insets(50, 50)) << "cut to the rectangle";
}

TEST_F(Shapes, RoundedRegionsAreTheFilledPixelsOfARectangleOneSmaller)
{
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const int size = static_cast<int>(random() % 36) + 4;
        const int width = size + static_cast<int>(random() % 3) - 1;
        const RECT rect{3, 4, static_cast<LONG>(3 + size + 3 + random() % 12),
                        static_cast<LONG>(4 + size + 3 + random() % 12)};
        Canvas filled(60, 60);
        const Scoped pen(filled, CreatePen(PS_SOLID, 1, kFill));
        const Scoped brush(filled, CreateSolidBrush(kFill));
        RoundRect(filled, rect.left, rect.top, rect.right - 1, rect.bottom - 1, width, size);
        const Canvas region(60, 60);
        const Scoped shape(CreateRoundRectRgn(rect.left, rect.top, rect.right, rect.bottom, width, size));
        FillRgn(region, shape, brush);
        ASSERT_EQ(region.Picture(), filled.Picture()) << RectText(rect) << ' ' << width << 'x' << size;
    }
}

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
