// From the pointer to messages: hit tests, capture, activation by a press, and cursors.

#include "platform/user/window_test.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

const std::vector<UINT> kButtons{WM_PARENTNOTIFY,  WM_MOUSEACTIVATE, WM_LBUTTONDOWN, WM_LBUTTONUP,
                                 WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,   WM_RBUTTONUP,   WM_CONTEXTMENU};

class Mouse : public WindowTest {
protected:
    Mouse() { Settle(); }

    POINT InTop() const { return SyntheticInput::At(top, 150, 80); }
    POINT InChild() const { return SyntheticInput::At(child, 5, 6); }
    POINT InOther() const { return SyntheticInput::At(other, 20, 20); }
    /// Makes the first window active, puts the pointer there and forgets what that told.
    void Begin(POINT pointer)
    {
        SetActiveWindow(top);
        input.MoveTo(pointer);
        log.Clear();
    }
    /// "child 5,6": who got the last move, and where.
    std::string LastMove() const
    {
        const LoggedMessage move = log.Last(WM_MOUSEMOVE);
        return move.window + " " + Text(POINT{move.X(), move.Y()});
    }

    SyntheticInput input;
    PlatformWindow other{Popup("other", kBeside)};
    PlatformWindow top{Popup("top")};
    PlatformWindow child{Child("child", top, {10, 10, 60, 60})};
};

}  // namespace

TEST_F(Mouse, MessageFollowsHitTestAndCursor)
{
    input.MoveTo(InChild());
    std::vector<std::string> told;
    for (const LoggedMessage& message : log.Only({WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEMOVE}))
        told.push_back(message.window + " " + MessageName(message.message));
    EXPECT_THAT(told, testing::IsSupersetOf(
                          {"child NCHITTEST", "child SETCURSOR", "top SETCURSOR", "child MOUSEMOVE"}));
    EXPECT_EQ(told.back(), "child MOUSEMOVE");
    EXPECT_EQ(LastMove(), "child 5,6");
    EXPECT_EQ(log.Last(WM_MOUSEMOVE).wParam, 0U);
    EXPECT_EQ(reinterpret_cast<HWND>(log.Last(WM_SETCURSOR).wParam), child);
    EXPECT_EQ(log.Last(WM_SETCURSOR).lParam, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(log.Last(WM_NCHITTEST).lParam, MAKELPARAM(InChild().x, InChild().y));
}

TEST_F(Mouse, ButtonsCarryWhatIsHeld)
{
    Begin(InTop());
    input.KeyDown(VK_SHIFT).Press().KeyDown(VK_CONTROL).Press(VK_RBUTTON).Release();
    EXPECT_TRUE(log.Tells("top LBUTTONDOWN RBUTTONDOWN LBUTTONUP", kButtons))
        << "the active window asks nobody";
    const auto flags = [&](UINT number) { return static_cast<int>(log.Last(number).wParam); };
    EXPECT_EQ(flags(WM_LBUTTONDOWN), MK_LBUTTON | MK_SHIFT);
    EXPECT_EQ(flags(WM_RBUTTONDOWN), MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL);
    EXPECT_EQ(flags(WM_LBUTTONUP), MK_RBUTTON | MK_SHIFT | MK_CONTROL);
}

TEST_F(Mouse, DisabledAndTransparentChildrenPassToWhatIsBelow)
{
    EnableWindow(child, FALSE);
    input.MoveTo(InChild());
    EXPECT_EQ(LastMove(), "top 15,16");
    EnableWindow(child, TRUE);
    EXPECT_EQ(WindowFromPoint(InChild()), child);
    child.SetHandler(Answer(WM_NCHITTEST, HTTRANSPARENT));
    input.MoveTo(SyntheticInput::At(child, 7, 8));
    EXPECT_EQ(LastMove(), "top 17,18");
    EXPECT_EQ(WindowFromPoint(InChild()), top);
    const PlatformWindow sibling(Child("sibling", top, {10, 10, 60, 60}));
    input.MoveTo(SyntheticInput::At(child, 9, 9));
    EXPECT_EQ(LastMove(), "sibling 9,9");
    EnableWindow(top, FALSE);
    Settle();
    input.Click(InTop());
    EXPECT_TRUE(log.Tells("", {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}))
        << "of a disabled top-level window";
}

TEST_F(Mouse, PressInAChildTellsAndAsksTheParent)
{
    Begin(InChild());
    input.Press();
    EXPECT_TRUE(
        log.Tells("top PARENTNOTIFY, child MOUSEACTIVATE, top MOUSEACTIVATE, child LBUTTONDOWN", kButtons));
    EXPECT_EQ(LOWORD(log.Last(WM_PARENTNOTIFY).wParam), WM_LBUTTONDOWN);
    EXPECT_EQ(log.Last(WM_PARENTNOTIFY).lParam, MAKELPARAM(15, 16));
    EXPECT_EQ(reinterpret_cast<HWND>(log.Last(WM_MOUSEACTIVATE).wParam), top);
    EXPECT_EQ(log.Last(WM_MOUSEACTIVATE).lParam, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_EQ(GetFocus(), top);
}

TEST_F(Mouse, PressActivatesAsTheWindowAnswersBeforeItIsDelivered)
{
    const Table<LRESULT, const char*> cases{
        {MA_ACTIVATE, "other MOUSEACTIVATE, top ACTIVATE, other ACTIVATE SETFOCUS LBUTTONDOWN LBUTTONUP"},
        {MA_ACTIVATEANDEAT, "other MOUSEACTIVATE, top ACTIVATE, other ACTIVATE SETFOCUS LBUTTONUP"},
        {MA_NOACTIVATE, "other MOUSEACTIVATE LBUTTONDOWN LBUTTONUP"},
        {MA_NOACTIVATEANDEAT, "other MOUSEACTIVATE LBUTTONUP"},
    };
    for (const auto& [answer, expected] : cases) {
        other.SetHandler(Answer(WM_MOUSEACTIVATE, answer));
        Begin(InOther());
        input.Press().Release();
        EXPECT_TRUE(log.Tells(expected, {WM_LBUTTONDOWN, WM_ACTIVATE, WM_SETFOCUS})) << answer;
        EXPECT_TRUE(log.Count(WM_ACTIVATE) == 0 || log.Last(WM_ACTIVATE).wParam == WA_CLICKACTIVE);
    }
}

TEST_F(Mouse, MenusAndTheWheelGoToTheWindowUnderThePointerAndUp)
{
    Begin(InChild());
    input.Press(VK_RBUTTON).Release(VK_RBUTTON).Wheel(-2);
    EXPECT_TRUE(log.Tells(
        "child RBUTTONDOWN RBUTTONUP CONTEXTMENU, top CONTEXTMENU, child MOUSEWHEEL, top MOUSEWHEEL"));
    const LPARAM place = MAKELPARAM(InChild().x, InChild().y);
    EXPECT_EQ(reinterpret_cast<HWND>(log.Last(WM_CONTEXTMENU).wParam), child);
    EXPECT_EQ(log.Last(WM_CONTEXTMENU).lParam, place);
    EXPECT_EQ(static_cast<SHORT>(HIWORD(log.Last(WM_MOUSEWHEEL).wParam)), -240);
    EXPECT_EQ(log.Last(WM_MOUSEWHEEL).lParam, place);
}

TEST_F(Mouse, NonClientHitsMakeNonClientMessages)
{
    top.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_NCHITTEST)
            return HTMINBUTTON;
        return message.message == WM_NCLBUTTONDOWN ? std::optional<LRESULT>(0) : std::nullopt;
    });
    SetActiveWindow(top);
    input.MoveTo(InTop());
    EXPECT_EQ(log.Last(WM_NCMOUSEMOVE).window, "top");
    EXPECT_EQ(log.Last(WM_SETCURSOR).lParam, MAKELPARAM(HTMINBUTTON, WM_MOUSEMOVE));
    input.Press().Release();
    EXPECT_TRUE(log.Tells("top NCLBUTTONDOWN NCLBUTTONUP", {WM_LBUTTONDOWN, WM_LBUTTONUP}));
    EXPECT_EQ(log.Last(WM_NCLBUTTONDOWN).wParam, static_cast<WPARAM>(HTMINBUTTON));
    EXPECT_EQ(log.Last(WM_NCLBUTTONDOWN).X(), InTop().x);
}

TEST_F(Mouse, CaptureTakesMovesFromEverywhere)
{
    input.MoveTo(InTop()).Press();
    SetCapture(top);
    Settle();
    input.MoveTo({50, 40});
    EXPECT_TRUE(log.Tells("", {WM_NCHITTEST, WM_SETCURSOR}));
    EXPECT_EQ(LastMove(), "top -50,-60");
    input.MoveTo(InChild());
    EXPECT_EQ(LastMove(), "top 15,16");
    input.MoveTo(InOther()).Release();
    EXPECT_TRUE(log.Tells("top LBUTTONUP"));
    ReleaseCapture();
}

TEST_F(Mouse, CaptureIsToldToItsLoserUnlessItsWindowGoes)
{
    std::vector<HWND> holders;
    const ScopedHandler watch(top, On(WM_CAPTURECHANGED, [&](auto&) { holders.push_back(GetCapture()); }));
    EXPECT_EQ(SetCapture(top), nullptr);
    EXPECT_EQ(SetCapture(child), top);
    EXPECT_TRUE(log.Tells("top CAPTURECHANGED"));
    EXPECT_EQ(reinterpret_cast<HWND>(log.Last(WM_CAPTURECHANGED).lParam), child);
    SendMessageA(child, WM_CANCELMODE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(log.Tells("top CAPTURECHANGED, child CAPTURECHANGED"));
    SetCapture(top);
    log.Clear();
    holders.clear();
    EXPECT_TRUE(ReleaseCapture());
    ReleaseCapture();
    EXPECT_TRUE(log.Tells("top CAPTURECHANGED")) << "once";
    EXPECT_EQ(log.Last(WM_CAPTURECHANGED).lParam, 0);
    EXPECT_THAT(holders, testing::ElementsAre(nullptr));
    SetCapture(child);
    log.Clear();
    child.Destroy();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log.Count(WM_CAPTURECHANGED), 0);
}

TEST_F(Mouse, DoubleClickIsTheSecondPressOfOneWindowAndButton)
{
    const PlatformWindow doubles(Popup("doubles", {600, 100, 700, 200}).OfClass(CS_DBLCLKS));
    input.MoveTo({650, 150});
    Settle();
    for (int press = 0; press < 4; ++press)
        input.Press().Release();
    EXPECT_TRUE(log.Tells("doubles LBUTTONDOWN LBUTTONDBLCLK LBUTTONDOWN LBUTTONDBLCLK"));
    log.Clear();
    input.Press().Release().Press(VK_RBUTTON).Release(VK_RBUTTON).Press().Release();
    EXPECT_TRUE(
        log.Tells("doubles LBUTTONDOWN RBUTTONDOWN LBUTTONDOWN", {WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK}));
    input.MoveTo(InTop()).Press().Release().Press().Release();
    EXPECT_EQ(log.Count(WM_LBUTTONDBLCLK), 0) << "a class without CS_DBLCLKS";
}

TEST_F(Mouse, TheClassCursorShowsOverTheWindowUnlessItsParentDecides)
{
    const HCURSOR hand = LoadCursorA(nullptr, IDC_HAND);
    const HCURSOR beam = LoadCursorA(nullptr, IDC_IBEAM);
    EXPECT_EQ(LoadCursorA(nullptr, IDC_HAND), hand) << "shared";
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(77)), nullptr);
    PlatformWindow window(Popup("w", {600, 100, 700, 200}).With(&PlatformWindowOptions::cursor, hand));
    const PlatformWindow inner(
        Child("inner", window, {10, 10, 60, 60}).With(&PlatformWindowOptions::cursor, beam));
    input.MoveTo({690, 190});
    EXPECT_EQ(GetCursor(), hand);
    input.MoveTo({620, 120});
    EXPECT_EQ(GetCursor(), beam);
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_SETCURSOR)
            return std::nullopt;
        SetCursor(hand);
        return TRUE;
    });
    input.MoveTo({621, 121});
    EXPECT_EQ(GetCursor(), hand);
}
