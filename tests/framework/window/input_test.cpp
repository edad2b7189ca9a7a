#include "support/controls/control_test.h"
#include "support/controls/probe.h"

// What a window answers to messages; where its own input goes is in tests/scenarios.

namespace qvui::test {
namespace {

using namespace DUI;

class Input : public ControlTest {
protected:
    Input() { Probe::Register(); }

    /// A root that counts as a container, with a control of 30 pixels that takes the focus.
    void Open()
    {
        window = std::make_unique<ControlWindow>(
            SIZE{120, 30},
            "<probe name='root' answers='vert_layout'><probe name='filler' visible='false'/>"
            "<probe name='a' position='0,0,30,30' tab_stop='true'/></probe>");
        Probe::Take();
    }
    bool IsHandled(UINT message, POINT point = {0, 0}, WPARAM wParam = 0, DWORD map = 0)
    {
        LRESULT result = 0;
        return window->ProcessWindowMessage(window->Handle(), message, wParam, MAKELPARAM(point.x, point.y),
                                            result, map) != FALSE;
    }

    std::unique_ptr<ControlWindow> window;
};

TEST_F(Input, PressesOnContainersAreLeftToTheApplication)
{
    Open();
    EXPECT_TRUE(IsHandled(WM_LBUTTONDOWN, {15, 15}, MK_LBUTTON));
    EXPECT_FALSE(IsHandled(WM_LBUTTONUP, {15, 15}));
    EXPECT_FALSE(IsHandled(WM_LBUTTONDOWN, {60, 15}, MK_LBUTTON));
    EXPECT_EQ(GetCapture(), nullptr) << "the application may move the window";
    EXPECT_TRUE(IsHandled(WM_LBUTTONUP, {60, 15}));
    EXPECT_FALSE(IsHandled(WM_LBUTTONDOWN, {200, 15}, MK_LBUTTON));
    EXPECT_TRUE(window->IsTrasparentCtrl(nullptr));
    EXPECT_TRUE(window->IsTrasparentCtrl(window->Find("root")));
    EXPECT_FALSE(window->IsTrasparentCtrl(window->Find("a")));
    EXPECT_FALSE(IsHandled(WM_ERASEBKGND, {0, 0}, 0, 1)) << "of another message map";
    EXPECT_TRUE(IsHandled(WM_ERASEBKGND));
    EXPECT_FALSE(IsHandled(WM_CLOSE));
}

TEST_F(Input, TheFocusGoesOnToANativeTabStop)
{
    Open();
    const PlatformWindow native(
        {.place = {0, 0, 10, 10}, .style = WS_CHILD | WS_TABSTOP, .parent = window->Handle()});
    SetActiveWindow(window->Handle());
    EXPECT_TRUE(window->SetNextTabControl(TRUE));
    EXPECT_EQ(window->GetFocusControl(), window->Find("a"));
    EXPECT_TRUE(window->SetNextTabControl(TRUE));
    EXPECT_EQ(window->GetFocusControl(), nullptr);
    EXPECT_EQ(::GetFocus(), native.Handle());
}

TEST_F(Input, KeysOfOtherWindowsAndOfAFilterStayAway)
{
    struct Filter : IDUIMessageFilter {
        BOOL PreTranslateMessage(MSG* message) override
        {
            ++seen;
            return message->wParam == VK_RETURN;
        }
        int seen = 0;
    } filter;
    Open();
    const PlatformWindow other;
    MSG message{other.Handle(), WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_FALSE(window->PreTranslateMessage(&message));
    window->GetMessageLoop().AddMessageFilter(&filter);
    EXPECT_TRUE(window->Translate(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(filter.seen, 1);
    EXPECT_EQ(TakeEvents(), "");
    window->GetMessageLoop().RemoveMessageFilter(&filter);
}

}  // namespace
}  // namespace qvui::test
