#include <algorithm>
#include <iterator>
#include <utility>

#include <qvui/framework/window/window_mgr.h>

#include "framework/window/window_parts.h"

// Where messages of the window, requests of controls and their notifications go.

namespace DUI {

struct CDUIWindowMgr::MessageEntry {
    UINT message;
    LRESULT (*handler)(CDUIWindowMgr& manager, UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);

    /// Handled by the manager itself.
    template <LRESULT (CDUIWindowMgr::*handle)(UINT, WPARAM, LPARAM, BOOL&)>
    static LRESULT Own(CDUIWindowMgr& manager, UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
    {
        return (manager.*handle)(uMsg, wParam, lParam, bHandled);
    }
    /// Handled by one of its parts.
    template <auto part, auto handle>
    static LRESULT PassTo(CDUIWindowMgr& manager, UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
    {
        return ((*manager.m_parts.*part).*handle)(uMsg, wParam, lParam, bHandled);
    }
    template <LRESULT (PointerRouter::*handle)(UINT, WPARAM, LPARAM, BOOL&)>
    static constexpr auto Pointer = &PassTo<&WindowParts::pointer, handle>;
};

const CDUIWindowMgr::MessageEntry CDUIWindowMgr::kMessages[] = {
    {WM_SIZE, &MessageEntry::Own<&CDUIWindowMgr::OnSize>},
    {WM_MOVE, &MessageEntry::Own<&CDUIWindowMgr::OnMove>},
    {WM_SETCURSOR, MessageEntry::Pointer<&PointerRouter::OnSetCursor>},
    {WM_LBUTTONDOWN, MessageEntry::Pointer<&PointerRouter::OnLButtonDown>},
    {WM_LBUTTONUP, MessageEntry::Pointer<&PointerRouter::OnLButtonUp>},
    {WM_MOUSEMOVE, MessageEntry::Pointer<&PointerRouter::OnMouseMove>},
    {WM_MOUSELEAVE, MessageEntry::Pointer<&PointerRouter::OnMouseLeave>},
    {WM_LBUTTONDBLCLK, MessageEntry::Pointer<&PointerRouter::OnLButtonDBClick>},
    {WM_MOUSEWHEEL, MessageEntry::Pointer<&PointerRouter::OnMouseWheel>},
    {WM_CONTEXTMENU, MessageEntry::Pointer<&PointerRouter::OnContextMenu>},
    {WM_KEYDOWN, &MessageEntry::Own<&CDUIWindowMgr::OnKey>},
    {WM_KEYUP, &MessageEntry::Own<&CDUIWindowMgr::OnKey>},
    {WM_CHAR, &MessageEntry::Own<&CDUIWindowMgr::OnKey>},
    {WM_KILLFOCUS, &MessageEntry::Own<&CDUIWindowMgr::OnKillFocus>},
    {WM_NCACTIVATE, &MessageEntry::Own<&CDUIWindowMgr::OnNcActivate>},
    {WM_ERASEBKGND, &MessageEntry::Own<&CDUIWindowMgr::OnEraseBkgnd>},
    {WM_NCMOUSEMOVE, MessageEntry::Pointer<&PointerRouter::OnNcMouseMove>},
    {WM_NCLBUTTONDOWN, MessageEntry::Pointer<&PointerRouter::OnLButtonDown>},
    {WM_CAPTURECHANGED, MessageEntry::Pointer<&PointerRouter::OnCaptureChanged>},
    {WM_NOTIFY, &MessageEntry::PassTo<&WindowParts::toolTip, &WindowTooltip::OnNotifyDisplayTooltip>},
};

BOOL CDUIWindowMgr::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                         DWORD dwMsgMapID)
{
    if (dwMsgMapID != 0)
        return FALSE;
    const auto* const entry =
        std::find_if(std::begin(kMessages), std::end(kMessages),
                     [uMsg](const MessageEntry& known) { return known.message == uMsg; });
    if (entry == std::end(kMessages))
        return FALSE;
    BOOL bHandled = TRUE;
    lResult = entry->handler(*this, uMsg, wParam, lParam, bHandled);
    return bHandled;
}

LRESULT CDUIWindowMgr::OnTimer(UINT, WPARAM wParam, LPARAM lParam, BOOL&)
{
    m_parts->timers.OnTimer(wParam, lParam);
    return 0;
}

LRESULT CDUIWindowMgr::OnKey(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    IDUIControl* const focus = GetFocusControl();
    if (!focus)
        return 0;
    const UINT type = uMsg == WM_KEYDOWN ? DUIEVENT_KEYDOWN
                      : uMsg == WM_KEYUP ? DUIEVENT_KEYUP
                                         : DUIEVENT_CHAR;
    BOOL bEventHandled = FALSE;
    HostWindow& host = m_parts->host;
    host.Deliver(focus, {type, focus, host.pointer, static_cast<char>(wParam), DUIKeyState(), wParam, lParam},
                 bEventHandled);
    bHandled = uMsg != WM_KEYDOWN || wParam == VK_TAB;
    return 0;
}

LRESULT CDUIWindowMgr::OnKillFocus(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    m_parts->focus.OnKillFocus();
    return 0;
}

LRESULT CDUIWindowMgr::OnGetDispInfo(char* text, BOOL& bHandled)
{
    constexpr int kCapacity = 80;
    bHandled = TRUE;
    IDUIControl* const hover = m_parts->pointer.Hover();
    if (text && hover && !hover->GetTooltip().IsEmpty())
        lstrcpynA(text, hover->GetTooltip(), kCapacity);
    return 0;
}

BOOL CDUIWindowMgr::PreTranslateMessage(MSG* pMsg)
{
    const Target alive(m_parts->host.calls, nullptr);
    if (m_messageLoop.PreTranslateMessage(pMsg))
        return TRUE;
    if (!alive.IsManagerAlive())
        return FALSE;
    m_parts->toolTip.RelayEvent(pMsg);
    if (!m_parts->keys.IsOwnMessage(*pMsg))
        return FALSE;
    if (pMsg->message == WM_SYSCHAR)
        return m_parts->keys.OnSysChar(static_cast<char>(pMsg->wParam));
    BOOL bHandled = FALSE;
    if (pMsg->message == WM_KEYDOWN)
        OnPreKeyDown(pMsg, bHandled);
    return bHandled;
}

LRESULT CDUIWindowMgr::OnPreKeyDown(MSG* pMsg, BOOL& bHandled)
{
    bHandled = m_parts->keys.OnKeyDown(*pMsg);
    return 0;
}

BOOL CDUIWindowMgr::SetNextTabControl(BOOL bForward)
{
    return m_parts->focus.MoveByTab(bForward != FALSE);
}

BOOL CDUIWindowMgr::SetNextTabPage(BOOL bForward)
{
    IDUIControl* const control = GetControlByInterface("tab_bar");
    if (!control)
        return FALSE;
    const Target keep(m_parts->host.calls, control);
    return static_cast<IDUITabBar*>(control->GetInterface("tab_bar"))->MoveSelection(bForward, TRUE);
}

// --- requests ----------------------------------------------------------------------------------------------

struct CDUIWindowMgr::RequestEntry {
    UINT code;
    LRESULT (*handler)(CDUIWindowMgr& manager, tagDUINotify& request);
};

const CDUIWindowMgr::RequestEntry CDUIWindowMgr::kRequests[] = {
    {DUIREQUEST_UPDATE, [](auto& manager, auto& request) { return manager.HandleUpdateRequest(request); }},
    {DUIREQUEST_FOCUS,
     [](auto& manager, auto& request) { return manager.m_parts->focus.OnRequest(request); }},
    {DUIREQUEST_GETWINDOW, [](auto& manager, auto& request) { return manager.HandleWindowRequest(request); }},
    {DUIREQUEST_FINDCONTROL, [](auto& manager, auto& request) { return manager.HandleFindRequest(request); }},
    {DUIREQUEST_LOCKLAYOUT,
     [](auto& manager, auto& request) {
         manager.LockLayout(request.wParam != 0);
         return kRequestDone;
     }},
    {DUIREQUEST_TIMER,
     [](auto& manager, auto& request) { return manager.m_parts->timers.OnRequest(request); }},
    {DUIREQUEST_WINDOWSTATUS,
     [](auto& manager, auto& request) {
         request.wParam = manager.GetMostTopParentStatus();
         return kRequestDone;
     }},
    {DUIREQUEST_MOVE, [](auto& manager, auto& request) { return manager.HandleMoveRequest(request); }},
};

LRESULT CDUIWindowMgr::OnControlRequest(tagDUINotify& request)
{
    const auto* const entry =
        std::find_if(std::begin(kRequests), std::end(kRequests),
                     [&request](const RequestEntry& known) { return known.code == request.nCode; });
    return entry == std::end(kRequests) ? kRequestRefused : entry->handler(*this, request);
}

LRESULT CDUIWindowMgr::HandleUpdateRequest(const tagDUINotify& request)
{
    if (m_bLayoutLocked)
        return kRequestDone;
    if (m_isLayingOut) {
        m_isRelayoutPending = m_isRelayoutPending || request.wParam != 0;
        return kRequestDone;
    }
    return Update(request);
}

// Apart from its caller, which every control calls in every layout pass.
LRESULT CDUIWindowMgr::Update(const tagDUINotify& request)
{
    IDUIControl* sender = request.pSender;
    if (request.wParam) {
        const Target keep(m_parts->host.calls, sender);
        LayoutRootControl();
        if (!keep.IsManagerAlive())
            return kRequestDone;
        sender = keep.Get();
    }
    if (const auto* const rect = reinterpret_cast<const RECT*>(request.lParam)) {
        InvalidateRect(rect, TRUE);
    } else if (sender) {
        const RECT own = sender->GetControlRect();
        InvalidateRect(&own, TRUE);
    }
    return kRequestDone;
}

LRESULT CDUIWindowMgr::HandleWindowRequest(tagDUINotify& request)
{
    if (request.wParam == 1)
        request.lParam = reinterpret_cast<LPARAM>(GetHWND());
    else if (request.wParam == 2)
        request.lParam = reinterpret_cast<LPARAM>(GetMostTopParent());
    return kRequestDone;
}

LRESULT CDUIWindowMgr::HandleFindRequest(const tagDUINotify& request)
{
    IDUIControl* found = nullptr;
    if (request.wParam == 2)
        found = GetControlByName(reinterpret_cast<const char*>(request.lParam), FALSE);
    else if (request.wParam == 1 && request.lParam)
        found = FindControl(reinterpret_cast<POINT*>(request.lParam));
    return reinterpret_cast<LRESULT>(found);
}

LRESULT CDUIWindowMgr::HandleMoveRequest(const tagDUINotify& request)
{
    if (request.wParam)
        m_parts->moves.Begin(request.pSender);
    else
        EndMove(request.pSender);
    return kRequestDone;
}

// --- notifications -----------------------------------------------------------------------------------------

void CDUIWindowMgr::SendNotify(const tagDUINotify& notify)
{
    BOOL bHandled = FALSE;
    const Target sender(m_parts->host.calls, notify.pSender);
    if (notify.nCode == DUINOTIFY_CREATED)
        m_parts->moves.Return(notify.pSender);
    if (sender)
        sender->OnDUINotify(notify, bHandled);
    if (!bHandled && sender.IsManagerAlive())
        OnDUINotify(notify, bHandled);
    if (!sender.IsManagerAlive())
        return;
    if (!bHandled && sender && !sender->GetName().IsEmpty())
        m_parts->handlers.Call(CString(sender->GetName()), notify);
    // Whoever handled it, and whether or not an override passed it on.
    if (sender.IsManagerAlive() && notify.nCode == DUINOTIFY_DESTROYED)
        Forget(notify.pSender);
}

void CDUIWindowMgr::OnDUINotify(const tagDUINotify& notify, BOOL& bHandled)
{
    if (notify.nCode == DUINOTIFY_DESTROYED && !bHandled)
        ForgetPointers(notify.pSender);
}

void CDUIWindowMgr::AddHandler(const CString& name, CDUINotifyTarget* target,
                               std::function<void(const tagDUINotify&)> call)
{
    m_parts->handlers.Add(name, target, std::move(call));
}

void CDUIWindowMgr::RemoveNotifyHandler(const CString& name, CDUINotifyTarget* target)
{
    m_parts->handlers.Remove(name, target);
}

void CDUIWindowMgr::RemoveNotifyHandlers(CDUINotifyTarget* target)
{
    m_parts->handlers.Remove(target);
}

}  // namespace DUI
