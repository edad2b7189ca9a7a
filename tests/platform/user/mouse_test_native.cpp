// What depends on exact times, on every single move, or on the pointer leaving all windows.

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/manual_clock.h"
#include "support/synthetic_input.h"

using namespace qvui;
using namespace qvui::test;

namespace {

constexpr POINT kElsewhere{700, 600};

class NativeMouse : public WindowTest {
protected:
    NativeMouse() { Settle(); }

    POINT At(int x, int y) const { return SyntheticInput::At(top, x, y); }
    /// Puts the pointer there and forgets what that told.
    void Begin(POINT pointer)
    {
        input.MoveTo(pointer);
        log.Clear();
    }
    void Track(DWORD flags, DWORD hoverTime = 0)
    {
        TRACKMOUSEEVENT request{sizeof request, flags, top, hoverTime};
        EXPECT_TRUE(TrackMouseEvent(&request));
        Pump();
    }
    /// How often the window was told of the pointer's rest when so much time has passed.
    int HoversAfter(int milliseconds)
    {
        clock.Advance(milliseconds);
        Pump();
        return log.Count(WM_MOUSEHOVER);
    }
    /// A drag whose press starts a loop of its own, which finds the rest waiting.
    void Drag(POINT from, POINT to)
    {
        input.MoveTo(from);
        InjectButton(VK_LBUTTON, true);
        InjectMove(to);
        InjectButton(VK_LBUTTON, false);
        Pump();
    }

    ManualClock clock;
    SyntheticInput input;
    PlatformWindow top{Popup("top").OfClass(CS_DBLCLKS)};
};

}  // namespace

TEST_F(NativeMouse, DoubleClickNeedsTimeAndPlace)
{
    const PlatformWindow child(Child("child", top, {0, 0, 50, 50}).OfClass(CS_DBLCLKS));
    const Table<const char*, int, POINT, int> cases{
        {"after 500 ms", 500, {100, 50}, 1}, {"after 501 ms", 501, {100, 50}, 0},
        {"one pixel off", 10, {101, 49}, 1}, {"two pixels right", 10, {102, 50}, 0},
        {"two pixels up", 10, {100, 48}, 0},
    };
    for (const auto& [name, milliseconds, second, doubles] : cases) {
        input.Click(At(100, 50));
        log.Clear();
        clock.Advance(milliseconds);
        input.Click(At(second.x, second.y));
        EXPECT_EQ(log.Count(WM_LBUTTONDBLCLK), doubles) << name;
        clock.Advance(1000);
    }
    input.Click(At(50, 49)).Click(At(49, 49));
    EXPECT_TRUE(log.Last(WM_LBUTTONDOWN).window == "child") << "the second press is in another window";
}

TEST_F(NativeMouse, MovesInARowBecomeOne)
{
    Begin(At(10, 10));
    for (int x = 11; x < 20; ++x)
        InjectMove(At(x, 10));
    InjectButton(VK_LBUTTON, true);
    InjectMove(At(30, 10));
    InjectButton(VK_LBUTTON, false);
    Pump();
    EXPECT_TRUE(log.Tells("top MOUSEMOVE LBUTTONDOWN MOUSEMOVE LBUTTONUP"));
    EXPECT_EQ(log.Only({WM_MOUSEMOVE}).front().lParam, MAKELPARAM(19, 10));
}

TEST_F(NativeMouse, LeavingIsToldOnceToWhoAskedForIt)
{
    const PlatformWindow child(Child("child", top, {0, 0, 50, 50}));
    Begin(At(100, 50));
    Track(TME_LEAVE);
    input.MoveTo(At(110, 50));
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 0);
    input.MoveTo(kElsewhere).MoveTo(At(100, 50)).MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "asked for once";
    Track(TME_LEAVE);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 2) << "asked for while the pointer is outside";
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    input.MoveTo(At(5, 5));
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 3) << "into a child of its own";
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    Track(TME_LEAVE | TME_CANCEL);
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 3) << "called off";
}

TEST_F(NativeMouse, LeavingWaitsForTheCaptureAndHappensOutsideAllWindowsToo)
{
    input.MoveTo(At(100, 50)).Press();
    SetCapture(top);
    Track(TME_LEAVE);
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 0);
    input.Release();
    ReleaseCapture();
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1);
    input.MoveTo(At(100, 50));
    Track(TME_LEAVE);
    native::TheHeadlessDisplay()->LeaveWindows();
    Pump();
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 2);
    POINT pointer{};
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer.x, -1) << "the display knows where the pointer is";
}

TEST_F(NativeMouse, HoverIsToldOnceWhenThePointerRests)
{
    Begin(At(100, 50));
    Track(TME_HOVER);
    EXPECT_EQ(HoversAfter(399), 0);
    EXPECT_EQ(HoversAfter(1), 1);
    EXPECT_EQ(log.Last(WM_MOUSEHOVER).lParam, MAKELPARAM(100, 50));
    EXPECT_EQ(HoversAfter(1000), 1) << "asked for once";
    Track(TME_HOVER | TME_LEAVE, 50);
    HoversAfter(40);
    input.MoveTo(At(120, 50));
    EXPECT_EQ(HoversAfter(40), 1) << "it starts anew with every movement";
    EXPECT_EQ(HoversAfter(10), 2);
    input.MoveTo(kElsewhere);
    EXPECT_EQ(log.Count(WM_MOUSELEAVE), 1) << "both kinds can be asked for together";
}

TEST_F(NativeMouse, AWindowThatComesOrGoesUnderThePointerMakesAMove)
{
    Begin(At(20, 20));
    PlatformWindow child(Child("child", top, {10, 10, 60, 60}));
    const auto told = [&] {
        Pump();
        std::string window = log.Last(WM_MOUSEMOVE).window;
        log.Clear();
        return window;
    };
    EXPECT_EQ(told(), "child");
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(told(), "top");
    ShowWindow(child, SW_SHOW);
    EXPECT_EQ(told(), "child");
    MoveWindow(child, 100, 50, 50, 50, TRUE);
    EXPECT_EQ(told(), "top");
    MoveWindow(child, 10, 10, 50, 50, TRUE);
    EXPECT_EQ(told(), "child");
    child.Destroy();
    EXPECT_EQ(told(), "top");
    MoveWindow(top, 90, 90, 220, 120, TRUE);
    EXPECT_EQ(told(), "") << "the window below the pointer is the same";
}

TEST_F(NativeMouse, DraggingTheCaptionMovesAndTheBordersSize)
{
    // With the place after a drag of 30, 20
    const Table<int, const char*> cases{
        {HTCAPTION, "430,320,630,420"},     {HTLEFT, "430,300,600,400"},
        {HTRIGHT, "400,300,630,400"},       {HTTOP, "400,320,600,400"},
        {HTBOTTOM, "400,300,600,420"},      {HTTOPLEFT, "430,320,600,400"},
        {HTTOPRIGHT, "400,320,630,400"},    {HTBOTTOMLEFT, "430,300,600,420"},
        {HTBOTTOMRIGHT, "400,300,630,420"},
    };
    for (const auto& [hit, place] : cases) {
        const PlatformWindow window(Popup("w", {400, 300, 600, 400}).Answering(Answer(WM_NCHITTEST, hit)));
        Drag({450, 350}, {480, 370});
        EXPECT_EQ(PlaceOf(window), place) << hit;
        EXPECT_EQ(GetCapture(), nullptr) << hit;
        EXPECT_GE(GetKeyState(VK_LBUTTON), 0) << hit;
    }
}

TEST_F(NativeMouse, DraggingStopsAtTheLimitsAndWithItsWindow)
{
    PlatformWindow window(Popup("w", {400, 300, 600, 400}));
    const auto behave = [&](LRESULT hit, bool isDeadly) {
        window.SetHandler([=](const LoggedMessage& message) -> std::optional<LRESULT> {
            if (message.message == WM_GETMINMAXINFO)
                reinterpret_cast<MINMAXINFO*>(message.lParam)->ptMinTrackSize = {80, 60};
            if (message.message == WM_MOVING && isDeadly)
                DestroyWindow(message.handle);
            return message.message == WM_NCHITTEST ? std::optional(hit) : std::nullopt;
        });
    };
    behave(HTTOPLEFT, false);
    Drag({401, 301}, {900, 900});
    EXPECT_EQ(PlaceOf(window), "520,340,600,400");
    behave(HTCAPTION, true);
    Drag({550, 350}, {580, 370});
    EXPECT_EQ(window.Handle(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}
