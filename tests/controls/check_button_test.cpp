#include <qvui/controls/check_button.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class CheckButton : public ControlTest {};

TEST_F(CheckButton, ActivatingChangesTheStateAfterTheHandlers)
{
    const struct {
        const char* tag;
        const char* keys;  // typed after the clicks
        int clicks;
        std::vector<int> seenByHandler;  // check states at each click
        int finalState;
    } cases[] = {
        {"check_box", "", 1, {0}, 4},   {"check_box", "", 3, {0, 4, 0}, 4}, {"check_box", "+", 0, {0}, 4},
        {"check_box", "++", 0, {0}, 4}, {"check_box", "-", 0, {}, 0},       {"check_box", "+-", 0, {0, 4}, 0},
        {"check_box", "x=", 0, {}, 0},  {"radio_button", "", 2, {0, 4}, 4}, {"radio_button", "+-", 0, {}, 0},
    };
    for (const auto& c : cases) {
        ControlWindow window({50, 20}, std::string("<") + c.tag + "/>");
        auto& button = window.Root<CDUIButton>();
        std::vector<int> seen;
        window.OnNotify([&](const tagDUINotify& notify) {
            if (notify.nCode == DUINOTIFY_CLICK)
                seen.push_back(button.GetCheck());
        });
        for (int i = 0; i < c.clicks; ++i)
            window.mouse.Click({5, 5});
        button.SetFocus(TRUE);
        window.keys.Type(c.keys);
        EXPECT_EQ(seen, c.seenByHandler) << c.tag << ' ' << c.keys;
        EXPECT_EQ(button.GetCheck(), c.finalState) << c.tag << ' ' << c.keys;
    }
}

TEST_F(CheckButton, SpaceTurnsACheckBoxAndDisabledOnesStay)
{
    ControlWindow window({50, 20}, "<check_box/>");
    auto& box = window.Root<CDUIButton>();
    box.SetFocus(TRUE);
    window.keys.Press(VK_SPACE);
    EXPECT_EQ(box.GetCheck(), 4);
    box.SetEnable(FALSE);
    window.keys.Press(VK_SPACE).Type("-");
    EXPECT_FALSE(box.Activate());
    EXPECT_EQ(box.GetCheck(), 4);
}

TEST_F(CheckButton, ShowsTheImageOfItsStateAtTheLeft)
{
    ControlWindow window({60, 20},
                         OnRed(R"(<check_box checked_image="strip" unchecked_image="dot" text="#x"/>)"));
    auto& box = window.Root<CDUIButton>();
    EXPECT_EQ(Bounds(window.Paint(), kBlue), "0,6,8,14");
    EXPECT_EQ(box.GetTextRect().left, 13) << "5 pixels beside the icon";
    box.SetCheck(TRUE);
    EXPECT_EQ(Bounds(window.Paint(), kBlue), "0,0,20,20") << "a checked button shows the pushed icon";
    window.mouse.MoveTo({30, 10});
    EXPECT_EQ(Bounds(window.Paint(), kGreen), "0,0,20,20");
    window.mouse.Click({30, 10});
    box.ModifyStatus(DUISTATUS_HOT, 0);
    EXPECT_EQ(Bounds(window.Paint(), kBlue), "0,6,8,14");
}

TEST_F(CheckButton, DrawsNoFocusRectangle)
{
    for (const char* tag : {"check_box", "radio_button"}) {
        ControlWindow window({60, 20}, std::string("<") + tag + R"( unchecked_image="dot"/>)");
        const ClientPixels plain = window.Paint();
        window.Root<CDUIButton>().SetFocus(TRUE);
        EXPECT_EQ(Difference(plain, window.Paint()), "0,0,0,0") << tag;
    }
}

}  // namespace
}  // namespace qvui::test
