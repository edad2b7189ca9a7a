// Telling windows that the pointer left them or rests on them.

#include <algorithm>
#include <cstdlib>

#include "native/kernel/clock.h"
#include "native/user/input.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr DWORD kDefaultHoverTime = 400;
constexpr int kHoverExtent = 4;

struct Tracking {
    HWND window = nullptr;  // null: nobody asked
    bool leave = false;
    bool hover = false;
    DWORD hoverTime = kDefaultHoverTime;  // milliseconds
    std::int64_t hoverDue = 0;
    POINT restsAt{};
};
Tracking g_tracking;
HWND g_under = nullptr;  // the window that last got a move

// Both kinds are answered once.
void Settle()
{
    if (!g_tracking.leave && !g_tracking.hover)
        g_tracking.window = nullptr;
}

void StartHover(POINT screen)
{
    g_tracking.restsAt = screen;
    g_tracking.hoverDue = Now() + g_tracking.hoverTime * kMillisecond;
}

}  // namespace

HWND WindowUnderPointer()
{
    return g_under;
}

void PointerIsOver(HWND window)
{
    g_under = window;
    if (!g_tracking.window || g_tracking.window == window)
        return;
    if (g_tracking.leave)
        PostMessageA(g_tracking.window, WM_MOUSELEAVE, 0, 0);
    g_tracking = {};
}

void RestartHover(POINT screen)
{
    if (g_tracking.hover && (std::abs(screen.x - g_tracking.restsAt.x) > kHoverExtent / 2 ||
                             std::abs(screen.y - g_tracking.restsAt.y) > kHoverExtent / 2))
        StartHover(screen);
}

bool TakeHover(MSG& message, const MessageFilter& filter, bool removes)
{
    if (!g_tracking.hover || g_tracking.hoverDue > Now() || !filter.AcceptsNumber(WM_MOUSEHOVER) ||
        !filter.AcceptsWindow(g_tracking.window))
        return false;
    const InputState& state = TheInputState();
    POINT client = state.pointer;
    ScreenToClient(g_tracking.window, &client);
    message = {g_tracking.window,     WM_MOUSEHOVER,
               MouseKeys(state.keys), MAKELPARAM(static_cast<WORD>(client.x), static_cast<WORD>(client.y)),
               GetTickCount(),        state.pointer};
    if (removes) {
        g_tracking.hover = false;
        Settle();
    }
    return true;
}

int MillisecondsToHover()
{
    if (!g_tracking.hover)
        return -1;
    return static_cast<int>(
        std::max<std::int64_t>(0, (g_tracking.hoverDue - Now() + kMillisecond - 1) / kMillisecond));
}

void ForgetHover(HWND window)
{
    if (g_under == window)
        g_under = nullptr;
    if (g_tracking.window == window)
        g_tracking = {};
}

namespace {

void Cancel(const TRACKMOUSEEVENT& request)
{
    if (g_tracking.window != request.hwndTrack)
        return;
    g_tracking.leave = g_tracking.leave && !(request.dwFlags & TME_LEAVE);
    g_tracking.hover = g_tracking.hover && !(request.dwFlags & TME_HOVER);
    Settle();
}

bool IsPointerOver(HWND window)
{
    const InputState& state = TheInputState();
    return state.capture == window || (!state.isPointerOutside && WindowAt(state.pointer) == window) ||
           (!state.isPointerOutside && g_under == window);
}

}  // namespace
}  // namespace qvui::native

using namespace qvui::native;

BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    if (!track || !LookUpWindow(track->hwndTrack))
        return FALSE;
    if (track->dwFlags & TME_CANCEL) {
        Cancel(*track);
        return TRUE;
    }
    if (!IsPointerOver(track->hwndTrack)) {
        // It left before it was asked for.
        if (track->dwFlags & TME_LEAVE)
            PostMessageA(track->hwndTrack, WM_MOUSELEAVE, 0, 0);
        return TRUE;
    }
    if (g_tracking.window != track->hwndTrack)
        g_tracking = {};
    g_tracking.window = track->hwndTrack;
    g_under = track->hwndTrack;
    g_tracking.leave = g_tracking.leave || (track->dwFlags & TME_LEAVE);
    if (track->dwFlags & TME_HOVER) {
        const bool isDefault = track->dwHoverTime == HOVER_DEFAULT || track->dwHoverTime == 0;
        g_tracking.hover = true;
        g_tracking.hoverTime = isDefault ? kDefaultHoverTime : track->dwHoverTime;
        StartHover(TheInputState().pointer);
    }
    return TRUE;
}

BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    return TrackMouseEvent(track);
}
