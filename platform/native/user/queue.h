#pragma once

#include "native/user/window.h"

/// The parts of the message queue that other files feed.
namespace qvui::native {

/// Which messages a call asks for.
struct MessageFilter {
    HWND window = nullptr;  // with its children; null: any window, and messages of the thread
    UINT first = 0;
    UINT last = 0;  // both 0: any number

    bool AcceptsNumber(UINT message) const
    {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    /// Whether any number between two is accepted.
    bool AcceptsSomeOf(UINT from, UINT to) const
    {
        return (first == 0 && last == 0) || (from <= last && to >= first);
    }
    bool AcceptsWindow(HWND of) const { return !window || of == window || IsChild(window, of); }
    bool Accepts(const MSG& message) const
    {
        return AcceptsNumber(message.message) && AcceptsWindow(message.hwnd);
    }
};

// --- messages.cpp
void RemoveMessagesOf(HWND window);

// --- timers.cpp
/// Turns the timer that has been due for longest into a message. With `removes` its next period begins.
bool TakeTimer(MSG& message, const MessageFilter& filter, bool removes);
/// Milliseconds until the next timer is due, 0 when one is, -1 when there is none.
int MillisecondsToNextTimer();
void RemoveTimersOf(HWND window);

}  // namespace qvui::native
