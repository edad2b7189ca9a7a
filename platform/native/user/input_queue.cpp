// What the display reports, waiting to be taken out as messages.

#include "native/user/input_queue.h"

#include <algorithm>

#include "native/user/composition.h"
#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/hover.h"
#include "native/user/keyboard.h"
#include "native/user/mouse.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

using Kind = InputEvent::Kind;

void Add(InputEvent event)
{
    event.time = GetTickCount();
    TheDesktop().events.push_back(std::move(event));
}

void AddMove(POINT screen)
{
    // Only the latest of several moves in a row matters.
    if (!TheDesktop().events.empty() && TheDesktop().events.back().kind == Kind::Move)
        TheDesktop().events.back().screen = screen;
    else
        Add({Kind::Move, screen, 0, false, {}, 0});
}

bool CouldBeAccepted(const InputEvent& event, const MessageFilter& filter)
{
    switch (event.kind) {
        case Kind::Key:
            return filter.AcceptsSomeOf(WM_KEYDOWN, WM_SYSKEYUP);
        case Kind::Text:
            return filter.AcceptsNumber(WM_CHAR);
        default:
            return filter.AcceptsSomeOf(WM_NCMOUSEMOVE, WM_MOUSEHWHEEL);
    }
}

bool Route(const InputEvent& event, RoutedInput& routed)
{
    return event.kind == Kind::Key ? RouteKey(event, routed) : RouteMouse(event, routed);
}

bool Commit(const InputEvent& event, RoutedInput& routed)
{
    if (event.kind != Kind::Key)
        return CommitMouse(event, routed);
    CommitKey(event, routed);
    return true;
}

// Input that belongs to none of our windows still moves the pointer and the keys.
void Drop(const InputEvent& event)
{
    if (event.kind == Kind::Key || event.kind == Kind::Button)
        TheDesktop().input.keys.Apply(event.code, event.isDown);
    else
        PointerIsOver(nullptr);
}

bool TakeWaiting(MSG& message, const MessageFilter& filter, bool removes)
{
    std::deque<InputEvent>& waiting = TheDesktop().events;
    const auto putBack = [&](InputEvent event, std::size_t at) {
        waiting.insert(waiting.begin() + static_cast<std::ptrdiff_t>(std::min(at, waiting.size())),
                       std::move(event));
    };
    for (std::size_t at = 0; at < waiting.size();) {
        if (!CouldBeAccepted(waiting[at], filter)) {
            ++at;
            continue;
        }
        // Handlers that are asked on the way may pump messages themselves, so the event is out of the queue
        // then.
        InputEvent event = std::move(waiting[at]);
        waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(at));
        if (event.kind == Kind::Text) {
            PostText(event.text);
            return false;  // the characters wait among the posted messages
        }
        RoutedInput routed{{nullptr, WM_NULL, 0, 0, event.time, event.screen}, HTCLIENT};
        if (!Route(event, routed)) {
            Drop(event);
        } else if (!filter.Accepts(routed.message)) {
            putBack(std::move(event), at++);
        } else if (!removes || Commit(event, routed)) {
            message = routed.message;
            if (!removes)
                putBack(std::move(event), at);
            return true;
        }
    }
    return false;
}

// Windows came or went: makes a move when another one is under the pointer now.
bool AddMoveForChange()
{
    if (!std::exchange(TheDesktop().pointerMayHaveMoved, false))
        return false;
    const InputState& state = TheDesktop().input;
    const HWND front = state.isPointerOutside ? nullptr : WindowAt(state.pointer);
    if (front == std::exchange(TheDesktop().seenUnderPointer, front))
        return false;
    AddMove(state.pointer);
    return true;
}

class Sink final : public InputSink {
public:
    void OnPointer(POINT screen) override
    {
        InputState& state = TheDesktop().input;
        state.pointer = screen;
        state.isPointerOutside = false;
        AddMove(screen);
        // During a capture the others do not learn of it; ReleaseCapture makes up for that.
        if (!state.capture)
            TheDesktop().seenUnderPointer = WindowAt(screen);
    }
    void OnPointerLeft() override
    {
        TheDesktop().input.isPointerOutside = true;
        if (TheDesktop().input.capture)
            return;
        TheDesktop().seenUnderPointer = nullptr;
        PointerIsOver(nullptr);
    }
    void OnButton(int button, bool isDown) override
    {
        Add({Kind::Button, TheDesktop().input.pointer, button, isDown, {}, 0});
    }
    void OnWheel(int delta) override { Add({Kind::Wheel, TheDesktop().input.pointer, delta, false, {}, 0}); }
    void OnKey(int virtualKey, bool isDown) override
    {
        Add({Kind::Key, TheDesktop().input.pointer, virtualKey, isDown, {}, 0});
    }
    void OnText(const std::string& utf8) override
    {
        // Text right after a press is what the key types; the message loop decides whether it is translated.
        if (!TheDesktop().events.empty() && TheDesktop().events.back().kind == Kind::Key &&
            TheDesktop().events.back().isDown && TheDesktop().events.back().text.empty())
            TheDesktop().events.back().text = utf8;
        else
            Add({Kind::Text, TheDesktop().input.pointer, 0, false, utf8, 0});
    }
    void OnComposition(const std::string& utf8, int caret) override { ShowComposition(utf8, caret); }
    void OnMoved(HWND window, const RECT& screen) override
    {
        if (!IsIconic(window))
            MoveWindow(window, screen.left, screen.top, screen.right - screen.left,
                       screen.bottom - screen.top, TRUE);
    }
    void OnMinimised(HWND window, bool isMinimised) override
    {
        if ((IsIconic(window) != FALSE) != isMinimised)
            ShowWindow(window, isMinimised ? SW_MINIMIZE : SW_RESTORE);
    }
    void OnClose(HWND window) override
    {
        if (IsWindowEnabled(window))
            PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
    void OnActivated(HWND window) override
    {
        const Window* found = LookUpWindow(window);
        if (found && IsActivatable(*found))
            ActivateWindow(window, WA_ACTIVE);
        if (window)
            return;
        TheDesktop().input.keys.isDown.fill(false);
        if (const HWND holder = GetCapture())
            SendMessageA(holder, WM_CANCELMODE, 0, 0);
        ActivateWindow(nullptr, WA_INACTIVE);
    }
    void OnExposed(HWND window) override
    {
        if (Window* found = LookUpWindow(window))
            PresentDamage(*found, found->Client());
    }
};

}  // namespace

InputSink& TheInputSink()
{
    static auto& sink = *new Sink();
    return sink;
}

bool TakeInput(MSG& message, const MessageFilter& filter, bool removes)
{
    return TakeWaiting(message, filter, removes) ||
           (AddMoveForChange() && TakeWaiting(message, filter, removes));
}

void PointerMayHaveMoved()
{
    TheDesktop().pointerMayHaveMoved = true;
}

void ForgetInput(HWND window)
{
    InputState& state = TheDesktop().input;
    if (state.capture == window) {
        state.capture = nullptr;
        TheDisplay().Capture(false);
    }
    ForgetHover(window);
}

}  // namespace qvui::native
