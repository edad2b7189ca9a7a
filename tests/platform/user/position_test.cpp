// Moving, sizing and stacking windows.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

const std::vector<UINT> kPosition{WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE};
constexpr UINT kStack = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

void Stack(HWND window, HWND after, UINT flags = kStack)
{
    SetWindowPos(window, after, 0, 0, 0, 0, flags);
}

using Positions = WindowTest;

}  // namespace

TEST_F(Positions, AreToldInOrder)
{
    const Table<const char*, int, int, int, int, const char*> cases{
        {"move only", 120, -30, 200, 100, "w WINDOWPOSCHANGING WINDOWPOSCHANGED MOVE"},
        {"size only", 120, -30, 210, 110, "w WINDOWPOSCHANGING NCCALCSIZE WINDOWPOSCHANGED SIZE"},
        {"both", 100, 100, 200, 100, "w WINDOWPOSCHANGING NCCALCSIZE WINDOWPOSCHANGED MOVE SIZE"},
        {"the same rectangle", 100, 100, 200, 100, "w WINDOWPOSCHANGING"},
        {"negative extents", 100, 100, -10, -5, "w WINDOWPOSCHANGING NCCALCSIZE WINDOWPOSCHANGED SIZE"},
    };
    for (const bool isShown : {true, false}) {
        const PlatformWindow window(isShown ? Popup() : Popup().Hidden());
        for (const auto& [name, x, y, width, height, expected] : cases) {
            Settle();
            MoveWindow(window, x, y, width, height, TRUE);
            EXPECT_TRUE(log.Tells(expected, kPosition)) << name << (isShown ? ", shown" : ", hidden");
            EXPECT_EQ(PlaceOf(window), Text(RECT{x, y, x + std::max(width, 0), y + std::max(height, 0)}))
                << name;
        }
    }
}

TEST_F(Positions, AnswersDecideWhatHappensAndWhatIsTold)
{
    PlatformWindow window(Popup());
    window.SetHandler(On(WM_WINDOWPOSCHANGING,
                         [](auto& message) { reinterpret_cast<WINDOWPOS*>(message.lParam)->cx = 64; }));
    MoveWindow(window, 100, 100, 150, 80, TRUE);
    EXPECT_EQ(PlaceOf(window), "100,100,164,180");
    EXPECT_EQ(log.Last(WM_SIZE).lParam, MAKELPARAM(64, 80));
    window.SetHandler(Answer(WM_WINDOWPOSCHANGED, 0));
    Settle();
    MoveWindow(window, 120, 120, 150, 80, TRUE);
    EXPECT_TRUE(log.Tells("w WINDOWPOSCHANGING NCCALCSIZE WINDOWPOSCHANGED", kPosition)) << "swallowed";
}

TEST_F(Positions, MinimisingAndMaximisingNameTheirKindWithinTheWindowsLimits)
{
    const PlatformWindow window(
        Popup().Styled(WS_POPUP | WS_THICKFRAME).Answering(On(WM_GETMINMAXINFO, [](auto& message) {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(message.lParam);
            limits.ptMaxPosition = {7, 9};
            limits.ptMaxSize = {300, 250};
            limits.ptMinTrackSize = {150, 90};
            limits.ptMaxTrackSize = {400, 300};
        })));
    const Table<int, BOOL, BOOL, WPARAM, std::string> cases{
        {SW_MINIMIZE, TRUE, FALSE, SIZE_MINIMIZED, ""},
        {SW_RESTORE, FALSE, FALSE, SIZE_RESTORED, Text(kPlace)},
        {SW_MAXIMIZE, FALSE, TRUE, SIZE_MAXIMIZED, "7,9,307,259"},
        {SW_RESTORE, FALSE, FALSE, SIZE_RESTORED, Text(kPlace)},
    };
    for (const auto& [command, isIconic, isZoomed, kind, place] : cases) {
        Settle();
        ShowWindow(window, command);
        EXPECT_EQ(IsIconic(window), isIconic) << command;
        EXPECT_EQ(IsZoomed(window), isZoomed) << command;
        EXPECT_EQ(log.Last(WM_SIZE).wParam, kind) << command;
        EXPECT_TRUE(isIconic || PlaceOf(window) == place) << command;
    }
    MoveWindow(window, 100, 100, 60, 50, TRUE);
    EXPECT_EQ(PlaceOf(window), "100,100,250,190");
    MoveWindow(window, 100, 100, 600, 500, TRUE);
    EXPECT_EQ(PlaceOf(window), "100,100,500,400");
}

TEST_F(Positions, StackingFollowsInsertAfter)
{
    const PlatformWindow parent(Popup("parent"));
    const PlatformWindow a(Child("a", parent, {0, 0, 10, 10}));
    const PlatformWindow b(Child("b", parent, {0, 0, 10, 10}));
    const PlatformWindow c(Child("c", parent, {0, 0, 10, 10}));
    const auto order = [&] {
        std::string names;
        for (HWND at = GetWindow(parent, GW_CHILD); at; at = GetWindow(at, GW_HWNDNEXT))
            names += at == a ? "a" : at == b ? "b" : "c";
        return names;
    };
    EXPECT_EQ(order(), "abc") << "a new child goes below its siblings";
    Stack(c, HWND_TOP);
    EXPECT_EQ(order(), "cab");
    Stack(c, a);
    EXPECT_EQ(order(), "acb");
    Stack(a, HWND_BOTTOM);
    EXPECT_EQ(order(), "cba");
}

TEST_F(Positions, StackingActivatesUnlessToldNot)
{
    const PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", kBeside));
    Stack(first, HWND_TOP);
    EXPECT_EQ(GetActiveWindow(), second);
    Stack(second, HWND_TOP);
    Settle();
    Stack(first, HWND_TOP, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetActiveWindow(), first);
    EXPECT_TRUE(
        log.Tells("first WINDOWPOSCHANGING, second ACTIVATE, first ACTIVATE SETFOCUS WINDOWPOSCHANGED"));
}

TEST_F(Positions, TopmostPopupsStayAbove)
{
    const PlatformWindow below(Popup("below", {100, 100, 300, 300}));
    const auto onTop = [] { return WindowFromPoint({200, 200}); };
    const PlatformWindow topmost(Popup("topmost", {150, 150, 250, 250}).Hidden().ExStyled(WS_EX_TOPMOST));
    ShowWindow(topmost, SW_SHOWNOACTIVATE);
    Stack(below, HWND_TOP, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(onTop(), topmost);
    Stack(topmost, HWND_NOTOPMOST);
    Stack(below, HWND_TOP);
    EXPECT_EQ(onTop(), below);
    Stack(topmost, HWND_TOPMOST);
    EXPECT_EQ(onTop(), topmost);
}
