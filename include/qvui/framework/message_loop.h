#pragma once

#include <vector>

#include <qvui/platform/platform.h>

namespace DUI {

/// Sees messages before they are dispatched; TRUE consumes one.
class QVUI_API IDUIMessageFilter {
public:
    virtual BOOL PreTranslateMessage(MSG* pMsg) = 0;

protected:
    ~IDUIMessageFilter() = default;
};

/// Runs when the message queue has become empty.
class QVUI_API IDUIIdleHandler {
public:
    virtual BOOL OnIdle() = 0;

protected:
    ~IDUIIdleHandler() = default;
};

/// A message loop with filters and idle handlers, none of which it owns. A filter or handler may remove
/// itself or others while it is called. Not to be deleted through a pointer to a base: the destructor is not
/// among the published virtual operations.
class QVUI_API CDUIMessageLoop {
public:
    CDUIMessageLoop() = default;
    CDUIMessageLoop(const CDUIMessageLoop&) = delete;
    CDUIMessageLoop& operator=(const CDUIMessageLoop&) = delete;

    /// Asks the filters from the last added to the first; TRUE when one consumed the message.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Calls every idle handler in the order of adding; FALSE, so that they run once per idle period.
    virtual BOOL OnIdle(int nIdleCount);

    /// Always TRUE; a filter that is there already stays once.
    BOOL AddMessageFilter(IDUIMessageFilter* pFilter);
    void RemoveMessageFilter(IDUIMessageFilter* pFilter);
    BOOL AddIdleHandler(IDUIIdleHandler* pHandler);
    void RemoveIdleHandler(IDUIIdleHandler* pHandler);
    /// Until WM_QUIT; its exit code.
    int Run();
    /// Whether the message begins a new idle period: any but mouse moves, paints and system timers.
    static BOOL IsIdleMessage(MSG* pMsg);

private:
    std::vector<IDUIMessageFilter*> m_filters;
    std::vector<IDUIIdleHandler*> m_idleHandlers;
    MSG m_msg{};
};

}  // namespace DUI
