// Which source pixel each destination pixel of a scaled copy takes, in every mode.

#include <algorithm>
#include <random>

#include "platform/gdi/canvas.h"

namespace {

constexpr BLENDFUNCTION kOpaque{AC_SRC_OVER, 0, 255, 0};

// Divides rounding up; the divisor is positive.
int CeilDivide(int value, int divisor)
{
    return value >= 0 ? (value + divisor - 1) / divisor : -(-value / divisor);
}

int Column(int x, int source, int destination)
{
    if (destination >= source)
        return CeilDivide((2 * x + 1) * source, 2 * destination) - 1;
    return std::min(source - 1, (2 * source * (x + 1) - destination) / (2 * destination));
}

int Row(int y, int source, int destination)
{
    return destination >= source ? Column(y, source, destination)
                                 : (2 * source * y + destination) / (2 * destination);
}

// A pixel that tells its own place.
std::uint32_t PlacePixel(int x, int y)
{
    return 0x80000000U | static_cast<std::uint32_t>(x << 8 | y);
}

struct Scale {
    int sourceWidth, sourceHeight, width, height;
};

// Sizes of every proportion; neither source extent is 1 when StretchBlt shrinks to it.
std::vector<Scale> Scales()
{
    std::vector<Scale> scales{{1, 1, 9, 7},     {2, 2, 3, 3},     {7, 5, 7, 5},
                              {16, 16, 40, 40}, {40, 40, 16, 16}, {30, 20, 17, 33}};
    std::mt19937 random(3);
    const auto size = [&random](int least) { return static_cast<int>(random() % 60) + least; };
    while (scales.size() < 60)
        scales.push_back({size(1), size(1), size(2), size(2)});
    return scales;
}

using Draw = std::function<void(HDC target, HDC source, const Scale& scale)>;

struct Operation {
    const char* name;
    Draw draw;
};

void DrawRows(HDC target, HDC source, const Scale& s, bool topDown)
{
    const auto bitmap = static_cast<HBITMAP>(SelectObject(source, CreateBitmap(1, 1, 1, 32, nullptr)));
    DIBSECTION section{};
    GetObjectA(bitmap, sizeof section, &section);
    const BITMAPINFO info = BitmapInfo(s.sourceWidth, topDown ? -s.sourceHeight : s.sourceHeight, 32);
    EXPECT_EQ(StretchDIBits(target, 3, 2, s.width, s.height, 0, 0, s.sourceWidth, s.sourceHeight,
                            section.dsBm.bmBits, &info, DIB_RGB_COLORS, SRCCOPY),
              s.sourceHeight);
    DeleteObject(SelectObject(source, bitmap));
}

const std::vector<Operation> kPointSampled{
    {"AlphaBlend",
     [](HDC target, HDC source, const Scale& s) {
         SetStretchBltMode(target, HALFTONE);
         AlphaBlend(target, 3, 2, s.width, s.height, source, 0, 0, s.sourceWidth, s.sourceHeight, kOpaque);
     }},
    {"StretchBlt, COLORONCOLOR",
     [](HDC target, HDC source, const Scale& s) {
         SetStretchBltMode(target, COLORONCOLOR);
         StretchBlt(target, 3, 2, s.width, s.height, source, 0, 0, s.sourceWidth, s.sourceHeight, SRCCOPY);
     }},
    {"StretchDIBits, COLORONCOLOR",
     [](HDC target, HDC source, const Scale& s) {
         SetStretchBltMode(target, COLORONCOLOR);
         DrawRows(target, source, s, false);
     }},
};

void ExpectSamples(const Canvas& target, const Scale& s, const RECT& drawn, const std::string& name)
{
    for (int y = 0; y < target.Height(); ++y)
        for (int x = 0; x < target.Width(); ++x) {
            const bool isInside = x >= drawn.left && x < drawn.right && y >= drawn.top && y < drawn.bottom;
            const std::uint32_t expected = isInside ? PlacePixel(Column(x - 3, s.sourceWidth, s.width),
                                                                 Row(y - 2, s.sourceHeight, s.height))
                                                    : 0;
            ASSERT_EQ(target.At(x, y), expected)
                << name << ' ' << s.sourceWidth << 'x' << s.sourceHeight << " to " << s.width << 'x'
                << s.height << " at " << x - 3 << ',' << y - 2;
        }
}

}  // namespace

using Scaling = PlatformTest;

TEST_F(Scaling, TakesTheNearestSourcePixelWhenPointSampling)
{
    for (const Operation& operation : kPointSampled)
        for (const Scale& s : Scales()) {
            Canvas source(s.sourceWidth, s.sourceHeight);
            source.Paint(PlacePixel);
            Canvas target(s.width + 6, s.height + 5);
            operation.draw(target, source, s);
            ExpectSamples(target, s, {3, 2, 3 + s.width, 2 + s.height}, operation.name);
        }
}

TEST_F(Scaling, IsNotMovedByAClip)
{
    for (const Operation& operation : kPointSampled)
        for (const Scale& s : Scales()) {
            Canvas source(s.sourceWidth, s.sourceHeight);
            source.Paint(PlacePixel);
            Canvas target(s.width + 6, s.height + 5);
            const RECT clip{3 + s.width / 3, 2 + s.height / 4, 3 + s.width, 2 + s.height * 3 / 4};
            IntersectClipRect(target, clip.left, clip.top, clip.right, clip.bottom);
            operation.draw(target, source, s);
            ExpectSamples(target, s, clip, operation.name);
        }
}

TEST_F(Scaling, OfOneSourcePixelFillsTheRectangle)
{
    Canvas source(4, 4);
    source.Paint(PlacePixel);
    Canvas target(5, 3);
    EXPECT_TRUE(AlphaBlend(target, 0, 0, 5, 3, source, 2, 3, 1, 1, kOpaque));
    EXPECT_EQ(target.Pixels(), std::vector<std::uint32_t>(15, PlacePixel(2, 3)));
}

TEST_F(Scaling, JoinsTheGroupBitwiseInTheMonochromeModes)
{
    struct Case {
        const char* name;
        int mode;
        int width;
        std::vector<std::uint32_t> expected;
    };
    const std::vector<std::uint32_t> pixels{0xF0F0F0F0, 0x3C3C3C3C, 0x0F0F0F0F, 0xFF00FF00};
    const std::vector<Case> cases{
        {"black on white", BLACKONWHITE, 2, {0x30303030, 0x0F000F00}},
        {"white on black", WHITEONBLACK, 2, {0xFCFCFCFC, 0xFF0FFF0F}},
        {"black on white, same size", BLACKONWHITE, 4, pixels},
        {"white on black, enlarging",
         WHITEONBLACK,
         8,
         {pixels[0], pixels[0], pixels[1], pixels[1], pixels[2], pixels[2], pixels[3], pixels[3]}},
    };
    for (const Case& c : cases) {
        Canvas source(4, 1);
        source.Paint([&pixels](int x, int) { return pixels[static_cast<std::size_t>(x)]; });
        Canvas target(c.width, 1);
        SetStretchBltMode(target, c.mode);
        StretchBlt(target, 0, 0, c.width, 1, source, 0, 0, 4, 1, SRCCOPY);
        EXPECT_EQ(target.Pixels(), c.expected) << c.name;
    }
    Canvas fresh(1, 1);
    EXPECT_EQ(GetStretchBltMode(fresh), BLACKONWHITE);
    EXPECT_EQ(SetStretchBltMode(fresh, HALFTONE), BLACKONWHITE);
}

// The rounding is known to one unit only.
TEST_F(Scaling, InterpolatesInHalftoneMode)
{
    std::mt19937 random(8);
    for (const Scale& s : {Scale{4, 4, 16, 16}, Scale{5, 3, 13, 10}, Scale{12, 9, 7, 5}, Scale{1, 6, 5, 2}}) {
        Canvas source(s.sourceWidth, s.sourceHeight);
        source.Paint([&random](int, int) { return static_cast<std::uint32_t>(random()); });
        Canvas target(s.width, s.height);
        SetStretchBltMode(target, HALFTONE);
        StretchBlt(target, 0, 0, s.width, s.height, source, 0, 0, s.sourceWidth, s.sourceHeight, SRCCOPY);
        for (int y = 0; y < s.height; ++y)
            for (int x = 0; x < s.width; ++x) {
                const double sx = static_cast<double>(x) * s.sourceWidth / s.width;
                const double sy = static_cast<double>(y) * s.sourceHeight / s.height;
                const int left = static_cast<int>(sx);
                const int top = static_cast<int>(sy);
                const auto at = [&](int column, int row, int channel) {
                    return static_cast<double>(Channel(
                        source.At(std::min(column, s.sourceWidth - 1), std::min(row, s.sourceHeight - 1)),
                        channel));
                };
                for (int channel = 0; channel < 3; ++channel) {
                    const auto across = [&](int row) {
                        return at(left, row, channel) * (1 - sx + left) +
                               at(left + 1, row, channel) * (sx - left);
                    };
                    const double expected = across(top) * (1 - sy + top) + across(top + 1) * (sy - top);
                    ASSERT_NEAR(Channel(target.At(x, y), channel), expected, 2.0)
                        << s.sourceWidth << 'x' << s.sourceHeight << " at " << x << ',' << y;
                }
            }
    }
}

TEST_F(Scaling, MirrorsForNegativeExtents)
{
    struct Case {
        const char* name;
        int x, width, sourceX, sourceWidth;
        const char* row;
    };
    // The source row is "abcd"; '.' is untouched.
    const std::vector<Case> cases{
        {"plain", 1, 4, 0, 4, ".abcd..."},
        {"destination", 5, -4, 0, 4, "..dcba.."},
        {"source", 1, 4, 3, -4, ".dcba..."},
        {"both", 5, -4, 3, -4, "..abcd.."},
        {"destination, enlarging", 7, -8, 0, 4, "ddccbbaa"},
        {"part of the source", 0, 2, 2, -2, "cb......"},
    };
    for (const bool rows : {false, true})
        for (const Case& c : cases) {
            Canvas source(rows ? 1 : 4, rows ? 4 : 1);
            source.Paint([](int x, int y) { return static_cast<std::uint32_t>('a' + x + y); });
            Canvas target(rows ? 1 : 8, rows ? 8 : 1);
            SetStretchBltMode(target, COLORONCOLOR);
            if (rows)
                StretchBlt(target, 0, c.x, 1, c.width, source, 0, c.sourceX, 1, c.sourceWidth, SRCCOPY);
            else
                StretchBlt(target, c.x, 0, c.width, 1, source, c.sourceX, 0, c.sourceWidth, 1, SRCCOPY);
            std::string row;
            for (const std::uint32_t pixel : target.Pixels())
                row += pixel ? static_cast<char>(pixel) : '.';
            EXPECT_EQ(row, c.row) << c.name << (rows ? ", rows" : ", columns");
        }
}

TEST_F(Scaling, AppliesTheRasterOperation)
{
    Canvas source(2, 1);
    source.Set(0, 0, 0x00FF00FF);
    source.Set(1, 0, 0x12345678);
    Canvas target(4, 1);
    target.Fill(0x11111111);
    SetStretchBltMode(target, COLORONCOLOR);
    StretchBlt(target, 0, 0, 4, 1, source, 0, 0, 2, 1, SRCINVERT);
    EXPECT_EQ(target.Pixels(), (std::vector<std::uint32_t>{0x11EE11EE, 0x11EE11EE, 0x03254769, 0x03254769}));
}
