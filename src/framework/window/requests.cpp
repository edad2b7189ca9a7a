#include <algorithm>
#include <bitset>
#include <iterator>
#include <utility>

#include <qvui/foundation/trace.h>
#include <qvui/framework/window/window_mgr.h>

#include "framework/window/target.h"

// What controls ask of their window, and what they tell it.

namespace DUI {
namespace {

constexpr LRESULT kDone = 0;
constexpr LRESULT kRefused = 1;
constexpr UINT_PTR kMostTimers = DUITIMER_FIRST_FREE - 1;

}  // namespace

const CDUIWindowMgr::RequestEntry CDUIWindowMgr::kRequests[] = {
    {DUIREQUEST_UPDATE, &CDUIWindowMgr::HandleUpdateRequest},
    {DUIREQUEST_FOCUS, &CDUIWindowMgr::HandleFocusRequest},
    {DUIREQUEST_GETWINDOW, &CDUIWindowMgr::HandleWindowRequest},
    {DUIREQUEST_FINDCONTROL, &CDUIWindowMgr::HandleFindRequest},
    {DUIREQUEST_LOCKLAYOUT, &CDUIWindowMgr::HandleLockRequest},
    {DUIREQUEST_TIMER, &CDUIWindowMgr::HandleTimerRequest},
    {DUIREQUEST_WINDOWSTATUS, &CDUIWindowMgr::HandleStatusRequest},
    {DUIREQUEST_MOVE, &CDUIWindowMgr::HandleMoveRequest},
};

LRESULT CDUIWindowMgr::OnControlRequest(tagDUINotify& request)
{
    const auto* const entry =
        std::find_if(std::begin(kRequests), std::end(kRequests),
                     [&request](const RequestEntry& known) { return known.code == request.nCode; });
    return entry == std::end(kRequests) ? kRefused : (this->*entry->handler)(request);
}

LRESULT CDUIWindowMgr::HandleUpdateRequest(tagDUINotify& request)
{
    if (m_bLayoutLocked)
        return kDone;
    if (m_isLayingOut) {
        m_isRelayoutPending = m_isRelayoutPending || request.wParam != 0;
        return kDone;
    }
    return Update(request);
}

// Apart from its caller, which every control calls in every layout pass.
LRESULT CDUIWindowMgr::Update(const tagDUINotify& request)
{
    IDUIControl* sender = request.pSender;
    if (request.wParam) {
        const Target keep(*this, sender);
        LayoutRootControl();
        if (!keep.IsManagerAlive())
            return kDone;
        sender = keep.Get();
    }
    if (const auto* const rect = reinterpret_cast<const RECT*>(request.lParam)) {
        InvalidateRect(rect, TRUE);
    } else if (sender) {
        const RECT own = sender->GetControlRect();
        InvalidateRect(&own, TRUE);
    }
    return kDone;
}

LRESULT CDUIWindowMgr::HandleFocusRequest(tagDUINotify& request)
{
    enum : WPARAM { kTake = 1, kGiveUp = 2, kAsk = 3 };
    if (request.wParam == kAsk)
        return reinterpret_cast<LRESULT>(m_pFocus.GetPtr());
    if (request.wParam != kTake && request.wParam != kGiveUp)
        return kDone;
    Target taker(*this, request.wParam == kTake ? request.pSender : nullptr);
    if (taker.Get() == m_pFocus || (taker && IsTold(m_focusTakers, taker.Get())))
        return kDone;
    BOOL bHandled = FALSE;
    if (m_pFocus && !LoseFocus(m_pFocus, {}, bHandled))
        return kDone;
    // A handler of the loss may have moved the focus; the last request wins.
    if (!taker || m_pFocus || !taker->IsVisible(FALSE) || !taker->IsEnabled())
        return kDone;
    m_pFocus = taker.Get();
    TellOnce(m_focusTakers, taker.Get(), {DUIEVENT_SETFOCUS, taker.Get(), {}, 0, 0, 0, 0}, bHandled);
    return kDone;
}

LRESULT CDUIWindowMgr::HandleWindowRequest(tagDUINotify& request)
{
    if (request.wParam == 1)
        request.lParam = reinterpret_cast<LPARAM>(m_hWnd);
    else if (request.wParam == 2)
        request.lParam = reinterpret_cast<LPARAM>(GetMostTopParent());
    return kDone;
}

LRESULT CDUIWindowMgr::HandleLockRequest(tagDUINotify& request)
{
    LockLayout(request.wParam != 0);
    return kDone;
}

LRESULT CDUIWindowMgr::HandleFindRequest(tagDUINotify& request)
{
    IDUIControl* found = nullptr;
    if (request.wParam == 2)
        found = GetControlByName(reinterpret_cast<const char*>(request.lParam), FALSE);
    else if (request.wParam == 1 && request.lParam)
        found = FindControl(reinterpret_cast<POINT*>(request.lParam));
    return reinterpret_cast<LRESULT>(found);
}

LRESULT CDUIWindowMgr::HandleStatusRequest(tagDUINotify& request)
{
    request.wParam = GetMostTopParentStatus();
    return kDone;
}

// --- timers ------------------------------------------------------------------------------------------------

LRESULT CDUIWindowMgr::HandleTimerRequest(tagDUINotify& request)
{
    const auto* const wanted = reinterpret_cast<const DUITimerRecord*>(request.lParam);
    if (!IsWindow() || !wanted)
        return kRefused;
    switch (request.wParam) {
        case 1:
            return StartTimer(*wanted);
        case 2:
            return StopTimer(*wanted);
        case 3:
            return FindTimer(wanted->pOwner, wanted->nTimerID) == m_timers.size() ? kRefused : kDone;
        default:
            return kRefused;
    }
}

// The position of a running timer; the list's size when it does not run.
std::size_t CDUIWindowMgr::FindTimer(const IDUIControl* owner, UINT id) const
{
    const auto found = std::find_if(m_timers.begin(), m_timers.end(), [owner, id](const Timer& timer) {
        return timer.owner == owner && timer.record.nTimerID == id;
    });
    return static_cast<std::size_t>(found - m_timers.begin());
}

LRESULT CDUIWindowMgr::StartTimer(const DUITimerRecord& wanted)
{
    if (FindTimer(wanted.pOwner, wanted.nTimerID) != m_timers.size())
        return E_FAIL;
    RemoveTimers([](const Timer& timer) { return !timer.owner; });
    std::bitset<kMostTimers + 1> isTaken;
    for (const Timer& timer : m_timers)
        isTaken.set(timer.record.nNativeID);
    UINT_PTR native = 1;
    while (native <= kMostTimers && isTaken.test(native))
        ++native;
    if (native > kMostTimers || !::SetTimer(m_hWnd, native, wanted.nElapse, nullptr))
        return E_FAIL;
    m_timers.push_back({{wanted.pOwner, m_hWnd, wanted.nTimerID, wanted.nElapse, native}, wanted.pOwner});
    return kDone;
}

LRESULT CDUIWindowMgr::StopTimer(const DUITimerRecord& wanted)
{
    const std::size_t index = FindTimer(wanted.pOwner, wanted.nTimerID);
    if (index == m_timers.size())
        return kRefused;
    ::KillTimer(m_hWnd, m_timers[index].record.nNativeID);
    m_timers.erase(m_timers.begin() + static_cast<std::ptrdiff_t>(index));
    return kDone;
}

void CDUIWindowMgr::ClearTimer()
{
    RemoveTimers([](const Timer&) { return true; });
}

template <class Predicate>
void CDUIWindowMgr::RemoveTimers(Predicate isOver)
{
    const bool isWindow = IsWindow() != FALSE;
    const auto stop = [this, isWindow, &isOver](const Timer& timer) {
        if (!isOver(timer))
            return false;
        if (isWindow)
            ::KillTimer(m_hWnd, timer.record.nNativeID);
        return true;
    };
    m_timers.erase(std::remove_if(m_timers.begin(), m_timers.end(), stop), m_timers.end());
}

LRESULT CDUIWindowMgr::OnTimer(UINT, WPARAM wParam, LPARAM lParam, BOOL&)
{
    const auto found = std::find_if(m_timers.begin(), m_timers.end(), [wParam](const Timer& timer) {
        return timer.record.nNativeID == LOWORD(wParam);
    });
    if (found == m_timers.end()) {
        if (const UINT id = LOWORD(wParam); id != 0 && id < DUITIMER_FIRST_FREE)
            CTrace::TraceWarning(
                "CDUIWindowMgr::OnTimer: no control has the timer(%u), ids below %u are theirs", id,
                static_cast<UINT>(DUITIMER_FIRST_FREE));
        return 0;
    }
    IDUIControl* const owner = found->owner;
    if (!owner) {
        RemoveTimers([](const Timer& timer) { return !timer.owner; });
        return 0;
    }
    BOOL bHandled = FALSE;
    Deliver(owner, {DUIEVENT_TIMER, owner, m_ptLast, 0, DUIKeyState(), found->record.nTimerID, lParam},
            bHandled);
    return 0;
}

// --- notifications -----------------------------------------------------------------------------------------

void CDUIWindowMgr::SendNotify(const tagDUINotify& notify)
{
    BOOL bHandled = FALSE;
    const Target sender(*this, notify.pSender);
    if (notify.nCode == DUINOTIFY_CREATED)
        m_away.erase(notify.pSender);
    if (sender)
        sender->OnDUINotify(notify, bHandled);
    if (!bHandled && sender.IsManagerAlive())
        OnDUINotify(notify, bHandled);
    if (!sender.IsManagerAlive())
        return;
    if (!bHandled && sender && !sender->GetName().IsEmpty())
        CallHandlers(CString(sender->GetName()), notify);
    // Whoever handled it, and whether or not an override passed it on.
    if (sender.IsManagerAlive() && notify.nCode == DUINOTIFY_DESTROYED)
        Forget(notify.pSender);
}

void CDUIWindowMgr::OnDUINotify(const tagDUINotify& notify, BOOL& bHandled)
{
    if (notify.nCode == DUINOTIFY_DESTROYED && !bHandled)
        ForgetPointers(notify.pSender);
}

void CDUIWindowMgr::ForgetPointers(const IDUIControl* control)
{
    if (m_pHover == control)
        m_pHover = nullptr;
    if (IsMoving(control))
        return;
    // What comes back later is neither pushed nor focused.
    const struct {
        CWeakPtr<IDUIControl>& pointer;
        DWORD status;
    } pointers[] = {{m_pCapture, DUISTATUS_PUSHED}, {m_pFocus, DUISTATUS_FOCUSED}};
    for (const auto& [pointer, status] : pointers)
        if (pointer == control) {
            pointer->ModifyStatus(status, 0);
            pointer = nullptr;
        }
}

void CDUIWindowMgr::Forget(const IDUIControl* control)
{
    ForgetPointers(control);
    if (IsMoving(control)) {
        m_away.insert(control);
        return;
    }
    // A move below a control that leaves is over.
    const std::vector<CWeakPtr<IDUIControl>> moves = m_moves;
    for (const CWeakPtr<IDUIControl>& move : moves)
        if (move && move->GetParent() == control) {
            tagDUINotify over{DUIREQUEST_MOVE, move, 0, 0, nullptr};
            HandleMoveRequest(over);
        }
    for (Target* const target : m_targets)
        target->Forget(control);
    const auto place = m_namePlaces.find(control);
    if (place != m_namePlaces.end()) {
        m_names.erase(place->second);
        m_namePlaces.erase(place);
    }
    RemoveTimers([control](const Timer& timer) { return timer.owner == control; });
}

bool CDUIWindowMgr::IsMoving(const IDUIControl* control) const
{
    for (; control && !m_moves.empty(); control = control->GetParent())
        if (std::find(m_moves.begin(), m_moves.end(), control) != m_moves.end())
            return true;
    return false;
}

LRESULT CDUIWindowMgr::HandleMoveRequest(tagDUINotify& request)
{
    if (request.wParam) {
        m_moves.push_back(request.pSender);
        return kDone;
    }
    const auto ended = std::find(m_moves.rbegin(), m_moves.rend(), request.pSender);
    if (ended != m_moves.rend())
        m_moves.erase(std::next(ended).base());
    if (m_moves.empty())
        for (const IDUIControl* const control : std::exchange(m_away, {}))
            Forget(control);
    return kDone;
}

void CDUIWindowMgr::AddHandler(const CString& name, CDUINotifyTarget* target,
                               std::function<void(const tagDUINotify&)> call)
{
    m_handlers[name].push_back(
        std::make_shared<NotifyHandlerEntry>(NotifyHandlerEntry{target, std::move(call)}));
    std::vector<CDUIWindowMgr*>& managers = target->m_managers;
    if (std::find(managers.begin(), managers.end(), this) == managers.end())
        managers.push_back(this);
}

void CDUIWindowMgr::CallHandlers(const CString& name, const tagDUINotify& notify)
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        return;
    // Handlers may remove each other, themselves and their objects, and end the manager; a removed entry has
    // no target any more.
    const NotifyHandlerList handlers = found->second;
    const Target alive(*this, nullptr);
    for (const std::shared_ptr<NotifyHandlerEntry>& handler : handlers)
        if (alive.IsManagerAlive() && handler->target)
            handler->call(notify);
}

void CDUIWindowMgr::RemoveNotifyHandler(const CString& name, CDUINotifyTarget* target)
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        return;
    NotifyHandlerList& handlers = found->second;
    const auto isOfTarget = [target](const std::shared_ptr<NotifyHandlerEntry>& handler) {
        if (handler->target != target)
            return false;
        handler->target = nullptr;
        return true;
    };
    handlers.erase(std::remove_if(handlers.begin(), handlers.end(), isOfTarget), handlers.end());
    if (handlers.empty())
        m_handlers.erase(found);
}

void CDUIWindowMgr::RemoveNotifyHandlers(CDUINotifyTarget* target)
{
    std::vector<CString> names;
    for (const auto& entry : m_handlers)
        names.push_back(entry.first);
    for (const CString& name : names)
        RemoveNotifyHandler(name, target);
    std::vector<CDUIWindowMgr*>& managers = target->m_managers;
    managers.erase(std::remove(managers.begin(), managers.end(), this), managers.end());
}

void CDUIWindowMgr::ForgetAllHandlers()
{
    for (const auto& entry : m_handlers)
        for (const std::shared_ptr<NotifyHandlerEntry>& handler : entry.second) {
            std::vector<CDUIWindowMgr*>& managers = handler->target->m_managers;
            managers.erase(std::remove(managers.begin(), managers.end(), this), managers.end());
            handler->target = nullptr;
        }
    m_handlers.clear();
}

CDUINotifyTarget::~CDUINotifyTarget()
{
    const std::vector<CDUIWindowMgr*> managers = m_managers;
    for (CDUIWindowMgr* const manager : managers)
        manager->RemoveNotifyHandlers(this);
}

// --- controls by name --------------------------------------------------------------------------------------

void CDUIWindowMgr::RefreshNames()
{
    ForgetNames();
    const auto add = [](IDUIControl* control, void* data) -> IDUIControl* {
        auto& manager = *static_cast<CDUIWindowMgr*>(data);
        if (!control->GetName().IsEmpty()) {
            const auto inserted = manager.m_names.emplace(control->GetName(), control);
            if (inserted.second)
                manager.m_namePlaces.emplace(control, inserted.first);
        }
        return nullptr;
    };
    if (!m_pRoot.IsNull())
        m_pRoot->FindControl(add, this, 0);
}

void CDUIWindowMgr::ForgetNames()
{
    m_names.clear();
    m_namePlaces.clear();
}

IDUIControl* CDUIWindowMgr::GetControlByName(const CString& name, BOOL bRefresh)
{
    if (name.IsEmpty())
        return nullptr;
    if (bRefresh || m_names.empty())
        RefreshNames();
    const auto found = m_names.find(name);
    return found == m_names.end() ? nullptr : found->second;
}

BOOL CDUIWindowMgr::SetControlAttribute(const CString& name, const CString& attribute, const CString& value,
                                        BOOL bRefresh)
{
    IDUIControl* const control = GetControlByName(name, bRefresh);
    if (control)
        control->SetAttribute(attribute, value);
    return control != nullptr;
}

BOOL CDUIWindowMgr::EnableControl(const CString& name, BOOL bEnable)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetEnable(bEnable);
    return control != nullptr;
}

BOOL CDUIWindowMgr::ShowControl(const CString& name, BOOL bShow)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetVisible(bShow);
    return control != nullptr;
}

BOOL CDUIWindowMgr::SetContrlText(const CString& name, const CString& text)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    if (control)
        control->SetText(text);
    return control != nullptr;
}

CString CDUIWindowMgr::GetContrlText(const CString& name)
{
    IDUIControl* const control = GetControlByName(name, FALSE);
    return control ? control->GetText() : CString();
}

}  // namespace DUI
