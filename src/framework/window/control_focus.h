#pragma once

#include <vector>

#include "framework/window/host_window.h"

namespace DUI {

/// The focus among the controls of a window, and the order in which Tab moves it.
class ControlFocus {
public:
    explicit ControlFocus(HostWindow& host) : m_host(host) {}

    IDUIControl* Get() const { return m_focus; }
    void Clear() { m_focus = nullptr; }
    /// A control left the tree. What comes back later is not focused.
    void Forget(const IDUIControl* control);

    /// DUIREQUEST_FOCUS: the sender takes the focus (1), gives it up (2), or asks who has it (3).
    LRESULT OnRequest(const tagDUINotify& request);
    /// Sends DUIEVENT_KILLFOCUS to the control that has the focus and takes the focus away from it. While it
    /// hears of that it still has it; a handler that moves the focus then takes it. False when the manager
    /// has gone.
    bool Lose(IDUIControl* sender, tagDUIEvent event, BOOL& bHandled);
    /// Asks the present control to give the focus up and this one, which may be null, to take it.
    void MoveTo(IDUIControl* control);
    /// Moves it to the next or previous tab stop: in the tree, then to the dialog's next native control,
    /// then from the tree's other end. False when nothing took it.
    bool MoveByTab(bool isForward);
    /// WM_KILLFOCUS.
    void OnKillFocus();

private:
    /// Controls that are being told that they take or lose the focus, the innermost last. They are not told
    /// again meanwhile: handlers that pass the focus to each other would never end.
    using Calls = std::vector<CWeakPtr<IDUIControl>>;
    static bool IsTold(const Calls& calls, const IDUIControl* control);
    /// False when the manager has gone.
    bool TellOnce(Calls& calls, IDUIControl* control, const tagDUIEvent& event, BOOL& bHandled);
    bool MoveBeyondTree(bool isForward, IDUIControl* lastTabStop);

    HostWindow& m_host;
    CWeakPtr<IDUIControl> m_focus;
    Calls m_takers;
    Calls m_losers;
};

}  // namespace DUI
