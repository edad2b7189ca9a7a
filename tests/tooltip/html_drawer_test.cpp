#include <qvui/tooltip/html_drawer.h>

#include <algorithm>
#include <cstring>

#include <qvui/tooltip/draw_manager.h>

#include "support/controls/control_test.h"
#include "support/platform_bitmap.h"

using namespace DUI;

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 120;

/// "r", "g" or "b" where one channel stands out of the other two; "." is white, "k" black, "?" anything else.
char Hue(COLORREF color)
{
    const auto isOnly = [](int strong, int other, int third) {
        return strong > 180 && other < 80 && third < 80;
    };
    const int red = GetRValue(color), green = GetGValue(color), blue = GetBValue(color);
    return color == RGB(255, 255, 255) ? '.'
           : isOnly(red, green, blue)  ? 'r'
           : isOnly(green, red, blue)  ? 'g'
           : isOnly(blue, red, green)  ? 'b'
           : red + green + blue == 0   ? 'k'
                                       : '?';
}

/// A white picture to draw on.
class Paper {
public:
    Paper() { Clear(); }

    void Clear() const { PatBlt(m_bitmap, 0, 0, kWidth, kHeight, WHITENESS); }
    HDC Context() const { return m_bitmap; }
    COLORREF At(int x, int y) const { return ::GetPixel(m_bitmap, x, y); }
    /// "rgb" for the hues at points beside each other.
    std::string Hues(std::initializer_list<POINT> points) const
    {
        std::string hues;
        for (const POINT& point : points)
            hues += Hue(At(point.x, point.y));
        return hues;
    }
    /// How many pixels have the hue.
    int Count(char hue) const
    {
        int count = 0;
        ForEach([&](int, int, COLORREF color) { count += Hue(color) == hue; });
        return count;
    }
    /// The sum of all pixels' darkness.
    int Ink() const
    {
        int ink = 0;
        ForEach([&](int, int, COLORREF color) { ink += 255 - GetGValue(color); });
        return ink;
    }
    /// What is not white.
    RECT InkBounds() const
    {
        RECT bounds{};
        ForEach([&](int x, int y, COLORREF color) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (Hue(color) != '.')
                UnionRect(&bounds, &bounds, &pixel);
        });
        return bounds;
    }

private:
    template <class Call>
    void ForEach(Call call) const
    {
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                call(x, y, At(x, y));
    }

    qvui::test::MemoryBitmap m_bitmap{qvui::test::BitmapInfo(kWidth, -kHeight)};
};

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
    const std::pair<const char*, char> cases[] = {
        {"<font color=#FF0000 size=48>MM", 'r'},
        {"<font color=#FFFF0000 size=48>MM", 'r'},
        {"<font color=\"rgb(0,0,255)\" size=48>MM", 'b'},
        {"<font color=Blue size=48>MM", 'b'},
        {"<font color=red size=48>MM", 'r'},
        {"<font color=green size=48>MM", 'g'},  // the skin's, which is lighter than the basic one
        {"<font size=48>M<font color=nonsense>M", 'k'},
    };
    for (const auto& [markup, hue] : cases) {
        paper.Clear();
        Draw(markup);
        EXPECT_GT(paper.Count(hue), 100) << markup;
    }
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
    EXPECT_EQ(paper.Hues({{10, 10}, {30, 10}, {50, 10}}), "gbr") << "an icon that is not there is the first";
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

TEST(DrawManager, EffectsRunThroughTheirColours)
{
    // From red over green to blue: the hues at both ends and in the middle, across and down.
    const struct {
        int effect;
        const char* across;
        const char* down;
    } cases[] = {
        {TOOLTIP_EFFECT_SOLID, "rrr", "rrr"},
        {99, "rrr", "rrr"},
        {-1, "rrr", "rrr"},
        {TOOLTIP_EFFECT_HGRADIENT, "r?b", "???"},
        {TOOLTIP_EFFECT_VGRADIENT, "???", "r?b"},
        {TOOLTIP_EFFECT_HCGRADIENT, "rbr", "bbb"},
        {TOOLTIP_EFFECT_VCGRADIENT, "bbb", "rbr"},
        {TOOLTIP_EFFECT_3HGRADIENT, "rgb", "ggg"},
        {TOOLTIP_EFFECT_3VGRADIENT, "ggg", "rgb"},
    };
    const qvui::test::LeakCheck leaks;
    const Paper paper;
    for (const auto& c : cases) {
        CPPDrawManager::FillEffect(paper.Context(), {10, 10, 110, 110}, c.effect, RGB(250, 0, 0),
                                   RGB(0, 250, 0), RGB(0, 0, 250));
        EXPECT_EQ(paper.Hues({{10, 60}, {60, 60}, {109, 60}}), c.across) << c.effect;
        EXPECT_EQ(paper.Hues({{60, 10}, {60, 60}, {60, 109}}), c.down) << c.effect;
        EXPECT_EQ(paper.Hues({{9, 60}, {110, 60}, {60, 9}, {60, 110}}), "....");
    }
    CPPDrawManager::FillEffect(paper.Context(), {10, 10, 110, 110}, TOOLTIP_EFFECT_HGRADIENT, RGB(250, 0, 0),
                               0, RGB(0, 0, 250));
    EXPECT_NEAR(GetRValue(paper.At(60, 60)), 125, 8);
    EXPECT_NEAR(GetBValue(paper.At(60, 60)), 125, 8);
    EXPECT_NEAR(GetRValue(paper.At(35, 60)), 188, 8);
}

TEST(DrawManager, BordersStayInsideTheRectangle)
{
    for (const int corner : {0, 8}) {
        const Paper paper;
        CPPDrawManager::DrawBorder(paper.Context(), {10, 10, 60, 40}, corner, RGB(255, 0, 0));
        EXPECT_EQ(qvui::test::Text(paper.InkBounds()), "10,10,60,40") << corner;
        EXPECT_EQ(paper.Hues({{10, 10}, {30, 25}}), corner == 0 ? "r." : "..");
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
