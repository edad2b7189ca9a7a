#pragma once

#include <qvui/platform/native/user.h>

namespace qvui::native {

/// The messages that a call accepts.
struct MessageFilter {
    HWND window = nullptr;  // includes its children; null: any window, and thread messages
    UINT first = 0;
    UINT last = 0;  // both 0: any message

    bool AcceptsNumber(UINT message) const
    {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    /// Whether any message in the range [from, to] is accepted.
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
