// Questions about the window tree, shapes, and handles that are stale.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

class Query : public WindowTest {
protected:
    PlatformWindow top{Popup("top")};
};

}  // namespace

TEST_F(Query, ParentIsParentOrOwnerOfAPopup)
{
    const PlatformWindow child(Child("child", top, {0, 0, 10, 10}));
    const PlatformWindow grandchild(Child("grandchild", child, {0, 0, 10, 10}));
    // With the window given, and the parent and owner answered
    const Table<const char*, DWORD, HWND, HWND, HWND> cases{
        {"child", WS_CHILD, child, child, nullptr},
        {"owned popup", WS_POPUP, top, top, top},
        {"unowned popup", WS_POPUP, nullptr, nullptr, nullptr},
        {"owned overlapped", WS_OVERLAPPED, top, nullptr, top},
        {"a child given as owner", WS_POPUP, grandchild, top, top},
    };
    for (const auto& [name, style, given, parent, owner] : cases) {
        const PlatformWindow window(Popup().Hidden().Styled(style).Below(given));
        EXPECT_EQ(GetParent(window), parent) << name;
        EXPECT_EQ(GetWindow(window, GW_OWNER), owner) << name;
    }
    EXPECT_EQ(GetAncestor(grandchild, GA_ROOT), top);
    EXPECT_EQ(GetAncestor(grandchild, GA_PARENT), child);
    EXPECT_TRUE(IsChild(top, grandchild));
    EXPECT_FALSE(IsChild(top, top));
    const PlatformWindow owned(Popup("owned").Hidden().Below(top));
    const PlatformWindow inOwned(Child("inOwned", owned, {0, 0, 10, 10}));
    EXPECT_EQ(GetAncestor(inOwned, GA_ROOT), owned);
    EXPECT_EQ(GetAncestor(inOwned, GA_ROOTOWNER), top);
}

TEST_F(Query, TabItemsGoRoundAndSkipWhatCannotTakeTheFocus)
{
    EXPECT_EQ(GetNextDlgTabItem(top, nullptr, FALSE), nullptr);
    const auto stop = [&](const char* name, DWORD style = WS_VISIBLE) {
        return Child(name, top, {0, 0, 10, 10}).Styled(WS_CHILD | WS_TABSTOP | style);
    };
    const PlatformWindow first(stop("first"));
    const PlatformWindow disabled(stop("disabled", WS_VISIBLE | WS_DISABLED));
    const PlatformWindow hidden(stop("hidden", 0));
    const PlatformWindow second(stop("second"));
    EXPECT_EQ(GetNextDlgTabItem(top, nullptr, FALSE), first);
    EXPECT_EQ(GetNextDlgTabItem(top, first, FALSE), second);
    EXPECT_EQ(GetNextDlgTabItem(top, second, FALSE), first);
    EXPECT_EQ(GetNextDlgTabItem(top, first, TRUE), second);
}

TEST_F(Query, StaleHandlesAnswerNothing)
{
    PlatformWindow gone(Popup("gone", kBeside));
    const HWND handle = gone;
    gone.Destroy();
    const PlatformWindow successor(Popup("successor", kBeside));
    for (const HWND stale : {handle, reinterpret_cast<HWND>(INT_PTR{0x1234568}), HWND{nullptr}}) {
        RECT rect{};
        POINT point{};
        EXPECT_FALSE(IsWindow(stale) || IsWindowVisible(stale) || IsWindowEnabled(stale));
        EXPECT_FALSE(GetClientRect(stale, &rect) || GetWindowRect(stale, &rect) ||
                     ShowWindow(stale, SW_SHOW));
        EXPECT_FALSE(DestroyWindow(stale) || SetWindowTextA(stale, "text"));
        EXPECT_EQ(GetParent(stale), nullptr);
        EXPECT_EQ(GetWindowLongPtrA(stale, GWLP_USERDATA) + GetDlgCtrlID(stale), 0);
        if (stale) {
            EXPECT_FALSE(ClientToScreen(stale, &point) || InvalidateRect(stale, nullptr, FALSE));
            EXPECT_EQ(GetDC(stale), nullptr);
        }
    }
    EXPECT_TRUE(IsWindow(successor));
}

TEST_F(Query, ValuesBelongToTheWindowAndTitlesAreCutToTheBuffer)
{
    const LONG_PTR own = SetWindowLongPtrA(top, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProcA));
    SendMessageA(top, WM_APP, 0, 0);
    SetWindowLongPtrA(top, GWLP_WNDPROC, own);
    SendMessageA(top, WM_APP + 1, 0, 0);
    EXPECT_TRUE(log.Tells("top APP+1", {WM_APP})) << "while the procedure was another one";
    EXPECT_EQ(SetWindowLongPtrA(top, GWLP_USERDATA, 1234), 0);
    EXPECT_EQ(SetWindowLongPtrA(top, GWLP_USERDATA, 5678), 1234);
    EXPECT_TRUE(SetWindowTextA(top, "new title"));
    EXPECT_EQ(GetWindowTextLengthA(top), 9);
    char text[20] = "";
    EXPECT_EQ(GetWindowTextA(top, text, sizeof text), 9);
    EXPECT_STREQ(text, "new title");
    EXPECT_EQ(GetWindowTextA(top, text, 4), 3);
    EXPECT_STREQ(text, "new");
}

TEST_F(Query, ARegionBelongsToTheWindowAndCutsItsHitArea)
{
    EXPECT_NE(SetWindowRgn(top, CreateRectRgn(0, 0, 50, 50), TRUE), 0);
    EXPECT_EQ(WindowFromPoint({120, 120}), top);
    EXPECT_NE(WindowFromPoint({180, 180}), top);
    const HRGN copy = CreateRectRgn(0, 0, 1, 1);
    EXPECT_EQ(GetWindowRgn(top, copy), SIMPLEREGION);
    EXPECT_TRUE(PtInRegion(copy, 49, 49));
    EXPECT_NE(SetWindowRgn(top, nullptr, TRUE), 0);
    EXPECT_EQ(WindowFromPoint({180, 180}), top);
    EXPECT_EQ(GetWindowRgn(top, copy), ERROR);
    DeleteObject(copy);
}
