// From the pointer to messages: hit tests, capture, activation by a press, cursors, leaving and hovering.

#include "platform/user/window_test.h"
#include "support/synthetic_input.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<UINT> kButtons{WM_PARENTNOTIFY, WM_MOUSEACTIVATE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
                                 WM_RBUTTONDOWN, WM_RBUTTONUP, WM_CONTEXTMENU, WM_MBUTTONDOWN, WM_MBUTTONUP};

class Mouse : public WindowTest {
protected:
    Mouse()
    {
        PlatformWindowOptions options = Child("child", top, {10, 10, 60, 60});
        child = std::make_unique<PlatformWindow>(options);
        Settle();
    }
    POINT InTop() const { return SyntheticInput::At(top.Handle(), 150, 80); }
    POINT InChild() const { return SyntheticInput::At(child->Handle(), 5, 6); }
    POINT InOther() const { return SyntheticInput::At(other.Handle(), 20, 20); }

    /// The last message with this number; an empty one when there was none.
    LoggedMessage Last(UINT number) const
    {
        const std::vector<LoggedMessage> messages = log.Only({number});
        return messages.empty() ? LoggedMessage{} : messages.back();
    }
    static MessageHandler Answer(UINT number, LRESULT answer)
    {
        return [=](const LoggedMessage& message) -> std::optional<LRESULT> {
            return message.message == number ? std::optional(answer) : std::nullopt;
        };
    }

    SyntheticInput input;
    PlatformWindow other{Popup("other", {400, 100, 500, 200})};
    PlatformWindow top{Popup("top")};
    std::unique_ptr<PlatformWindow> child;
};

}  // namespace

TEST_F(Mouse, MessageFollowsHitTestAndCursor)
{
    input.MoveTo(InChild());
    EXPECT_THAT(log.Lines({WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEMOVE}),
                testing::IsSupersetOf({"child WM_NCHITTEST", "child WM_SETCURSOR", "top WM_SETCURSOR", "child WM_MOUSEMOVE"}));
    ASSERT_FALSE(log.All().empty());
    EXPECT_EQ(log.Lines({WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEMOVE}).back(), "child WM_MOUSEMOVE");
    const LoggedMessage move = Last(WM_MOUSEMOVE);
    EXPECT_EQ(move.lParam, MAKELPARAM(5, 6));
    EXPECT_EQ(move.wParam, 0U);
    const LoggedMessage cursor = Last(WM_SETCURSOR);
    EXPECT_EQ(reinterpret_cast<HWND>(cursor.wParam), child->Handle());
    EXPECT_EQ(cursor.lParam, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const LoggedMessage hit = Last(WM_NCHITTEST);
    EXPECT_EQ(GET_X_LPARAM(hit.lParam), InChild().x);
    EXPECT_EQ(GET_Y_LPARAM(hit.lParam), InChild().y);
}

TEST_F(Mouse, ButtonsCarryWhatIsHeld)
{
    input.MoveTo(InTop());
    log.Clear();
    input.KeyDown(VK_SHIFT).Press().KeyDown(VK_CONTROL).Press(VK_RBUTTON).Release();
    const auto flags = [&](UINT number) { return Last(number).wParam; };
    EXPECT_EQ(flags(WM_LBUTTONDOWN), static_cast<WPARAM>(MK_LBUTTON | MK_SHIFT));
    EXPECT_EQ(flags(WM_RBUTTONDOWN), static_cast<WPARAM>(MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL));
    EXPECT_EQ(flags(WM_LBUTTONUP), static_cast<WPARAM>(MK_RBUTTON | MK_SHIFT | MK_CONTROL));
}

TEST_F(Mouse, DisabledAndTransparentChildrenPassToTheParent)
{
    EnableWindow(child->Handle(), FALSE);
    Settle();
    input.MoveTo(InChild());
    EXPECT_EQ(Last(WM_MOUSEMOVE).window, "top");
    EXPECT_EQ(Last(WM_MOUSEMOVE).lParam, MAKELPARAM(15, 16));
    EnableWindow(child->Handle(), TRUE);
    child->SetHandler(Answer(WM_NCHITTEST, HTTRANSPARENT));
    Settle();
    input.MoveTo(SyntheticInput::At(child->Handle(), 7, 8));
    EXPECT_EQ(Last(WM_MOUSEMOVE).window, "top");
    EXPECT_EQ(Last(WM_MOUSEMOVE).lParam, MAKELPARAM(17, 18));
}

TEST_F(Mouse, TransparentChildPassesToTheSiblingBelow)
{
    const PlatformWindow below(Child("below", top, {10, 10, 60, 60}));
    child->SetHandler(Answer(WM_NCHITTEST, HTTRANSPARENT));
    Settle();
    input.MoveTo(InChild());
    EXPECT_EQ(Last(WM_MOUSEMOVE).window, "below");
}

TEST_F(Mouse, ADisabledTopLevelWindowGetsNothing)
{
    EnableWindow(top.Handle(), FALSE);
    Settle();
    input.Click(InTop());
    EXPECT_THAT(log.Lines({WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}), IsEmpty());
}

TEST_F(Mouse, PressInTheActiveWindowAsksNobody)
{
    SetActiveWindow(top.Handle());
    input.MoveTo(InTop());
    log.Clear();
    input.Press().Release();
    EXPECT_THAT(log.Lines(kButtons), ElementsAre("top WM_LBUTTONDOWN", "top WM_LBUTTONUP"));
}

TEST_F(Mouse, PressInAChildTellsAndAsksTheParent)
{
    SetActiveWindow(top.Handle());
    input.MoveTo(InChild());
    log.Clear();
    input.Press();
    EXPECT_THAT(log.Lines(kButtons),
                ElementsAre("top WM_PARENTNOTIFY", "child WM_MOUSEACTIVATE", "top WM_MOUSEACTIVATE", "child WM_LBUTTONDOWN"));
    const LoggedMessage notice = Last(WM_PARENTNOTIFY);
    EXPECT_EQ(LOWORD(notice.wParam), WM_LBUTTONDOWN);
    EXPECT_EQ(notice.lParam, MAKELPARAM(15, 16));
    const LoggedMessage question = Last(WM_MOUSEACTIVATE);
    EXPECT_EQ(reinterpret_cast<HWND>(question.wParam), top.Handle());
    EXPECT_EQ(question.lParam, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_EQ(GetFocus(), top.Handle());
}

TEST_F(Mouse, PressActivatesAsTheWindowAnswers)
{
    struct Case {
        const char* name;
        LRESULT answer;
        bool isActivated;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases{
        {"MA_ACTIVATE", MA_ACTIVATE, true, {"other WM_MOUSEACTIVATE", "other WM_LBUTTONDOWN", "other WM_LBUTTONUP"}},
        {"MA_ACTIVATEANDEAT", MA_ACTIVATEANDEAT, true, {"other WM_MOUSEACTIVATE", "other WM_LBUTTONUP"}},
        {"MA_NOACTIVATE", MA_NOACTIVATE, false, {"other WM_MOUSEACTIVATE", "other WM_LBUTTONDOWN", "other WM_LBUTTONUP"}},
        {"MA_NOACTIVATEANDEAT", MA_NOACTIVATEANDEAT, false, {"other WM_MOUSEACTIVATE", "other WM_LBUTTONUP"}},
    };
    for (const Case& c : cases) {
        other.SetHandler(Answer(WM_MOUSEACTIVATE, c.answer));
        SetActiveWindow(top.Handle());
        input.MoveTo(InOther());
        log.Clear();
        input.Press().Release();
        EXPECT_EQ(log.Lines(kButtons), c.expected) << c.name;
        EXPECT_EQ(GetActiveWindow(), c.isActivated ? other.Handle() : top.Handle()) << c.name;
    }
}

TEST_F(Mouse, PressActivatesBeforeItIsDelivered)
{
    SetActiveWindow(top.Handle());
    input.MoveTo(InOther());
    log.Clear();
    input.Press();
    EXPECT_THAT(log.Lines({WM_MOUSEACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_LBUTTONDOWN}),
                ElementsAre("other WM_MOUSEACTIVATE", "top WM_ACTIVATE", "other WM_ACTIVATE", "other WM_SETFOCUS",
                            "other WM_LBUTTONDOWN"));
    EXPECT_EQ(Last(WM_ACTIVATE).wParam, static_cast<WPARAM>(WA_CLICKACTIVE));
}

TEST_F(Mouse, RightButtonAsksForAMenuAtItsRelease)
{
    SetActiveWindow(top.Handle());
    input.MoveTo(InChild());
    log.Clear();
    input.Press(VK_RBUTTON).Release(VK_RBUTTON);
    EXPECT_THAT(log.Lines({WM_RBUTTONDOWN, WM_RBUTTONUP, WM_CONTEXTMENU}),
                ElementsAre("child WM_RBUTTONDOWN", "child WM_RBUTTONUP", "child WM_CONTEXTMENU", "top WM_CONTEXTMENU"));
    for (const LoggedMessage& menu : log.Only({WM_CONTEXTMENU})) {
        EXPECT_EQ(reinterpret_cast<HWND>(menu.wParam), child->Handle());
        EXPECT_EQ(GET_X_LPARAM(menu.lParam), InChild().x);
        EXPECT_EQ(GET_Y_LPARAM(menu.lParam), InChild().y);
    }
}

TEST_F(Mouse, WheelGoesToTheWindowUnderThePointerAndUp)
{
    SetActiveWindow(top.Handle());
    input.MoveTo(InChild());
    log.Clear();
    input.Wheel(-2);
    EXPECT_THAT(log.Lines({WM_MOUSEWHEEL}), ElementsAre("child WM_MOUSEWHEEL", "top WM_MOUSEWHEEL"));
    const LoggedMessage wheel = Last(WM_MOUSEWHEEL);
    EXPECT_EQ(static_cast<SHORT>(HIWORD(wheel.wParam)), -240);
    EXPECT_EQ(GET_X_LPARAM(wheel.lParam), InChild().x);
    EXPECT_EQ(GET_Y_LPARAM(wheel.lParam), InChild().y);
}

TEST_F(Mouse, NonClientHitsMakeNonClientMessages)
{
    top.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_NCHITTEST)
            return HTMINBUTTON;
        return message.message == WM_NCLBUTTONDOWN ? std::optional<LRESULT>(0) : std::nullopt;
    });
    SetActiveWindow(top.Handle());
    input.MoveTo(InTop());
    EXPECT_EQ(Last(WM_NCMOUSEMOVE).window, "top");
    EXPECT_EQ(Last(WM_SETCURSOR).lParam, MAKELPARAM(HTMINBUTTON, WM_MOUSEMOVE));
    log.Clear();
    input.Press().Release();
    EXPECT_THAT(log.Lines({WM_NCLBUTTONDOWN, WM_NCLBUTTONUP, WM_LBUTTONDOWN, WM_LBUTTONUP}),
                ElementsAre("top WM_NCLBUTTONDOWN", "top WM_NCLBUTTONUP"));
    const LoggedMessage press = Last(WM_NCLBUTTONDOWN);
    EXPECT_EQ(press.wParam, static_cast<WPARAM>(HTMINBUTTON));
    EXPECT_EQ(GET_X_LPARAM(press.lParam), InTop().x);
}

TEST_F(Mouse, CaptureTakesMovesFromEverywhere)
{
    input.MoveTo(InTop()).Press();
    EXPECT_EQ(SetCapture(top.Handle()), nullptr);
    EXPECT_EQ(GetCapture(), top.Handle());
    Settle();
    input.MoveTo({50, 40});
    EXPECT_THAT(log.Lines({WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEMOVE}), testing::Each("top WM_MOUSEMOVE"));
    EXPECT_EQ(GET_X_LPARAM(Last(WM_MOUSEMOVE).lParam), -50);
    EXPECT_EQ(GET_Y_LPARAM(Last(WM_MOUSEMOVE).lParam), -60);
    input.MoveTo(InChild());
    EXPECT_EQ(Last(WM_MOUSEMOVE).window, "top");
    input.MoveTo(InOther()).Release();
    EXPECT_EQ(log.Lines({WM_LBUTTONUP}), std::vector<std::string>{"top WM_LBUTTONUP"});
    ReleaseCapture();
}

TEST_F(Mouse, CaptureIsToldToItsLoser)
{
    std::vector<HWND> holders;
    const MessageHandler watch = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_CAPTURECHANGED)
            holders.push_back(GetCapture());
        return std::nullopt;
    };
    const ScopedHandler watchTop(top, watch);
    SetCapture(top.Handle());
    EXPECT_EQ(SetCapture(child->Handle()), top.Handle());
    ASSERT_EQ(log.Count(WM_CAPTURECHANGED), 1);
    EXPECT_EQ(reinterpret_cast<HWND>(Last(WM_CAPTURECHANGED).lParam), child->Handle());
    SetCapture(top.Handle());
    log.Clear();
    holders.clear();
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_THAT(log.Lines({WM_CAPTURECHANGED}), ElementsAre("top WM_CAPTURECHANGED"));
    EXPECT_EQ(Last(WM_CAPTURECHANGED).lParam, 0);
    EXPECT_THAT(holders, ElementsAre(nullptr));
    log.Clear();
    ReleaseCapture();
    EXPECT_EQ(log.Count(WM_CAPTURECHANGED), 0);
}

TEST_F(Mouse, CaptureEndsWithCancelModeAndWithItsWindow)
{
    SetCapture(child->Handle());
    SendMessageA(child->Handle(), WM_CANCELMODE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log.Count(WM_CAPTURECHANGED), 1);
    SetCapture(child->Handle());
    log.Clear();
    child->Destroy();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log.Count(WM_CAPTURECHANGED), 0);
}

TEST_F(Mouse, DoubleClickIsTheSecondPressOfOneWindowAndButton)
{
    PlatformWindowOptions options = Popup("doubles", {600, 100, 700, 200});
    options.classStyle = CS_DBLCLKS;
    const PlatformWindow doubles(options);
    input.MoveTo({650, 150});
    Settle();
    for (int press = 0; press < 4; ++press)
        input.Press().Release();
    EXPECT_THAT(log.Lines({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}),
                ElementsAre("doubles WM_LBUTTONDOWN", "doubles WM_LBUTTONDBLCLK", "doubles WM_LBUTTONDOWN",
                            "doubles WM_LBUTTONDBLCLK"));
    log.Clear();
    input.Press().Release().Press(VK_RBUTTON).Release(VK_RBUTTON).Press().Release();
    EXPECT_THAT(log.Lines({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK}),
                ElementsAre("doubles WM_LBUTTONDOWN", "doubles WM_RBUTTONDOWN", "doubles WM_LBUTTONDOWN"));
    input.MoveTo(InTop());
    log.Clear();
    input.Press().Release().Press().Release();
    EXPECT_EQ(log.Count(WM_LBUTTONDBLCLK), 0) << "a class without CS_DBLCLKS";
}

TEST_F(Mouse, WindowFromPointSeesWhatTheMouseSees)
{
    EXPECT_EQ(WindowFromPoint(InChild()), child->Handle());
    EXPECT_EQ(WindowFromPoint(InTop()), top.Handle());
    child->SetHandler(Answer(WM_NCHITTEST, HTTRANSPARENT));
    EXPECT_EQ(WindowFromPoint(InChild()), top.Handle());
    child->SetHandler(nullptr);
    ShowWindow(child->Handle(), SW_HIDE);
    EXPECT_EQ(WindowFromPoint(InChild()), top.Handle());
}
