#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <qvui/framework/window/notify_target.h>

#include "framework/window/host_window.h"

namespace DUI {

/// Member functions that are called with the notifications of controls, by the controls' names.
class NotifyHandlers {
public:
    using Function = std::function<void(const tagDUINotify&)>;

    explicit NotifyHandlers(HostWindow& host) : m_host(host) {}
    NotifyHandlers(const NotifyHandlers&) = delete;
    NotifyHandlers& operator=(const NotifyHandlers&) = delete;
    ~NotifyHandlers() { Clear(); }

    void Add(const CString& name, CDUINotifyTarget* target, Function call);
    void Remove(const CString& name, CDUINotifyTarget* target);
    void Remove(CDUINotifyTarget* target);
    void Clear();

    /// Calls those of the name that are there now, in the order of adding, until the manager has gone. One
    /// that is removed meanwhile is not called.
    void Call(const CString& name, const tagDUINotify& notify);

private:
    struct Handler {
        CDUINotifyTarget* target;  // null once it is removed
        Function call;
    };
    using List = std::vector<std::shared_ptr<Handler>>;
    static void RemoveFrom(List& list, CDUINotifyTarget* target);

    HostWindow& m_host;
    std::map<CString, List, CStrLessCmp> m_handlers;
};

}  // namespace DUI
