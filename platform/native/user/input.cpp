// From what the display reports to mouse and keyboard messages.

#include <algorithm>
#include <array>
#include <cstdlib>

#include <qvui/platform/cstring.h>

#include "native/kernel/code_pages.h"
#include "native/user/queue.h"

namespace qvui::native {
namespace {

constexpr UINT kDoubleClickTime = 500;
constexpr int kDoubleClickExtent = 4;
constexpr LPARAM kPreviouslyDown = 1 << 30;

struct InputState {
    POINT pointer{0, 0};
    HWND capture = nullptr;
    HWND under = nullptr;  // the window that last got a move
    HWND tracked = nullptr;
    std::array<bool, 256> keys{};
    std::array<bool, 256> toggled{};
    // the last press, for double clicks
    HWND pressed = nullptr;
    int pressedButton = 0;
    POINT pressedAt{};
    DWORD pressedTime = 0;
};

InputState& State()
{
    static InputState state;
    return state;
}

WPARAM MouseKeys()
{
    const auto& keys = State().keys;
    return (keys[VK_LBUTTON] ? MK_LBUTTON : 0) | (keys[VK_RBUTTON] ? MK_RBUTTON : 0) |
           (keys[VK_MBUTTON] ? MK_MBUTTON : 0) | (keys[VK_SHIFT] ? MK_SHIFT : 0) |
           (keys[VK_CONTROL] ? MK_CONTROL : 0);
}

LPARAM Packed(POINT point) { return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y)); }

POINT ToClient(HWND window, POINT screen)
{
    ScreenToClient(window, &screen);
    return screen;
}

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
    {VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONUP, WM_NCLBUTTONDBLCLK},
    {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_NCRBUTTONDOWN, WM_NCRBUTTONUP, WM_NCRBUTTONDBLCLK},
    {VK_MBUTTON, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, WM_NULL, WM_NULL, WM_NULL},
};

struct Target {
    HWND window = nullptr;
    int hit = HTCLIENT;
};

// The captured window, or what the windows under the point say of it; disabled and transparent ones pass it on.
Target FindTarget(POINT screen)
{
    InputState& state = State();
    if (LookUpWindow(state.capture))
        return {state.capture, HTCLIENT};
    HWND window = WindowAt(screen);
    while (window) {
        const auto hit = static_cast<int>(SendMessageA(window, WM_NCHITTEST, 0, Packed(screen)));
        if (hit != HTTRANSPARENT)
            return {LookUpWindow(window) ? window : nullptr, hit};
        const Window* found = LookUpWindow(window);
        window = found && found->IsChild() ? found->parent : nullptr;
    }
    return {};
}

void NoteUnder(HWND window)
{
    InputState& state = State();
    if (state.under == window)
        return;
    state.under = window;
    if (state.tracked && state.tracked != window) {
        PostMessageA(state.tracked, WM_MOUSELEAVE, 0, 0);
        state.tracked = nullptr;
    }
}

bool IsDoubleClick(HWND window, int button, POINT screen, DWORD time)
{
    InputState& state = State();
    const Window* found = LookUpWindow(window);
    const bool isDouble = found && (found->windowClass->definition.style & CS_DBLCLKS) && state.pressed == window &&
                          state.pressedButton == button && time - state.pressedTime <= kDoubleClickTime &&
                          std::abs(screen.x - state.pressedAt.x) < kDoubleClickExtent / 2 &&
                          std::abs(screen.y - state.pressedAt.y) < kDoubleClickExtent / 2;
    // A third press is a plain one again.
    state.pressed = isDouble ? nullptr : window;
    state.pressedButton = button;
    state.pressedAt = screen;
    state.pressedTime = time;
    return isDouble;
}

// Asks whether a press activates the window's top-level window; false when the press is to be swallowed.
bool ActivateByPress(const Target& target, UINT message)
{
    Window* window = LookUpWindow(target.window);
    if (!window)
        return false;
    const HWND root = RootOf(*window)->handle;
    if (GetActiveWindow() == root)
        return true;
    const auto answer = SendMessageA(target.window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(root),
                                     MAKELPARAM(target.hit, message));
    if (answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0)
        ActivateWindow(root, WA_CLICKACTIVE);
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

bool MakeButtonMessage(const InputEvent& event, const Target& target, MSG& message)
{
    const auto* names = std::find_if(std::begin(kButtons), std::end(kButtons),
                                     [&](const ButtonMessages& entry) { return entry.button == event.code; });
    const bool isClient = target.hit == HTCLIENT;
    const bool isDouble = event.isDown && IsDoubleClick(target.window, event.code, event.screen, event.time);
    if (event.isDown) {
        message.message = isClient ? (isDouble ? names->doubleClick : names->down)
                                   : (isDouble ? names->ncDoubleClick : names->ncDown);
        if (!LookUpWindow(State().capture) && !ActivateByPress(target, message.message))
            return false;
    } else {
        message.message = isClient ? names->up : names->ncUp;
    }
    return message.message != WM_NULL;
}

bool MakeMouseMessage(const InputEvent& event, MSG& message)
{
    InputState& state = State();
    if (event.kind == InputEvent::Kind::Button)
        state.keys[static_cast<std::size_t>(event.code)] = event.isDown;
    const Target target = FindTarget(event.screen);
    NoteUnder(target.window);
    if (!target.window)
        return false;
    message.hwnd = target.window;
    message.message = target.hit == HTCLIENT ? WM_MOUSEMOVE : WM_NCMOUSEMOVE;
    if (event.kind == InputEvent::Kind::Button && !MakeButtonMessage(event, target, message))
        return false;
    if (!LookUpWindow(state.capture))
        SendMessageA(target.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(target.window),
                     MAKELPARAM(target.hit, message.message));
    if (target.hit == HTCLIENT) {
        message.wParam = MouseKeys();
        message.lParam = Packed(ToClient(target.window, event.screen));
    } else {
        message.wParam = static_cast<WPARAM>(target.hit);
        message.lParam = Packed(event.screen);
    }
    return LookUpWindow(target.window) != nullptr;
}

// Wheel and keys go to the focus; without one to the active window.
HWND KeyTarget() { return GetFocus() ? GetFocus() : GetActiveWindow(); }

bool MakeKeyMessage(const InputEvent& event, MSG& message)
{
    InputState& state = State();
    const auto key = static_cast<std::size_t>(event.code & 0xFF);
    const bool wasDown = state.keys[key];
    state.keys[key] = event.isDown;
    if (event.isDown && !wasDown)
        state.toggled[key] = !state.toggled[key];
    const auto mirror = [&](int general, int left, int right) {
        if (event.code == left || event.code == right)
            state.keys[static_cast<std::size_t>(general)] = event.isDown;
    };
    mirror(VK_SHIFT, VK_LSHIFT, VK_RSHIFT);
    mirror(VK_CONTROL, VK_LCONTROL, VK_RCONTROL);
    mirror(VK_MENU, VK_LMENU, VK_RMENU);
    message.hwnd = KeyTarget();
    if (!message.hwnd)
        return false;
    static constexpr int kGeneral[][2] = {{VK_LSHIFT, VK_SHIFT},     {VK_RSHIFT, VK_SHIFT}, {VK_LCONTROL, VK_CONTROL},
                                          {VK_RCONTROL, VK_CONTROL}, {VK_LMENU, VK_MENU},   {VK_RMENU, VK_MENU}};
    int code = event.code;
    for (const auto& [sided, general] : kGeneral)
        code = code == sided ? general : code;
    const bool isSystem = (state.keys[VK_MENU] && !state.keys[VK_CONTROL]) || code == VK_MENU || !GetFocus();
    message.message = event.isDown ? (isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN) : (isSystem ? WM_SYSKEYUP : WM_KEYUP);
    message.wParam = static_cast<WPARAM>(code);
    message.lParam = 1 | (event.isDown && wasDown ? kPreviouslyDown : 0);
    if (!event.isDown)
        message.lParam |= static_cast<LPARAM>(0xC0000000U);
    return true;
}

bool MakeTextMessages(const InputEvent& event)
{
    const HWND window = KeyTarget();
    const std::string text = Utf8ToSystem(event.text);
    for (const char byte : text)
        PostMessageA(window, WM_CHAR, static_cast<unsigned char>(byte), 1);
    return false;  // the characters wait among the posted messages
}

bool MakeMessage(const InputEvent& event, MSG& message)
{
    message = {nullptr, WM_NULL, 0, 0, event.time, event.screen};
    switch (event.kind) {
    case InputEvent::Kind::Move:
    case InputEvent::Kind::Button:
        return MakeMouseMessage(event, message);
    case InputEvent::Kind::Wheel:
        message.hwnd = KeyTarget();
        message.message = WM_MOUSEWHEEL;
        message.wParam = MAKEWPARAM(MouseKeys(), static_cast<WORD>(event.code));
        message.lParam = Packed(event.screen);
        return message.hwnd != nullptr;
    case InputEvent::Kind::Key:
        return MakeKeyMessage(event, message);
    case InputEvent::Kind::Text:
        return MakeTextMessages(event);
    }
    return false;
}

class Sink final : public InputSink {
public:
    void OnPointer(POINT screen) override
    {
        State().pointer = screen;
        // Only the latest of several moves in a row matters.
        if (!InputQueue().empty() && InputQueue().back().kind == InputEvent::Kind::Move)
            InputQueue().back().screen = screen;
        else
            Add({InputEvent::Kind::Move, screen, 0, false, false, {}, 0});
    }
    void OnPointerLeft() override
    {
        if (!State().capture)
            NoteUnder(nullptr);
    }
    void OnButton(int button, bool isDown) override
    {
        Add({InputEvent::Kind::Button, State().pointer, button, isDown, false, {}, 0});
    }
    void OnWheel(int delta) override { Add({InputEvent::Kind::Wheel, State().pointer, delta, false, false, {}, 0}); }
    void OnKey(int virtualKey, bool isDown, bool isRepeat) override
    {
        Add({InputEvent::Kind::Key, State().pointer, virtualKey, isDown, isRepeat, {}, 0});
    }
    void OnText(const std::string& utf8) override
    {
        Add({InputEvent::Kind::Text, State().pointer, 0, false, false, utf8, 0});
    }
    void OnMoved(HWND window, const RECT& screen) override
    {
        SetWindowPos(window, nullptr, screen.left, screen.top, screen.right - screen.left, screen.bottom - screen.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void OnClose(HWND window) override { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
    void OnActivated(HWND window) override
    {
        if (window) {
            ActivateWindow(window, WA_ACTIVE);
            return;
        }
        State().keys.fill(false);
        ActivateWindow(nullptr, WA_INACTIVE);
    }
    void OnExposed(HWND window) override
    {
        if (Window* found = LookUpWindow(window))
            PresentDamage(*found, {0, 0, found->Width(), found->Height()});
    }

private:
    static void Add(InputEvent event)
    {
        event.time = GetTickCount();
        InputQueue().push_back(std::move(event));
    }
};

HWND WindowAmong(const std::vector<HWND>& windows, POINT point)
{
    for (const HWND handle : windows) {
        const Window* window = LookUpWindow(handle);
        if (!window || !(window->style & WS_VISIBLE) || (window->style & (WS_DISABLED | WS_MINIMIZE)) ||
            (window->exStyle & WS_EX_TRANSPARENT) || !PtInRect(&window->rect, point))
            continue;
        const POINT inside{point.x - window->rect.left, point.y - window->rect.top};
        if (window->shape && !window->shape->Contains(inside.x, inside.y))
            continue;
        const HWND child = WindowAmong(window->children, inside);
        return child ? child : handle;
    }
    return nullptr;
}

}  // namespace

std::deque<InputEvent>& InputQueue()
{
    static std::deque<InputEvent> queue;
    return queue;
}

InputSink& TheInputSink()
{
    static Sink sink;
    return sink;
}

bool TakeInput(MSG& message, HWND window, UINT first, UINT last)
{
    // A filter on other messages must not swallow input.
    if (window || first || last) {
        const bool wantsInput = last == 0 || (first <= WM_MOUSEHWHEEL && last >= WM_NCMOUSEMOVE);
        if (!wantsInput)
            return false;
    }
    while (!InputQueue().empty()) {
        const InputEvent event = std::move(InputQueue().front());
        InputQueue().pop_front();
        if (MakeMessage(event, message))
            return true;
        if (event.kind == InputEvent::Kind::Text && PeekMessageA(&message, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE))
            return true;
    }
    return false;
}

bool IsKeyDown(int virtualKey) { return State().keys[static_cast<std::size_t>(virtualKey & 0xFF)]; }

HWND WindowAt(POINT screen) { return WindowAmong(TopLevelWindows(), screen); }

void PointerMayHaveMoved()
{
    if (WindowAt(State().pointer) != State().under)
        TheInputSink().OnPointer(State().pointer);
}

void ForgetInput(HWND window)
{
    InputState& state = State();
    for (HWND InputState::*field : {&InputState::capture, &InputState::under, &InputState::tracked, &InputState::pressed})
        if (state.*field == window)
            state.*field = nullptr;
}

}  // namespace qvui::native

using namespace qvui::native;

HWND SetCapture(HWND window)
{
    InputState& state = State();
    if (window && !LookUpWindow(window))
        return nullptr;
    const HWND previous = std::exchange(state.capture, window);
    TheDisplay().Capture(window != nullptr);
    if (previous && previous != window)
        SendMessageA(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    return previous;
}

HWND GetCapture() { return State().capture; }

BOOL ReleaseCapture()
{
    SetCapture(nullptr);
    return TRUE;
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    if (!track || !LookUpWindow(track->hwndTrack))
        return FALSE;
    InputState& state = State();
    if (track->dwFlags & TME_LEAVE) {
        if (track->dwFlags & TME_CANCEL) {
            state.tracked = nullptr;
        } else if (WindowAt(state.pointer) != track->hwndTrack && state.capture != track->hwndTrack) {
            PostMessageA(track->hwndTrack, WM_MOUSELEAVE, 0, 0);
        } else {
            state.tracked = track->hwndTrack;
            state.under = track->hwndTrack;
        }
    }
    return TRUE;
}

BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track) { return TrackMouseEvent(track); }

SHORT GetKeyState(int key)
{
    const auto index = static_cast<std::size_t>(key & 0xFF);
    return static_cast<SHORT>((State().keys[index] ? 0x8000 : 0) | (State().toggled[index] ? 1 : 0));
}

SHORT GetAsyncKeyState(int key) { return static_cast<SHORT>(IsKeyDown(key) ? 0x8000 : 0); }

BOOL GetKeyboardState(BYTE* keys)
{
    for (std::size_t key = 0; key < State().keys.size(); ++key)
        keys[key] = static_cast<BYTE>((State().keys[key] ? 0x80 : 0) | (State().toggled[key] ? 1 : 0));
    return TRUE;
}

BOOL SetKeyboardState(BYTE* keys)
{
    for (std::size_t key = 0; key < State().keys.size(); ++key) {
        State().keys[key] = (keys[key] & 0x80) != 0;
        State().toggled[key] = (keys[key] & 1) != 0;
    }
    return TRUE;
}

BOOL GetCursorPos(POINT* point)
{
    *point = State().pointer;
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    TheDisplay().SetPointer({x, y});
    TheInputSink().OnPointer({x, y});
    return TRUE;
}

HWND WindowFromPoint(POINT screen) { return WindowAt(screen); }

UINT GetDoubleClickTime() { return kDoubleClickTime; }

BOOL TranslateMessage(const MSG* message)
{
    const bool isSystem = message->message == WM_SYSKEYDOWN;
    if (message->message != WM_KEYDOWN && !isSystem)
        return FALSE;
    const auto key = static_cast<int>(message->wParam);
    const bool isLetter = key >= 'A' && key <= 'Z';
    int character = 0;
    if (isSystem && (isLetter || (key >= '0' && key <= '9')))
        character = isLetter && !IsKeyDown(VK_SHIFT) ? key + 'a' - 'A' : key;
    else if (isLetter && IsKeyDown(VK_CONTROL))
        character = key - 'A' + 1;
    else if (key == VK_RETURN || key == VK_TAB || key == VK_ESCAPE || key == VK_BACK)
        character = key;
    // Other characters arrive as text, which knows the keyboard's layout.
    if (character == 0)
        return FALSE;
    PostMessageA(message->hwnd, isSystem ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(character), message->lParam);
    return TRUE;
}
