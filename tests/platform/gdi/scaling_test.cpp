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

    std::string Name() const { return RectText({sourceWidth, sourceHeight, width, height}); }
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

using Draw = std::function<void(HDC target, const Canvas& source, const Scale& scale)>;

// A blend of everything, or of pixels that are clear and therefore added.
Draw Blend(BYTE format)
{
    return [format](HDC target, const Canvas& source, const Scale& s) {
        AlphaBlend(target, 3, 2, s.width, s.height, source, 2, 1, s.sourceWidth, s.sourceHeight,
                   {AC_SRC_OVER, 0, 255, format});
    };
}

void Stretch(HDC target, const Canvas& source, const Scale& s)
{
    StretchBlt(target, 3, 2, s.width, s.height, source, 2, 1, s.sourceWidth, s.sourceHeight, SRCCOPY);
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

// With the mode and whether it can shrink. All draw to (3, 2) what lies in the source's middle, with two
// columns to its left, and one column and a row elsewhere around it.
const Table<const char*, int, bool, Draw> kPointSampled{
    {"AlphaBlend", HALFTONE, true, Blend(0)},
    {"AlphaBlend per pixel", HALFTONE, true, Blend(AC_SRC_ALPHA)},
    {"StretchBlt", COLORONCOLOR, true, Stretch},
    {"StretchDIBits", COLORONCOLOR, true, StretchRows},
    {"TransparentBlt", HALFTONE, false, Key},
};

}  // namespace

using Scaling = PlatformTest;

TEST_F(Scaling, TakesTheNearestSourcePixelWhateverTheClip)
{
    for (const auto& [name, mode, canShrink, draw] : kPointSampled)
        for (const Scale& s : Scales())
            for (const bool isClipped : {false, true}) {
                if (!canShrink && (s.width < s.sourceWidth || s.height < s.sourceHeight))
                    continue;
                const Canvas source(s.sourceWidth + 3, s.sourceHeight + 2, SourcePixel);
                const Canvas target(s.width + 6, s.height + 5);
                RECT drawn{3, 2, 3 + s.width, 2 + s.height};
                if (isClipped) {
                    drawn = {3 + s.width / 3, 2 + s.height / 4, 3 + s.width, 2 + s.height * 3 / 4};
                    IntersectClipRect(target, drawn.left, drawn.top, drawn.right, drawn.bottom);
                }
                SetStretchBltMode(target, mode);
                draw(target, source, s);
                target.Expect(
                    [&](int x, int y) {
                        return Holds(drawn, x, y) ? SourcePixel(2 + Column(x - 3, s.sourceWidth, s.width),
                                                                1 + Row(y - 2, s.sourceHeight, s.height))
                                                  : 0;
                    },
                    name + (' ' + s.Name()));
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
