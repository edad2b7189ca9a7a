// Moving, sizing and stacking windows.

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;

namespace {

const std::vector<UINT> kPosition{WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE};

class Positions : public WindowTest {
protected:
    static RECT PlaceOf(const PlatformWindow& window)
    {
        RECT rect{};
        GetWindowRect(window.Handle(), &rect);
        return rect;
    }
    static std::vector<LONG> Numbers(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
};

}  // namespace

TEST_F(Positions, AreToldInOrder)
{
    struct Case {
        const char* name;
        RECT place;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases{
        {"move only", {120, 130, 320, 230}, {"w WM_WINDOWPOSCHANGING", "w WM_WINDOWPOSCHANGED", "w WM_MOVE"}},
        {"size only", {120, 130, 330, 240}, {"w WM_WINDOWPOSCHANGING", "w WM_NCCALCSIZE", "w WM_WINDOWPOSCHANGED", "w WM_SIZE"}},
        {"both", {100, 100, 300, 200},
         {"w WM_WINDOWPOSCHANGING", "w WM_NCCALCSIZE", "w WM_WINDOWPOSCHANGED", "w WM_MOVE", "w WM_SIZE"}},
        {"the same rectangle", {100, 100, 300, 200}, {"w WM_WINDOWPOSCHANGING"}},
        {"negative extents are none", {100, 100, 90, 95},
         {"w WM_WINDOWPOSCHANGING", "w WM_NCCALCSIZE", "w WM_WINDOWPOSCHANGED", "w WM_SIZE"}},
    };
    for (const bool isShown : {true, false}) {
        PlatformWindowOptions options = Popup("w");
        options.isShown = isShown;
        const PlatformWindow window(options);
        for (const Case& c : cases) {
            Settle();
            MoveWindow(window.Handle(), c.place.left, c.place.top, c.place.right - c.place.left,
                       c.place.bottom - c.place.top, TRUE);
            EXPECT_EQ(log.Lines(kPosition), c.expected) << c.name << (isShown ? ", shown" : ", hidden");
            const RECT expected{c.place.left, c.place.top, std::max(c.place.right, c.place.left),
                                std::max(c.place.bottom, c.place.top)};
            EXPECT_EQ(Numbers(PlaceOf(window)), Numbers(expected)) << c.name;
        }
    }
}

TEST_F(Positions, CarryClientSizeAndPlace)
{
    const PlatformWindow window(Popup("w"));
    const PlatformWindow child(Child("child", window, {0, 0, 10, 10}));
    Settle();
    MoveWindow(child.Handle(), -5, 7, 30, 40, TRUE);
    EXPECT_EQ(GET_X_LPARAM(log.Only({WM_MOVE}).front().lParam), -5);
    EXPECT_EQ(GET_Y_LPARAM(log.Only({WM_MOVE}).front().lParam), 7);
    EXPECT_EQ(log.Only({WM_SIZE}).front().lParam, MAKELPARAM(30, 40));
    EXPECT_EQ(Numbers(PlaceOf(child)), (std::vector<LONG>{95, 107, 125, 147}));
}

TEST_F(Positions, AnswerOfTheChangingMessageIsWhatHappens)
{
    PlatformWindow window(Popup("w"));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_WINDOWPOSCHANGING)
            reinterpret_cast<WINDOWPOS*>(message.lParam)->cx = 64;
        return std::nullopt;
    });
    Settle();
    MoveWindow(window.Handle(), 100, 100, 150, 80, TRUE);
    EXPECT_EQ(Numbers(PlaceOf(window)), (std::vector<LONG>{100, 100, 164, 180}));
    EXPECT_EQ(log.Only({WM_SIZE}).front().lParam, MAKELPARAM(64, 80));
}

TEST_F(Positions, WhoSwallowsTheChangedMessageIsNotToldSizeAndPlace)
{
    PlatformWindow window(Popup("w"));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        return message.message == WM_WINDOWPOSCHANGED ? std::optional<LRESULT>(0) : std::nullopt;
    });
    Settle();
    MoveWindow(window.Handle(), 120, 120, 150, 80, TRUE);
    EXPECT_THAT(log.Lines(kPosition), ElementsAre("w WM_WINDOWPOSCHANGING", "w WM_NCCALCSIZE", "w WM_WINDOWPOSCHANGED"));
}

TEST_F(Positions, MinimisingAndMaximisingNameTheirKind)
{
    const PlatformWindow window(Popup("w"));
    Settle();
    ShowWindow(window.Handle(), SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(window.Handle()));
    EXPECT_EQ(log.Only({WM_SIZE}).back().wParam, static_cast<WPARAM>(SIZE_MINIMIZED));
    EXPECT_EQ(log.Only({WM_SIZE}).back().lParam, 0);
    Settle();
    ShowWindow(window.Handle(), SW_RESTORE);
    EXPECT_FALSE(IsIconic(window.Handle()));
    EXPECT_EQ(log.Only({WM_SIZE}).back().wParam, static_cast<WPARAM>(SIZE_RESTORED));
    EXPECT_EQ(log.Only({WM_SIZE}).back().lParam, MAKELPARAM(200, 100));
    Settle();
    ShowWindow(window.Handle(), SW_MAXIMIZE);
    EXPECT_TRUE(IsZoomed(window.Handle()));
    EXPECT_EQ(log.Only({WM_SIZE}).back().wParam, static_cast<WPARAM>(SIZE_MAXIMIZED));
    EXPECT_EQ(log.Only({WM_SIZE}).back().lParam, MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    ShowWindow(window.Handle(), SW_RESTORE);
    EXPECT_FALSE(IsZoomed(window.Handle()));
    EXPECT_EQ(Numbers(PlaceOf(window)), (std::vector<LONG>{100, 100, 300, 200}));
}

TEST_F(Positions, MaximisingAsksForTheLargestPlace)
{
    PlatformWindow window(Popup("w"));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_GETMINMAXINFO)
            return std::nullopt;
        auto& limits = *reinterpret_cast<MINMAXINFO*>(message.lParam);
        limits.ptMaxPosition = {7, 9};
        limits.ptMaxSize = {300, 250};
        return 0;
    });
    ShowWindow(window.Handle(), SW_MAXIMIZE);
    EXPECT_EQ(Numbers(PlaceOf(window)), (std::vector<LONG>{7, 9, 307, 259}));
}

TEST_F(Positions, TrackSizesLimitASizableWindow)
{
    PlatformWindowOptions options = Popup("w");
    options.style = WS_POPUP | WS_THICKFRAME;
    PlatformWindow window(options);
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_GETMINMAXINFO)
            return std::nullopt;
        auto& limits = *reinterpret_cast<MINMAXINFO*>(message.lParam);
        limits.ptMinTrackSize = {150, 90};
        limits.ptMaxTrackSize = {400, 300};
        return 0;
    });
    MoveWindow(window.Handle(), 100, 100, 60, 50, TRUE);
    EXPECT_EQ(Numbers(PlaceOf(window)), (std::vector<LONG>{100, 100, 250, 190}));
    MoveWindow(window.Handle(), 100, 100, 600, 500, TRUE);
    EXPECT_EQ(Numbers(PlaceOf(window)), (std::vector<LONG>{100, 100, 500, 400}));
}

TEST_F(Positions, StackingFollowsInsertAfter)
{
    const PlatformWindow parent(Popup("parent"));
    const PlatformWindow a(Child("a", parent, {0, 0, 10, 10}));
    const PlatformWindow b(Child("b", parent, {0, 0, 10, 10}));
    const PlatformWindow c(Child("c", parent, {0, 0, 10, 10}));
    const auto order = [&] {
        std::vector<HWND> handles;
        for (HWND at = GetWindow(parent.Handle(), GW_CHILD); at; at = GetWindow(at, GW_HWNDNEXT))
            handles.push_back(at);
        return handles;
    };
    // A new child goes below its siblings.
    EXPECT_THAT(order(), ElementsAre(a.Handle(), b.Handle(), c.Handle()));
    constexpr UINT kStack = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(c.Handle(), HWND_TOP, 0, 0, 0, 0, kStack);
    EXPECT_THAT(order(), ElementsAre(c.Handle(), a.Handle(), b.Handle()));
    SetWindowPos(c.Handle(), a.Handle(), 0, 0, 0, 0, kStack);
    EXPECT_THAT(order(), ElementsAre(a.Handle(), c.Handle(), b.Handle()));
    SetWindowPos(a.Handle(), HWND_BOTTOM, 0, 0, 0, 0, kStack);
    EXPECT_THAT(order(), ElementsAre(c.Handle(), b.Handle(), a.Handle()));
}

TEST_F(Positions, StackingActivatesUnlessToldNot)
{
    const PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", {400, 100, 500, 200}));
    constexpr UINT kKeep = SWP_NOMOVE | SWP_NOSIZE;
    SetWindowPos(first.Handle(), HWND_TOP, 0, 0, 0, 0, kKeep | SWP_NOACTIVATE);
    EXPECT_EQ(GetActiveWindow(), second.Handle());
    SetWindowPos(second.Handle(), HWND_TOP, 0, 0, 0, 0, kKeep | SWP_NOACTIVATE);
    Settle();
    SetWindowPos(first.Handle(), HWND_TOP, 0, 0, 0, 0, kKeep);
    EXPECT_EQ(GetActiveWindow(), first.Handle());
    EXPECT_THAT(log.Lines({WM_WINDOWPOSCHANGING, WM_ACTIVATE, WM_SETFOCUS, WM_WINDOWPOSCHANGED}),
                ElementsAre("first WM_WINDOWPOSCHANGING", "second WM_ACTIVATE", "first WM_ACTIVATE", "first WM_SETFOCUS",
                            "first WM_WINDOWPOSCHANGED"));
}

TEST_F(Positions, OwnedPopupsStayAboveTheirOwner)
{
    const PlatformWindow owner(Popup("owner", {100, 100, 300, 300}));
    PlatformWindowOptions options = Popup("owned", {150, 150, 250, 250});
    options.parent = owner.Handle();
    const PlatformWindow owned(options);
    SetActiveWindow(owner.Handle());
    EXPECT_EQ(WindowFromPoint({200, 200}), owned.Handle());
    SetWindowPos(owner.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(WindowFromPoint({200, 200}), owned.Handle());
}

TEST_F(Positions, ATopmostWindowStaysAboveAnActivatedOne)
{
    const PlatformWindow plain(Popup("plain", {100, 100, 300, 300}));
    PlatformWindowOptions options = Hidden(Popup("topmost", {150, 150, 250, 250}));
    options.exStyle = WS_EX_TOPMOST;
    const PlatformWindow topmost(options);
    ShowWindow(topmost.Handle(), SW_SHOWNOACTIVATE);
    SetActiveWindow(plain.Handle());
    SetWindowPos(plain.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(WindowFromPoint({200, 200}), topmost.Handle());
    SetWindowPos(topmost.Handle(), HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetWindowPos(plain.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(WindowFromPoint({200, 200}), plain.Handle());
    SetWindowPos(topmost.Handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(WindowFromPoint({200, 200}), topmost.Handle());
    EXPECT_TRUE(GetWindowLongA(topmost.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST);
}

TEST_F(Positions, ScreenAndClientCoordinatesConvertThroughAllParents)
{
    const PlatformWindow window(Popup("w", {100, 110, 300, 310}));
    const PlatformWindow child(Child("child", window, {10, 20, 110, 120}));
    const PlatformWindow grandchild(Child("grandchild", child, {1, 2, 50, 50}));
    POINT point{3, 4};
    EXPECT_TRUE(ClientToScreen(grandchild.Handle(), &point));
    EXPECT_EQ(point.x, 114);
    EXPECT_EQ(point.y, 136);
    EXPECT_TRUE(ScreenToClient(child.Handle(), &point));
    EXPECT_EQ(point.x, 4);
    EXPECT_EQ(point.y, 6);
}
