#pragma once

#include <vector>

#include <qvui/platform/platform.h>

namespace DUI {

class NotifyHandlers;

/// Base of objects whose member functions are registered as notification handlers. Its end removes every
/// handler that is still registered for it, so no manager calls an object that is gone.
class QVUI_API CDUINotifyTarget {
public:
    CDUINotifyTarget() = default;
    /// A copy has no handlers of its own.
    CDUINotifyTarget(const CDUINotifyTarget&) {}
    CDUINotifyTarget& operator=(const CDUINotifyTarget&) { return *this; }

protected:
    ~CDUINotifyTarget();

private:
    friend class NotifyHandlers;
    void Register(NotifyHandlers* handlers);
    void Unregister(NotifyHandlers* handlers);

    std::vector<NotifyHandlers*> m_registered;  // each removes itself when it goes
};

/// What a control that answers "tab_bar" gives for the name.
class QVUI_API IDUITabBar {
public:
    /// Selects the next or previous item and, when asked, sends the tab-activation notification; TRUE when
    /// the selection moved.
    virtual BOOL MoveSelection(BOOL bForward, BOOL bNotify) = 0;

protected:
    ~IDUITabBar() = default;
};

}  // namespace DUI
