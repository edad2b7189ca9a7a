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

}  // namespace
}  // namespace qvui::test
