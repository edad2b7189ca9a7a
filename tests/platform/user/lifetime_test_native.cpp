// Handlers that pull the windows from under the layer's feet. Which messages still come is nobody's promise; that
// everything ends in order is.

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

class Lifetime : public WindowTest {};

}  // namespace

TEST_F(Lifetime, AnyMessageMayDestroyItsWindow)
{
    constexpr UINT kMessages[] = {WM_GETMINMAXINFO, WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW,
                                  WM_WINDOWPOSCHANGING, WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_NCPAINT,
                                  WM_ERASEBKGND, WM_WINDOWPOSCHANGED, WM_PAINT, WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEMOVE,
                                  WM_MOUSEACTIVATE, WM_LBUTTONDOWN, WM_CAPTURECHANGED, WM_CANCELMODE, WM_ENABLE, WM_KEYDOWN,
                                  WM_CHAR, WM_SYSKEYDOWN, WM_SYSCOMMAND, WM_CLOSE, WM_DESTROY, WM_NCDESTROY,
                                  WM_ENTERSIZEMOVE, WM_MOVING, WM_EXITSIZEMOVE, WM_SETTEXT};
    for (const DWORD style : {DWORD{WS_OVERLAPPEDWINDOW}, WS_POPUP, WS_CHILD}) {
        for (const UINT deadly : kMessages) {
            SCOPED_TRACE(MessageName(deadly));
            const PlatformWindow other(Popup("other", {400, 100, 500, 200}));
            PlatformWindowOptions options = Popup("w", {10, 10, 210, 110});
            options.style = style;
            options.parent = style & WS_CHILD ? other.Handle() : nullptr;
            options.handler = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
                if (message.message == deadly)
                    DestroyWindow(message.handle);
                return message.message == WM_NCHITTEST ? std::optional<LRESULT>(HTCAPTION) : std::nullopt;
            };
            SyntheticInput input;
            PlatformWindow window(options);
            Pump();
            MoveWindow(window.Handle(), 20, 20, 150, 150, TRUE);
            SetFocus(window.Handle());
            SetCapture(window.Handle());
            input.PressKey('A').KeyDown(VK_MENU).PressKey('X').KeyUp(VK_MENU);
            ReleaseCapture();
            const POINT inside = SyntheticInput::At(window.Handle(), 30, 30);
            input.MoveTo(inside);
            InjectButton(VK_LBUTTON, true);
            InjectMove({inside.x + 5, inside.y + 5});
            InjectButton(VK_LBUTTON, false);
            Pump();
            SetWindowTextA(window.Handle(), "text");
            EnableWindow(window.Handle(), FALSE);
            EnableWindow(window.Handle(), TRUE);
            SetFocus(other.Handle());
            ShowWindow(window.Handle(), SW_MAXIMIZE);
            ShowWindow(window.Handle(), SW_MINIMIZE);
            ShowWindow(window.Handle(), SW_RESTORE);
            ShowWindow(window.Handle(), SW_HIDE);
            SendMessageA(window.Handle(), WM_CLOSE, 0, 0);
            Pump();
            EXPECT_EQ(window.Handle(), nullptr);
        }
    }
}

TEST_F(Lifetime, AChildMayDestroyItsParentWhileItIsDestroyed)
{
    PlatformWindow parent(Popup("parent"));
    PlatformWindow child(Child("child", parent, {0, 0, 20, 20}));
    const HWND top = parent.Handle();
    child.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_DESTROY)
            DestroyWindow(top);
        return std::nullopt;
    });
    child.Destroy();
    EXPECT_FALSE(IsWindow(top));
    EXPECT_EQ(child.Handle(), nullptr);
    EXPECT_EQ(log.Count(WM_NCDESTROY), 2);
}

TEST_F(Lifetime, ActivationHandlersThatActivateDoNotGoRoundForever)
{
    PlatformWindow first(Popup("first"));
    PlatformWindow second(Popup("second", {400, 100, 500, 200}));
    const PlatformWindow third(Popup("third", {400, 300, 500, 400}));
    SetActiveWindow(first.Handle());
    first.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_ACTIVATE && LOWORD(message.wParam) == WA_INACTIVE)
            SetActiveWindow(third.Handle());
        return std::nullopt;
    });
    SetActiveWindow(second.Handle());
    EXPECT_EQ(GetActiveWindow(), third.Handle());
    EXPECT_EQ(GetFocus(), third.Handle());
    EXPECT_EQ(log.Only({WM_ACTIVATE}).back().window, "third");
}

TEST_F(Lifetime, ManyWindowsPaintAndTakeInputInOrder)
{
    PlatformWindow parent(Popup("parent", {0, 0, 1000, 800}));
    std::vector<std::unique_ptr<PlatformWindow>> children;
    for (int i = 0; i < 1000; ++i)
        children.push_back(std::make_unique<PlatformWindow>(
            Child("child", parent, {i % 40 * 20, i / 40 * 20, i % 40 * 20 + 18, i / 40 * 20 + 18})));
    Settle();
    RedrawWindow(parent.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    Pump();
    EXPECT_EQ(log.Count(WM_PAINT), 1001);
    EXPECT_EQ(log.Only({WM_PAINT}).front().window, "parent");
    SyntheticInput input;
    input.MoveTo({39 * 20 + 5, 24 * 20 + 5});
    EXPECT_EQ(log.Only({WM_MOUSEMOVE}).back().handle, children.back()->Handle());
}
