// Notifies windows when the pointer leaves them or hovers over them.

#include "native/user/hover.h"

#include <algorithm>
#include <cstdlib>

#include "native/kernel/clock.h"
#include "native/user/desktop.h"
#include "native/user/input.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr DWORD kDefaultHoverTime = 400;
constexpr int kHoverExtent = 4;

// Both kinds of request end when they are answered.
void Settle()
{
    Tracking& tracking = TheDesktop().tracking;
    if (!tracking.leave && !tracking.hover)
        tracking.window = nullptr;
}

void StartHover(POINT screen)
{
    Tracking& tracking = TheDesktop().tracking;
    tracking.restsAt = screen;
    tracking.hoverDue = Now() + tracking.hoverTime * kMillisecond;
}

}  // namespace

void PointerIsOver(HWND window)
{
    Tracking& tracking = TheDesktop().tracking;
    TheDesktop().underPointer = window;
    if (!tracking.window || tracking.window == window)
        return;
    if (tracking.leave)
        PostMessageA(tracking.window, WM_MOUSELEAVE, 0, 0);
    tracking = {};
}

void RestartHover(POINT screen)
{
    Tracking& tracking = TheDesktop().tracking;
    if (tracking.hover && (std::abs(screen.x - tracking.restsAt.x) > kHoverExtent / 2 ||
                           std::abs(screen.y - tracking.restsAt.y) > kHoverExtent / 2))
        StartHover(screen);
}

bool TakeHover(MSG& message, const MessageFilter& filter, bool removes)
{
    Tracking& tracking = TheDesktop().tracking;
    if (!tracking.hover || tracking.hoverDue > Now() || !filter.AcceptsNumber(WM_MOUSEHOVER) ||
        !filter.AcceptsWindow(tracking.window))
        return false;
    const InputState& state = TheDesktop().input;
    POINT client = state.pointer;
    ScreenToClient(tracking.window, &client);
    message = {tracking.window,       WM_MOUSEHOVER,
               MouseKeys(state.keys), MAKELPARAM(static_cast<WORD>(client.x), static_cast<WORD>(client.y)),
               GetTickCount(),        state.pointer};
    if (removes) {
        tracking.hover = false;
        Settle();
    }
    return true;
}

int MillisecondsToHover()
{
    Tracking& tracking = TheDesktop().tracking;
    if (!tracking.hover)
        return -1;
    return static_cast<int>(
        std::max<std::int64_t>(0, (tracking.hoverDue - Now() + kMillisecond - 1) / kMillisecond));
}

void ForgetHover(HWND window)
{
    Tracking& tracking = TheDesktop().tracking;
    if (TheDesktop().underPointer == window)
        TheDesktop().underPointer = nullptr;
    if (tracking.window == window)
        tracking = {};
}

namespace {

void Cancel(const TRACKMOUSEEVENT& request)
{
    Tracking& tracking = TheDesktop().tracking;
    if (tracking.window != request.hwndTrack)
        return;
    tracking.leave = tracking.leave && !(request.dwFlags & TME_LEAVE);
    tracking.hover = tracking.hover && !(request.dwFlags & TME_HOVER);
    Settle();
}

bool IsPointerOver(HWND window)
{
    const InputState& state = TheDesktop().input;
    return state.capture == window || (!state.isPointerOutside && WindowAt(state.pointer) == window) ||
           (!state.isPointerOutside && TheDesktop().underPointer == window);
}

}  // namespace

void TrackPointer(const TRACKMOUSEEVENT& request)
{
    if (request.dwFlags & TME_CANCEL) {
        Cancel(request);
        return;
    }
    if (!IsPointerOver(request.hwndTrack)) {
        // The pointer had left before the request was made.
        if (request.dwFlags & TME_LEAVE)
            PostMessageA(request.hwndTrack, WM_MOUSELEAVE, 0, 0);
        return;
    }
    Tracking& tracking = TheDesktop().tracking;
    if (tracking.window != request.hwndTrack)
        tracking = {};
    tracking.window = request.hwndTrack;
    TheDesktop().underPointer = request.hwndTrack;
    tracking.leave = tracking.leave || (request.dwFlags & TME_LEAVE);
    if (request.dwFlags & TME_HOVER) {
        const bool isDefault = request.dwHoverTime == HOVER_DEFAULT || request.dwHoverTime == 0;
        tracking.hover = true;
        tracking.hoverTime = isDefault ? kDefaultHoverTime : request.dwHoverTime;
        StartHover(TheDesktop().input.pointer);
    }
}

}  // namespace qvui::native
