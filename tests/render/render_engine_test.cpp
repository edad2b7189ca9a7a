#include <qvui/render/render_engine.h>

#include <climits>

#include "render/render_test.h"

using DUI::CARGB;
using DUI::CDUIRenderClip;
using Engine = DUI::CDUIRenderEngine;

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

using RenderEngine = RenderTest;

}  // namespace

TEST_F(RenderEngine, FillsBlendOnlyBetweenTheExtremesOfAlpha)
{
    for (int alpha = 0; alpha < 256; ++alpha) {
        const std::uint32_t color = WithAlpha(0xC86432, alpha);
        const Canvas canvas(4, 3, Background);
        Engine::FillRect(canvas, {1, 1, 3, 2}, Argb(color));
        const bool isOpaque = alpha == 0 || alpha == 255;
        const std::uint32_t filled =
            isOpaque ? color & 0xFFFFFF : Blended(color, kBackground, static_cast<std::uint32_t>(alpha));
        canvas.Expect(
            [&](int x, int y) {
                return Holds({1, 1, 3, 2}, x, y) ? filled : kBackground;
            },
            "alpha " + std::to_string(alpha));
        EXPECT_EQ(GetBkColor(canvas), isOpaque ? RGB(0xC8, 0x64, 0x32) : RGB(255, 255, 255));
    }
}

TEST_F(RenderEngine, FillsRespectEmptyRectanglesAndTheClipping)
{
    for (const std::uint32_t color : {0xFFFFFFFFU, 0x40FFFFFFU}) {
        Canvas canvas(4, 4);
        for (const RECT& rect : {RECT{1, 1, 1, 3}, RECT{1, 3, 3, 1}, RECT{3, 1, 1, 3}, RECT{9, 9, 12, 12}}) {
            Engine::FillRect(canvas, rect, Argb(color));
            Engine::DrawGradien(canvas, rect, Argb(color), Argb(color), 1);
        }
        EXPECT_EQ(canvas.Picture(), "....\n....\n....\n....\n") << std::hex << color;
        IntersectClipRect(canvas, 0, 0, 2, 4);
        Engine::FillRect(canvas, {-100000, 2, 100000, 3}, Argb(color));
        EXPECT_EQ(canvas.Picture(), "....\n....\n##..\n....\n") << std::hex << color;
    }
}

TEST_F(RenderEngine, OutlinesLieInsideTheirRectangles)
{
    const auto border = [](const RECT& widths) {
        return [widths](HDC dc) { Engine::DrawRectangleBorder(dc, {1, 1, 7, 5}, widths, Argb(0x80604020)); };
    };
    const auto round = [](const RECT& rect, int ellipse, int pen) {
        return
            [=](HDC dc) { Engine::DrawRoundRectBorder(dc, rect, ellipse, ellipse, pen, CARGB(1, 2, 3, 77)); };
    };
    const auto line = [](POINT from, POINT to, int width) {
        return [=](HDC dc) { Engine::DrawLine(dc, from.x, from.y, to.x, to.y, width, CARGB(1, 2, 3, 10)); };
    };
    const std::string none = "........\n........\n........\n........\n........\n........\n";
    const std::string full = "........\n.######.\n.######.\n.######.\n.######.\n........\n";
    const Table<const char*, std::function<void(HDC)>, std::string> cases{
        {"unequal widths", border({2, 1, 1, 0}),
         "........\n.######.\n.##...#.\n.##...#.\n.##...#.\n........\n"},
        {"one column left", border({3, 1, 2, 1}),
         "........\n.######.\n.###.##.\n.###.##.\n.######.\n........\n"},
        {"sides meet", border({3, 1, 3, 1}), full},
        {"top and bottom meet", border({1, 2, 1, 2}), full},
        {"as wide as it gets", border({INT_MAX, 1, INT_MAX, 1}), full},
        {"no widths", border({0, 0, 0, 0}), none},
        {"square", round({0, 0, 7, 6}, 0, 1), "######..\n#....#..\n#....#..\n#....#..\n######..\n........\n"},
        {"rounded", round({0, 0, 8, 7}, 4, 1),
         ".#####..\n#.....#.\n#.....#.\n#.....#.\n#.....#.\n.#####..\n"},
        {"no pen", round({0, 0, 8, 6}, 4, 0), none},
        {"negative pen", round({0, 0, 8, 6}, 4, -2), none},
        {"empty", round({4, 4, 4, 6}, 4, 1), none},
        {"inverted", round({8, 6, 0, 0}, 4, 1), none},
        {"line without its end", line({1, 1}, {5, 1}, 1), "........\n.####...\n" + none.substr(18)},
        {"diagonal", line({0, 0}, {3, 3}, 1), "#.......\n.#......\n..#.....\n" + none.substr(27)},
        {"two wide", line({2, 2}, {4, 2}, 2), "........\n.####...\n.####...\n" + none.substr(27)},
        {"line without a width", line({1, 1}, {5, 1}, 0), none},
        {"no length", line({1, 1}, {1, 1}, 1), none},
    };
    for (const auto& [name, draw, picture] : cases) {
        Canvas canvas(8, 6);
        draw(canvas);
        EXPECT_EQ(canvas.Picture(), picture) << name;
        for (const std::uint32_t pixel : canvas.Pixels())
            EXPECT_TRUE(pixel == 0 || pixel == Blended(0x80604020, 0, 0x80) || pixel == 0x010203)
                << name << ": painted twice, or with an alpha that counts for nothing";
    }
}

TEST_F(RenderEngine, WidePensStayInsideRoundedOutlines)
{
    for (const int pen : {2, 3, 100, INT_MAX}) {
        Canvas canvas(20, 20);
        Engine::DrawRoundRectBorder(canvas, {2, 2, 18, 18}, 6, 6, pen, CARGB(9, 9, 9, 255));
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 20; ++x)
                EXPECT_TRUE(canvas.At(x, y) == 0 || Holds({2, 2, 17, 17}, x, y))
                    << pen << ": " << x << "," << y;
        EXPECT_NE(canvas.At(9, 2), 0U);
        EXPECT_NE(canvas.At(9, 3), 0U) << pen;
    }
}

TEST_F(RenderEngine, GradientsAreOpaqueOrBlendedByTheMeanOfTheAlphas)
{
    constexpr std::uint32_t kFrom = 0x102030;
    constexpr std::uint32_t kTo = 0xF0E0D0;
    for (const int from : {0, 1, 2, 127, 128, 253, 254, 255})
        for (const int to : {0, 1, 2, 127, 128, 253, 254, 255})
            for (const int vertical : {0, 1}) {
                const Canvas canvas(7, 9, Background);
                const RECT rect{1, 1, 6, 8};
                Engine::DrawGradien(canvas, rect, Argb(WithAlpha(kFrom, from)), Argb(WithAlpha(kTo, to)),
                                    vertical);
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
                    std::to_string(from) + " to " + std::to_string(to) + (vertical ? ", down" : ", across"));
            }
}

TEST_F(RenderEngine, ClippingMovesNoColourOfAGradient)
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
        Engine::DrawGradien(canvas, rect, Argb(kFrom), Argb(kTo), vertical);
        canvas.Expect([&](int x, int y) {
            const std::uint32_t pure = GradientPixel(kFrom, kTo, (vertical ? y : x) + 100, 6100);
            return Holds({1, 1, width - 1, height - 1}, x, y) ? Blended(pure, kBackground, 0x80)
                                                              : kBackground;
        });
    }
}

TEST_F(RenderEngine, LinesLeaveGapsAndTheContextsObjects)
{
    Canvas canvas(50, 1);
    SetBkMode(canvas, TRANSPARENT);
    Engine::DrawDashLine(canvas, 0, 0, 50, 0, 1, CARGB(0, 0, 9, 255));
    EXPECT_EQ(canvas.Picture(), "##################......##################......##\n");
    Engine::DrawDashLine(canvas, 0, 0, 50, 0, 0, CARGB(0, 0, 8, 255));
    EXPECT_EQ(canvas.At(0, 0), 9U) << "no width";

    const Scoped pen(static_cast<HDC>(canvas), CreatePen(PS_SOLID, 1, RGB(1, 1, 1)));
    const Scoped brush(static_cast<HDC>(canvas), CreateSolidBrush(RGB(2, 2, 2)));
    Engine::DrawLine(canvas, 0, 0, 5, 5, 1, CARGB(9, 9, 9, 255));
    Engine::DrawDashLine(canvas, 0, 0, 5, 5, 1, CARGB(9, 9, 9, 255));
    Engine::DrawRoundRectBorder(canvas, {0, 0, 9, 9}, 4, 4, 1, CARGB(9, 9, 9, 255));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(BLACK_PEN)), static_cast<HPEN>(pen));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(WHITE_BRUSH)), static_cast<HBRUSH>(brush));
}

namespace {

TEXTMETRICA MetricsOf(HDC dc)
{
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    return metrics;
}

// How far the lines of vertical text are apart.
int StepOf(HDC dc)
{
    return MetricsOf(dc).tmHeight - MetricsOf(dc).tmInternalLeading + 2;
}

}  // namespace

TEST_F(RenderEngine, TextIsThePlatforms)
{
    Canvas drawn(80, 30);
    const Canvas expected(80, 30);
    RECT rect{2, 2, 78, 28};
    const int height = Engine::DrawTextA(drawn, "Text", 3, &rect, DT_SINGLELINE | DT_CENTER);
    EXPECT_EQ(DrawTextA(expected, "Tex", 3, &rect, DT_SINGLELINE | DT_CENTER), height);
    drawn.ExpectSame(expected);

    LOGFONTA description{};
    description.lfHeight = -16;
    lstrcpynA(description.lfFaceName, "DejaVu Sans", LF_FACESIZE);
    const Scoped font(static_cast<HDC>(drawn), CreateFontIndirectA(&description));
    SIZE extent{};
    GetTextExtentPoint32A(drawn, "several words of text", 21, &extent);
    for (const UINT format : {UINT{0}, UINT{DT_WORDBREAK}, UINT{DT_WORDBREAK | DT_CENTER}}) {
        const SIZE size = Engine::GetTextIdealSize("several words of text", font, 20, format);
        EXPECT_EQ(size.cx, extent.cx) << format << ", one line";
        EXPECT_EQ(size.cy, MetricsOf(drawn).tmHeight) << format;
    }
}

TEST_F(RenderEngine, VerticalTextStacksCharactersAndRuns)
{
    // Two characters of several bytes each, in the system code page.
    const bool isUtf8 = GetACP() == CP_UTF8;
    const std::string first = isUtf8 ? "\xE4\xB8\xAD" : "\xD6\xD0";
    const std::string second = isUtf8 ? "\xE6\x96\x87" : "\xCE\xC4";
    const Table<const char*, std::string, std::vector<std::string>, int> cases{
        {"characters and a number", first + second + "12", {first, second, "12"}, 200},
        {"words stay together", "ab c" + first + "d", {"ab c", first, "d"}, 200},
        {"ASCII alone", "abc", {"abc"}, 201},
        {"higher than the rectangle", first + second + first + second, {first, second, first, second}, 20},
        {"nothing", "", {}, 50},
    };
    for (const auto& [name, text, lines, height] : cases) {
        const Canvas drawn(60, 200);
        const Canvas expected(60, 200);
        RECT rect{5, 10, 55, 10 + height};
        const int total =
            Engine::DrawVText(drawn, text.c_str(), -1, &rect, DT_CENTER);  // no length is looked at
        const int step = StepOf(expected);
        EXPECT_EQ(total, static_cast<int>(lines.size()) * step) << name;
        int top = 10 + (height - total) / 2;
        for (const std::string& line : lines) {
            RECT place{5, top, 55, top + step};
            DrawTextA(expected, line.c_str(), static_cast<int>(line.size()), &place, DT_CENTER);
            top += step;
        }
        drawn.ExpectSame(expected, name);
    }
    const Canvas canvas(60, 60);
    RECT rect{0, 0, 60, 60};
    EXPECT_EQ(Engine::DrawVText(canvas, "abc", 3, nullptr, 0), 0);
    EXPECT_EQ(Engine::DrawVText(canvas, nullptr, 0, &rect, 0), 0);
    EXPECT_EQ(Engine::DrawVText(canvas, "a\xE4", 2, &rect, 0), 2 * StepOf(canvas)) << "half a character";
}

TEST_F(RenderEngine, ClipsNarrowAndRestore)
{
    Canvas canvas(8, 4);
    const auto fill = [&canvas] {
        canvas.Fill(0);
        Engine::FillRect(canvas, {0, 0, 8, 4}, CARGB(255, 255, 255, 255));
        return canvas.Picture();
    };
    RECT outer{1, 1, 6, 4};
    RECT inner{4, 0, 8, 3};
    RECT outside{7, 0, 8, 1};
    {
        const CDUIRenderClip clip(canvas, outer);
        {
            const CDUIRenderClip nested(canvas, inner);
            EXPECT_EQ(fill(), "........\n....##..\n....##..\n........\n");
            const CDUIRenderClip nothing(canvas, outside);
            EXPECT_EQ(fill(), "........\n........\n........\n........\n");
        }
        EXPECT_EQ(fill(), "........\n.#####..\n.#####..\n.#####..\n");
    }
    EXPECT_EQ(fill(), "########\n########\n########\n########\n");

    const Scoped corner(CreateRectRgn(0, 0, 4, 2));
    const Scoped ell(CreateRectRgn(0, 0, 8, 4));
    CombineRgn(ell, ell, corner, RGN_DIFF);
    SelectClipRgn(canvas, ell);
    {
        RECT rect{2, 0, 6, 4};
        const CDUIRenderClip clip(canvas, rect);
        EXPECT_EQ(fill(), "....##..\n....##..\n..####..\n..####..\n");
    }
    const Scoped after(CreateRectRgn(0, 0, 0, 0));
    RECT box{};
    EXPECT_EQ(GetClipRgn(canvas, after), 1);
    EXPECT_EQ(GetRgnBox(after, &box), SIMPLEREGION) << "the clip box of a complex clipping is left";
    EXPECT_EQ(RectText(box), "0,0,8,4");
}
