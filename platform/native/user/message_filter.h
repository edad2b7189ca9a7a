#pragma once

#include <qvui/platform/native/user.h>

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

}  // namespace qvui::native
