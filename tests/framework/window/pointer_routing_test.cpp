#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

// The root fills the window; a, b and c stand side by side in it, 30 pixels wide, and leave the right end
// free.
constexpr const char* kRow =
    "<probe name='root'><probe name='filler' visible='false'/>"
    "<probe name='a' position='0,0,30,30'/>"
    "<probe name='b' position='30,0,60,30'/>"
    "<probe name='c' position='60,0,90,30'/></probe>";

class PointerRouting : public ControlTest {
protected:
    PointerRouting()
    {
        Probe::Register();
        Open(kRow);
    }

    void Open(const char* xml)
    {
        window.reset();
        window = std::make_unique<ControlWindow>(SIZE{120, 30}, xml);
        // Where the system's pointer happens to stand is no part of a test.
        window->mouse.MoveTo({110, 15});
        Probe::Take();
    }
    bool IsHandled(UINT message, POINT point, WPARAM wParam = 0)
    {
        LRESULT result = 0;
        return window->ProcessWindowMessage(window->Handle(), message, wParam, MAKELPARAM(point.x, point.y),
                                            result) != FALSE;
    }

    std::unique_ptr<ControlWindow> window;
};

TEST_F(PointerRouting, ReleasesToThePressedControlWhenItIsStillUnderThePointer)
{
    window->Find<Probe>("a")->onEvent = [](const tagDUIEvent& event, BOOL&) {
        EXPECT_TRUE(event.Type != DUIEVENT_LBUTTONUP || !GetCapture()) << "the handler may want the mouse";
    };
    window->mouse.Press({15, 15}).Release();
    EXPECT_EQ(TakeEvents(), "root LEAVE a, a ENTER -, a MOVE self, a DOWN self, a UP self");
    SendMessageA(window->Handle(), WM_LBUTTONUP, 0, MAKELPARAM(15, 15));
    EXPECT_EQ(TakeEvents(), "");
}

TEST_F(PointerRouting, LeavesPressesOnContainersToTheApplication)
{
    Open(
        "<probe name='root' answers='vert_layout'><probe name='filler' visible='false'/>"
        "<probe name='a' position='0,0,30,30'/></probe>");
    EXPECT_TRUE(IsHandled(WM_LBUTTONDOWN, {15, 15}, MK_LBUTTON));
    EXPECT_FALSE(IsHandled(WM_LBUTTONUP, {15, 15}));
    EXPECT_FALSE(IsHandled(WM_LBUTTONDOWN, {60, 15}, MK_LBUTTON));
    EXPECT_EQ(GetCapture(), nullptr) << "the application may move the window";
    EXPECT_TRUE(IsHandled(WM_LBUTTONUP, {60, 15}));
    TakeEvents();
    SendMessageA(window->Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, 15));
    SendMessageA(window->Handle(), WM_LBUTTONUP, 0, MAKELPARAM(60, 15));
    EXPECT_EQ(TakeEvents(), "root DOWN self");
    EXPECT_FALSE(IsHandled(WM_LBUTTONDOWN, {200, 15}, MK_LBUTTON));
    EXPECT_TRUE(window->IsTrasparentCtrl(nullptr));
    EXPECT_TRUE(window->IsTrasparentCtrl(window->Find("root")));
    EXPECT_FALSE(window->IsTrasparentCtrl(window->Find("a")));
}

TEST_F(PointerRouting, HandlesNothingOfOtherMessageMaps)
{
    LRESULT result = 0;
    EXPECT_FALSE(window->ProcessWindowMessage(window->Handle(), WM_ERASEBKGND, 0, 0, result, 1));
    EXPECT_TRUE(window->ProcessWindowMessage(window->Handle(), WM_ERASEBKGND, 0, 0, result));
    EXPECT_FALSE(window->ProcessWindowMessage(window->Handle(), WM_CLOSE, 0, 0, result));
}

}  // namespace
}  // namespace qvui::test
