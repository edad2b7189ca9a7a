#include <qvui/render/background.h>

#include <limits>

#include "render/render_test.h"
#include "support/platform_window.h"
#include "support/screenshot.h"

using DUI::CARGB;
using DUI::CDUIColorBK;
using DUI::CDUIColorImageBK;
using DUI::CDUIFrameBK;
using DUI::CDUIImageList;
using DUI::CDUIImageListPtr;

namespace {

const CARGB kRed(255, 0, 0, 255);
const CARGB kGreen(0, 255, 0, 255);
const CARGB kBlue(0, 0, 255, 255);
const CARGB kNone;

// A picture of one colour, or with its outermost pixels in another.
CDUIImageListPtr NewImage(int size, std::uint32_t color, std::uint32_t edge)
{
    const std::string path = WritePicture("background.png", size, size, false, [=](int x, int y) {
        return x == 0 || y == 0 || x == size - 1 || y == size - 1 ? edge : color;
    });
    auto list = std::make_shared<CDUIImageList>();
    EXPECT_TRUE(list->CreateFromFile(path.c_str()));
    return list;
}

// r where red is most, g or b where that is; '.' for black.
char Letter(std::uint32_t pixel)
{
    const std::uint32_t red = Channel(pixel, 2);
    const std::uint32_t green = Channel(pixel, 1);
    const std::uint32_t blue = Channel(pixel, 0);
    if (red + green + blue == 0)
        return '.';
    return green >= red && green >= blue ? 'g' : red >= blue ? 'r' : 'b';
}

// The clip region's box; empty without a clip region.
std::string ClipOf(HDC dc)
{
    const Scoped clip(CreateRectRgn(0, 0, 0, 0));
    RECT box{};
    if (GetClipRgn(dc, clip) != 1)
        return "";
    GetRgnBox(clip, &box);
    return RectText(box);
}

// A green frame with a red outline.
struct Frame : CDUIFrameBK {
    explicit Frame(const RECT& border)
    {
        SetBKColor(kGreen);
        SetFrameColor(kRed);
        SetFrameBorder(border);
    }
};

}  // namespace

using Background = RenderTest;

TEST_F(Background, FillsOrBlendsTwoColours)
{
    CDUIColorBK background;
    EXPECT_TRUE(background.IsEmpty());
    background.SetBKColor(kRed);
    EXPECT_FALSE(background.IsEmpty());
    Canvas canvas(4, 4);
    background.DrawBK(canvas, {1, 1, 3, 3});
    EXPECT_EQ(canvas.Letters(Letter), "....\n.rr.\n.rr.\n....\n");
    for (const int vertical : {1, 0}) {
        background.SetBKColor(kRed, kBlue, vertical);
        background.DrawBK(canvas, {0, 0, 4, 4});
        canvas.Expect(
            [vertical](int x, int y) { return GradientPixel(0xFF0000, 0x0000FF, vertical ? y : x, 4); });
    }
    background.SetBKColor(kRed, kNone, 1);
    background.DrawBK(canvas, {0, 0, 4, 4});
    EXPECT_EQ(canvas.At(3, 3), 0xFF0000U) << "half a gradient is none; the solid colour is still set";
}

TEST_F(Background, SplitsThreeColoursAtTheSeparator)
{
    constexpr int kFar = 1000;  // no split, both gradients over the whole
    const Table<const char*, double, int> cases{
        {"a fraction", 0.25, 25},
        {"truncated", 0.999, 99},
        {"pixels", 30, 30},
        {"truncated pixels", 30.9, 30},
        {"one is the far edge", 1, 100},
        {"zero is the near edge", 0, 0},
        {"beyond the far edge", 150, 150},
        {"none", -1, kFar},
        {"no number", std::numeric_limits<double>::quiet_NaN(), kFar},
    };
    for (const auto& [name, separator, at] : cases)
        for (const int vertical : {1, 0}) {
            CDUIColorBK background;
            background.SetBKColor(kRed, kBlue, kGreen, separator, vertical);
            const Canvas canvas(vertical ? 3 : 120, vertical ? 120 : 3);
            background.DrawBK(canvas, vertical ? RECT{0, 10, 3, 110} : RECT{10, 0, 110, 3});
            canvas.Expect(
                [vertical, split = at](int x, int y) {
                    const int i = (vertical ? y : x) - 10;
                    if (i < 0 || (i >= 100 && (split == kFar || i >= split)))
                        return 0U;
                    if (split == kFar)
                        return GradientPixel(0x00FF00, 0x0000FF, i, 100);
                    return i < split ? GradientPixel(0xFF0000, 0x00FF00, i, split)
                                     : GradientPixel(0x00FF00, 0x0000FF, i - split, 100 - split);
                },
                name);
        }
    CDUIColorBK background;
    background.SetBKColor(kRed, kBlue, kGreen, 2.5, 1);
    const Canvas scrolled(3, 90);
    background.DrawBK(scrolled, {0, -10, 3, 90});
    scrolled.Expect([](int, int y) { return GradientPixel(0x00FF00, 0x0000FF, y + 7, 97); },
                    "pixels count from above the surface: -10 + 2.5 is -7");
    background.SetBKColor(kRed, kBlue, kGreen, 0.25, 0);
    EXPECT_TRUE(background.IsOneColorEmpty());
    EXPECT_FALSE(background.IsTwoColorEmpty() || background.IsTreeColorEmpty() || background.IsEmpty());
    background.SetBKColor(kRed, kNone, kGreen, 2, 1);
    EXPECT_TRUE(background.IsTwoColorEmpty() && background.IsTreeColorEmpty() && background.IsEmpty());
}

TEST_F(Background, DrawsTheImageOverTheColours)
{
    CDUIColorImageBK background;
    EXPECT_TRUE(background.IsEmpty());
    background.SetSkinImage(std::make_shared<CDUIImageList>());
    EXPECT_FALSE(background.IsEmpty()) << "an image that did not load still counts";
    background.SetBKColor(kRed);
    Canvas canvas(4, 3);
    background.DrawBK(canvas, {0, 0, 4, 3});
    EXPECT_EQ(canvas.Letters(Letter), "rrrr\nrrrr\nrrrr\n");
    background.SetSkinImage(NewImage(2, 0x00FF00, 0x00FF00));
    background.DrawBK(canvas, {1, 0, 3, 3});
    EXPECT_EQ(canvas.Letters(Letter), "rggr\nrggr\nrggr\n");
}

TEST_F(Background, PlacesTheImage)
{
    const RECT wide{0, 0, 100, 50};
    const Table<DUI::CFrameBKImagePos, RECT, const char*> cases{
        {{0, 0, 0}, wide, "0,0,20,20"},
        {{0, 3, 4}, wide, "3,4,23,24"},
        {{1, 3, 4}, wide, "3,26,23,46"},
        {{2, 3, 4}, wide, "77,4,97,24"},
        {{3, 3, 4}, wide, "77,26,97,46"},
        {{4, 9, 9}, wide, "40,15,60,35"},
        {{4, 0, 0}, {10, 10, 31, 20}, "10,10,30,20"},
        {{4, 0, 0}, {10, 10, 20, 51}, "10,20,20,40"},
        {{4, 0, 0}, {5, 5, 5, 5}, "5,5,5,5"},
        {{0, 200, 0}, wide, "200,0,200,0"},
        {{3, 120, 0}, wide, "-40,30,-40,30"},
        {{0, 90, 40}, wide, "90,40,110,60"},
        {{5, 7, 7}, wide, "0,0,100,50"},
        {{-1, 7, 7}, wide, "0,0,100,50"},
    };
    CDUIColorImageBK background;
    EXPECT_EQ(RectText(background.GetSkinImageRect(wide)), "0,0,100,50") << "without an image";
    background.SetSkinImage(NewImage(20, 0x00FF00, 0x00FF00));
    for (const auto& [position, rect, place] : cases) {
        background.SetSkinImagePos(position);
        EXPECT_EQ(RectText(background.GetSkinImageRect(rect)), place)
            << position.kind << ": " << position.x << "," << position.y;
    }
}

TEST_F(Background, KnowsWhatItsFrameHas)
{
    CDUIFrameBK frame;
    EXPECT_TRUE(frame.IsEmpty() && frame.IsFrameEmpty());
    frame.SetFrameBorder({0, 0, 0, 1});
    EXPECT_FALSE(frame.IsFrameEmpty());
    EXPECT_TRUE(frame.IsEmpty()) << "a border of nothing";
    frame.SetFrameColor(kRed);
    EXPECT_TRUE(frame.IsColorFrameAvailable() && !frame.IsEmpty());
    frame.SetFrameImage(std::make_shared<CDUIImageList>());
    EXPECT_FALSE(frame.IsImageFrameAvailable()) << "no picture in it";
    frame.SetFrameImage(NewImage(3, 0, 0));
    EXPECT_TRUE(frame.IsImageFrameAvailable());
    frame.SetFrameBorder({0, 0, 0, 0});
    EXPECT_FALSE(frame.IsImageFrameAvailable() || frame.IsColorFrameAvailable() || !frame.IsEmpty());
}

// A frame of lines alone, and one with an image, of which only the ring is drawn.
TEST_F(Background, DrawsFramesOfLinesAndImages)
{
    const RECT lines{1, 1, 6, 5};
    const RECT image{1, 0, 7, 5};
    const RECT thin{1, 0, 4, 5};
    const RECT all{0, 0, 8, 5};
    const RECT noClip{};
    const Table<const char*, RECT, RECT, RECT, const char*> cases{
        {"lines", lines, {1, 1, 1, 1}, noClip, "........\n.rrrrr..\n.rgggr..\n.rgggr..\n.rrrrr..\n"},
        {"some sides", lines, {0, 1, 1, 0}, noClip, "........\n.rrrrr..\n.ggggr..\n.ggggr..\n.ggggr..\n"},
        {"none", lines, {0, 0, 0, 0}, noClip, "........\n.ggggg..\n.ggggg..\n.ggggg..\n.ggggg..\n"},
        {"wide", lines, {0, 2, 0, 0}, noClip, "rrrrrrr.\nrrrrrrr.\n.ggggg..\n.ggggg..\n.ggggg..\n"},
        {"ring", image, {2, 1, 1, 1}, all, ".bbbbbb.\n.bbgggb.\n.bbgggb.\n.bbgggb.\n.bbbbbb.\n"},
        {"cut ring", image, {2, 1, 1, 1}, {0, 2, 6, 5}, "........\n........\n.bbggg..\n.bbggg..\n.bbbbb..\n"},
        {"narrow", thin, {2, 1, 1, 1}, all, ".bbb....\n.bbb....\n.bbb....\n.bbb....\n.bbb....\n"},
        {"not clipped", image, {2, 1, 1, 1}, noClip, ".bbbbbb.\n.bbbbbb.\n.bbbbbb.\n.bbbbbb.\n.bbbbbb.\n"},
    };
    for (const auto& [name, rect, border, clip, letters] : cases) {
        Frame frame(border);
        if (rect.right != lines.right)
            frame.SetFrameImage(NewImage(4, 0x0000FF, 0x0000FF));
        Canvas canvas(8, 5);
        if (!IsRectEmpty(&clip))
            IntersectClipRect(canvas, clip.left, clip.top, clip.right, clip.bottom);
        frame.DrawBK(canvas, rect);
        EXPECT_EQ(canvas.Letters(Letter), letters) << name;
        EXPECT_EQ(ClipOf(canvas), IsRectEmpty(&clip) ? "" : RectText(clip)) << name << ": restored";
    }
    CDUIFrameBK colourless;
    colourless.SetBKColor(kGreen);
    colourless.SetFrameBorder({1, 1, 1, 1});
    Canvas canvas(2, 2);
    colourless.DrawBK(canvas, {0, 0, 2, 2});
    EXPECT_EQ(canvas.Letters(Letter), "gg\ngg\n");
}

TEST_F(Background, RoundsTheFillOnlyWithinAClipping)
{
    Frame frame({0, 1, 0, 0});
    frame.SetFrameRound(5, 5);
    for (const bool isClipped : {false, true}) {
        Canvas canvas(10, 9);
        if (isClipped)
            IntersectClipRect(canvas, 0, 0, 10, 9);
        frame.DrawBK(canvas, {0, 0, 10, 9});
        const std::string letters = canvas.Letters(Letter);
        EXPECT_EQ(letters[0], isClipped ? '.' : 'g');
        EXPECT_EQ(letters[4], 'r') << "outline";
        // The outline ends one pixel before the edge.
        EXPECT_EQ(letters.substr(4 * 11, 10), isClipped ? "rgggggggr." : "rgggggggrg");
        EXPECT_EQ(ClipOf(canvas), isClipped ? "0,0,10,9" : "");
    }
}

TEST_F(Background, SurvivesBordersFromBrokenSkins)
{
    constexpr LONG kHuge = std::numeric_limits<LONG>::max();
    constexpr LONG kTiny = std::numeric_limits<LONG>::min();
    for (const bool hasImage : {false, true})
        for (const RECT& border :
             {RECT{kHuge, 0, kHuge, 0}, RECT{-5, -5, -5, -5}, RECT{kTiny, kTiny, kTiny, kTiny}}) {
            Frame frame(border);
            frame.SetBKColor(kRed, kBlue, kGreen, 1e300, 0);
            if (hasImage)
                frame.SetFrameImage(NewImage(4, 0, 0));
            const Canvas canvas(4, 4);
            IntersectClipRect(canvas, 0, 0, 4, 4);
            frame.DrawBK(canvas, {0, 0, 4, 4});
        }
}

TEST_F(Background, ShapesAWindow)
{
    qvui::test::PlatformWindowOptions options;
    options.place = {100, 100, 120, 112};
    const qvui::test::PlatformWindow window(options);
    EXPECT_FALSE(CDUIFrameBK().SetWinFrameRgn(window.Handle())) << "no frame";
    Frame frame({1, 1, 1, 1});
    EXPECT_FALSE(frame.SetWinFrameRgn(nullptr));
    EXPECT_FALSE(frame.SetWinFrameRgn(window.Handle())) << "no rounding";
    const Scoped shape(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), ERROR);

    frame.SetFrameRound(5, 5);
    EXPECT_TRUE(frame.SetWinFrameRgn(window.Handle()));
    const Scoped rounded(CreateRoundRectRgn(0, 0, 20, 12, 5, 5));
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), COMPLEXREGION);
    for (int i = 0; i < 20 * 12; ++i)
        EXPECT_EQ(PtInRegion(shape, i % 20, i / 20), PtInRegion(rounded, i % 20, i / 20))
            << i % 20 << "," << i / 20;

    // The edge is keyed and keeps its width while the middle stretches.
    frame.SetFrameImage(NewImage(6, 0x0000FF, 0xFF00FF));
    EXPECT_TRUE(frame.SetWinFrameRgn(window.Handle()));
    RECT box{};
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), SIMPLEREGION);
    GetRgnBox(shape, &box);
    EXPECT_EQ(RectText(box), "1,1,19,11");
}
