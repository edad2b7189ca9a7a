// Rectangles, rounded rectangles and rounded regions.

#include <algorithm>
#include <random>

#include "platform/gdi/canvas.h"

namespace {

constexpr COLORREF kInk = RGB(0xFF, 0, 0);
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

}  // namespace

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
        {"corners of eight", PS_SOLID, 1, 0, 0, 11, 7, 8,
         "..#######.. .#bbbbbbb#. #bbbbbbbbb# #bbbbbbbbb# #bbbbbbbbb# .#bbbbbbb#. ..#######.. "},
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
