// Text, frame and control styles.

#include <array>
#include <map>

#include "skin/skin_test.h"
#include "support/geometry_text.h"

using DUI::CDUIFrameBK;
using DUI::CRefPtr;
using DUI::CResMgr;
using DUI::CTextStyle;

namespace {

// The colour, the two or three of a gradient, where they part, and whether it is vertical.
using Colors = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, double, int>;

Colors ColorsOf(CDUIFrameBK& frame)
{
    DUI::CARGB start, end, middle;
    double separator = 0;
    int vertical = 0;
    frame.GetBKCOlor(start, end, middle, separator, vertical);
    return {Bits(frame.GetBKColor()), Bits(start), Bits(end), Bits(middle), separator, vertical};
}

}  // namespace

class StyleSets : public SkinTest {
protected:
    StyleSets()
    {
        manager.ParseDUIResource(Document(R"(<color_set>
            <color name="red" value="#FFFF0000"/><color name="green" value="#FF00FF00"/>
            <color name="blue" value="#FF0000FF"/></color_set><font_set>
            <font name="text" height="10" default="true"/><font name="hot" height="11"/></font_set>)"));
    }

    void Parse(const std::string& sets) { EXPECT_EQ(manager.ParseStyleResource(Document(sets)), 1); }
    void ParseFrame(const std::string& attributes)
    {
        Parse("<frame_style_set><frame_style name=\"f\" " + attributes + "/></frame_style_set>");
    }
    CRefPtr<CDUIFrameBK> Frame() { return manager.GetFrameBK("f"); }
    std::string BorderText() { return qvui::test::Text(Frame()->GetFrameBorder()); }

    CResMgr manager;
};

TEST_F(StyleSets, TextFormatsAreNamesAnywhereInTheText)
{
    // clang-format off
    const std::map<std::string, DWORD> formats{
        {"", 0}, {"DT_CENTER|DT_VCENTER", 5}, {"dt_right", 2}, {"Dt_VCenter DT_SINGLELINE", 36},
        {"DT_END_ELLIPSIS,DT_LEFT", 0x8000}, {"DT_LEFT|DT_TOP", 0}, {"DT_BOTTOM", 8}, {"DT_WORDBREAK", 16},
        {"DT_EXPANDTABS", 64}, {"DT_TABSTOP", 128}, {"DT_NOCLIP", 256}, {"DT_EXTERNALLEADING", 512},
        {"DT_NOPREFIX", 2048}, {"DT_INTERNAL", 4096}, {"DT_EDITCONTROL", 8192}, {"DT_PATH_ELLIPSIS", 16384},
        {"DT_MODIFYSTRING", 65536}, {"DT_RTLREADING", 131072}, {"DT_WORD_ELLIPSIS", 262144},
        {"DT_NOFULLWIDTHCHARBREAK", 524288}, {"DT_HIDEPREFIX", 1048576}, {"DT_PREFIXONLY", 2097152},
        {"DT_CALCRECT", 0}, {"xDT_CENTERx", 1}, {"CENTER", 0}};
    // clang-format on
    for (const auto& [text, format] : formats)
        EXPECT_EQ(CResMgr::ParseTextFormat(text.c_str()), format) << text;
}

TEST_F(StyleSets, TextStylesHaveFontsAndColoursForEveryState)
{
    Parse(R"(<text_style_set>
        <text_style name="plain" font="hot"/>
        <text_style name="full" format="DT_CENTER" font="text" font_hover="hot" font_select="hot" font_disable="hot"
            normal_color="red" hover_color="green" select_color="#80000001" disable_color="unknown"/>
        <text_style font="hot" normal_color="red" default="true"/></text_style_set>)");
    const CRefPtr<CTextStyle> plain = manager.GetTextStyle("plain");
    const DUI::CFontObject* text = manager.GetFont("text", 1).GetPtr();
    const DUI::CFontObject* hot = manager.GetFont("hot", 1).GetPtr();
    for (const DUI::CFontObject* font : {plain->GetNormalFont().GetPtr(), plain->GetHoverFont().GetPtr(),
                                         plain->GetSelectFont().GetPtr(), plain->GetDisableFont().GetPtr()})
        EXPECT_EQ(font, hot);
    EXPECT_TRUE(plain->GetNormalColor().IsEmpty());
    EXPECT_STREQ(plain->GetTextStyleName(), "") << "the name is the application's";
    const CRefPtr<CTextStyle> full = manager.GetTextStyle("full");
    EXPECT_EQ(full->GetTextFormat(), 1U);
    EXPECT_EQ(full->GetNormalFont().GetPtr(), text);
    EXPECT_EQ(full->GetDisableFont().GetPtr(), hot);
    EXPECT_EQ((std::array{Bits(full->GetNormalColor()), Bits(full->GetHoverColor()),
                          Bits(full->GetSelectColor()), Bits(full->GetDisableColor())}),
              (std::array{0xFFFF0000U, 0xFF00FF00U, 0x80000001U, 0U}));
    EXPECT_EQ(manager.GetDefaultTextStyle().GetPtr(), full.GetPtr())
        << "the first by name; one without is skipped";
}

TEST_F(StyleSets, ReloadedTextStylesAreTheSameObjects)
{
    Parse(
        R"(<text_style_set><text_style name="a" format="DT_CENTER" font="hot" font_hover="text" normal_color="red"
        hover_color="green"/></text_style_set>)");
    const CRefPtr<CTextStyle> style = manager.GetTextStyle("a");
    Parse(R"(<text_style_set><text_style name="a" hover_color="blue"/></text_style_set>)");
    EXPECT_EQ(manager.GetTextStyle("a").GetPtr(), style.GetPtr());
    EXPECT_EQ(style->GetTextFormat(), 0U) << "fonts and format are always reset";
    EXPECT_EQ(style->GetNormalFont().GetPtr(), manager.GetDefaultFont().GetPtr());
    EXPECT_EQ(style->GetHoverFont().GetPtr(), manager.GetDefaultFont().GetPtr());
    EXPECT_EQ(Bits(style->GetNormalColor()), 0xFFFF0000U) << "colours only when they are given";
    EXPECT_EQ(Bits(style->GetHoverColor()), 0xFF0000FFU);
}

TEST_F(StyleSets, TheDefaultTextStyleIsNeverNull)
{
    const CRefPtr<CTextStyle> made = manager.GetTextStyle("");
    ASSERT_FALSE(made.IsNull());
    EXPECT_EQ(made->GetNormalFont().GetPtr(), manager.GetDefaultFont().GetPtr());
    EXPECT_TRUE(made->GetHoverFont().IsNull());
    EXPECT_EQ(Bits(made->GetNormalColor()), 0xFF000000U);
    EXPECT_EQ(Bits(made->GetDisableColor()), 0xFF000000U);
    Parse(R"(<text_style_set><text_style name="b"/><text_style name="a"/></text_style_set>)");
    EXPECT_EQ(manager.GetDefaultTextStyle().GetPtr(), made.GetPtr()) << "once chosen it stays";
    Parse(R"(<text_style_set><text_style name="b" default="True"/></text_style_set>)");
    EXPECT_EQ(manager.GetTextStyle("unknown").GetPtr(), manager.GetTextStyle("b").GetPtr());
    const CRefPtr<CTextStyle> marked = manager.GetDefaultTextStyle();
    manager.ClearStyleResource();
    manager.ClearTemplate();
    EXPECT_EQ(manager.GetTextStyle("a").GetPtr(), marked.GetPtr()) << "clearing leaves it";

    CResMgr other;
    other.ParseStyleResource(
        Document(R"(<text_style_set><text_style name="b"/><text_style name="a"/></text_style_set>)"));
    EXPECT_EQ(other.GetDefaultTextStyle().GetPtr(), other.GetTextStyle("a").GetPtr()) << "the first by name";
}

TEST_F(StyleSets, BackgroundsHaveOneToThreeColours)
{
    constexpr std::uint32_t kRed = 0xFFFF0000;
    constexpr std::uint32_t kGreen = 0xFF00FF00;
    constexpr std::uint32_t kBlue = 0xFF0000FF;
    const Table<const char*, Colors> cases{
        {R"(back_color="red")", {kRed, 0, 0, 0, 0.5, 1}},
        {R"(back_color="#FFFF0000,#FF0000FF")", {0, kRed, kBlue, 0, 0.5, 1}},
        {R"(back_color="red,green,blue")", {0, kRed, kGreen, kBlue, 0.5, 1}},
        {R"(back_color="red,,blue")", {kRed, 0, 0, 0, 0.5, 1}},
        {R"(back_color=",red")", {0, 0, 0, 0, 0.5, 1}},
        {R"(back_color="unknown,red,blue")", {0, 0, 0, 0, 0.5, 1}},
        {R"(back_color="#00000000")", {0, 0, 0, 0, 0.5, 1}},
        {R"(back_color="red,green,unknown")", {0, kRed, kGreen, 0, 0.5, 1}},
        {R"(back_color="red,green,blue,red,x")", {0, kRed, kGreen, kBlue, 0.5, 1}},
        // Split at its commas like everything else, so only the first number counts.
        {R"x(back_color="rgb(1,2,3)")x", {0xFF010000, 0, 0, 0, 0.5, 1}},
        {R"(back_color="red,green,blue" back_sep="0.25" back_vertical="false")",
         {0, kRed, kGreen, kBlue, 0.25, 0}},
        {R"(back_sep=" 30px" back_vertical="TRUE")", {0, 0, 0, 0, 30, 1}},
        {R"(back_sep="-1.5e1" back_vertical="yes")", {0, 0, 0, 0, -15, 0}},
        {R"(back_sep="far")", {0, 0, 0, 0, 0.5, 1}},
        {R"(back_sep="" back_vertical="" back_color="")", {0, 0, 0, 0, 0.5, 1}},
    };
    for (const auto& [attributes, colors] : cases) {
        manager.ClearTemplate();
        ParseFrame(attributes);
        EXPECT_EQ(ColorsOf(*Frame().GetPtr()), colors) << attributes;
    }
}

TEST_F(StyleSets, FrameAttributesReachTheFrame)
{
    folder.WriteStrip("a.png", {0xFFFF0000});
    manager.ParseDUIResource(Document(
        R"(<image_set><image name="a" config_type="file" file_name="skin-test\a.png"/></image_set>)"));
    ParseFrame(
        R"(back_image="a" back_image_pos="center" border_image="a" border_color="blue" border_rect="1,2,3,4"
        border_round="5, 6")");
    CDUIFrameBK& frame = *Frame().GetPtr();
    EXPECT_EQ(frame.GetSkinImage(), manager.GetImage("a", 1));
    EXPECT_EQ(frame.GetFrameImage(), manager.GetImage("a", 1));
    EXPECT_EQ(frame.GetSkinImagePos().kind, 4);
    EXPECT_EQ(Bits(frame.GetFrameColor()), 0xFF0000FFU);
    EXPECT_EQ(BorderText(), "1,2,3,4");
    int width = 0;
    int height = 0;
    frame.GetFrameRound(width, height);
    EXPECT_TRUE(width == 5 && height == 6);

    const CRefPtr<CDUIFrameBK> before = Frame();
    ParseFrame(R"(border_color="red")");
    EXPECT_EQ(Frame().GetPtr(), before.GetPtr()) << "the same object, changed in place";
    EXPECT_EQ(Bits(frame.GetFrameColor()), 0xFFFF0000U);
    EXPECT_EQ(frame.GetSkinImagePos().kind, 4) << "what is not given stays";
    ParseFrame(R"(back_image="unknown" border_rect="9")");
    EXPECT_EQ(frame.GetSkinImage(), nullptr);
    EXPECT_EQ(BorderText(), "9,0,0,0");
    Parse(R"(<frame_style_set><frame_style back_color="red"/></frame_style_set>)");
    EXPECT_TRUE(manager.GetFrameBK("").IsNull());
    EXPECT_TRUE(manager.GetFrameBK("F").IsNull());
}

TEST_F(StyleSets, BordersReadNumberAfterNumber)
{
    const std::string cutInside = std::string(120, ' ') + "1,2,345,6";  // the cut leaves "1,2,34"
    const std::map<std::string, std::string> cases{
        {"1,2,3,4", "1,2,3,4"},
        {"1 2 3 4 5", "1,2,3,4"},
        {"-1,+2", "-1,2,0,0"},
        {"1,,3", "1,0,3,0"},
        {"1;2|3x4", "1,2,3,4"},
        {"a", "0,0,0,0"},
        {"99999999999,-99999999999,1,2", "2147483647,-2147483648,1,2"},
        {cutInside, "1,2,34,0"}};
    for (const auto& [text, border] : cases) {
        ParseFrame("border_rect=\"" + text + "\"");
        EXPECT_EQ(BorderText(), border) << text;
    }
}

TEST_F(StyleSets, ImagePositionsAreWordsAnywhereInTheText)
{
    // clang-format off
    const std::map<std::string, int> kinds{
        {"left_top", 0}, {"left_bottom", 1}, {"right_top", 2}, {"right_bottom", 3}, {"center", 4},
        {"middle", 0}, {"CENTER", 0}, {"at the center", 4}, {"center right_bottom", 3},
        {"right_top right_bottom", 3}};
    // clang-format on
    for (const auto& [text, kind] : kinds) {
        const CRefPtr<CDUIFrameBK> frame(new CDUIFrameBK);
        frame->SetSkinImagePos({4, 7, 8});
        manager.ParseFrameBKImagePos(text.c_str(), frame);
        EXPECT_EQ(frame->GetSkinImagePos().kind, kind) << text;
        EXPECT_EQ(frame->GetSkinImagePos().x, 7) << "the offsets stay";
    }
}

TEST_F(StyleSets, ControlStylesAreFragments)
{
    Parse(
        R"(<text_style_set/><control_style_set><control_style name="b" width="1"/><control_style name="b" width="2">
</control_style><control_style/></control_style_set><control_style_set><control_style name="c"/></control_style_set>
<frame_style_set><frame_style name="lost" back_color="red"/></frame_style_set>)");
    CString xml("before");
    EXPECT_EQ(manager.GetControlStyle("unknown", xml), 0);
    EXPECT_STREQ(xml, "before");
    EXPECT_EQ(manager.GetControlStyle("b", xml), 1);
    EXPECT_STREQ(xml, "<control_style name=\"b\" width=\"2\">\n</control_style>");
    EXPECT_EQ(manager.GetControlStyle("", xml), 1);
    EXPECT_STREQ(xml, "<control_style/>");
    EXPECT_EQ(manager.GetControlStyle("c", xml), 1);
    EXPECT_TRUE(manager.GetFrameBK("lost").IsNull()) << "behind a later kind";
    manager.ClearStyleResource();
    EXPECT_EQ(manager.GetControlStyle("c", xml), 1);
    manager.ClearTemplate();
    EXPECT_EQ(manager.GetControlStyle("c", xml), 0);
}
