#include <qvui/controls/hyper_link.h>
#include <qvui/render/render_engine.h>

#include "controls/big_text.h"
#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Label : public ControlTest {
public:
    Label() : ControlTest(BigText()) {}
};

TEST_F(Label, ShowsColourAndFontOfItsState)
{
    const struct {
        const char* name;
        DWORD status;
        std::uint32_t color;
        bool isSmall;
    } cases[] = {
        {"normal", 0, kWhite, false},
        {"hot", DUISTATUS_HOT, kCyan, false},
        {"a press changes the font alone", DUISTATUS_PUSHED, kWhite, true},
        {"pressed and hot", DUISTATUS_PUSHED | DUISTATUS_HOT, kCyan, true},
        {"disabled wins", DUISTATUS_DISABLED | DUISTATUS_PUSHED | DUISTATUS_HOT, kMagenta, false},
    };
    for (const char* tag : {"label", "hyperlink"}) {
        ControlWindow window({100, 60}, OnBlue(std::string("<") + tag + R"( text="#HH" text_style="big"/>)"));
        const RECT big = BoundsOf(window.Paint(), kWhite);
        for (const auto& c : cases) {
            window.Root().ModifyStatus(0xFFFFFFFF, c.status);
            const RECT text = BoundsOf(window.Paint(), c.color);
            EXPECT_FALSE(IsRectEmpty(&text)) << tag << ": " << c.name;
            EXPECT_EQ(text.bottom - text.top < big.bottom - big.top, c.isSmall) << tag << ": " << c.name;
        }
    }
}

TEST_F(Label, DrawsAShadowOnePixelAside)
{
    ControlWindow window(
        {100, 60}, OnBlue(R"(<label text="#H" text_style="big" margin="10,5,0,0" shadowtext_color="red"/>)"));
    const RECT text = BoundsOf(window.Paint(), kWhite);
    EXPECT_GE(text.left, 10);
    EXPECT_GE(text.top, 5);
    EXPECT_EQ(Bounds(window.Paint(), kRed), "0,0,0,0");
    // Once on, it stays on.
    for (const char* value : {"True", "false"}) {
        window.Root().SetAttribute("enable_shadowtext", value);
        window.Root().UpdateLayout(FALSE, nullptr);
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(Bounds(pixels, kWhite), Text(text)) << value;
        const RECT shadow = BoundsOf(pixels, kRed);
        EXPECT_EQ(shadow.right, text.right + 1) << value;
        EXPECT_EQ(shadow.bottom, text.bottom + 1) << value;
    }
}

TEST_F(Label, MeasuresAnewWhenItsTextOrFontChanges)
{
    ControlWindow window({60, 40}, "<label text=\"#one two\" text_style=\"big\"/>");
    const auto measure = [&window] {
        SIZE size{};
        window.Root().EstimateSize({1, 1}, size);
        return size;
    };
    const SIZE before = measure();
    window.Root().SetText("one two three");
    EXPECT_GT(measure().cx, before.cx);
    window.Root().SetText("one two");
    EXPECT_EQ(measure().cx, before.cx);
    const CRefPtr<CFontObject> font = Skin().Manager().GetTextStyle("big")->GetNormalFont();
    font->SetHeight(font->GetHeight() * 2);
    font->CreateFontA();
    EXPECT_GT(measure().cy, before.cy);
}

TEST_F(Label, MeasuresWhateverAnOverrideShows)
{
    struct Clock : CDUILabel {
        const CString& GetText() override { return m_time; }
        CString m_time;
    };
    const CRefPtr<Clock> clock = new Clock;
    clock->SetTextStyle(Skin().Manager().GetTextStyle("big"));
    LONG widest = 0;
    for (const char* time : {"9", "9:00", "9:00:00"}) {
        clock->m_time = time;
        SIZE size{};
        EXPECT_TRUE(clock->EstimateSize({1, 1}, size));
        EXPECT_GT(size.cx, widest) << time;
        widest = size.cx;
    }
}

TEST_F(Label, EstimatesItsTextOnOneLineWithoutTheMargin)
{
    const HFONT font = Skin().Manager().GetTextStyle("big")->GetNormalFont()->GetFont();
    const SIZE text = CDUIRenderEngine::GetTextIdealSize("one two", font, 0, DT_SINGLELINE);
    const std::pair<const char*, SIZE> cases[] = {
        {"margin", text}, {"width", {9, text.cy}}, {"height", {text.cx, 9}}};
    for (const auto& [attribute, expected] : cases) {
        ControlWindow window({60, 40}, R"(<label text="#one two" text_style="big"/>)");
        window.Root().SetAttribute(attribute, "9,9,9,9");
        EXPECT_EQ(Estimate(window), Text(expected)) << attribute;
    }
}

class HyperLink : public ControlTest {};

TEST_F(HyperLink, ShowsTheHandWhateverItsCursor)
{
    ControlWindow window({50, 20}, "<hyperlink/>");
    window.mouse.MoveTo({10, 10});
    ::SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    SendMessageA(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(::GetCursor(), LoadCursorA(nullptr, IDC_HAND));
}

TEST_F(HyperLink, TheLinkIsTheTooltipUnlessThereIsOne)
{
    const struct {
        const char* attributes;
        const char* tooltip;
    } cases[] = {
        {R"(href="a.htm")", "a.htm"},
        {R"(tooltip="#help" href="a.htm")", "help"},
        {R"(href="a.htm" tooltip="#help")", "help"},
        {R"(href="b.htm" href2="" HREF="a.htm")", "b.htm"},
    };
    for (const auto& c : cases) {
        ControlWindow window({50, 20}, std::string("<hyperlink ") + c.attributes + "/>");
        EXPECT_EQ(window.Root<CDUIHyperLink>().GetTooltip(), c.tooltip) << c.attributes;
        EXPECT_EQ(window.Root<CDUIHyperLink>().GetHyperLink(), "a.htm") << c.attributes;
    }
}

}  // namespace
}  // namespace qvui::test
