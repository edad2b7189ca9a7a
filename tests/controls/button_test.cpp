#include <qvui/controls/button.h>
#include <qvui/render/render_engine.h>

#include "controls/big_text.h"
#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Button : public ControlTest {
public:
    Button() : ControlTest(BigText()) {}
};

const Noticed kClick{DUINOTIFY_CLICK, "b", 0, 0};

TEST_F(Button, ShowsImageColourAndFontOfItsState)
{
    constexpr DWORD kHot = DUISTATUS_HOT, kPushed = DUISTATUS_PUSHED, kChecked = DUISTATUS_CHECKED;
    const struct {
        const char* name;
        DWORD status;
        std::uint32_t image, text;
        bool isSmall;
    } cases[] = {
        {"normal", 0, kRed, kWhite, false},
        {"hot, without a font of its own", kHot, kGreen, kCyan, false},
        {"pushed", kPushed | kHot, kBlue, kYellow, true},
        {"pushed, and the pointer has left", kPushed, kGreen, kCyan, false},
        {"checked", kChecked, kBlue, kYellow, true},
        {"checked and hot", kChecked | kHot, kGreen, kCyan, false},
        {"focused changes nothing", DUISTATUS_FOCUSED, kRed, kWhite, false},
        {"disabled wins", DUISTATUS_DISABLED | kChecked | kPushed | kHot, kGrey, kMagenta, false},
    };
    ControlWindow window({100, 60}, R"(<button back_image="strip" text="#HH" text_style="big"/>)");
    const LONG bigHeight = [&window] {
        const RECT text = BoundsOf(window.Paint(), kWhite);
        return text.bottom - text.top;
    }();
    for (const auto& c : cases) {
        window.Root<CDUIButton>().ModifyStatus(0xFFFFFFFF, c.status);
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(pixels.At(98, 58), c.image) << c.name;
        const RECT text = BoundsOf(pixels, c.text);
        EXPECT_FALSE(IsRectEmpty(&text)) << c.name;
        EXPECT_EQ(text.bottom - text.top < bigHeight, c.isSmall) << c.name;
    }
}

TEST_F(Button, PlacesIconAndText)
{
    // 100x60 with the margin 3,4,5,6, an icon of 20x20 and 7 pixels of padding.
    const struct {
        const char* style;
        const char* icon;
        const char* text;
    } cases[] = {
        {"", "0,0,0,0", "3,4,95,54"},
        {"center_icon", "40,20,60,40", "3,4,95,54"},
        {"left_icon", "3,20,23,40", "30,4,95,54"},
        {"right_icon", "75,20,95,40", "3,4,68,54"},
        {"top_icon", "40,4,60,24", "3,31,95,54"},
        {"bottom_icon", "40,34,60,54", "3,4,95,27"},
        {"bottom_icon, right_icon, left_icon", "3,20,23,40", "30,4,95,54"},
        {"Left_icon", "0,0,0,0", "3,4,95,54"},
        {"left_icon no_text", "3,20,23,40", "0,0,0,0"},
    };
    ControlWindow window(
        {100, 60},
        OnBlue(R"(<button icon="strip" text="#H" text_style="big" padding="7" margin="3,4,5,6"/>)"));
    auto& button = window.Root<CDUIButton>();
    for (const auto& c : cases) {
        button.SetAttribute("button_style", c.style);
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(Text(button.GetIconRect()), c.icon) << c.style;
        EXPECT_EQ(Text(button.GetTextRect()), c.text) << c.style;
        EXPECT_EQ(Bounds(pixels, kRed), c.icon) << c.style;
        const RECT drawn = BoundsOf(pixels, kWhite);
        RECT inside{};
        IntersectRect(&inside, &drawn, &button.GetTextRect());
        EXPECT_EQ(Text(inside), Text(drawn)) << c.style << ": text is drawn in its rectangle only";
    }
}

TEST_F(Button, VerticalTextStandsInOneColumn)
{
    ControlWindow window({200, 200}, OnBlue(R"(<button text="#中文" text_style="big"/>)"));
    const RECT flat = BoundsOf(window.Paint(), kWhite);
    window.Root<CDUIButton>().SetAttribute("button_style", "ver_text");
    const RECT upright = BoundsOf(window.Paint(), kWhite);
    EXPECT_LT(upright.right - upright.left, flat.right - flat.left);
    EXPECT_GT(upright.bottom - upright.top, flat.bottom - flat.top);
}

TEST_F(Button, EstimatesItsSize)
{
    const HFONT font = Skin().Manager().GetTextStyle("normal")->GetNormalFont()->GetFont();
    const SIZE text = CDUIRenderEngine::GetTextIdealSize("Save", font, 0, DT_SINGLELINE);
    const LONG wider = std::max<LONG>(text.cx, 20), higher = std::max<LONG>(text.cy, 20);
    const struct {
        const char* name;
        const char* attributes;
        SIZE expected;
    } cases[] = {
        {"nothing but margins", R"(margin="1,2,3,4")", {4, 6}},
        {"text", R"(text="#Save")", text},
        {"an icon that is not placed", R"(text="#Save" icon="strip")", text},
        {"left", R"(text="#Save" icon="strip" button_style="left_icon" padding="7")", {text.cx + 27, higher}},
        {"right", R"(text="#Save" icon="strip" button_style="right_icon")", {text.cx + 20, higher}},
        {"above", R"(text="#Save" icon="strip" button_style="top_icon" padding="7")", {wider, text.cy + 27}},
        {"below", R"(text="#Save" icon="strip" button_style="bottom_icon")", {wider, text.cy + 20}},
        {"middle", R"(text="#Save" icon="strip" button_style="center_icon" padding="7")", {wider, higher}},
        {"no text",
         R"(text="#Save" icon="strip" button_style="left_icon no_text" margin="1,2,3,4")",
         {24, 26}},
        {"the back image alone counts for nothing", R"(back_image="strip")", {0, 0}},
        {"auto fit ignores all else",
         R"(back_image="strip" text="#Save" button_style="auto_fit" width="7" margin="1,2,3,4")",
         {20, 20}},
        {"auto fit without an image", R"(text="#Save" button_style="auto_fit")", text},
        {"fixed width", R"(text="#Save" width="300" margin="1,2,3,4")", {300, text.cy + 6}},
        {"fixed height", R"(text="#Save" height="1")", {text.cx, 1}},
    };
    for (const auto& c : cases) {
        ControlWindow window({50, 50}, std::string("<button text_style=\"normal\" ") + c.attributes + "/>");
        EXPECT_EQ(Estimate(window), Text(c.expected)) << c.name;
    }
}

TEST_F(Button, DisabledIgnoresPointerAndKeys)
{
    ControlWindow window({50, 50}, R"(<button name="b" enable="false"/>)");
    auto& button = window.Root<CDUIButton>();
    BOOL bHandled = FALSE;
    // The manager sends a disabled control few events; an application may send any.
    for (const UINT type :
         {DUIEVENT_MOUSEENTER, DUIEVENT_LBUTTONDOWN, DUIEVENT_LBUTTONUP, DUIEVENT_KEYDOWN, DUIEVENT_KEYUP})
        button.OnDUIEvent({type, &button, {10, 10}, ' ', 0, VK_SPACE, 0}, bHandled);
    window.mouse.Click({10, 10});
    EXPECT_TRUE(window.TakeNotifications().empty());
    EXPECT_EQ(button.GetStatus(), static_cast<DWORD>(DUISTATUS_DISABLED));
    EXPECT_FALSE(button.Activate());
    button.SetEnable(TRUE);
    button.SetVisible(FALSE);
    EXPECT_FALSE(button.Activate());
}

}  // namespace
}  // namespace qvui::test
