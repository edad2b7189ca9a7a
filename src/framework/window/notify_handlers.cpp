#include "framework/window/notify_handlers.h"

#include <algorithm>
#include <utility>

namespace DUI {

CDUINotifyTarget::~CDUINotifyTarget()
{
    const std::vector<NotifyHandlers*> registered = m_registered;
    for (NotifyHandlers* const handlers : registered)
        handlers->Remove(this);
}

void CDUINotifyTarget::Register(NotifyHandlers* handlers)
{
    if (std::find(m_registered.begin(), m_registered.end(), handlers) == m_registered.end())
        m_registered.push_back(handlers);
}

void CDUINotifyTarget::Unregister(NotifyHandlers* handlers)
{
    m_registered.erase(std::remove(m_registered.begin(), m_registered.end(), handlers), m_registered.end());
}

void NotifyHandlers::Add(const CString& name, CDUINotifyTarget* target, Function call)
{
    m_handlers[name].push_back(std::make_shared<Handler>(Handler{target, std::move(call)}));
    target->Register(this);
}

void NotifyHandlers::RemoveFrom(List& list, CDUINotifyTarget* target)
{
    const auto isOfTarget = [target](const std::shared_ptr<Handler>& handler) {
        if (handler->target != target)
            return false;
        handler->target = nullptr;
        return true;
    };
    list.erase(std::remove_if(list.begin(), list.end(), isOfTarget), list.end());
}

void NotifyHandlers::Remove(const CString& name, CDUINotifyTarget* target)
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        return;
    RemoveFrom(found->second, target);
    if (found->second.empty())
        m_handlers.erase(found);
}

void NotifyHandlers::Remove(CDUINotifyTarget* target)
{
    for (auto entry = m_handlers.begin(); entry != m_handlers.end();) {
        RemoveFrom(entry->second, target);
        entry = entry->second.empty() ? m_handlers.erase(entry) : std::next(entry);
    }
    target->Unregister(this);
}

void NotifyHandlers::Clear()
{
    for (const auto& entry : m_handlers)
        for (const std::shared_ptr<Handler>& handler : entry.second) {
            handler->target->Unregister(this);
            handler->target = nullptr;
        }
    m_handlers.clear();
}

void NotifyHandlers::Call(const CString& name, const tagDUINotify& notify)
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        return;
    const List handlers = found->second;
    const Target alive(m_host.calls, nullptr);
    for (const std::shared_ptr<Handler>& handler : handlers)
        if (alive.IsManagerAlive() && handler->target)
            handler->call(notify);
}

}  // namespace DUI
