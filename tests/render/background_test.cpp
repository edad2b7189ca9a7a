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
CDUIImageListPtr NewImage(int width, int height, std::uint32_t color, std::uint32_t edge)
{
    CImage image;
    image.Create(width, height, 24);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool isEdge = x == 0 || y == 0 || x == width - 1 || y == height - 1;
            auto* bytes = static_cast<std::uint8_t*>(image.GetPixelAddress(x, y));
            for (int channel = 0; channel < 3; ++channel)
                bytes[channel] = static_cast<std::uint8_t>(Channel(isEdge ? edge : color, channel));
        }
    const std::string path = qvui::test::OutputPath("background.png");
    image.Save(path.c_str());
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
    if (red == 0 && green == 0 && blue == 0)
        return '.';
    if (green >= red && green >= blue)
        return 'g';
    return red >= blue ? 'r' : 'b';
}

std::string Letters(const Canvas& canvas)
{
    return canvas.Letters(Letter);
}

// The clip region's box, which must be there.
std::string ClipOf(HDC hdc)
{
    const Scoped clip(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetClipRgn(hdc, clip), 1);
    RECT box{};
    GetRgnBox(clip, &box);
    return RectText(box);
}

}  // namespace

using ColorBackground = RenderTest;

TEST_F(ColorBackground, FillsOrBlendsTwoColours)
{
    CDUIColorBK background;
    EXPECT_TRUE(background.IsEmpty());
    background.SetBKColor(kRed);
    EXPECT_FALSE(background.IsEmpty());
    Canvas canvas(4, 8);
    background.DrawBK(canvas, {1, 1, 3, 7});
    EXPECT_EQ(Letters(canvas), "....\n.rr.\n.rr.\n.rr.\n.rr.\n.rr.\n.rr.\n....\n");

    for (const int vertical : {1, 0}) {
        background.SetBKColor(kRed, kBlue, vertical);
        background.DrawBK(canvas, {0, 0, 4, 8});
        canvas.Expect([vertical](int x, int y) {
            return GradientPixel(0xFF0000, 0x0000FF, vertical ? y : x, vertical ? 8 : 4);
        });
    }
    background.SetBKColor(kRed, kNone, 1);
    background.DrawBK(canvas, {0, 0, 4, 8});
    EXPECT_EQ(canvas.At(3, 7), 0xFF0000U) << "half a gradient is none; the solid colour is still set";
}

TEST_F(ColorBackground, SplitsThreeColoursAtTheSeparator)
{
    constexpr int kFar = 1000;
    struct Case {
        const char* name;
        double separator;
        int split;  // kFar: no split, both gradients over the whole
    };
    const std::vector<Case> cases{
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
    for (const Case& c : cases)
        for (const int vertical : {1, 0}) {
            CDUIColorBK background;
            background.SetBKColor(kRed, kBlue, kGreen, c.separator, vertical);
            const Canvas canvas(vertical ? 3 : 120, vertical ? 120 : 3);
            background.DrawBK(canvas, vertical ? RECT{0, 10, 3, 110} : RECT{10, 0, 110, 3});
            canvas.Expect(
                [&](int x, int y) {
                    const int i = (vertical ? y : x) - 10;
                    if (i < 0 || i >= 100)
                        return i >= 0 && c.split != kFar && i < c.split
                                   ? GradientPixel(0xFF0000, 0x00FF00, i, c.split)
                                   : 0U;
                    if (c.split == kFar)
                        return GradientPixel(0x00FF00, 0x0000FF, i, 100);
                    return i < c.split ? GradientPixel(0xFF0000, 0x00FF00, i, c.split)
                                       : GradientPixel(0x00FF00, 0x0000FF, i - c.split, 100 - c.split);
                },
                c.name);
        }
}

TEST_F(ColorBackground, HasOnlyAsManyColoursAsAreSet)
{
    CDUIColorBK background;
    background.SetBKColor(kRed, kBlue, kGreen, 0.25, 0);
    EXPECT_TRUE(background.IsOneColorEmpty());
    EXPECT_FALSE(background.IsTwoColorEmpty() || background.IsTreeColorEmpty() || background.IsEmpty());
    background.SetBKColor(kRed, kNone, kGreen, 2, 1);
    EXPECT_TRUE(background.IsTwoColorEmpty() && background.IsTreeColorEmpty() && background.IsEmpty());
}

using ImageBackground = RenderTest;

TEST_F(ImageBackground, DrawsTheImageOverTheColours)
{
    CDUIColorImageBK background;
    EXPECT_TRUE(background.IsEmpty());
    background.SetSkinImage(std::make_shared<CDUIImageList>());
    EXPECT_FALSE(background.IsEmpty()) << "an image that did not load still counts";
    background.SetBKColor(kRed);
    Canvas canvas(4, 3);
    background.DrawBK(canvas, {0, 0, 4, 3});
    EXPECT_EQ(Letters(canvas), "rrrr\nrrrr\nrrrr\n");
    background.SetSkinImage(NewImage(2, 2, 0x00FF00, 0x00FF00));
    background.DrawBK(canvas, {1, 0, 3, 3});
    EXPECT_EQ(Letters(canvas), "rggr\nrggr\nrggr\n");
}

TEST_F(ImageBackground, PlacesTheImage)
{
    struct Case {
        int kind, x, y;
        RECT rect;
        const char* place;
    };
    const RECT wide{0, 0, 100, 50};
    const std::vector<Case> cases{
        {0, 0, 0, wide, "0,0,20,20"},
        {0, 3, 4, wide, "3,4,23,24"},
        {1, 3, 4, wide, "3,26,23,46"},
        {2, 3, 4, wide, "77,4,97,24"},
        {3, 0, 0, wide, "80,30,100,50"},
        {3, 3, 4, wide, "77,26,97,46"},
        {4, 9, 9, wide, "40,15,60,35"},
        {4, 0, 0, {10, 10, 31, 20}, "10,10,30,20"},
        {4, 0, 0, {10, 10, 20, 51}, "10,20,20,40"},
        {0, 200, 0, wide, "200,0,200,0"},
        {3, 120, 0, wide, "-40,30,-40,30"},
        {5, 7, 7, wide, "0,0,100,50"},
        {-1, 7, 7, wide, "0,0,100,50"},
        {0, 90, 40, wide, "90,40,110,60"},
        {4, 0, 0, {5, 5, 5, 5}, "5,5,5,5"},
    };
    CDUIColorImageBK background;
    EXPECT_EQ(RectText(background.GetSkinImageRect(wide)), "0,0,100,50") << "without an image";
    background.SetSkinImage(NewImage(20, 20, 0x00FF00, 0x00FF00));
    for (const Case& c : cases) {
        DUI::CFrameBKImagePos position;
        position.kind = c.kind;
        position.x = c.x;
        position.y = c.y;
        background.SetSkinImagePos(position);
        EXPECT_EQ(RectText(background.GetSkinImageRect(c.rect)), c.place)
            << c.kind << ": " << c.x << "," << c.y;
    }
}

using FrameBackground = RenderTest;

TEST_F(FrameBackground, KnowsWhatItHas)
{
    CDUIFrameBK frame;
    EXPECT_TRUE(frame.IsEmpty() && frame.IsFrameEmpty());
    frame.SetFrameBorder({0, 0, 0, 1});
    EXPECT_FALSE(frame.IsFrameEmpty());
    EXPECT_TRUE(frame.IsEmpty()) << "a border of nothing";
    frame.SetFrameColor(kRed);
    EXPECT_TRUE(frame.IsColorFrameAvailable());
    EXPECT_FALSE(frame.IsEmpty());
    frame.SetFrameImage(std::make_shared<CDUIImageList>());
    EXPECT_FALSE(frame.IsImageFrameAvailable()) << "no picture in it";
    frame.SetFrameImage(NewImage(3, 3, 0, 0));
    EXPECT_TRUE(frame.IsImageFrameAvailable());
    frame.SetFrameBorder({0, 0, 0, 0});
    EXPECT_FALSE(frame.IsImageFrameAvailable() || frame.IsColorFrameAvailable());
    EXPECT_TRUE(frame.IsEmpty());
}

TEST_F(FrameBackground, DrawsLinesOfEachWidth)
{
    struct Case {
        const char* name;
        RECT border;
        const char* letters;
    };
    const std::vector<Case> cases{
        {"one pixel each", {1, 1, 1, 1}, ".......\n.rrrrr.\n.rgggr.\n.rgggr.\n.rrrrr.\n.......\n"},
        {"some sides", {0, 1, 1, 0}, ".......\n.rrrrr.\n.ggggr.\n.ggggr.\n.ggggr.\n.......\n"},
        {"none", {0, 0, 0, 0}, ".......\n.ggggg.\n.ggggg.\n.ggggg.\n.ggggg.\n.......\n"},
        {"pens are centred on the edge",
         {0, 2, 0, 0},
         "rrrrrrr\nrrrrrrr\n.ggggg.\n.ggggg.\n.ggggg.\n.......\n"},
    };
    for (const Case& c : cases) {
        CDUIFrameBK frame;
        frame.SetBKColor(kGreen);
        frame.SetFrameColor(kRed);
        frame.SetFrameBorder(c.border);
        Canvas canvas(7, 6);
        frame.DrawBK(canvas, {1, 1, 6, 5});
        EXPECT_EQ(Letters(canvas), c.letters) << c.name;
    }
    CDUIFrameBK colourless;
    colourless.SetBKColor(kGreen);
    colourless.SetFrameBorder({1, 1, 1, 1});
    Canvas canvas(2, 2);
    colourless.DrawBK(canvas, {0, 0, 2, 2});
    EXPECT_EQ(Letters(canvas), "gg\ngg\n");
}

TEST_F(FrameBackground, RoundsTheFillOnlyWithinAClipping)
{
    CDUIFrameBK frame;
    frame.SetBKColor(kGreen);
    frame.SetFrameColor(kRed);
    frame.SetFrameBorder({0, 1, 0, 0});
    frame.SetFrameRound(5, 5);
    for (const bool isClipped : {false, true}) {
        Canvas canvas(10, 9);
        if (isClipped)
            IntersectClipRect(canvas, 0, 0, 10, 9);
        frame.DrawBK(canvas, {0, 0, 10, 9});
        EXPECT_EQ(canvas.At(0, 0), isClipped ? 0U : 0x00FF00U);
        EXPECT_EQ(Letter(canvas.At(4, 0)), 'r') << "outline";
        EXPECT_EQ(Letter(canvas.At(0, 4)), 'r');
        EXPECT_EQ(Letter(canvas.At(4, 4)), 'g');
        EXPECT_EQ(Letter(canvas.At(9, 4)), isClipped ? '.' : 'g') << "the outline ends one pixel earlier";
        if (isClipped)
            EXPECT_EQ(ClipOf(canvas), "0,0,10,9") << "restored";
        else
            EXPECT_EQ(GetClipRgn(canvas, Scoped(CreateRectRgn(0, 0, 0, 0))), 0);
    }
}

TEST_F(FrameBackground, DrawsOnlyTheRingOfTheFrameImage)
{
    CDUIFrameBK frame;
    frame.SetBKColor(kGreen);
    frame.SetFrameColor(kRed);
    frame.SetFrameBorder({2, 1, 1, 1});
    frame.SetFrameImage(NewImage(4, 4, 0x0000FF, 0x0000FF));
    struct Case {
        const char* name;
        RECT rect, clip;
        const char* letters;
    };
    const std::vector<Case> cases{
        {"ring", {1, 0, 7, 5}, {0, 0, 8, 5}, ".bbbbbb.\n.bbgggb.\n.bbgggb.\n.bbgggb.\n.bbbbbb.\n"},
        {"cut by the clipping",
         {1, 0, 7, 5},
         {0, 2, 6, 5},
         "........\n........\n.bbggg..\n.bbggg..\n.bbbbb..\n"},
        {"no room inside", {1, 0, 4, 5}, {0, 0, 8, 5}, ".bbb....\n.bbb....\n.bbb....\n.bbb....\n.bbb....\n"},
    };
    for (const Case& c : cases) {
        Canvas canvas(8, 5);
        IntersectClipRect(canvas, c.clip.left, c.clip.top, c.clip.right, c.clip.bottom);
        frame.DrawBK(canvas, c.rect);
        EXPECT_EQ(Letters(canvas), c.letters) << c.name;
        EXPECT_EQ(ClipOf(canvas), RectText(c.clip)) << c.name;
    }
    Canvas unclipped(8, 5);
    frame.DrawBK(unclipped, {1, 0, 7, 5});
    EXPECT_EQ(Letters(unclipped), ".bbbbbb.\n.bbbbbb.\n.bbbbbb.\n.bbbbbb.\n.bbbbbb.\n")
        << "a context without a clip region gets none";
}

TEST_F(FrameBackground, SurvivesBordersFromBrokenSkins)
{
    constexpr LONG kHuge = std::numeric_limits<LONG>::max();
    constexpr LONG kTiny = std::numeric_limits<LONG>::min();
    for (const bool hasImage : {false, true})
        for (const RECT& border :
             {RECT{kHuge, 0, kHuge, 0}, RECT{-5, -5, -5, -5}, RECT{kTiny, kTiny, kTiny, kTiny}}) {
            CDUIFrameBK frame;
            frame.SetBKColor(kRed, kBlue, kGreen, 1e300, 0);
            frame.SetFrameColor(kRed);
            frame.SetFrameBorder(border);
            if (hasImage)
                frame.SetFrameImage(NewImage(4, 4, 0, 0));
            Canvas canvas(4, 4);
            IntersectClipRect(canvas, 0, 0, 4, 4);
            frame.DrawBK(canvas, {0, 0, 4, 4});
        }
}

TEST_F(FrameBackground, ShapesAWindow)
{
    qvui::test::PlatformWindowOptions options;
    options.place = {100, 100, 120, 112};
    const qvui::test::PlatformWindow window(options);
    CDUIFrameBK frame;
    EXPECT_FALSE(frame.SetWinFrameRgn(nullptr));
    EXPECT_FALSE(frame.SetWinFrameRgn(window.Handle())) << "no frame";
    frame.SetFrameBorder({1, 1, 1, 1});
    frame.SetFrameColor(kRed);
    EXPECT_FALSE(frame.SetWinFrameRgn(window.Handle())) << "no rounding";
    const Scoped shape(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), ERROR);

    frame.SetFrameRound(5, 5);
    EXPECT_TRUE(frame.SetWinFrameRgn(window.Handle()));
    const Scoped rounded(CreateRoundRectRgn(0, 0, 20, 12, 5, 5));
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), COMPLEXREGION);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 20; ++x)
            EXPECT_EQ(PtInRegion(shape, x, y), PtInRegion(rounded, x, y)) << x << "," << y;

    // The edge is keyed and keeps its width while the middle stretches.
    frame.SetFrameImage(NewImage(6, 6, 0x0000FF, 0xFF00FF));
    EXPECT_TRUE(frame.SetWinFrameRgn(window.Handle()));
    RECT box{};
    EXPECT_EQ(GetWindowRgn(window.Handle(), shape), SIMPLEREGION);
    GetRgnBox(shape, &box);
    EXPECT_EQ(RectText(box), "1,1,19,11");

    const HWND gone =
        CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    EXPECT_FALSE(frame.SetWinFrameRgn(gone));
}
