#include <qvui/tooltip/html_drawer.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

#include <qvui/render/dib_section.h>
#include <qvui/tooltip/draw_manager.h>

#include "support/controls/control_test.h"

using namespace DUI;

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 120;

/// A white picture to draw on.
class Paper {
public:
    Paper()
    {
        m_pixels.Create(kWidth, kHeight, 32);
        m_hDC = CreateCompatibleDC(nullptr);
        m_old = SelectObject(m_hDC, m_pixels.GetBitmap());
        Clear();
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;
    ~Paper()
    {
        SelectObject(m_hDC, m_old);
        DeleteDC(m_hDC);
    }

    void Clear() const { PatBlt(m_hDC, 0, 0, kWidth, kHeight, WHITENESS); }
    HDC Context() const { return m_hDC; }
    COLORREF At(int x, int y) const { return m_pixels.GetPixel(x, y, TRUE).GetColor(); }

    /// How many pixels are of a kind.
    int Count(const std::function<bool(COLORREF)>& isOfKind) const
    {
        int count = 0;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                count += isOfKind(At(x, y));
        return count;
    }
    /// The sum of all pixels' darkness.
    int Ink() const
    {
        int ink = 0;
        Count([&](COLORREF color) { return (ink += 255 - GetGValue(color)) != 0; });
        return ink;
    }
    /// What is not white.
    RECT InkBounds() const
    {
        RECT bounds{kWidth, kHeight, 0, 0};
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                if (At(x, y) != RGB(255, 255, 255))
                    bounds = {std::min<LONG>(bounds.left, x), std::min<LONG>(bounds.top, y),
                              std::max<LONG>(bounds.right, x + 1), std::max<LONG>(bounds.bottom, y + 1)};
        return bounds;
    }

private:
    CDibSection m_pixels;
    HDC m_hDC;
    HGDIOBJ m_old;
};

/// Whether one channel stands out of the other two.
bool IsOnly(int strong, int other, int third)
{
    return strong > 180 && other < 80 && third < 80;
}
bool IsRed(COLORREF color)
{
    return IsOnly(GetRValue(color), GetGValue(color), GetBValue(color));
}
bool IsGreen(COLORREF color)
{
    return IsOnly(GetGValue(color), GetRValue(color), GetBValue(color));
}
bool IsBlue(COLORREF color)
{
    return IsOnly(GetBValue(color), GetRValue(color), GetGValue(color));
}

class HtmlDrawer : public qvui::test::ControlTest {
protected:
    void Draw(const char* markup, RECT rect = {0, 0, kWidth, kHeight}) const
    {
        CPPHtmlDrawer drawer;
        drawer.SetText(markup);
        drawer.Draw(paper.Context(), rect);
    }
    static SIZE Measure(const char* markup, int maxWidth = kWidth)
    {
        CPPHtmlDrawer drawer;
        drawer.SetText(markup);
        return drawer.Measure(nullptr, maxWidth);
    }

    Paper paper;
};

TEST_F(HtmlDrawer, StylesShowInThePixels)
{
    const auto inkOf = [this](const char* markup) {
        paper.Clear();
        Draw(markup);
        return paper.Ink();
    };
    const int plain = inkOf("Hamburg");
    EXPECT_GT(plain, 0);
    EXPECT_GT(inkOf("<b>Hamburg</b>"), plain);
    EXPECT_GT(inkOf("<u>Hamburg</u>"), plain);
    EXPECT_GT(inkOf("<s>Hamburg</s>"), plain);
    EXPECT_NE(inkOf("<i>Hamburg</i>"), plain);
    EXPECT_GT(inkOf("<font size=48>Hamburg</font>"), 2 * plain);
}

TEST_F(HtmlDrawer, ColoursComeFromLiteralsTheSkinAndTheBasicNames)
{
    const struct {
        const char* markup;
        bool (*isOfColor)(COLORREF);
    } cases[] = {
        {"<font color=#FF0000 size=48>MM", IsRed},
        {"<font color=#FFFF0000 size=48>MM", IsRed},
        {"<font color=\"rgb(0,0,255)\" size=48>MM", IsBlue},
        {"<font color=Blue size=48>MM", IsBlue},
        {"<font color=red size=48>MM", IsRed},
        {"<font color=green size=48>MM", IsGreen},  // the skin's, which is lighter than the basic one
    };
    for (const auto& c : cases) {
        paper.Clear();
        Draw(c.markup);
        EXPECT_GT(paper.Count(c.isOfColor), 50) << c.markup;
    }
    paper.Clear();
    CPPHtmlDrawer drawer;
    drawer.SetText("<font size=48>M<font color=nonsense>M");
    drawer.SetTextColor(RGB(0, 0, 255));
    drawer.Draw(paper.Context(), {0, 0, kWidth, kHeight});
    EXPECT_EQ(paper.Count(IsRed), 0);
    EXPECT_GT(paper.Count(IsBlue), 100);
}

TEST_F(HtmlDrawer, MeasuresWhatItDraws)
{
    for (const char* const markup :
         {"one line", "two\nlines",
          "<b>bold</b> and a sentence that is long enough to be wrapped at least once",
          "<center>centred</center>and not", "<font size=32>large</font> and <img src=strip> an icon"}) {
        paper.Clear();
        CPPHtmlDrawer drawer;
        drawer.SetText(markup);
        const SIZE size = drawer.Measure(nullptr, 200);
        EXPECT_LE(size.cx, 202) << markup;
        drawer.Draw(paper.Context(), {20, 10, 20 + size.cx, 10 + size.cy});
        const RECT ink = paper.InkBounds();
        EXPECT_GE(ink.left, 20) << markup;
        EXPECT_GE(ink.top, 10) << markup;
        EXPECT_LE(ink.right, 20 + size.cx) << markup;
        EXPECT_GT(ink.right, 20 + size.cx - 8) << markup;
        EXPECT_LE(ink.bottom, 10 + size.cy) << markup;
    }
    EXPECT_EQ(Measure("").cy, 0);
    EXPECT_EQ(Measure("a\nb\nc").cy, 3 * Measure("a").cy);
    EXPECT_GT(Measure("a a a a a a a a a", 20).cy, Measure("a a a a a a a a a").cy);
}

TEST_F(HtmlDrawer, ImagesAreTheSkins)
{
    EXPECT_EQ(Measure("<img src=strip>").cx, 20);
    EXPECT_EQ(Measure("<img src=strip>").cy, 20);
    EXPECT_EQ(Measure("<img src=missing>").cx, 0);
    Draw("<img src=strip index=1><img src=strip index=2><img src=strip index=99>");
    EXPECT_TRUE(IsGreen(paper.At(10, 10)));
    EXPECT_TRUE(IsBlue(paper.At(30, 10)));
    EXPECT_TRUE(IsRed(paper.At(50, 10))) << "an icon that is not there is the first";
}

TEST_F(HtmlDrawer, RulesSpanTheRectangleAndCentresStandInIt)
{
    Draw("<hr>", {50, 20, 250, 60});
    const RECT rule = paper.InkBounds();
    EXPECT_EQ(rule.left, 50);
    EXPECT_EQ(rule.right, 250);
    EXPECT_EQ(rule.bottom - rule.top, 1);
    paper.Clear();
    Draw("<center>mm</center>", {100, 0, 200, 40});
    EXPECT_NEAR(paper.InkBounds().left + paper.InkBounds().right, 2 * 150, 4);
}

TEST_F(HtmlDrawer, KeepsTheContextAndItsClip)
{
    const HGDIOBJ font = SelectObject(paper.Context(), GetStockObject(SYSTEM_FONT));
    SetTextColor(paper.Context(), RGB(1, 2, 3));
    SetBkMode(paper.Context(), OPAQUE);
    Draw("<b>many words that do not fit</b> into so small a <font size=48>rectangle", {10, 10, 60, 30});
    const RECT ink = paper.InkBounds(), allowed{10, 10, 60, 30};
    RECT both{};
    UnionRect(&both, &ink, &allowed);
    EXPECT_TRUE(EqualRect(&both, &allowed));
    EXPECT_EQ(SelectObject(paper.Context(), font), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetTextColor(paper.Context()), RGB(1, 2, 3));
    EXPECT_EQ(GetBkMode(paper.Context()), OPAQUE);
    RECT clip{};
    GetClipBox(paper.Context(), &clip);
    EXPECT_EQ(clip.right, kWidth);
}

TEST_F(HtmlDrawer, FollowsTheFontThatItIsGiven)
{
    LOGFONTA description{};
    description.lfHeight = -40;
    const HFONT font = CreateFontIndirectA(&description);
    CPPHtmlDrawer drawer;
    drawer.SetText("M");
    const SIZE before = drawer.Measure(nullptr, kWidth);
    drawer.SetFont(font);
    DeleteObject(font);  // it was copied
    const SIZE after = drawer.Measure(nullptr, kWidth);
    EXPECT_GT(after.cy, 2 * before.cy);
    drawer.SetFont(nullptr);
    EXPECT_EQ(drawer.Measure(nullptr, kWidth).cy, before.cy);
}

TEST_F(HtmlDrawer, MakesNoMoreFontsThanItNeeds)
{
    CString markup;
    for (int i = 0; i < 2000; ++i)
        markup.AppendFormat("<font face=\"face%d\">x</font>", i);
    EXPECT_GT(Measure(markup, 500).cy, 0);
}

TEST_F(HtmlDrawer, EscapedTextShowsAsItIs)
{
    const char* const text = "<b>1 &lt; 2</b> & <img src=strip>";
    const CString escaped = CPPHtmlDrawer::Escape(text);
    EXPECT_EQ(escaped, "&lt;b>1 &amp;lt; 2&lt;/b> &amp; &lt;img src=strip>");
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, Skin().Manager().GetFont("", 1)->GetFont());
    SIZE plain{};
    GetTextExtentPoint32A(screen, text, static_cast<int>(std::strlen(text)), &plain);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(Measure(escaped, 1000).cx, plain.cx);
}

TEST_F(HtmlDrawer, EveryPrefixOfATextIsDrawn)
{
    const std::string whole =
        "<center><b>T</b></center><hr><font color=\"#FF0000\" size='12'>a&lt;&#65;<ind=9>b</font>"
        "<img src=\"strip\" index=1><br>c";
    for (std::size_t length = 0; length <= whole.size(); ++length)
        Draw(whole.substr(0, length).c_str(), {0, 0, 50, 100});
    EXPECT_GT(paper.Ink(), 0);
}

TEST(DrawManager, EffectsRunThroughTheirColours)
{
    constexpr COLORREF kFirst = RGB(250, 0, 0);
    constexpr COLORREF kMiddle = RGB(0, 250, 0);
    constexpr COLORREF kLast = RGB(0, 0, 250);
    const struct {
        const char* name;
        int effect;
        bool isVertical;
        COLORREF start;
        COLORREF middle;
        COLORREF end;
    } cases[] = {
        {"solid", TOOLTIP_EFFECT_SOLID, false, kFirst, kFirst, kFirst},
        {"unknown", 99, false, kFirst, kFirst, kFirst},
        {"negative", -1, false, kFirst, kFirst, kFirst},
        {"across", TOOLTIP_EFFECT_HGRADIENT, false, kFirst, RGB(125, 0, 125), kLast},
        {"down", TOOLTIP_EFFECT_VGRADIENT, true, kFirst, RGB(125, 0, 125), kLast},
        {"across and back", TOOLTIP_EFFECT_HCGRADIENT, false, kFirst, kLast, kFirst},
        {"down and back", TOOLTIP_EFFECT_VCGRADIENT, true, kFirst, kLast, kFirst},
        {"three across", TOOLTIP_EFFECT_3HGRADIENT, false, kFirst, kMiddle, kLast},
        {"three down", TOOLTIP_EFFECT_3VGRADIENT, true, kFirst, kMiddle, kLast},
    };
    const auto isNear = [](COLORREF left, COLORREF right) {
        const auto differ = [](int a, int b) { return std::abs(a - b) > 8; };
        return !differ(GetRValue(left), GetRValue(right)) && !differ(GetGValue(left), GetGValue(right)) &&
               !differ(GetBValue(left), GetBValue(right));
    };
    const qvui::test::LeakCheck leaks;
    const Paper paper;
    constexpr RECT kRect{10, 10, 110, 110};
    for (const auto& c : cases) {
        CPPDrawManager::FillEffect(paper.Context(), kRect, c.effect, kFirst, kMiddle, kLast);
        const auto at = [&](int place) { return c.isVertical ? paper.At(60, place) : paper.At(place, 60); };
        EXPECT_TRUE(isNear(at(10), c.start)) << c.name;
        EXPECT_TRUE(isNear(at(60), c.middle)) << c.name;
        EXPECT_TRUE(isNear(at(109), c.end)) << c.name;
    }
    EXPECT_EQ(paper.At(9, 60), RGB(255, 255, 255));
    EXPECT_EQ(paper.At(110, 60), RGB(255, 255, 255));
}

TEST(DrawManager, BordersStayInsideTheRectangle)
{
    for (const int corner : {0, 8}) {
        const Paper paper;
        CPPDrawManager::DrawBorder(paper.Context(), {10, 10, 60, 40}, corner, RGB(255, 0, 0));
        const RECT ink = paper.InkBounds();
        EXPECT_EQ(qvui::test::Text(ink), "10,10,60,40") << corner;
        EXPECT_EQ(IsRed(paper.At(10, 10)), corner == 0);
        EXPECT_FALSE(IsRed(paper.At(30, 25))) << corner;
    }
}

TEST(DrawManager, ShadesMoveTowardsBlackAndWhite)
{
    constexpr COLORREF kColor = RGB(100, 200, 50);
    EXPECT_EQ(CPPDrawManager::Shade(kColor, -40), RGB(60, 120, 30));
    EXPECT_EQ(CPPDrawManager::Shade(kColor, 100), RGB(255, 255, 255));
    EXPECT_EQ(CPPDrawManager::Shade(kColor, -500), RGB(0, 0, 0));
    EXPECT_EQ(CPPDrawManager::Shade(kColor, 0), kColor);
    EXPECT_EQ(CPPDrawManager::Mix(RGB(0, 100, 255), RGB(255, 100, 0), 50), RGB(128, 100, 128));
}

}  // namespace
