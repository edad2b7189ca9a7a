// Handlers that pull the windows from under the layer's feet. Which messages still come is nobody's promise;
// that everything ends in order is.

#include <cstdlib>

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

using Lifetime = WindowTest;

struct AskAtTheEnd {
    ~AskAtTheEnd()
    {
        if (IsWindow(window))
            std::_Exit(1);
    }
    HWND window = nullptr;
} g_askAtTheEnd;

}  // namespace

// An application's window object may be global, and older than everything that the layer keeps.
TEST_F(Lifetime, AGlobalObjectMayAskAboutItsWindowWhileTheProcessEnds)
{
    const PlatformWindow window(Popup("w", kBeside));
    g_askAtTheEnd.window = window;
    EXPECT_TRUE(IsWindow(g_askAtTheEnd.window));
}

TEST_F(Lifetime, AnyMessageMayDestroyItsWindow)
{
    constexpr UINT kMessages[] = {
        WM_GETMINMAXINFO, WM_NCCREATE,       WM_NCCALCSIZE,       WM_CREATE,
        WM_SIZE,          WM_MOVE,           WM_SHOWWINDOW,       WM_WINDOWPOSCHANGING,
        WM_NCACTIVATE,    WM_ACTIVATE,       WM_SETFOCUS,         WM_KILLFOCUS,
        WM_NCPAINT,       WM_ERASEBKGND,     WM_WINDOWPOSCHANGED, WM_PAINT,
        WM_NCHITTEST,     WM_SETCURSOR,      WM_MOUSEMOVE,        WM_MOUSEACTIVATE,
        WM_LBUTTONDOWN,   WM_CAPTURECHANGED, WM_CANCELMODE,       WM_ENABLE,
        WM_KEYDOWN,       WM_CHAR,           WM_SYSKEYDOWN,       WM_SYSCOMMAND,
        WM_CLOSE,         WM_DESTROY,        WM_NCDESTROY,        WM_ENTERSIZEMOVE,
        WM_MOVING,        WM_EXITSIZEMOVE,   WM_SETTEXT};
    for (const DWORD style : {DWORD{WS_OVERLAPPEDWINDOW}, WS_POPUP, WS_CHILD}) {
        for (const UINT deadly : kMessages) {
            SCOPED_TRACE(MessageName(deadly));
            const PlatformWindow other(Popup("other", kBeside));
            const auto answer = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
                if (message.message == deadly)
                    DestroyWindow(message.handle);
                return message.message == WM_NCHITTEST ? std::optional<LRESULT>(HTCAPTION) : std::nullopt;
            };
            SyntheticInput input;
            const HWND parent = style & WS_CHILD ? other.Handle() : nullptr;
            PlatformWindow window(
                Popup("w", {10, 10, 210, 110}).Styled(style).Below(parent).Answering(answer));
            Pump();
            MoveWindow(window, 20, 20, 150, 150, TRUE);
            SetFocus(window);
            SetCapture(window);
            input.PressKey('A').KeyDown(VK_MENU).PressKey('X').KeyUp(VK_MENU);
            ReleaseCapture();
            const POINT inside = SyntheticInput::At(window, 30, 30);
            input.MoveTo(inside);
            InjectButton(VK_LBUTTON, true);
            InjectMove({inside.x + 5, inside.y + 5});
            InjectButton(VK_LBUTTON, false);
            Pump();
            SetWindowTextA(window, "text");
            EnableWindow(window, FALSE);
            EnableWindow(window, TRUE);
            SetFocus(other);
            for (const int command : {SW_MAXIMIZE, SW_MINIMIZE, SW_RESTORE, SW_HIDE})
                ShowWindow(window, command);
            SendMessageA(window, WM_CLOSE, 0, 0);
            Pump();
            EXPECT_EQ(window.Handle(), nullptr);
        }
    }
}

TEST_F(Lifetime, AChildMayDestroyItsParentWhileItIsDestroyed)
{
    PlatformWindow parent(Popup("parent"));
    PlatformWindow child(Child("child", parent, {0, 0, 20, 20}));
    child.SetHandler(On(WM_DESTROY, [&](auto&) { parent.Destroy(); }));
    child.Destroy();
    EXPECT_FALSE(parent.Handle() || child.Handle());
    EXPECT_EQ(log.Count(WM_NCDESTROY), 2);
}

TEST_F(Lifetime, ActivationHandlersThatActivateDoNotGoRoundForever)
{
    PlatformWindow first(Popup("first"));
    const PlatformWindow second(Popup("second", kBeside));
    const PlatformWindow third(Popup("third", {400, 300, 500, 400}));
    SetActiveWindow(first);
    first.SetHandler(On(WM_ACTIVATE, [&](auto& message) {
        if (LOWORD(message.wParam) == WA_INACTIVE)
            SetActiveWindow(third);
    }));
    SetActiveWindow(second);
    EXPECT_EQ(GetFocus(), third);
    EXPECT_EQ(log.Last(WM_ACTIVATE).window, "third");
}
