// Which source pixel each destination pixel of a scaled copy takes, in every mode.

#include <algorithm>
#include <random>

#include "platform/gdi/canvas.h"

namespace {

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

struct Scale {
    int sourceWidth, sourceHeight, width, height;

    std::string Name() const
    {
        return std::to_string(sourceWidth) + 'x' + std::to_string(sourceHeight) + " to " +
               std::to_string(width) + 'x' + std::to_string(height);
    }
};

// Sizes of every proportion, and some that are wide and high enough for every way in which the pixels are
// gathered: the widest part, one of several, one of a single column or row. Neither source extent is 1 when
// StretchBlt shrinks to it.
std::vector<Scale> Scales()
{
    std::vector<Scale> scales{{1, 1, 9, 7},      {2, 2, 3, 3},     {7, 5, 7, 5},       {16, 16, 40, 40},
                              {40, 40, 16, 16},  {30, 20, 17, 33}, {700, 9, 2500, 40}, {3000, 70, 2100, 33},
                              {1, 200, 300, 90}, {200, 1, 90, 300}};
    std::mt19937 random(3);
    const auto size = [&random](int least) { return static_cast<int>(random() % 60) + least; };
    while (scales.size() < 50)
        scales.push_back({size(1), size(1), size(2), size(2)});
    return scales;
}

// A pixel of its own for each place nearby, without alpha.
std::uint32_t SourcePixel(int x, int y)
{
    return PlacePixel(x, y) & kColourBits;
}

// All draw to (3, 2) what lies in the source's middle, with two columns to its left, and one column and a row
// elsewhere around it.
struct Operation {
    const char* name;
    int mode;
    bool canShrink;
    std::function<void(HDC target, const Canvas& source, const Scale& scale)> draw;
};

void Stretch(HDC target, const Canvas& source, const Scale& s)
{
    StretchBlt(target, 3, 2, s.width, s.height, source, 2, 1, s.sourceWidth, s.sourceHeight, SRCCOPY);
}

// A blend of everything, or of pixels that are clear and therefore added.
template <BYTE Format>
void Blend(HDC target, const Canvas& source, const Scale& s)
{
    AlphaBlend(target, 3, 2, s.width, s.height, source, 2, 1, s.sourceWidth, s.sourceHeight,
               {AC_SRC_OVER, 0, 255, Format});
}

void Key(HDC target, const Canvas& source, const Scale& s)
{
    TransparentBlt(target, 3, 2, s.width, s.height, source, 2, 1, s.sourceWidth, s.sourceHeight, 0);
}

void StretchRows(HDC target, const Canvas& source, const Scale& s)
{
    const BITMAPINFO info = BitmapInfo(source.Width(), source.Height());
    StretchDIBits(target, 3, 2, s.width, s.height, 2, 1, s.sourceWidth, s.sourceHeight, source.Bits(), &info,
                  DIB_RGB_COLORS, SRCCOPY);
}

const std::vector<Operation> kPointSampled{
    {"AlphaBlend", HALFTONE, true, Blend<0>},
    {"AlphaBlend per pixel", HALFTONE, true, Blend<AC_SRC_ALPHA>},
    {"StretchBlt", COLORONCOLOR, true, Stretch},
    {"StretchDIBits", COLORONCOLOR, true, StretchRows},
    {"TransparentBlt", HALFTONE, false, Key},
};

}  // namespace

using Scaling = PlatformTest;

TEST_F(Scaling, TakesTheNearestSourcePixelWhateverTheClip)
{
    for (const Operation& operation : kPointSampled)
        for (const Scale& s : Scales())
            for (const bool isClipped : {false, true}) {
                if (!operation.canShrink && (s.width < s.sourceWidth || s.height < s.sourceHeight))
                    continue;
                const Canvas source(s.sourceWidth + 3, s.sourceHeight + 2, SourcePixel);
                const Canvas target(s.width + 6, s.height + 5);
                RECT drawn{3, 2, 3 + s.width, 2 + s.height};
                if (isClipped) {
                    drawn = {3 + s.width / 3, 2 + s.height / 4, 3 + s.width, 2 + s.height * 3 / 4};
                    IntersectClipRect(target, drawn.left, drawn.top, drawn.right, drawn.bottom);
                }
                SetStretchBltMode(target, operation.mode);
                operation.draw(target, source, s);
                target.Expect(
                    [&](int x, int y) {
                        return Holds(drawn, x, y) ? SourcePixel(2 + Column(x - 3, s.sourceWidth, s.width),
                                                                1 + Row(y - 2, s.sourceHeight, s.height))
                                                  : 0;
                    },
                    operation.name + (' ' + s.Name()));
            }
}

TEST_F(Scaling, JoinsTheGroupBitwiseInTheMonochromeModes)
{
    const std::vector<std::uint32_t> pixels{0xF0F0F0F0, 0x3C3C3C3C, 0x0F0F0F0F, 0xFF00FF00};
    const Table<const char*, int, int, std::vector<std::uint32_t>> cases{
        {"black on white", BLACKONWHITE, 2, {0x30303030, 0x0F000F00}},
        {"white on black", WHITEONBLACK, 2, {0xFCFCFCFC, 0xFF0FFF0F}},
        {"white on black, same size", WHITEONBLACK, 4, pixels},
    };
    for (const auto& [name, mode, width, expected] : cases) {
        const Canvas source(4, 1, [&pixels](int x, int) { return pixels[static_cast<std::size_t>(x)]; });
        const Canvas target(width, 1);
        EXPECT_EQ(SetStretchBltMode(target, mode), BLACKONWHITE) << "the first mode";
        StretchBlt(target, 0, 0, width, 1, source, 0, 0, 4, 1, SRCCOPY);
        EXPECT_EQ(target.Pixels(), expected) << name;
    }
}

// The rounding is known to one unit only.
TEST_F(Scaling, InterpolatesInHalftoneMode)
{
    std::mt19937 random(8);
    for (const Scale& s : {Scale{4, 4, 16, 16}, Scale{5, 3, 13, 10}, Scale{12, 9, 7, 5}, Scale{1, 6, 5, 2}}) {
        const Canvas source(s.sourceWidth, s.sourceHeight,
                            [&random](int, int) { return static_cast<std::uint32_t>(random()); });
        const Canvas target(s.width, s.height);
        SetStretchBltMode(target, HALFTONE);
        StretchBlt(target, 0, 0, s.width, s.height, source, 0, 0, s.sourceWidth, s.sourceHeight, SRCCOPY);
        for (int y = 0; y < s.height; ++y)
            for (int x = 0; x < s.width; ++x)
                for (int channel = 0; channel < 3; ++channel) {
                    const double sx = static_cast<double>(x) * s.sourceWidth / s.width;
                    const double sy = static_cast<double>(y) * s.sourceHeight / s.height;
                    const int left = static_cast<int>(sx);
                    const int top = static_cast<int>(sy);
                    const auto at = [&](int column, int row) {
                        return static_cast<double>(Channel(
                            source.At(std::min(column, s.sourceWidth - 1), std::min(row, s.sourceHeight - 1)),
                            channel));
                    };
                    const auto across = [&](int row) {
                        return at(left, row) * (1 - sx + left) + at(left + 1, row) * (sx - left);
                    };
                    ASSERT_NEAR(Channel(target.At(x, y), channel),
                                across(top) * (1 - sy + top) + across(top + 1) * (sy - top), 2.0)
                        << s.Name() << " at " << x << ',' << y;
                }
    }
}

TEST_F(Scaling, MirrorsForNegativeExtents)
{
    // The source row is "abcd"; '.' is untouched.
    const Table<const char*, int, int, int, int, const char*> cases{
        {"plain", 1, 4, 0, 4, ".abcd..."},
        {"destination", 5, -4, 0, 4, "..dcba.."},
        {"source", 1, 4, 3, -4, ".dcba..."},
        {"both", 5, -4, 3, -4, "..abcd.."},
        {"both, from outside the source", 7, -8, 3, -8, "....abcd"},
        {"destination, enlarging", 7, -8, 0, 4, "ddccbbaa"},
        {"part of the source", 0, 2, 2, -2, "cb......"},
    };
    for (const bool rows : {false, true})
        for (const auto& [name, x, width, sourceX, sourceWidth, expected] : cases) {
            const Canvas source(rows ? 1 : 4, rows ? 4 : 1, [](int column, int y) {
                return static_cast<std::uint32_t>('a' + column + y);
            });
            const Canvas target(rows ? 1 : 8, rows ? 8 : 1);
            SetStretchBltMode(target, COLORONCOLOR);
            if (rows)
                StretchBlt(target, 0, x, 1, width, source, 0, sourceX, 1, sourceWidth, SRCCOPY);
            else
                StretchBlt(target, x, 0, width, 1, source, sourceX, 0, sourceWidth, 1, SRCCOPY);
            std::string row;
            for (const std::uint32_t pixel : target.Pixels())
                row += pixel ? static_cast<char>(pixel) : '.';
            EXPECT_EQ(row, expected) << name << (rows ? ", rows" : ", columns");
        }
}

TEST_F(Scaling, AppliesTheRasterOperationAndKeeps24Bits)
{
    const Canvas wide(50, 40, PlacePixel, 24);
    const Canvas narrow(300, 20, 24);
    SetStretchBltMode(narrow, COLORONCOLOR);
    StretchBlt(narrow, 0, 0, 300, 20, wide, 0, 0, 50, 40, SRCCOPY);
    narrow.Expect([](int x, int y) { return PlacePixel(Column(x, 50, 300), Row(y, 40, 20)); });
    const Canvas source(2, 1, [](int x, int) { return x ? 0x12345678U : 0x00FF00FFU; });
    const Canvas target(4, 1, [](int, int) { return 0x11111111U; });
    SetStretchBltMode(target, COLORONCOLOR);
    StretchBlt(target, 0, 0, 4, 1, source, 0, 0, 2, 1, SRCINVERT);
    EXPECT_EQ(target.Pixels(), (std::vector<std::uint32_t>{0x11EE11EE, 0x11EE11EE, 0x03254769, 0x03254769}));
}
