#include "framework/window/control_timers.h"

#include <algorithm>
#include <bitset>

#include <qvui/foundation/trace.h>
#include <qvui/framework/window/window_mgr.h>

namespace DUI {
namespace {

constexpr UINT_PTR kMostTimers = DUITIMER_FIRST_FREE - 1;

}  // namespace

LRESULT ControlTimers::OnRequest(const tagDUINotify& request)
{
    enum : WPARAM { kStart = 1, kStop = 2, kAsk = 3 };
    const auto* const wanted = reinterpret_cast<const DUITimerRecord*>(request.lParam);
    if (!m_host.IsWindow() || !wanted)
        return kRequestRefused;
    switch (request.wParam) {
        case kStart:
            return Start(*wanted);
        case kStop:
            return Stop(*wanted);
        case kAsk:
            return Find(*wanted) == m_timers.end() ? kRequestRefused : kRequestDone;
        default:
            return kRequestRefused;
    }
}

std::vector<ControlTimers::Timer>::iterator ControlTimers::Find(const DUITimerRecord& wanted)
{
    return std::find_if(m_timers.begin(), m_timers.end(), [&wanted](const Timer& timer) {
        return timer.owner == wanted.pOwner && timer.id == wanted.nTimerID;
    });
}

UINT_PTR ControlTimers::FreeNativeId() const
{
    std::bitset<kMostTimers + 1> isTaken;
    for (const Timer& timer : m_timers)
        isTaken.set(timer.native);
    for (UINT_PTR id = 1; id <= kMostTimers; ++id)
        if (!isTaken.test(id))
            return id;
    return 0;
}

LRESULT ControlTimers::Start(const DUITimerRecord& wanted)
{
    if (Find(wanted) != m_timers.end())
        return E_FAIL;
    RemoveOf(nullptr);
    const UINT_PTR native = FreeNativeId();
    if (native == 0 || !::SetTimer(m_host.handle, native, wanted.nElapse, nullptr))
        return E_FAIL;
    m_timers.push_back({wanted.nTimerID, native, wanted.pOwner});
    return kRequestDone;
}

LRESULT ControlTimers::Stop(const DUITimerRecord& wanted)
{
    const auto timer = Find(wanted);
    if (timer == m_timers.end())
        return kRequestRefused;
    ::KillTimer(m_host.handle, timer->native);
    m_timers.erase(timer);
    return kRequestDone;
}

void ControlTimers::OnTimer(WPARAM wParam, LPARAM lParam)
{
    const UINT native = LOWORD(wParam);
    const auto timer = std::find_if(m_timers.begin(), m_timers.end(),
                                    [native](const Timer& known) { return known.native == native; });
    if (timer == m_timers.end()) {
        if (native != 0 && native < DUITIMER_FIRST_FREE)
            CTrace::TraceWarning(
                "CDUIWindowMgr::OnTimer: no control has the timer(%u), ids below %u are theirs", native,
                static_cast<UINT>(DUITIMER_FIRST_FREE));
        return;
    }
    IDUIControl* const owner = timer->owner;
    if (!owner) {
        RemoveOf(nullptr);
        return;
    }
    BOOL bHandled = FALSE;
    m_host.Deliver(owner, {DUIEVENT_TIMER, owner, m_host.pointer, 0, DUIKeyState(), timer->id, lParam},
                   bHandled);
}

void ControlTimers::RemoveOf(const IDUIControl* owner)
{
    RemoveIf([owner](const Timer& timer) { return timer.owner == owner; });
}

void ControlTimers::RemoveAll()
{
    RemoveIf([](const Timer&) { return true; });
}

template <class Predicate>
void ControlTimers::RemoveIf(Predicate isOver)
{
    const bool isWindow = m_host.IsWindow();
    const auto stop = [this, isWindow, &isOver](const Timer& timer) {
        if (!isOver(timer))
            return false;
        if (isWindow)
            ::KillTimer(m_host.handle, timer.native);
        return true;
    };
    m_timers.erase(std::remove_if(m_timers.begin(), m_timers.end(), stop), m_timers.end());
}

}  // namespace DUI
