#include "framework/window/control_focus.h"

#include <algorithm>

namespace DUI {
namespace {

constexpr UINT kInTabOrder = DUIFIND_VISIBLE | DUIFIND_ENABLED | DUIFIND_ME_FIRST;

// One walk in document order to the tab stop after (or before) the focus control.
struct TabWalk {
    IDUIControl* focus;
    bool isForward;
    IDUIControl* last = nullptr;  // the last tab stop seen
    bool takeNext = false;

    static IDUIControl* Offer(IDUIControl* control, void* data)
    {
        TabWalk& walk = *static_cast<TabWalk*>(data);
        if (control == walk.focus) {
            walk.takeNext = walk.isForward;
            return walk.isForward ? nullptr : walk.last;
        }
        if (!(control->GetStyle() & DUISTYLE_TABSTOP))
            return nullptr;
        walk.last = control;
        return walk.takeNext || !walk.focus ? control : nullptr;
    }
};

}  // namespace

void ControlFocus::Forget(const IDUIControl* control)
{
    if (m_focus != control)
        return;
    m_focus->ModifyStatus(DUISTATUS_FOCUSED, 0);
    m_focus = nullptr;
}

LRESULT ControlFocus::OnRequest(const tagDUINotify& request)
{
    enum : WPARAM { kTake = 1, kGiveUp = 2, kAsk = 3 };
    if (request.wParam == kAsk)
        return reinterpret_cast<LRESULT>(m_focus.GetPtr());
    if (request.wParam != kTake && request.wParam != kGiveUp)
        return kRequestDone;
    const Target taker(m_host.calls, request.wParam == kTake ? request.pSender : nullptr);
    if (taker.Get() == m_focus || (taker && IsTold(m_takers, taker.Get())))
        return kRequestDone;
    BOOL bHandled = FALSE;
    if (m_focus && !Lose(m_focus, {}, bHandled))
        return kRequestDone;
    // A handler of the loss may have moved the focus; the last request wins.
    if (!taker || m_focus || !taker->IsVisible(FALSE) || !taker->IsEnabled())
        return kRequestDone;
    m_focus = taker.Get();
    TellOnce(m_takers, taker.Get(), {DUIEVENT_SETFOCUS, taker.Get(), {}, 0, 0, 0, 0}, bHandled);
    return kRequestDone;
}

bool ControlFocus::Lose(IDUIControl* sender, tagDUIEvent event, BOOL& bHandled)
{
    IDUIControl* const loser = m_focus;
    event.Type = DUIEVENT_KILLFOCUS;
    event.pSender = sender;
    if (!IsTold(m_losers, loser) && !TellOnce(m_losers, loser, event, bHandled))
        return false;
    if (m_focus == loser)
        m_focus = nullptr;
    return true;
}

bool ControlFocus::IsTold(const Calls& calls, const IDUIControl* control)
{
    return std::find(calls.begin(), calls.end(), control) != calls.end();
}

bool ControlFocus::TellOnce(Calls& calls, IDUIControl* control, const tagDUIEvent& event, BOOL& bHandled)
{
    calls.emplace_back(control);
    if (!m_host.Deliver(control, event, bHandled))
        return false;
    calls.pop_back();
    return true;
}

void ControlFocus::OnKillFocus()
{
    if (!m_focus)
        return;
    const Target focus(m_host.calls, m_focus);
    focus->SetFocus(FALSE);
}

void ControlFocus::MoveTo(IDUIControl* control)
{
    const Target to(m_host.calls, control);
    if (m_focus && m_focus != control) {
        const Target from(m_host.calls, m_focus);
        from->SetFocus(FALSE);
        if (!from.IsManagerAlive())
            return;
    }
    if (to)
        to->SetFocus(TRUE);
}

bool ControlFocus::MoveByTab(bool isForward)
{
    if (m_host.root.IsNull())
        return false;
    TabWalk walk{m_focus, isForward};
    if (IDUIControl* const next = m_host.Find(&TabWalk::Offer, &walk, kInTabOrder)) {
        MoveTo(next);
        return true;
    }
    return MoveBeyondTree(isForward, walk.last);
}

bool ControlFocus::MoveBeyondTree(bool isForward, IDUIControl* lastTabStop)
{
    HWND next = m_host.IsWindow() ? GetNextDlgTabItem(m_host.handle, m_host.handle, !isForward) : nullptr;
    // Without native tab stops some platforms answer with the window itself and some with nothing.
    if (!next && m_host.IsWindow())
        next = m_host.handle;
    if (!next)
        return false;
    if (next != m_host.handle) {
        MoveTo(nullptr);
        ::SetFocus(next);
        return true;
    }
    if (isForward) {
        TabWalk fromStart{nullptr, true};
        lastTabStop = m_host.Find(&TabWalk::Offer, &fromStart, kInTabOrder);
    }
    MoveTo(lastTabStop);
    return true;
}

}  // namespace DUI
