#pragma once

#include <vector>

#include "framework/window/host_window.h"

namespace DUI {

/// The timers of controls, each on a native timer of the window with an id below DUITIMER_FIRST_FREE. A
/// control has at most one timer of an id.
class ControlTimers {
public:
    explicit ControlTimers(HostWindow& host) : m_host(host) {}

    /// DUIREQUEST_TIMER: starts (1), stops (2) or asks for (3) the timer that the request's record describes.
    LRESULT OnRequest(const tagDUINotify& request);
    /// WM_TIMER: passes the event to the control. An id of the manager's that no control has leaves a trace
    /// line.
    void OnTimer(WPARAM wParam, LPARAM lParam);

    /// Stops the timers of a control that left the tree.
    void RemoveOf(const IDUIControl* owner);
    void RemoveAll();

private:
    struct Timer {
        UINT id;  // the control's
        UINT_PTR native;
        CWeakPtr<IDUIControl> owner;
    };
    LRESULT Start(const DUITimerRecord& wanted);
    LRESULT Stop(const DUITimerRecord& wanted);
    std::vector<Timer>::iterator Find(const DUITimerRecord& wanted);
    /// The lowest native id that no timer has; 0 when all are taken.
    UINT_PTR FreeNativeId() const;
    template <class Predicate>
    void RemoveIf(Predicate isOver);

    HostWindow& m_host;
    std::vector<Timer> m_timers;
};

}  // namespace DUI
