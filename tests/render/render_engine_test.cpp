#include <qvui/render/render_engine.h>

#include <array>
#include <climits>
#include <optional>

#include "render/render_test.h"

using DUI::CARGB;
using DUI::CDUIRenderClip;
using DUI::CDUIRenderEngine;

namespace {

constexpr std::uint32_t kBackground = 0x40302010;

std::uint32_t Background(int, int)
{
    return kBackground;
}

std::uint32_t WithAlpha(std::uint32_t color, int alpha)
{
    return (color & 0xFFFFFF) | (static_cast<std::uint32_t>(alpha) << 24);
}

}  // namespace

using Fill = RenderTest;

TEST_F(Fill, BlendsOnlyBetweenTheExtremesOfAlpha)
{
    constexpr std::uint32_t kColor = 0xC86432;
    for (int alpha = 0; alpha < 256; ++alpha) {
        const Canvas canvas(4, 3, Background);
        CDUIRenderEngine::FillRect(canvas, {1, 1, 3, 2}, Argb(WithAlpha(kColor, alpha)));
        const bool isOpaque = alpha == 0 || alpha == 255;
        const auto weight = static_cast<std::uint32_t>(alpha);
        const std::uint32_t expected =
            isOpaque ? kColor : Blended(WithAlpha(kColor, alpha), kBackground, weight);
        canvas.Expect(
            [&](int x, int y) {
                return Holds({1, 1, 3, 2}, x, y) ? expected : kBackground;
            },
            "alpha " + std::to_string(alpha));
    }
}

TEST_F(Fill, RespectsEmptyRectanglesAndTheClipping)
{
    for (const std::uint32_t color : {0xFFFFFFFFU, 0x40FFFFFFU}) {
        Canvas canvas(4, 4);
        for (const RECT& rect : {RECT{1, 1, 1, 3}, RECT{1, 3, 3, 1}, RECT{3, 1, 1, 3}, RECT{9, 9, 12, 12}})
            CDUIRenderEngine::FillRect(canvas, rect, Argb(color));
        EXPECT_EQ(canvas.Picture(), "....\n....\n....\n....\n") << std::hex << color;

        IntersectClipRect(canvas, 0, 0, 2, 4);
        CDUIRenderEngine::FillRect(canvas, {-100000, 2, 100000, 3}, Argb(color));
        EXPECT_EQ(canvas.Picture(), "....\n....\n##..\n....\n") << std::hex << color;
    }
}

TEST_F(Fill, OpaqueFillLeavesItsBackgroundColour)
{
    Canvas canvas(2, 2);
    CDUIRenderEngine::FillRect(canvas, {0, 0, 1, 1}, CARGB(1, 2, 3, 0));
    EXPECT_EQ(GetBkColor(canvas), RGB(1, 2, 3));
    CDUIRenderEngine::FillRect(canvas, {0, 0, 1, 1}, CARGB(9, 9, 9, 100));
    EXPECT_EQ(GetBkColor(canvas), RGB(1, 2, 3));
}

using RectangleBorder = RenderTest;

TEST_F(RectangleBorder, BandsLieInsideTheRectangle)
{
    struct Case {
        const char* name;
        RECT widths;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"unequal widths", {2, 1, 1, 0}, "........\n.######.\n.##...#.\n.##...#.\n.##...#.\n........\n"},
        {"one pixel", {1, 1, 1, 1}, "........\n.######.\n.#....#.\n.#....#.\n.######.\n........\n"},
        {"sides meet", {3, 1, 3, 1}, "........\n.######.\n.######.\n.######.\n.######.\n........\n"},
        {"one column left", {3, 1, 2, 1}, "........\n.######.\n.###.##.\n.###.##.\n.######.\n........\n"},
        {"top and bottom meet", {1, 2, 1, 2}, "........\n.######.\n.######.\n.######.\n.######.\n........\n"},
        {"as wide as it gets",
         {INT_MAX, 1, INT_MAX, 1},
         "........\n.######.\n.######.\n.######.\n.######.\n........\n"},
        {"none", {0, 0, 0, 0}, "........\n........\n........\n........\n........\n........\n"},
    };
    constexpr std::uint32_t kTranslucent = 0x80604020;
    for (const Case& c : cases) {
        Canvas canvas(8, 6);
        CDUIRenderEngine::DrawRectangleBorder(canvas, {1, 1, 7, 5}, c.widths, Argb(kTranslucent));
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
        for (const std::uint32_t pixel : canvas.Pixels())
            EXPECT_TRUE(pixel == 0 || pixel == Blended(kTranslucent, 0, 0x80)) << c.name << ": painted twice";
    }
}

using RoundRectBorder = RenderTest;

TEST_F(RoundRectBorder, OutlinesInsideTheRectangle)
{
    struct Case {
        const char* name;
        RECT rect;
        int ellipse;
        int pen;
        const char* picture;
    };
    const char* const kNothing =
        "........\n........\n........\n........\n........\n........\n........\n........\n";
    const std::vector<Case> cases{
        {"square corners",
         {0, 0, 7, 6},
         0,
         1,
         "######..\n#....#..\n#....#..\n#....#..\n######..\n........\n........\n........\n"},
        {"round corners",
         {0, 0, 8, 8},
         4,
         1,
         ".#####..\n#.....#.\n#.....#.\n#.....#.\n#.....#.\n#.....#.\n.#####..\n........\n"},
        {"no pen", {0, 0, 8, 8}, 4, 0, kNothing},
        {"negative pen", {0, 0, 8, 8}, 4, -2, kNothing},
        {"empty", {4, 4, 4, 8}, 4, 1, kNothing},
        {"inverted", {8, 8, 0, 0}, 4, 1, kNothing},
    };
    for (const Case& c : cases) {
        Canvas canvas(8, 8);
        CDUIRenderEngine::DrawRoundRectBorder(canvas, c.rect, c.ellipse, c.ellipse, c.pen,
                                              CARGB(1, 2, 3, 77));
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
        for (const std::uint32_t pixel : canvas.Pixels())
            EXPECT_TRUE(pixel == 0 || pixel == 0x010203) << c.name << ": alpha counts for nothing";
    }
}

TEST_F(RoundRectBorder, WidePensStayInsideToo)
{
    for (const int pen : {2, 3, 100, INT_MAX}) {
        Canvas canvas(20, 20);
        CDUIRenderEngine::DrawRoundRectBorder(canvas, {2, 2, 18, 18}, 6, 6, pen, CARGB(9, 9, 9, 255));
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 20; ++x)
                EXPECT_TRUE(canvas.At(x, y) == 0 || Holds({2, 2, 17, 17}, x, y))
                    << pen << ": " << x << "," << y;
        EXPECT_NE(canvas.At(9, 2), 0U);
        EXPECT_NE(canvas.At(9, 3), 0U) << pen;
    }
}

using Gradient = RenderTest;

TEST_F(Gradient, IsOpaqueOrBlendedByTheMeanOfTheAlphas)
{
    constexpr std::array<int, 8> kAlphas{0, 1, 2, 127, 128, 253, 254, 255};
    constexpr std::uint32_t kFrom = 0x102030;
    constexpr std::uint32_t kTo = 0xF0E0D0;
    for (const int from : kAlphas)
        for (const int to : kAlphas)
            for (const int vertical : {0, 1}) {
                const Canvas canvas(7, 9, Background);
                const RECT rect{1, 1, 6, 8};
                CDUIRenderEngine::DrawGradien(canvas, rect, Argb(WithAlpha(kFrom, from)),
                                              Argb(WithAlpha(kTo, to)), vertical);
                const int mean = (from + to) / 2;
                const bool isOpaque = from + to <= 1 || mean == 255;
                canvas.Expect(
                    [&](int x, int y) {
                        const std::uint32_t pure = vertical ? GradientPixel(kFrom, kTo, y - 1, 7)
                                                            : GradientPixel(kFrom, kTo, x - 1, 5);
                        if (!Holds(rect, x, y))
                            return kBackground;
                        return isOpaque ? pure : Blended(pure, kBackground, static_cast<std::uint32_t>(mean));
                    },
                    std::to_string(from) + " to " + std::to_string(to) +
                        (vertical ? ", vertical" : ", horizontal"));
            }
}

TEST_F(Gradient, ClippingMovesNoColour)
{
    constexpr std::uint32_t kFrom = 0x80FF0000;
    constexpr std::uint32_t kTo = 0x8000FF40;
    for (const int vertical : {0, 1}) {
        // Longer than what is blended at once, and reaching beyond the surface at both ends.
        const int width = vertical ? 3 : 5000;
        const int height = vertical ? 5000 : 3;
        const Canvas canvas(width, height, Background);
        IntersectClipRect(canvas, 1, 1, width - 1, height - 1);
        const RECT rect = vertical ? RECT{-50, -100, 50, 6000} : RECT{-100, -50, 6000, 50};
        CDUIRenderEngine::DrawGradien(canvas, rect, Argb(kFrom), Argb(kTo), vertical);
        canvas.Expect([&](int x, int y) {
            const std::uint32_t pure = GradientPixel(kFrom, kTo, (vertical ? y : x) + 100, 6100);
            return Holds({1, 1, width - 1, height - 1}, x, y) ? Blended(pure, kBackground, 0x80)
                                                              : kBackground;
        });
    }
}

TEST_F(Gradient, EmptyRectanglesStayUnpainted)
{
    Canvas canvas(3, 3);
    for (const std::uint32_t color : {0xFFFFFFFFU, 0x80FFFFFFU})
        for (const RECT& rect : {RECT{1, 1, 1, 3}, RECT{2, 2, 0, 0}})
            CDUIRenderEngine::DrawGradien(canvas, rect, Argb(color), Argb(color), 1);
    EXPECT_EQ(canvas.Picture(), "...\n...\n...\n");
}

using Lines = RenderTest;

TEST_F(Lines, LeaveTheEndPointOutAndTakeWidths)
{
    struct Case {
        const char* name;
        POINT from, to;
        int width;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"along a row", {1, 1}, {5, 1}, 1, "......\n.####.\n......\n......\n"},
        {"diagonal", {0, 0}, {3, 3}, 1, "#.....\n.#....\n..#...\n......\n"},
        {"two wide", {2, 2}, {4, 2}, 2, "......\n.####.\n.####.\n......\n"},
        {"no width", {1, 1}, {5, 1}, 0, "......\n......\n......\n......\n"},
        {"no length", {1, 1}, {1, 1}, 1, "......\n......\n......\n......\n"},
    };
    for (const Case& c : cases) {
        Canvas canvas(6, 4);
        CDUIRenderEngine::DrawLine(canvas, c.from.x, c.from.y, c.to.x, c.to.y, c.width, CARGB(0, 0, 9, 10));
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
    }
}

TEST_F(Lines, DashesLeaveGaps)
{
    Canvas canvas(50, 1);
    SetBkMode(canvas, TRANSPARENT);
    CDUIRenderEngine::DrawDashLine(canvas, 0, 0, 50, 0, 1, CARGB(0, 0, 9, 255));
    const std::string dash(18, '#');
    const std::string gap(6, '.');
    EXPECT_EQ(canvas.Picture(), dash + gap + dash + gap + "##\n");
    CDUIRenderEngine::DrawDashLine(canvas, 0, 0, 50, 0, 0, CARGB(0, 0, 8, 255));
    EXPECT_EQ(canvas.At(0, 0), 9U) << "no width";
}

TEST_F(Lines, LeaveTheContextsObjectsSelected)
{
    Canvas canvas(20, 20);
    const Scoped pen(static_cast<HDC>(canvas), CreatePen(PS_SOLID, 1, RGB(1, 1, 1)));
    const Scoped brush(static_cast<HDC>(canvas), CreateSolidBrush(RGB(2, 2, 2)));
    CDUIRenderEngine::DrawLine(canvas, 0, 0, 5, 5, 1, CARGB(9, 9, 9, 255));
    CDUIRenderEngine::DrawDashLine(canvas, 0, 0, 5, 5, 1, CARGB(9, 9, 9, 255));
    CDUIRenderEngine::DrawRoundRectBorder(canvas, {0, 0, 9, 9}, 4, 4, 1, CARGB(9, 9, 9, 255));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(BLACK_PEN)), static_cast<HGDIOBJ>(static_cast<HPEN>(pen)));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(WHITE_BRUSH)),
              static_cast<HGDIOBJ>(static_cast<HBRUSH>(brush)));
}

using Text = RenderTest;

namespace {

TEXTMETRICA MetricsOf(HDC hdc)
{
    TEXTMETRICA metrics{};
    GetTextMetricsA(hdc, &metrics);
    return metrics;
}

// Two characters of several bytes each, in the system code page.
std::string TwoWideCharacters()
{
    return GetACP() == CP_UTF8 ? "\xE4\xB8\xAD\xE6\x96\x87" : "\xD6\xD0\xCE\xC4";
}

}  // namespace

TEST_F(Text, IdealSizeIsThatOfOneLine)
{
    Canvas canvas(1, 1);
    LOGFONTA description{};
    description.lfHeight = -16;
    lstrcpynA(description.lfFaceName, "DejaVu Sans", LF_FACESIZE);
    const Scoped font(static_cast<HDC>(canvas), CreateFontIndirectA(&description));
    const std::string text = "several words of text";
    SIZE extent{};
    GetTextExtentPoint32A(canvas, text.c_str(), static_cast<int>(text.size()), &extent);
    for (const UINT format :
         {0U, static_cast<UINT>(DT_WORDBREAK), static_cast<UINT>(DT_WORDBREAK | DT_CENTER)}) {
        const SIZE size = CDUIRenderEngine::GetTextIdealSize(text.c_str(), font, 20, format);
        EXPECT_EQ(size.cx, extent.cx) << format;
        EXPECT_EQ(size.cy, MetricsOf(canvas).tmHeight) << format;
    }
}

TEST_F(Text, DrawsAsThePlatform)
{
    Canvas drawn(80, 30);
    Canvas expected(80, 30);
    RECT rect{2, 2, 78, 28};
    const int height = CDUIRenderEngine::DrawTextA(drawn, "Text", 3, &rect, DT_SINGLELINE | DT_CENTER);
    EXPECT_EQ(DrawTextA(expected, "Tex", 3, &rect, DT_SINGLELINE | DT_CENTER), height);
    EXPECT_EQ(drawn.Pixels(), expected.Pixels());
}

TEST_F(Text, VerticalTextStacksCharactersAndRuns)
{
    const std::string wide = TwoWideCharacters();
    const std::string first = wide.substr(0, wide.size() / 2);
    const std::string second = wide.substr(wide.size() / 2);
    struct Case {
        const char* name;
        std::string text;
        std::vector<std::string> lines;
        int height;
    };
    const std::vector<Case> cases{
        {"characters and a number", wide + "12", {first, second, "12"}, 200},
        {"words stay together", "ab c" + first + "d", {"ab c", first, "d"}, 200},
        {"ASCII alone", "abc", {"abc"}, 201},
        {"higher than the rectangle", wide + wide, {first, second, first, second}, 20},
        {"nothing", "", {}, 50},
    };
    for (const Case& c : cases) {
        Canvas drawn(60, 200);
        Canvas expected(60, 200);
        RECT rect{5, 10, 55, 10 + c.height};
        const int length = -1;  // not looked at
        const int total = CDUIRenderEngine::DrawVText(drawn, c.text.c_str(), length, &rect, DT_CENTER);
        const TEXTMETRICA metrics = MetricsOf(expected);
        const int step = metrics.tmHeight - metrics.tmInternalLeading + 2;
        const int lines = static_cast<int>(c.lines.size());
        EXPECT_EQ(total, lines * step) << c.name;
        int top = 10 + (c.height - lines * step) / 2;
        for (const std::string& line : c.lines) {
            RECT place{5, top, 55, top + step};
            DrawTextA(expected, line.c_str(), static_cast<int>(line.size()), &place, DT_CENTER);
            top += step;
        }
        EXPECT_EQ(drawn.Pixels(), expected.Pixels()) << c.name;
    }
}

TEST_F(Text, VerticalTextSurvivesWhatIsMissingOrBroken)
{
    Canvas canvas(60, 60);
    RECT rect{0, 0, 60, 60};
    EXPECT_EQ(CDUIRenderEngine::DrawVText(canvas, "abc", 3, nullptr, 0), 0);
    EXPECT_EQ(CDUIRenderEngine::DrawVText(canvas, nullptr, 0, &rect, 0), 0);
    const TEXTMETRICA metrics = MetricsOf(canvas);
    const int step = metrics.tmHeight - metrics.tmInternalLeading + 2;
    EXPECT_EQ(CDUIRenderEngine::DrawVText(canvas, "a\xE4", 2, &rect, 0), 2 * step)
        << "half a character at the end";
}

using RenderClip = RenderTest;

TEST_F(RenderClip, NarrowsAndRestores)
{
    Canvas canvas(8, 4);
    const auto fill = [&canvas] {
        canvas.Fill(0);
        CDUIRenderEngine::FillRect(canvas, {0, 0, 8, 4}, CARGB(255, 255, 255, 255));
        return canvas.Picture();
    };
    RECT outer{1, 1, 6, 4};
    RECT inner{4, 0, 8, 3};
    RECT outside{7, 0, 8, 1};
    {
        const CDUIRenderClip clip(canvas, outer);
        EXPECT_EQ(fill(), "........\n.#####..\n.#####..\n.#####..\n");
        {
            const CDUIRenderClip nested(canvas, inner);
            EXPECT_EQ(fill(), "........\n....##..\n....##..\n........\n");
            const CDUIRenderClip nothing(canvas, outside);
            EXPECT_EQ(fill(), "........\n........\n........\n........\n");
        }
        EXPECT_EQ(fill(), "........\n.#####..\n.#####..\n.#####..\n");
    }
    EXPECT_EQ(fill(), "########\n########\n########\n########\n");
}

TEST_F(RenderClip, LeavesTheClipBoxOfAComplexClipping)
{
    Canvas canvas(8, 4);
    const Scoped corner(CreateRectRgn(0, 0, 4, 2));
    const Scoped ell(CreateRectRgn(0, 0, 8, 4));
    CombineRgn(ell, ell, corner, RGN_DIFF);
    SelectClipRgn(canvas, ell);
    {
        RECT rect{2, 0, 6, 4};
        const CDUIRenderClip clip(canvas, rect);
        CDUIRenderEngine::FillRect(canvas, {0, 0, 8, 4}, CARGB(255, 255, 255, 255));
        EXPECT_EQ(canvas.Picture(), "....##..\n....##..\n..####..\n..####..\n");
    }
    const Scoped after(CreateRectRgn(0, 0, 0, 0));
    RECT box{};
    EXPECT_EQ(GetClipRgn(canvas, after), 1);
    EXPECT_EQ(GetRgnBox(after, &box), SIMPLEREGION);
    EXPECT_EQ(RectText(box), "0,0,8,4");
}
