// What a window is told while it is created, shown, hidden and destroyed, and in which order.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

const std::vector<UINT> kLife{WM_GETMINMAXINFO, WM_NCCREATE,   WM_NCCALCSIZE,        WM_CREATE,
                              WM_SIZE,          WM_MOVE,       WM_PARENTNOTIFY,      WM_SHOWWINDOW,
                              WM_NCACTIVATE,    WM_ACTIVATE,   WM_SETFOCUS,          WM_KILLFOCUS,
                              WM_NCPAINT,       WM_ERASEBKGND, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED,
                              WM_PAINT,         WM_DESTROY,    WM_NCDESTROY};

using Creation = WindowTest;

}  // namespace

TEST_F(Creation, SendsItsMessagesBeforeItReturns)
{
    const PlatformWindow parent(Popup("parent").Hidden());
    const Table<const char*, DWORD, const char*> cases{
        {"hidden overlapped", WS_OVERLAPPEDWINDOW, "w GETMINMAXINFO NCCREATE NCCALCSIZE CREATE"},
        {"hidden popup", WS_POPUP, "w NCCREATE NCCALCSIZE CREATE SIZE MOVE"},
        {"hidden child", WS_CHILD, "w NCCREATE NCCALCSIZE CREATE SIZE MOVE, parent PARENTNOTIFY"},
        {"visible child of a hidden parent", WS_CHILD | WS_VISIBLE,
         "w NCCREATE NCCALCSIZE CREATE SIZE MOVE, parent PARENTNOTIFY, w SHOWWINDOW"},
        {"visible popup", WS_POPUP | WS_VISIBLE,
         "w NCCREATE NCCALCSIZE CREATE SIZE MOVE SHOWWINDOW WINDOWPOSCHANGING NCACTIVATE ACTIVATE SETFOCUS "
         "NCPAINT ERASEBKGND WINDOWPOSCHANGED"},
    };
    for (const auto& [name, style, expected] : cases) {
        Settle();
        const HWND above = style & WS_CHILD ? parent.Handle() : nullptr;
        const PlatformWindow window(Popup("w", {10, -20, 50, 30}).Hidden().Styled(style).Below(above));
        EXPECT_TRUE(log.Tells(expected, kLife)) << name;
        if (style != WS_OVERLAPPEDWINDOW) {
            EXPECT_EQ(log.Last(WM_SIZE).lParam, MAKELPARAM(40, 50)) << name;
            EXPECT_EQ(log.Last(WM_MOVE).Y(), -20) << name;
        }
    }
}

TEST_F(Creation, PassesItsParametersAndIsRefusedByTheProcedure)
{
    CREATESTRUCTA seen{};
    std::string name;  // the record's is the caller's
    const auto look = On(WM_NCCREATE, [&](auto& message) {
        seen = *reinterpret_cast<const CREATESTRUCTA*>(message.lParam);
        name = seen.lpszName;
    });
    const PlatformWindow window(
        Popup("named", {1, 2, 31, 42}).Hidden().ExStyled(WS_EX_TOOLWINDOW).Answering(look));
    EXPECT_EQ(Text(RECT{seen.x, seen.y, seen.cx, seen.cy}), "1,2,30,40");
    EXPECT_EQ(name, "named");
    EXPECT_EQ(seen.dwExStyle, WS_EX_TOOLWINDOW);
    const Table<UINT, LRESULT, const char*> refusals{{WM_NCCREATE, FALSE, "w NCCREATE NCDESTROY"},
                                                     {WM_CREATE, -1, "w NCCREATE CREATE NCDESTROY"}};
    for (const auto& [refused, answer, expected] : refusals) {
        log.Clear();
        EXPECT_EQ(PlatformWindow(Popup().Hidden().Answering(Answer(refused, answer))).Handle(), nullptr);
        EXPECT_TRUE(log.Tells(expected, {WM_CREATE}));
    }
    EXPECT_EQ(PlatformWindow(Popup().Hidden().Styled(WS_CHILD)).Handle(), nullptr) << "no parent";
    EXPECT_EQ(
        CreateWindowExA(0, "no such class", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr),
        nullptr);
}

TEST_F(Creation, FirstShowOfAnOverlappedWindowTellsSizeAndPlaceLast)
{
    const PlatformWindow window(Popup().Hidden().Styled(WS_OVERLAPPED | WS_CAPTION));
    Settle();
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_TRUE(log.Tells("w SHOWWINDOW SETFOCUS WINDOWPOSCHANGED SIZE MOVE", {WM_PAINT}));
    ShowWindow(window, SW_HIDE);
    Settle();
    ShowWindow(window, SW_SHOW);
    EXPECT_TRUE(
        log.Tells("w SHOWWINDOW WINDOWPOSCHANGING NCACTIVATE ACTIVATE SETFOCUS NCPAINT ERASEBKGND "
                  "WINDOWPOSCHANGED",
                  kLife))
        << "erased at once, painted later";
    log.Clear();
    EXPECT_TRUE(ShowWindow(window, SW_SHOW));
    EXPECT_EQ(log.Count(WM_SHOWWINDOW), 0);
    Pump();
    EXPECT_TRUE(log.Tells("w PAINT", kLife));
}

TEST_F(Creation, ShowingActivatesAsItsCommandSays)
{
    const Table<const char*, DWORD, int, bool> cases{
        {"SW_SHOW", 0, SW_SHOW, true},
        {"SW_SHOWNORMAL of a tool window", WS_EX_TOOLWINDOW, SW_SHOWNORMAL, true},
        {"SW_SHOWNOACTIVATE", 0, SW_SHOWNOACTIVATE, false},
        {"SW_SHOWNA", 0, SW_SHOWNA, false},
    };
    const PlatformWindow first(Popup("first"));
    for (const auto& [name, exStyle, command, isActivated] : cases) {
        SetActiveWindow(first);
        const PlatformWindow second(Popup("second", kBeside).Hidden().ExStyled(exStyle));
        ShowWindow(second, command);
        EXPECT_TRUE(IsWindowVisible(second)) << name;
        EXPECT_EQ(GetActiveWindow() == second, isActivated) << name;
        EXPECT_EQ(GetFocus(), GetActiveWindow()) << name;
    }
}

TEST_F(Creation, SetWindowPosShowsAndHidesWithoutShowWindowMessage)
{
    const PlatformWindow window(Popup().Hidden());
    Settle();
    constexpr UINT kKeep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(window, nullptr, 0, 0, 0, 0, kKeep | SWP_SHOWWINDOW);
    EXPECT_TRUE(log.Tells("w WINDOWPOSCHANGING NCPAINT ERASEBKGND WINDOWPOSCHANGED", kLife));
    log.Clear();
    SetWindowPos(window, nullptr, 0, 0, 0, 0, kKeep | SWP_HIDEWINDOW);
    EXPECT_TRUE(log.Tells("w WINDOWPOSCHANGING WINDOWPOSCHANGED", kLife));
    EXPECT_FALSE(IsWindowVisible(window));
}

TEST_F(Creation, HidingTheActiveWindowActivatesThePreviousOneAndLeavesItsPopups)
{
    const PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", kBeside));
    Settle();
    ShowWindow(second, SW_HIDE);
    EXPECT_TRUE(
        log.Tells("second SHOWWINDOW WINDOWPOSCHANGING WINDOWPOSCHANGED ACTIVATE, first ACTIVATE, "
                  "second KILLFOCUS, first SETFOCUS"));
    const PlatformWindow owned(Popup("owned", kBeside).Below(first));
    ShowWindow(first, SW_HIDE);
    EXPECT_TRUE(IsWindowVisible(owned));
}

TEST_F(Creation, DestroyingAChildTellsItsParentAndMovesTheFocus)
{
    const PlatformWindow parent(Popup("parent"));
    PlatformWindow child(Child("child", parent, {10, 10, 50, 50}));
    SetWindowLongPtrA(child, GWLP_ID, 77);
    SetFocus(child);
    Settle();
    const HWND handle = child;
    child.Destroy();
    EXPECT_TRUE(
        log.Tells("parent PARENTNOTIFY, child SHOWWINDOW WINDOWPOSCHANGING WINDOWPOSCHANGED KILLFOCUS, "
                  "parent SETFOCUS, child DESTROY NCDESTROY"));
    EXPECT_EQ(log.Last(WM_PARENTNOTIFY).wParam, MAKEWPARAM(WM_DESTROY, 77));
    EXPECT_EQ(reinterpret_cast<HWND>(log.Last(WM_PARENTNOTIFY).lParam), handle);
}

TEST_F(Creation, DestroyingATopLevelWindowTakesWhatBelongsToIt)
{
    const PlatformWindow before(Popup("before", kBeside));
    PlatformWindow window(Popup("top"));
    const PlatformWindow first(Child("first", window, {0, 0, 20, 20}));
    const PlatformWindow grandchild(Child("grandchild", first, {0, 0, 10, 10}));
    const PlatformWindow second(Child("second", window, {30, 0, 50, 20}));
    const PlatformWindow owned(Popup("owned", {400, 300, 500, 400}).Hidden().Below(window));
    ShowWindow(owned, SW_SHOWNOACTIVATE);
    Settle();
    window.Destroy();
    EXPECT_TRUE(
        log.Tells("owned DESTROY NCDESTROY, top ACTIVATE, before ACTIVATE, top DESTROY, first DESTROY, "
                  "grandchild DESTROY, second DESTROY, grandchild NCDESTROY, first NCDESTROY, "
                  "second NCDESTROY, top NCDESTROY",
                  {WM_SHOWWINDOW}));
    EXPECT_EQ(GetFocus(), before);
}

TEST_F(Creation, DestroyingAnActivePopupActivatesItsOwner)
{
    const PlatformWindow other(Popup("other", {400, 300, 500, 400}));
    const PlatformWindow owner(Popup("owner"));
    SetActiveWindow(other);
    PlatformWindow owned(Popup("owned", kBeside).Below(owner));
    ASSERT_EQ(GetActiveWindow(), owned);
    owned.Destroy();
    EXPECT_EQ(GetActiveWindow(), owner);
}
