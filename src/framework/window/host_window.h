#pragma once

#include <vector>

#include <qvui/foundation/weak_ptr.h>
#include <qvui/framework/control.h>

#include "framework/control_guard.h"

namespace DUI {

class Target;

/// Results of a control's request that are no value.
inline constexpr LRESULT kRequestDone = 0;
inline constexpr LRESULT kRequestRefused = 1;

/// The calls into controls that are in progress, for one window manager.
class Targets {
public:
    Targets() = default;
    Targets(const Targets&) = delete;
    Targets& operator=(const Targets&) = delete;
    /// Tells every call in progress that its window manager is gone.
    ~Targets();

    /// A control left the tree: calls in progress no longer point to it.
    void Forget(const IDUIControl* control);

private:
    friend class Target;
    std::vector<Target*> m_list;
};

/// A control during a call into it: it stays alive meanwhile, and the pointer is null from the moment it
/// leaves the tree or the window manager goes. After the call, nothing of the manager may be used unless
/// IsManagerAlive. A target without a control only watches the manager.
class Target {
public:
    Target(Targets& calls, IDUIControl* control);
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    ~Target();

    IDUIControl* Get() const { return m_isOwned ? m_pOwned : m_pUnowned.GetPtr(); }
    explicit operator bool() const { return Get() != nullptr; }
    IDUIControl* operator->() const { return Get(); }
    bool IsManagerAlive() const { return m_pCalls != nullptr; }

private:
    friend class Targets;
    void Clear();

    Targets* m_pCalls;
    ControlGuard m_keep;
    IDUIControl* m_pOwned = nullptr;
    CWeakPtr<IDUIControl> m_pUnowned;  // a control that nobody owns, which may be destroyed meanwhile
    bool m_isOwned;
};

/// The native window and the control tree in it, which the parts of a window manager share.
struct HostWindow {
    HWND handle = nullptr;
    CRefPtr<IDUIControl> root;
    Targets calls;
    POINT pointer{-1, -1};  // of the last pointer message, client coordinates

    bool IsWindow() const { return handle && ::IsWindow(handle); }

    /// Searches as IDUIControl::FindControl does; null without a tree.
    IDUIControl* Find(FindControlProc callback, void* data, UINT flags) const;
    /// The control at a point in client coordinates.
    IDUIControl* FindAt(POINT point, UINT flags) const;
    /// The native pointer's position in client coordinates.
    POINT PointerPosition() const;

    /// Sends an event to a control; false when the manager has gone meanwhile.
    bool Deliver(IDUIControl* target, const tagDUIEvent& event, BOOL& bHandled);
};

}  // namespace DUI
