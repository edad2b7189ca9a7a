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

// A shape that is drawn on a canvas of the picture's size.
struct ShapeCase {
    const char* name;
    int penStyle, penWidth;
    RECT rect;
    const char* picture;

    void Run(const std::function<void(HDC)>& draw) const
    {
        const std::string text = picture;
        const auto width = text.find(' ');
        const Canvas canvas(static_cast<int>(width), static_cast<int>(text.size() / (width + 1)));
        const Scoped brush(static_cast<HDC>(canvas), CreateSolidBrush(kFill));
        const Scoped pen(static_cast<HDC>(canvas), CreatePen(penStyle, penWidth, kInk));
        SetBkColor(canvas, RGB(0, 0xFF, 0));
        draw(canvas);
        EXPECT_EQ(Drawn(canvas), picture) << name;
    }
};

// How far each row of the corner at the top left is set in, for the pixels that `draw` touches.
std::vector<int> Insets(int width, int height, const std::function<void(HDC)>& draw)
{
    Canvas canvas(width, height);
    draw(canvas);
    std::vector<int> insets;
    for (int y = 0; y < height / 2; ++y) {
        int x = 0;
        while (x < width && canvas.At(x, y) == 0)
            ++x;
        insets.push_back(x);
    }
    return insets;
}

}  // namespace

using Shapes = PlatformTest;

TEST_F(Shapes, RectanglesAreOutlinedAndFilled)
{
    const std::vector<ShapeCase> cases{
        {"one pixel", PS_SOLID, 1, {1, 1, 6, 4}, "....... .#####. .#bbb#. .#####. ....... "},
        {"inverted", PS_SOLID, 1, {6, 4, 1, 1}, "....... .#####. .#bbb#. .#####. ....... "},
        {"width 0", PS_SOLID, 0, {1, 1, 4, 4}, "..... .###. .#b#. .###. ..... "},
        {"no inside", PS_SOLID, 1, {1, 1, 3, 3}, ".... .##. .##. .... "},
        {"no pen", PS_NULL, 1, {1, 1, 6, 4}, "....... .bbbb.. .bbbb.. ....... ....... "},
        {"two pixels", PS_SOLID, 2, {1, 1, 7, 6}, "#######. #######. ##bbb##. ##bbb##. #######. #######. "},
        {"three pixels",
         PS_SOLID,
         3,
         {1, 1, 9, 7},
         ".########. ########## ########## ###bbbb### ###bbbb### ########## ########## .########. "},
        {"inside frame",
         PS_INSIDEFRAME,
         2,
         {1, 0, 8, 6},
         ".####### .####### .##bbb## .##bbb## .####### .####### "},
        {"inside frame of one pixel", PS_INSIDEFRAME, 1, {1, 1, 5, 4}, "...... .####. .#bb#. .####. ...... "},
        {"dashes start at the top right and run counter-clockwise",
         PS_DOT,
         1,
         {0, 0, 13, 6},
         "#ooo###ooo### #bbbbbbbbbbbo #bbbbbbbbbbb# obbbbbbbbbbb# obbbbbbbbbbb# o###ooo###ooo "},
    };
    for (const ShapeCase& c : cases)
        c.Run([&c](HDC dc) { Rectangle(dc, c.rect.left, c.rect.top, c.rect.right, c.rect.bottom); });
}

TEST_F(Shapes, RoundedCornersAreQuartersOfAnEllipse)
{
    struct Case {
        int width, height;
        std::vector<int> insets;
    };
    const std::vector<Case> cases{
        {0, 0, {0, 0}},
        {2, 2, {0, 0}},
        {3, 2, {0, 0}},
        {3, 3, {1, 0}},
        {4, 4, {1, 0, 0}},
        {5, 5, {1, 0, 0}},
        {6, 6, {2, 1, 0}},
        {8, 8, {2, 1, 0, 0}},
        {12, 8, {3, 2, 1, 0}},
        {10, 10, {3, 2, 1, 0, 0}},
        {12, 13, {4, 2, 1, 1, 0, 0}},
        {21, 20, {7, 5, 4, 3, 2, 1, 1, 0}},
        {40, 40, {16, 13, 10, 9, 8, 6, 5, 5, 4, 3, 2, 2, 2, 1, 1, 1, 0, 0, 0, 0}},
        {200, 90, {}},  // cut to the rectangle, which is 50 by 50
        {50, 50, {}},
    };
    std::vector<int> whole;
    for (const Case& c : cases) {
        const std::string name = std::to_string(c.width) + "x" + std::to_string(c.height);
        const auto outline = [&](HDC dc) { RoundRect(dc, 0, 0, 50, 50, c.width, c.height); };
        const auto fill = [&](HDC dc) {
            const Scoped region(CreateRoundRectRgn(0, 0, 51, 51, c.width, c.height));
            FillRgn(dc, region, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
        };
        const auto pen = [&](HDC dc) {
            const Scoped ink(dc, CreatePen(PS_SOLID, 1, kInk));
            outline(dc);
        };
        std::vector<int> expected = c.insets;
        if (expected.empty())
            expected = whole.empty() ? whole = Insets(50, 50, pen) : whole;
        expected.resize(25, 0);
        EXPECT_EQ(Insets(50, 50, pen), expected) << name << ", outline";
        EXPECT_EQ(Insets(50, 50, fill), expected) << name << ", region";
    }
}

TEST_F(Shapes, RoundedRectanglesAreOutlinedAndFilled)
{
    struct Case {
        ShapeCase shape;
        int ellipse;
    };
    const std::vector<Case> cases{
        {{"eight",
          PS_SOLID,
          1,
          {0, 0, 11, 8},
          "..#######... .#bbbbbbb#.. #bbbbbbbbb#. #bbbbbbbbb#. #bbbbbbbbb#. #bbbbbbbbb#. .#bbbbbbb#.. "
          "..#######... "},
         8},
        {{"eight, no pen",
          PS_NULL,
          1,
          {0, 0, 11, 8},
          "..bbbbbbb... .bbbbbbbbb.. bbbbbbbbbbb. bbbbbbbbbbb. bbbbbbbbbbb. bbbbbbbbbbb. .bbbbbbbbb.. "
          "..bbbbbbb... "},
         8},
        {{"square corners, no pen", PS_NULL, 1, {0, 0, 4, 4}, "bbb. bbb. bbb. .... "}, 1},
    };
    for (const Case& c : cases)
        c.shape.Run([&c](HDC dc) {
            RoundRect(dc, 0, 0, c.shape.rect.right, c.shape.rect.bottom, c.ellipse, c.ellipse);
        });
}

TEST_F(Shapes, WidePensInsideTheFrameCoverTheirWidth)
{
    for (int width = 2; width <= 5; ++width) {
        Canvas canvas(40, 40);
        const Scoped brush(canvas, CreateSolidBrush(kFill));
        const Scoped pen(canvas, CreatePen(PS_INSIDEFRAME, width, kInk));
        RoundRect(canvas, 5, 5, 35, 35, 10, 10);
        for (int i = 0; i < 40; ++i) {
            const int inside = std::min(i - 5, 34 - i);
            const std::uint32_t expected = inside < 0 ? 0 : inside < width ? 0x00FF0000 : 0x000000FF;
            EXPECT_EQ(canvas.At(i, 20), expected) << width << ", column " << i;
            EXPECT_EQ(canvas.At(20, i), expected) << width << ", row " << i;
        }
    }
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
        {
            const Scoped pen(filled, CreatePen(PS_SOLID, 1, kFill));
            const Scoped brush(filled, CreateSolidBrush(kFill));
            RoundRect(filled, rect.left, rect.top, rect.right - 1, rect.bottom - 1, width, size);
        }
        Canvas region(60, 60);
        const Scoped shape(CreateRoundRectRgn(rect.left, rect.top, rect.right, rect.bottom, width, size));
        const Scoped brush(CreateSolidBrush(kFill));
        FillRgn(region, shape, brush);
        ASSERT_EQ(region.Picture(), filled.Picture()) << RectText(rect) << ' ' << width << 'x' << size;
    }
}
