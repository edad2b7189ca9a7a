// Turns mouse events into messages: target window, message, and side effects such as activation.

#include "native/user/mouse.h"

#include <algorithm>
#include <cstdlib>

#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/hover.h"
#include "native/user/input.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

constexpr int kDoubleClickExtent = 4;

struct ButtonMessages {
    int button;
    UINT down;
    UINT up;
    UINT doubleClick;
    UINT ncDown;
    UINT ncUp;
    UINT ncDoubleClick;
};
constexpr ButtonMessages kButtons[] = {
    {VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONUP,
     WM_NCLBUTTONDBLCLK},
    {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_NCRBUTTONDOWN, WM_NCRBUTTONUP,
     WM_NCRBUTTONDBLCLK},
    {VK_MBUTTON, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, WM_NULL, WM_NULL, WM_NULL},
};

LPARAM Packed(POINT point)
{
    return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}

struct Target {
    HWND window = nullptr;
    int hit = HTCLIENT;
};

// The topmost window under the point that does not report HTTRANSPARENT.
Target FindUnder(POINT screen)
{
    for (const HWND window : WindowsAt(screen)) {
        if (!LookUpWindow(window))
            continue;
        const auto hit = static_cast<int>(SendMessageA(window, WM_NCHITTEST, 0, Packed(screen)));
        if (hit != HTTRANSPARENT && LookUpWindow(window))
            return {window, hit};
    }
    return {};
}

Target FindTarget(POINT screen)
{
    const InputState& state = TheDesktop().input;
    return LookUpWindow(state.capture) ? Target{state.capture, HTCLIENT} : FindUnder(screen);
}

bool IsDoubleClick(HWND window, const InputEvent& event)
{
    const Window* found = LookUpWindow(window);
    return found && (found->windowClass->definition.style & CS_DBLCLKS) &&
           TheDesktop().lastPress.window == window && TheDesktop().lastPress.button == event.code &&
           event.time - TheDesktop().lastPress.time <= kDoubleClickTime &&
           std::abs(event.screen.x - TheDesktop().lastPress.at.x) < kDoubleClickExtent / 2 &&
           std::abs(event.screen.y - TheDesktop().lastPress.at.y) < kDoubleClickExtent / 2;
}

UINT ButtonMessage(const InputEvent& event, const Target& target)
{
    const auto* names = std::find_if(std::begin(kButtons), std::end(kButtons),
                                     [&](const ButtonMessages& entry) { return entry.button == event.code; });
    if (names == std::end(kButtons))
        return WM_NULL;
    const bool isClient = target.hit == HTCLIENT;
    if (!event.isDown)
        return isClient ? names->up : names->ncUp;
    if (IsDoubleClick(target.window, event))
        return isClient ? names->doubleClick : names->ncDoubleClick;
    return isClient ? names->down : names->ncDown;
}

UINT MessageOf(const InputEvent& event, const Target& target)
{
    switch (event.kind) {
        case InputEvent::Kind::Button:
            return ButtonMessage(event, target);
        case InputEvent::Kind::Wheel:
            return WM_MOUSEWHEEL;
        default:
            return target.hit == HTCLIENT ? WM_MOUSEMOVE : WM_NCMOUSEMOVE;
    }
}

bool IsDoubleClickMessage(UINT message)
{
    return std::any_of(std::begin(kButtons), std::end(kButtons), [&](const ButtonMessages& names) {
        return message != WM_NULL && (message == names.doubleClick || message == names.ncDoubleClick);
    });
}

void RememberPress(const InputEvent& event, const MSG& message)
{
    // A third press is a single click again.
    TheDesktop().lastPress = {IsDoubleClickMessage(message.message) ? nullptr : message.hwnd, event.code,
                              event.screen, event.time};
}

// Notifies all ancestors of a press in a child, in their own client coordinates.
void NotifyParentsOfPress(HWND handle, const MSG& message)
{
    for (const Window* window = LookUpWindow(handle); window && window->IsChild();) {
        const HWND parent = window->parent;
        POINT client = message.pt;
        ScreenToClient(parent, &client);
        SendMessageA(parent, WM_PARENTNOTIFY, message.message, Packed(client));
        window = LookUpWindow(parent);
    }
}

// Asks whether a press activates the top-level window. Returns false if the press is discarded.
bool ActivateByPress(const RoutedInput& routed)
{
    Window* window = LookUpWindow(routed.message.hwnd);
    if (!window)
        return false;
    const HWND root = RootOf(*window)->handle;
    if (GetActiveWindow() == routed.message.hwnd)
        return true;
    const auto answer = SendMessageA(routed.message.hwnd, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(root),
                                     MAKELPARAM(static_cast<WORD>(routed.hit), routed.message.message));
    if (LookUpWindow(root) && (answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0))
        ActivateWindow(root, WA_CLICKACTIVE);
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

void SendSetCursor(const RoutedInput& routed)
{
    SendMessageA(
        routed.message.hwnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(routed.message.hwnd),
        MAKELPARAM(static_cast<WORD>(routed.hit),
                   routed.message.message == WM_NCMOUSEMOVE ? WM_MOUSEMOVE : routed.message.message));
}

}  // namespace

HWND WindowTakingMouse(POINT screen)
{
    return FindUnder(screen).window;
}

bool RouteMouse(const InputEvent& event, RoutedInput& routed)
{
    const Target target = FindTarget(event.screen);
    MSG& message = routed.message;
    message.hwnd = target.window;
    message.message = target.window ? MessageOf(event, target) : WM_NULL;
    routed.hit = target.hit;
    if (message.message == WM_NULL)
        return false;
    KeyStates keys = TheDesktop().input.keys;
    if (event.kind == InputEvent::Kind::Button)
        keys.Apply(event.code, event.isDown);
    POINT client = event.screen;
    ScreenToClient(target.window, &client);
    if (event.kind == InputEvent::Kind::Wheel) {
        message.wParam = MAKEWPARAM(MouseKeys(keys), static_cast<WORD>(event.code));
        message.lParam = Packed(event.screen);
    } else if (target.hit == HTCLIENT) {
        message.wParam = MouseKeys(keys);
        message.lParam = Packed(client);
    } else {
        message.wParam = static_cast<WPARAM>(target.hit);
        message.lParam = Packed(event.screen);
    }
    return true;
}

bool CommitMouse(const InputEvent& event, RoutedInput& routed)
{
    InputState& state = TheDesktop().input;
    const HWND window = routed.message.hwnd;
    const bool isPress = event.kind == InputEvent::Kind::Button && event.isDown;
    if (event.kind == InputEvent::Kind::Button)
        state.keys.Apply(event.code, event.isDown);
    PointerIsOver(window);
    RestartHover(event.screen);
    if (isPress)
        RememberPress(event, routed.message);
    if (LookUpWindow(state.capture))
        return true;
    if (isPress) {
        NotifyParentsOfPress(window, routed.message);
        if (!ActivateByPress(routed))
            return false;
    }
    SendSetCursor(routed);
    return LookUpWindow(window) != nullptr;
}

}  // namespace qvui::native
