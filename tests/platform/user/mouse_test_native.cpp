// What depends on exact times, on every single move, or on the pointer leaving all windows.

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/manual_clock.h"
#include "support/synthetic_input.h"

using namespace qvui;
using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr POINT kElsewhere{700, 600};

class NativeMouse : public WindowTest {
protected:
    NativeMouse() { Settle(); }

    static PlatformWindowOptions WithDoubleClicks(PlatformWindowOptions options)
    {
        options.classStyle = CS_DBLCLKS;
        return options;
    }
    POINT At(int x, int y) const { return SyntheticInput::At(top.Handle(), x, y); }
    void Track(DWORD flags, DWORD hoverTime = 0)
    {
        TRACKMOUSEEVENT request{sizeof request, flags, top.Handle(), hoverTime};
        EXPECT_TRUE(TrackMouseEvent(&request));
        Pump();
    }

    ManualClock clock;
    SyntheticInput input;
    PlatformWindow top{WithDoubleClicks(Popup("top"))};
};

}  // namespace

TEST_F(NativeMouse, DoubleClickNeedsTimeAndPlace)
{
    struct Case {
        const char* name;
        int milliseconds;
        POINT moved;
        bool isDouble;
    };
    const std::vector<Case> cases{
        {"at once", 0, {0, 0}, true},
        {"after 500 ms", 500, {0, 0}, true},
        {"after 501 ms", 501, {0, 0}, false},
        {"one pixel off", 10, {1, -1}, true},
        {"two pixels right", 10, {2, 0}, false},
        {"two pixels up", 10, {0, -2}, false},
    };
    for (const Case& c : cases) {
        input.Click(At(100, 50));
        log.Clear();
        clock.Advance(c.milliseconds);
        input.Click(At(100 + c.moved.x, 50 + c.moved.y));
        EXPECT_EQ(log.Count(WM_LBUTTONDBLCLK), c.isDouble ? 1 : 0) << c.name;
        clock.Advance(1000);
    }
}

TEST_F(NativeMouse, DoubleClickNeedsOneWindow)
{
    const PlatformWindow child(WithDoubleClicks(Child("child", top, {0, 0, 50, 50})));
    input.Click(At(50, 49));
    log.Clear();
    input.Click(At(49, 49));
    EXPECT_THAT(log.Lines({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}), ElementsAre("child WM_LBUTTONDOWN"));
}

TEST_F(NativeMouse, MovesInARowBecomeOne)
{
    input.MoveTo(At(10, 10));
    log.Clear();
    for (int x = 11; x < 20; ++x)
        InjectMove(At(x, 10));
    InjectButton(VK_LBUTTON, true);
    InjectMove(At(30, 10));
    InjectButton(VK_LBUTTON, false);
    Pump();
    EXPECT_THAT(log.Lines({WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}),
                ElementsAre("top WM_MOUSEMOVE", "top WM_LBUTTONDOWN", "top WM_MOUSEMOVE", "top WM_LBUTTONUP"));
    EXPECT_EQ(log.Only({WM_MOUSEMOVE}).front().lParam, MAKELPARAM(19, 10));
}

TEST_F(NativeMouse, LeavingIsToldOnceToWhoAskedForIt)
{
    const PlatformWindow child(Child("child", top, {0, 0, 50, 50}));
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    log.Clear();
    input.MoveTo(At(110, 50));
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 0);
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1);
    input.MoveTo(At(100, 50)).MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "asked for once";
    log.Clear();
    Track(TME_LEAVE);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "asked for while the pointer is outside";
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    log.Clear();
    input.MoveTo(At(5, 5));
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "into a child of its own";
}

TEST_F(NativeMouse, LeavingCanBeCalledOff)
{
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    Track(TME_LEAVE | TME_CANCEL);
    log.Clear();
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 0);
}

TEST_F(NativeMouse, LeavingAllWindowsIsLeavingToo)
{
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    native::TheHeadlessDisplay()->LeaveWindows();
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1);
    POINT pointer{};
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer.x, -1) << "the display knows where the pointer is";
    input.MoveTo(At(100, 50));
    EXPECT_EQ(log.Only({WM_MOUSEMOVE}).back().lParam, MAKELPARAM(100, 50));
}

TEST_F(NativeMouse, CaptureHoldsLeavingBackUntilItEnds)
{
    input.MoveTo(At(100, 50)).Press();
    SetCapture(top.Handle());
    Track(TME_LEAVE);
    log.Clear();
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 0);
    input.Release();
    ReleaseCapture();
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1);
}

TEST_F(NativeMouse, HoverIsToldWhenThePointerRests)
{
    input.MoveTo(At(100, 50));
    Track(TME_HOVER);
    log.Clear();
    clock.Advance(399);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 0);
    clock.Advance(1);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 1);
    EXPECT_EQ(log.Only({WM_MOUSEHOVER}).front().lParam, MAKELPARAM(100, 50));
    clock.Advance(1000);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 1) << "asked for once";
}

TEST_F(NativeMouse, HoverStartsAnewWithEveryMovement)
{
    input.MoveTo(At(100, 50));
    Track(TME_HOVER | TME_LEAVE, 50);
    log.Clear();
    clock.Advance(40);
    input.MoveTo(At(120, 50));
    clock.Advance(40);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 0);
    clock.Advance(10);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 1);
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "both kinds can be asked for together";
    clock.Advance(100);
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSEHOVER), 1);
}

TEST_F(NativeMouse, AWindowThatComesOrGoesUnderThePointerMakesAMove)
{
    input.MoveTo(At(20, 20));
    log.Clear();
    {
        const PlatformWindow child(Child("child", top, {10, 10, 60, 60}));
        Pump();
        EXPECT_THAT(log.Lines({WM_MOUSEMOVE}), ElementsAre("child WM_MOUSEMOVE"));
        ShowWindow(child.Handle(), SW_HIDE);
        Pump();
        EXPECT_THAT(log.Lines({WM_MOUSEMOVE}), ElementsAre("child WM_MOUSEMOVE", "top WM_MOUSEMOVE"));
        ShowWindow(child.Handle(), SW_SHOW);
        Settle();
        MoveWindow(child.Handle(), 100, 50, 50, 50, TRUE);
        Pump();
        EXPECT_THAT(log.Lines({WM_MOUSEMOVE}), ElementsAre("top WM_MOUSEMOVE"));
        MoveWindow(child.Handle(), 10, 10, 50, 50, TRUE);
        Settle();
    }
    Pump();
    EXPECT_THAT(log.Lines({WM_MOUSEMOVE}), ElementsAre("top WM_MOUSEMOVE")) << "destroyed";
}

TEST_F(NativeMouse, NoMoveIsMadeWhereNothingChanged)
{
    input.MoveTo(At(20, 20));
    Settle();
    MoveWindow(top.Handle(), 90, 90, 220, 120, TRUE);
    EXPECT_FALSE(log.All().empty());
    Pump();
    EXPECT_THAT(log.Lines({WM_MOUSEMOVE}), IsEmpty());
}

TEST_F(NativeMouse, WindowsThatDoNotActivateStayInactive)
{
    PlatformWindowOptions options = Popup("tip", {400, 100, 500, 200});
    options.exStyle = WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW;
    const PlatformWindow tip(options);
    EXPECT_EQ(GetActiveWindow(), top.Handle());
    log.Clear();
    input.Click({450, 150});
    EXPECT_THAT(log.Lines({WM_MOUSEACTIVATE, WM_LBUTTONDOWN, WM_LBUTTONUP}),
                ElementsAre("tip WM_MOUSEACTIVATE", "tip WM_LBUTTONDOWN", "tip WM_LBUTTONUP"));
    EXPECT_EQ(GetActiveWindow(), top.Handle());
    EXPECT_EQ(GetFocus(), top.Handle());
}

TEST_F(NativeMouse, DraggingTheCaptionMovesAndTheBordersSize)
{
    struct Case {
        const char* name;
        int hit;
        RECT moved;  // by how much each edge follows a drag of (30, 20)
    };
    const std::vector<Case> cases{
        {"caption", HTCAPTION, {30, 20, 30, 20}},      {"left", HTLEFT, {30, 0, 0, 0}},
        {"right", HTRIGHT, {0, 0, 30, 0}},             {"top", HTTOP, {0, 20, 0, 0}},
        {"bottom", HTBOTTOM, {0, 0, 0, 20}},           {"top left", HTTOPLEFT, {30, 20, 0, 0}},
        {"top right", HTTOPRIGHT, {0, 20, 30, 0}},     {"bottom left", HTBOTTOMLEFT, {30, 0, 0, 20}},
        {"bottom right", HTBOTTOMRIGHT, {0, 0, 30, 20}},
    };
    for (const Case& c : cases) {
        PlatformWindow window(Popup("w", {400, 300, 600, 400}));
        window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
            return message.message == WM_NCHITTEST ? std::optional<LRESULT>(c.hit) : std::nullopt;
        });
        input.MoveTo({450, 350});
        // The press starts a loop of its own, which finds the rest waiting.
        InjectButton(VK_LBUTTON, true);
        InjectMove({480, 370});
        InjectButton(VK_LBUTTON, false);
        Pump();
        RECT rect{};
        GetWindowRect(window.Handle(), &rect);
        EXPECT_EQ(rect.left, 400 + c.moved.left) << c.name;
        EXPECT_EQ(rect.top, 300 + c.moved.top) << c.name;
        EXPECT_EQ(rect.right, 600 + c.moved.right) << c.name;
        EXPECT_EQ(rect.bottom, 400 + c.moved.bottom) << c.name;
        EXPECT_EQ(GetCapture(), nullptr) << c.name;
        EXPECT_GE(GetKeyState(VK_LBUTTON), 0) << c.name;
    }
}

TEST_F(NativeMouse, SizingStopsAtTheLimits)
{
    PlatformWindow window(Popup("w", {400, 300, 600, 400}));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_NCHITTEST)
            return HTTOPLEFT;
        if (message.message == WM_GETMINMAXINFO)
            reinterpret_cast<MINMAXINFO*>(message.lParam)->ptMinTrackSize = {80, 60};
        return std::nullopt;
    });
    input.MoveTo({401, 301});
    InjectButton(VK_LBUTTON, true);
    InjectMove({900, 900});
    InjectButton(VK_LBUTTON, false);
    Pump();
    RECT rect{};
    GetWindowRect(window.Handle(), &rect);
    EXPECT_EQ(rect.left, 520);
    EXPECT_EQ(rect.top, 340);
    EXPECT_EQ(rect.right, 600);
    EXPECT_EQ(rect.bottom, 400);
}

TEST_F(NativeMouse, AWindowMayGoWhileItIsDragged)
{
    PlatformWindow window(Popup("w", {400, 300, 600, 400}));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_MOVING)
            DestroyWindow(message.handle);
        return message.message == WM_NCHITTEST ? std::optional<LRESULT>(HTCAPTION) : std::nullopt;
    });
    input.MoveTo({450, 350});
    InjectButton(VK_LBUTTON, true);
    InjectMove({480, 370});
    InjectButton(VK_LBUTTON, false);
    Pump();
    EXPECT_EQ(window.Handle(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}
