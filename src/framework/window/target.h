#pragma once

#include <algorithm>

#include <qvui/framework/window/window_mgr.h>

#include "framework/control_guard.h"

namespace DUI {

class CDUIWindowMgr::Target {
public:
    Target(CDUIWindowMgr& manager, IDUIControl* control)
        : m_pMgr(&manager),
          m_keep(control),
          m_pControl(control)
    {
        manager.m_targets.push_back(this);
    }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    ~Target()
    {
        if (m_pMgr)
            m_pMgr->m_targets.erase(std::find(m_pMgr->m_targets.begin(), m_pMgr->m_targets.end(), this));
    }

    IDUIControl* Get() const { return m_pControl; }
    explicit operator bool() const { return m_pControl != nullptr; }
    IDUIControl* operator->() const { return m_pControl; }
    bool IsManagerAlive() const { return m_pMgr != nullptr; }

    void Forget(const IDUIControl* control)
    {
        if (m_pControl == control)
            m_pControl = nullptr;
    }
    void LoseManager()
    {
        m_pMgr = nullptr;
        m_pControl = nullptr;
    }

private:
    CDUIWindowMgr* m_pMgr;
    ControlGuard m_keep;
    CWeakPtr<IDUIControl> m_pControl;
};

}  // namespace DUI
