// What a window is told while it is created, shown, hidden and destroyed, and in which order.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

const std::vector<UINT> kLife{WM_GETMINMAXINFO, WM_NCCREATE,   WM_NCCALCSIZE,        WM_CREATE,
                              WM_SIZE,          WM_MOVE,       WM_PARENTNOTIFY,      WM_SHOWWINDOW,
                              WM_NCACTIVATE,    WM_ACTIVATE,   WM_SETFOCUS,          WM_KILLFOCUS,
                              WM_NCPAINT,       WM_ERASEBKGND, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED,
                              WM_PAINT,         WM_DESTROY,    WM_NCDESTROY};

class Creation : public WindowTest {};

}  // namespace

TEST_F(Creation, SendsItsMessagesBeforeItReturns)
{
    const PlatformWindow parent(Popup("parent").Hidden());
    const struct {
        const char* name;
        DWORD style;
        const char* expected;
    } cases[] = {
        {"hidden overlapped", WS_OVERLAPPEDWINDOW, "w GETMINMAXINFO NCCREATE NCCALCSIZE CREATE"},
        {"hidden popup", WS_POPUP, "w NCCREATE NCCALCSIZE CREATE SIZE MOVE"},
        {"hidden child", WS_CHILD, "w NCCREATE NCCALCSIZE CREATE SIZE MOVE, parent PARENTNOTIFY"},
        {"visible child of a hidden parent", WS_CHILD | WS_VISIBLE,
         "w NCCREATE NCCALCSIZE CREATE SIZE MOVE, parent PARENTNOTIFY, w SHOWWINDOW"},
        {"visible popup", WS_POPUP | WS_VISIBLE,
         "w NCCREATE NCCALCSIZE CREATE SIZE MOVE SHOWWINDOW WINDOWPOSCHANGING NCACTIVATE ACTIVATE SETFOCUS "
         "NCPAINT ERASEBKGND WINDOWPOSCHANGED"},
    };
    for (const auto& c : cases) {
        Settle();
        const PlatformWindow window(
            Popup().Hidden().Styled(c.style).Below(c.style & WS_CHILD ? parent.Handle() : nullptr));
        EXPECT_TRUE(log.Tells(c.expected, kLife)) << c.name;
    }
}

TEST_F(Creation, TellsSizeAndPlaceOfTheClientArea)
{
    const PlatformWindow popup(Popup("popup", {110, 120, 310, 220}).Hidden());
    EXPECT_EQ(log.Last(WM_SIZE).wParam, static_cast<WPARAM>(SIZE_RESTORED));
    EXPECT_EQ(log.Last(WM_SIZE).lParam, MAKELPARAM(200, 100));
    EXPECT_EQ(log.Last(WM_MOVE).lParam, MAKELPARAM(110, 120));
    const PlatformWindow child(Child("child", popup, {10, -20, 50, 30}));
    EXPECT_EQ(log.Last(WM_SIZE).lParam, MAKELPARAM(40, 50));
    EXPECT_EQ(log.Last(WM_MOVE).X(), 10);
    EXPECT_EQ(log.Last(WM_MOVE).Y(), -20);
}

TEST_F(Creation, PassesItsParameters)
{
    CREATESTRUCTA seen{};
    const PlatformWindow window(Popup("named", {1, 2, 31, 42})
                                    .Hidden()
                                    .ExStyled(WS_EX_TOOLWINDOW)
                                    .Answering(On(WM_NCCREATE, [&](auto& message) {
                                        seen = *reinterpret_cast<const CREATESTRUCTA*>(message.lParam);
                                    })));
    EXPECT_EQ(Text(RECT{seen.x, seen.y, seen.cx, seen.cy}), "1,2,30,40");
    EXPECT_STREQ(seen.lpszName, "named");
    EXPECT_EQ(seen.dwExStyle, WS_EX_TOOLWINDOW);
    char title[16] = "";
    EXPECT_EQ(GetWindowTextA(window, title, sizeof title), 5);
    EXPECT_STREQ(title, "named");
    EXPECT_EQ(GetWindowTextA(window, title, 4), 3);
    EXPECT_STREQ(title, "nam");
}

TEST_F(Creation, IsRefusedByTheProcedure)
{
    const struct {
        UINT refused;
        LRESULT answer;
        const char* expected;
    } cases[] = {
        {WM_NCCREATE, FALSE, "w NCCREATE NCDESTROY"},
        {WM_CREATE, -1, "w NCCREATE CREATE NCDESTROY"},
    };
    for (const auto& c : cases) {
        log.Clear();
        const PlatformWindow window(Popup().Hidden().Answering(Answer(c.refused, c.answer)));
        EXPECT_EQ(window.Handle(), nullptr) << c.expected;
        EXPECT_TRUE(log.Tells(c.expected, {WM_CREATE}));
    }
}

TEST_F(Creation, FailsWithoutClassOrParent)
{
    EXPECT_EQ(
        CreateWindowExA(0, "no such class", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr),
        nullptr);
    EXPECT_EQ(PlatformWindow(Popup().Hidden().Styled(WS_CHILD)).Handle(), nullptr);
}

TEST_F(Creation, FirstShowOfAnOverlappedWindowTellsSizeAndPlaceLast)
{
    const PlatformWindow window(Popup().Hidden().Styled(WS_OVERLAPPED | WS_CAPTION));
    Settle();
    ShowWindow(window, SW_SHOW);
    EXPECT_TRUE(log.Tells("w SHOWWINDOW SETFOCUS WINDOWPOSCHANGED SIZE MOVE"));
    ShowWindow(window, SW_HIDE);
    Settle();
    ShowWindow(window, SW_SHOW);
    EXPECT_TRUE(log.Tells("", {WM_SIZE, WM_MOVE}));
}

TEST_F(Creation, ShowErasesAtOnceAndPaintsLater)
{
    const PlatformWindow window(Popup().Hidden());
    Settle();
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_TRUE(
        log.Tells("w SHOWWINDOW WINDOWPOSCHANGING NCACTIVATE ACTIVATE SETFOCUS NCPAINT ERASEBKGND "
                  "WINDOWPOSCHANGED",
                  kLife));
    EXPECT_EQ(log.Last(WM_SHOWWINDOW).wParam, 1U);
    EXPECT_EQ(log.Last(WM_SHOWWINDOW).lParam, 0);
    log.Clear();
    EXPECT_TRUE(ShowWindow(window, SW_SHOW));
    EXPECT_EQ(log.Count(WM_SHOWWINDOW), 0);
    Pump();
    EXPECT_TRUE(log.Tells("w PAINT", kLife));
}

TEST_F(Creation, ShowingActivatesAsItsCommandSays)
{
    const struct {
        const char* name;
        DWORD exStyle;
        int command;
        bool isActivated;
    } cases[] = {
        {"SW_SHOW", 0, SW_SHOW, true},
        {"SW_SHOWNORMAL", 0, SW_SHOWNORMAL, true},
        {"SW_SHOW of a tool window", WS_EX_TOOLWINDOW, SW_SHOW, true},
        {"SW_SHOWNOACTIVATE", 0, SW_SHOWNOACTIVATE, false},
        {"SW_SHOWNA", 0, SW_SHOWNA, false},
    };
    const PlatformWindow first(Popup("first"));
    for (const auto& c : cases) {
        SetActiveWindow(first);
        const PlatformWindow second(Popup("second", kBeside).Hidden().ExStyled(c.exStyle));
        ShowWindow(second, c.command);
        EXPECT_TRUE(IsWindowVisible(second)) << c.name;
        EXPECT_EQ(GetActiveWindow() == second, c.isActivated) << c.name;
        EXPECT_EQ(GetFocus(), GetActiveWindow()) << c.name;
    }
}

TEST_F(Creation, SetWindowPosShowsAndHidesWithoutShowWindowMessage)
{
    const PlatformWindow window(Popup().Hidden());
    Settle();
    constexpr UINT kKeep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(window, nullptr, 0, 0, 0, 0, kKeep | SWP_SHOWWINDOW);
    EXPECT_TRUE(log.Tells("w WINDOWPOSCHANGING NCPAINT ERASEBKGND WINDOWPOSCHANGED", kLife));
    EXPECT_TRUE(IsWindowVisible(window));
    log.Clear();
    SetWindowPos(window, nullptr, 0, 0, 0, 0, kKeep | SWP_HIDEWINDOW);
    EXPECT_TRUE(log.Tells("w WINDOWPOSCHANGING WINDOWPOSCHANGED", kLife));
    EXPECT_FALSE(IsWindowVisible(window));
}

TEST_F(Creation, HidingTheActiveWindowActivatesThePreviousOne)
{
    const PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", kBeside));
    Settle();
    ShowWindow(second, SW_HIDE);
    EXPECT_TRUE(
        log.Tells("second SHOWWINDOW WINDOWPOSCHANGING WINDOWPOSCHANGED ACTIVATE, first ACTIVATE, "
                  "second KILLFOCUS, first SETFOCUS"));
    EXPECT_EQ(GetActiveWindow(), first);
}

TEST_F(Creation, HidingAnOwnerLeavesItsPopupsShown)
{
    const PlatformWindow owner(Popup("owner"));
    const PlatformWindow owned(Popup("owned", kBeside).Below(owner));
    ShowWindow(owner, SW_HIDE);
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
    EXPECT_FALSE(IsWindow(handle));
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
    EXPECT_EQ(GetActiveWindow(), before);
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

TEST_F(Creation, AWindowMayDestroyItselfWhileItAnswers)
{
    const PlatformWindow window(Popup().Answering([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_APP)
            return std::nullopt;
        DestroyWindow(message.handle);
        return IsWindow(message.handle) ? 0 : 42;
    }));
    EXPECT_EQ(SendMessageA(window, WM_APP, 0, 0), 42);
    EXPECT_EQ(window.Handle(), nullptr);
}
