#include <qvui/bars/tool_bar.h>

#include "support/controls/control_test.h"
#include "support/synthetic_input.h"

namespace qvui::test {
namespace {

class ToolBar : public ControlTest {};

// The whole way of a person's input: hit tests, activation and focus of both windows.
TEST_F(ToolBar, ThePointerOpensClosesAndChooses)
{
    ControlWindow window(
        {90, 60},
        "<vert_layout><horz_toolbar height='20'><button name='new' width='60'/>"
        "<button width='30'/><button name='find' width='30'/></horz_toolbar><button/></vert_layout>");
    SyntheticInput input;
    const POINT button = SyntheticInput::At(window.Handle(), 80, 10);
    // The list is a window of the library's own, which is the active one.
    const auto isOpen = [&window] { return GetActiveWindow() != window.Handle(); };
    for (const bool opens : {true, false, true}) {
        input.Click(button);
        EXPECT_EQ(isOpen(), opens);
    }
    input.Click(SyntheticInput::At(window.Handle(), 20, 50));
    EXPECT_FALSE(isOpen()) << "a press elsewhere";
    window.TakeNotifications();

    input.Click(button);
    ASSERT_TRUE(isOpen());
    RECT client{};
    GetClientRect(GetActiveWindow(), &client);
    input.Click(SyntheticInput::At(GetActiveWindow(), client.right / 2, client.bottom * 3 / 4));
    EXPECT_EQ(window.TakeNotifications(), (std::vector<Noticed>{{DUI::DUINOTIFY_CLICK, "find", 0, 0}}));
    EXPECT_FALSE(isOpen());
    input.PressKey(VK_SPACE);
    EXPECT_TRUE(isOpen()) << "the button has the focus again";
    input.PressKey(VK_ESCAPE);
    EXPECT_FALSE(isOpen());
}

}  // namespace
}  // namespace qvui::test
