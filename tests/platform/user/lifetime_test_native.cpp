// Handlers that pull the windows from under the layer's feet. Which messages still come is nobody's promise;
// that everything ends in order is.

#include <cstdlib>

#include "platform/platform_test.h"
#include "support/input_source.h"
#include "support/platform_window.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

using Lifetime = PlatformTest;

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
    const PlatformWindow window;
    g_askAtTheEnd.window = window;
    EXPECT_TRUE(IsWindow(g_askAtTheEnd.window));
}

TEST_F(Lifetime, AnyMessageMayDestroyItsWindow)
{
    for (const DWORD style : {DWORD{WS_OVERLAPPEDWINDOW}, WS_POPUP, WS_CHILD}) {
        for (UINT deadly = WM_CREATE; deadly < WM_USER; ++deadly) {
            if (MessageName(deadly)[0] == '0')
                continue;
            SCOPED_TRACE(MessageName(deadly));
            const PlatformWindow other({.place = {400, 100, 500, 200}});
            const auto answer = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
                if (message.message == deadly)
                    DestroyWindow(message.handle);
                return message.message == WM_NCHITTEST ? std::optional<LRESULT>(HTCAPTION) : std::nullopt;
            };
            SyntheticInput input;
            const HWND parent = style & WS_CHILD ? other.Handle() : nullptr;
            const PlatformWindow window(
                {.place = {10, 10, 210, 110}, .style = style, .parent = parent, .handler = answer});
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
