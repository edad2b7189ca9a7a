// What a window is told while it is created, shown, hidden and destroyed, and in which order.

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<UINT> kLife{WM_GETMINMAXINFO, WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE,
                              WM_PARENTNOTIFY, WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_NCACTIVATE,
                              WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_NCPAINT, WM_ERASEBKGND, WM_PAINT,
                              WM_DESTROY, WM_NCDESTROY};

class Creation : public WindowTest {};

}  // namespace

TEST_F(Creation, SendsItsMessagesBeforeItReturns)
{
    const PlatformWindow parent(Hidden(Popup("parent")));
    struct Case {
        const char* name;
        DWORD style;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases{
        {"hidden overlapped", WS_OVERLAPPEDWINDOW,
         {"w WM_GETMINMAXINFO", "w WM_NCCREATE", "w WM_NCCALCSIZE", "w WM_CREATE"}},
        {"hidden popup", WS_POPUP, {"w WM_NCCREATE", "w WM_NCCALCSIZE", "w WM_CREATE", "w WM_SIZE", "w WM_MOVE"}},
        {"hidden child", WS_CHILD,
         {"w WM_NCCREATE", "w WM_NCCALCSIZE", "w WM_CREATE", "w WM_SIZE", "w WM_MOVE", "parent WM_PARENTNOTIFY"}},
        {"visible child of a hidden parent", WS_CHILD | WS_VISIBLE,
         {"w WM_NCCREATE", "w WM_NCCALCSIZE", "w WM_CREATE", "w WM_SIZE", "w WM_MOVE", "parent WM_PARENTNOTIFY",
          "w WM_SHOWWINDOW"}},
        {"visible popup", WS_POPUP | WS_VISIBLE,
         {"w WM_NCCREATE", "w WM_NCCALCSIZE", "w WM_CREATE", "w WM_SIZE", "w WM_MOVE", "w WM_SHOWWINDOW",
          "w WM_WINDOWPOSCHANGING", "w WM_NCACTIVATE", "w WM_ACTIVATE", "w WM_SETFOCUS", "w WM_NCPAINT",
          "w WM_ERASEBKGND", "w WM_WINDOWPOSCHANGED"}},
    };
    for (const Case& c : cases) {
        PlatformWindowOptions options = Hidden(Popup("w"));
        options.style = c.style;
        options.parent = c.style & WS_CHILD ? parent.Handle() : nullptr;
        Settle();
        const PlatformWindow window(options);
        EXPECT_EQ(log.Lines(kLife), c.expected) << c.name;
    }
}

TEST_F(Creation, TellsSizeAndPlaceOfTheClientArea)
{
    const PlatformWindow popup(Hidden(Popup("popup", {110, 120, 310, 220})));
    const PlatformWindow child(Child("child", popup, {10, -20, 50, 30}));
    for (const LoggedMessage& size : log.Only({WM_SIZE})) {
        EXPECT_EQ(size.wParam, static_cast<WPARAM>(SIZE_RESTORED));
        EXPECT_EQ(size.lParam, size.window == "popup" ? MAKELPARAM(200, 100) : MAKELPARAM(40, 50));
    }
    for (const LoggedMessage& move : log.Only({WM_MOVE})) {
        EXPECT_EQ(GET_X_LPARAM(move.lParam), move.window == "popup" ? 110 : 10);
        EXPECT_EQ(GET_Y_LPARAM(move.lParam), move.window == "popup" ? 120 : -20);
    }
}

TEST_F(Creation, PassesItsParameters)
{
    CREATESTRUCTA seen{};
    PlatformWindowOptions options = Hidden(Popup("named", {1, 2, 31, 42}));
    options.exStyle = WS_EX_TOOLWINDOW;
    options.handler = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_NCCREATE)
            seen = *reinterpret_cast<const CREATESTRUCTA*>(message.lParam);
        return std::nullopt;
    };
    const PlatformWindow window(options);
    EXPECT_EQ(seen.x, 1);
    EXPECT_EQ(seen.y, 2);
    EXPECT_EQ(seen.cx, 30);
    EXPECT_EQ(seen.cy, 40);
    EXPECT_STREQ(seen.lpszName, "named");
    EXPECT_EQ(seen.dwExStyle, WS_EX_TOOLWINDOW);
    char title[16] = "";
    EXPECT_EQ(GetWindowTextA(window.Handle(), title, sizeof title), 5);
    EXPECT_STREQ(title, "named");
    EXPECT_EQ(GetWindowTextA(window.Handle(), title, 4), 3);
    EXPECT_STREQ(title, "nam");
}

TEST_F(Creation, IsRefusedByTheProcedure)
{
    struct Case {
        const char* name;
        UINT refused;
        LRESULT answer;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases{
        {"WM_NCCREATE answered FALSE", WM_NCCREATE, 0, {"w WM_NCCREATE", "w WM_NCDESTROY"}},
        {"WM_CREATE answered -1", WM_CREATE, -1, {"w WM_NCCREATE", "w WM_CREATE", "w WM_NCDESTROY"}},
    };
    for (const Case& c : cases) {
        log.Clear();
        PlatformWindowOptions options = Hidden(Popup("w"));
        options.handler = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
            return message.message == c.refused ? std::optional(c.answer) : std::nullopt;
        };
        const PlatformWindow window(options);
        EXPECT_EQ(window.Handle(), nullptr) << c.name;
        EXPECT_EQ(log.Lines({WM_NCCREATE, WM_CREATE, WM_NCDESTROY}), c.expected) << c.name;
    }
}

TEST_F(Creation, FailsWithoutClassOrParent)
{
    EXPECT_EQ(CreateWindowExA(0, "no such class", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr), nullptr);
    const PlatformWindow orphan([&] {
        PlatformWindowOptions options = Hidden(Popup("orphan"));
        options.style = WS_CHILD;
        return options;
    }());
    EXPECT_EQ(orphan.Handle(), nullptr);
}

TEST_F(Creation, FirstShowOfAnOverlappedWindowTellsSizeAndPlaceLast)
{
    PlatformWindowOptions options = Hidden(Popup("w"));
    options.style = WS_OVERLAPPED | WS_CAPTION;
    const PlatformWindow window(options);
    Settle();
    ShowWindow(window.Handle(), SW_SHOW);
    EXPECT_THAT(log.Lines({WM_SHOWWINDOW, WM_SETFOCUS, WM_WINDOWPOSCHANGED, WM_SIZE, WM_MOVE}),
                ElementsAre("w WM_SHOWWINDOW", "w WM_SETFOCUS", "w WM_WINDOWPOSCHANGED", "w WM_SIZE", "w WM_MOVE"));
    ShowWindow(window.Handle(), SW_HIDE);
    Settle();
    ShowWindow(window.Handle(), SW_SHOW);
    EXPECT_THAT(log.Lines({WM_SIZE, WM_MOVE}), IsEmpty());
}

TEST_F(Creation, ShowErasesAtOnceAndPaintsLater)
{
    const PlatformWindow window(Hidden(Popup("w")));
    Settle();
    EXPECT_FALSE(ShowWindow(window.Handle(), SW_SHOW));
    EXPECT_THAT(log.Lines(kLife),
                ElementsAre("w WM_SHOWWINDOW", "w WM_WINDOWPOSCHANGING", "w WM_NCACTIVATE", "w WM_ACTIVATE",
                            "w WM_SETFOCUS", "w WM_NCPAINT", "w WM_ERASEBKGND", "w WM_WINDOWPOSCHANGED"));
    EXPECT_EQ(log.Only({WM_SHOWWINDOW}).front().wParam, 1U);
    EXPECT_EQ(log.Only({WM_SHOWWINDOW}).front().lParam, 0);
    log.Clear();
    EXPECT_TRUE(ShowWindow(window.Handle(), SW_SHOW));
    EXPECT_EQ(log.Count(WM_SHOWWINDOW), 0);
    Pump();
    EXPECT_THAT(log.Lines(kLife), ElementsAre("w WM_PAINT"));
}

TEST_F(Creation, ShowingActivatesAsItsCommandSays)
{
    struct Case {
        const char* name;
        DWORD exStyle;
        int command;
        bool isActivated;
    };
    const std::vector<Case> cases{
        {"SW_SHOW", 0, SW_SHOW, true},
        {"SW_SHOWNORMAL", 0, SW_SHOWNORMAL, true},
        {"SW_SHOW of a tool window", WS_EX_TOOLWINDOW, SW_SHOW, true},
        {"SW_SHOWNOACTIVATE", 0, SW_SHOWNOACTIVATE, false},
        {"SW_SHOWNA", 0, SW_SHOWNA, false},
    };
    const PlatformWindow first(Popup("first"));
    for (const Case& c : cases) {
        SetActiveWindow(first.Handle());
        PlatformWindowOptions options = Hidden(Popup("second", {400, 100, 500, 200}));
        options.exStyle = c.exStyle;
        const PlatformWindow second(options);
        ShowWindow(second.Handle(), c.command);
        EXPECT_TRUE(IsWindowVisible(second.Handle())) << c.name;
        EXPECT_EQ(GetActiveWindow(), c.isActivated ? second.Handle() : first.Handle()) << c.name;
        EXPECT_EQ(GetFocus(), c.isActivated ? second.Handle() : first.Handle()) << c.name;
    }
}

TEST_F(Creation, SetWindowPosShowsAndHidesWithoutShowWindowMessage)
{
    const PlatformWindow window(Hidden(Popup("w")));
    Settle();
    constexpr UINT kKeep = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(window.Handle(), nullptr, 0, 0, 0, 0, kKeep | SWP_SHOWWINDOW);
    EXPECT_THAT(log.Lines(kLife), ElementsAre("w WM_WINDOWPOSCHANGING", "w WM_NCPAINT", "w WM_ERASEBKGND", "w WM_WINDOWPOSCHANGED"));
    EXPECT_TRUE(IsWindowVisible(window.Handle()));
    log.Clear();
    SetWindowPos(window.Handle(), nullptr, 0, 0, 0, 0, kKeep | SWP_HIDEWINDOW);
    EXPECT_THAT(log.Lines(kLife), ElementsAre("w WM_WINDOWPOSCHANGING", "w WM_WINDOWPOSCHANGED"));
    EXPECT_FALSE(IsWindowVisible(window.Handle()));
}

TEST_F(Creation, HidingTheActiveWindowActivatesThePreviousOne)
{
    const PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", {400, 100, 500, 200}));
    Settle();
    ShowWindow(second.Handle(), SW_HIDE);
    EXPECT_THAT(log.Lines({WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_ACTIVATE, WM_KILLFOCUS, WM_SETFOCUS}),
                ElementsAre("second WM_SHOWWINDOW", "second WM_WINDOWPOSCHANGING", "second WM_WINDOWPOSCHANGED",
                            "second WM_ACTIVATE", "first WM_ACTIVATE", "second WM_KILLFOCUS", "first WM_SETFOCUS"));
    EXPECT_EQ(GetActiveWindow(), first.Handle());
}

TEST_F(Creation, HidingAnOwnerLeavesItsPopupsShown)
{
    const PlatformWindow owner(Popup("owner"));
    PlatformWindowOptions options = Popup("owned", {400, 100, 500, 200});
    options.parent = owner.Handle();
    const PlatformWindow owned(options);
    ShowWindow(owner.Handle(), SW_HIDE);
    EXPECT_TRUE(IsWindowVisible(owned.Handle()));
}

TEST_F(Creation, DestroyingAChildTellsItsParentAndMovesTheFocus)
{
    const PlatformWindow parent(Popup("parent"));
    PlatformWindow child(Child("child", parent, {10, 10, 50, 50}));
    SetWindowLongPtrA(child.Handle(), GWLP_ID, 77);
    SetFocus(child.Handle());
    Settle();
    const HWND handle = child.Handle();
    child.Destroy();
    EXPECT_THAT(log.Lines({WM_PARENTNOTIFY, WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_KILLFOCUS,
                           WM_SETFOCUS, WM_DESTROY, WM_NCDESTROY}),
                ElementsAre("parent WM_PARENTNOTIFY", "child WM_SHOWWINDOW", "child WM_WINDOWPOSCHANGING",
                            "child WM_WINDOWPOSCHANGED", "child WM_KILLFOCUS", "parent WM_SETFOCUS", "child WM_DESTROY",
                            "child WM_NCDESTROY"));
    const LoggedMessage notice = log.Only({WM_PARENTNOTIFY}).front();
    EXPECT_EQ(notice.wParam, MAKEWPARAM(WM_DESTROY, 77));
    EXPECT_EQ(reinterpret_cast<HWND>(notice.lParam), handle);
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(Creation, DestroyingATopLevelWindowTakesWhatBelongsToIt)
{
    const PlatformWindow before(Popup("before", {400, 100, 500, 200}));
    PlatformWindow window(Popup("top"));
    const PlatformWindow first(Child("first", window, {0, 0, 20, 20}));
    const PlatformWindow grandchild(Child("grandchild", first, {0, 0, 10, 10}));
    const PlatformWindow second(Child("second", window, {30, 0, 50, 20}));
    PlatformWindowOptions options = Hidden(Popup("owned", {400, 300, 500, 400}));
    options.parent = window.Handle();
    const PlatformWindow owned(options);
    ShowWindow(owned.Handle(), SW_SHOWNOACTIVATE);
    Settle();
    window.Destroy();
    EXPECT_THAT(log.Lines({WM_SHOWWINDOW, WM_ACTIVATE, WM_DESTROY, WM_NCDESTROY}),
                ElementsAre("owned WM_DESTROY", "owned WM_NCDESTROY", "top WM_ACTIVATE", "before WM_ACTIVATE", "top WM_DESTROY",
                            "first WM_DESTROY", "grandchild WM_DESTROY", "second WM_DESTROY", "grandchild WM_NCDESTROY",
                            "first WM_NCDESTROY", "second WM_NCDESTROY", "top WM_NCDESTROY"));
    EXPECT_EQ(GetActiveWindow(), before.Handle());
    EXPECT_EQ(GetFocus(), before.Handle());
}

TEST_F(Creation, DestroyingAnActivePopupActivatesItsOwner)
{
    const PlatformWindow other(Popup("other", {400, 300, 500, 400}));
    const PlatformWindow owner(Popup("owner"));
    SetActiveWindow(other.Handle());
    PlatformWindowOptions options = Popup("owned", {400, 100, 500, 200});
    options.parent = owner.Handle();
    PlatformWindow owned(options);
    ASSERT_EQ(GetActiveWindow(), owned.Handle());
    owned.Destroy();
    EXPECT_EQ(GetActiveWindow(), owner.Handle());
}

TEST_F(Creation, AWindowMayDestroyItselfWhileItAnswers)
{
    PlatformWindow window(Popup("w"));
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_APP)
            return std::nullopt;
        DestroyWindow(message.handle);
        EXPECT_FALSE(IsWindow(message.handle));
        return 42;
    });
    const HWND handle = window.Handle();
    EXPECT_EQ(SendMessageA(handle, WM_APP, 0, 0), 42);
    EXPECT_FALSE(IsWindow(handle));
}
