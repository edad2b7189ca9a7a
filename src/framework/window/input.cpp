#include <algorithm>
#include <cctype>

#include <qvui/framework/window/window_mgr.h>
#include <qvui/tooltip/tool_tip.h>

#include "framework/window/target.h"

// Mouse, keyboard and focus messages on their way to the controls.

namespace DUI {
namespace {

constexpr UINT kReachable = DUIFIND_VISIBLE | DUIFIND_ENABLED;
constexpr UINT kUnderPointer = DUIFIND_VISIBLE | DUIFIND_HITTEST;
constexpr UINT kInDocumentOrder = kReachable | DUIFIND_ME_FIRST;
constexpr const char* kLayoutContainers[] = {"tile_layout", "dock_layout", "frame_panel",  "tab_layout",
                                             "horz_layout", "vert_layout", "dialog_layout"};

bool Answers(IDUIControl* control, const char* name)
{
    return control && control->GetInterface(name);
}

bool IsLayoutContainer(IDUIControl* control)
{
    return std::any_of(std::begin(kLayoutContainers), std::end(kLayoutContainers),
                       [control](const char* name) { return Answers(control, name); });
}

POINT PointOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

IDUIControl* ContainsPoint(IDUIControl* control, void* data)
{
    const RECT rect = control->GetControlRect();
    return PtInRect(&rect, *static_cast<const POINT*>(data)) ? control : nullptr;
}

char Upper(char character)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
}

}  // namespace

WORD DUIKeyState()
{
    constexpr struct {
        int key;
        WORD flag;
    } kKeys[] = {{VK_CONTROL, MK_CONTROL},
                 {VK_LBUTTON, MK_LBUTTON},
                 {VK_RBUTTON, MK_RBUTTON},
                 {VK_SHIFT, MK_SHIFT},
                 {VK_MENU, 0x20}};
    WORD state = 0;
    for (const auto& entry : kKeys)
        if (GetKeyState(entry.key) < 0)
            state = static_cast<WORD>(state | entry.flag);
    return state;
}

const CDUIWindowMgr::MessageEntry CDUIWindowMgr::kMessages[] = {
    {WM_SIZE, &CDUIWindowMgr::OnSize},
    {WM_MOVE, &CDUIWindowMgr::OnMove},
    {WM_SETCURSOR, &CDUIWindowMgr::OnSetCursor},
    {WM_LBUTTONDOWN, &CDUIWindowMgr::OnLButtonDown},
    {WM_LBUTTONUP, &CDUIWindowMgr::OnLButtonUp},
    {WM_MOUSEMOVE, &CDUIWindowMgr::OnMouseMove},
    {WM_MOUSELEAVE, &CDUIWindowMgr::OnMouseLeave},
    {WM_LBUTTONDBLCLK, &CDUIWindowMgr::OnLButtonDBClick},
    {WM_MOUSEWHEEL, &CDUIWindowMgr::OnMouseWheel},
    {WM_CONTEXTMENU, &CDUIWindowMgr::OnContextMenu},
    {WM_KEYDOWN, &CDUIWindowMgr::OnKey},
    {WM_KEYUP, &CDUIWindowMgr::OnKey},
    {WM_CHAR, &CDUIWindowMgr::OnKey},
    {WM_KILLFOCUS, &CDUIWindowMgr::OnKillFocus},
    {WM_NCACTIVATE, &CDUIWindowMgr::OnNcActivate},
    {WM_ERASEBKGND, &CDUIWindowMgr::OnEraseBkgnd},
    {WM_NCMOUSEMOVE, &CDUIWindowMgr::OnNcMouseMove},
    {WM_NCLBUTTONDOWN, &CDUIWindowMgr::OnLButtonDown},
    {WM_CAPTURECHANGED, &CDUIWindowMgr::OnCaptureChanged},
    {WM_NOTIFY, &CDUIWindowMgr::OnNotifyDisplayTooltip},
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
    lResult = (this->*entry->handler)(uMsg, wParam, lParam, bHandled);
    return bHandled;
}

bool CDUIWindowMgr::Deliver(IDUIControl* target, const tagDUIEvent& event, BOOL& bHandled)
{
    const Target keep(*this, target);
    target->OnDUIEvent(event, bHandled);
    return keep.IsManagerAlive();
}

// Takes the message's point as the last one.
tagDUIEvent CDUIWindowMgr::PointerEvent(UINT type, IDUIControl* sender, WPARAM wParam, LPARAM lParam)
{
    m_ptLast = PointOf(lParam);
    return {type, sender, m_ptLast, 0, LOWORD(wParam), wParam, lParam};
}

IDUIControl* CDUIWindowMgr::FindControl(POINT* pt)
{
    return FindControl(pt, kUnderPointer);
}

IDUIControl* CDUIWindowMgr::FindControl(POINT* pt, UINT flags)
{
    return m_pRoot.IsNull() ? nullptr : m_pRoot->FindControl(&ContainsPoint, pt, flags);
}

BOOL CDUIWindowMgr::IsTrasparentCtrl(IDUIControl* control)
{
    return !control || IsLayoutContainer(control) || Answers(control, "picturebox");
}

// --- moves -------------------------------------------------------------------------------------------------

LRESULT CDUIWindowMgr::OnMouseMove(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!m_bTracking) {
        TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, m_hWnd, 0};
        m_bTracking = TrackMouseEvent(&track);
    }
    RouteMove(PointerEvent(DUIEVENT_MOUSEMOVE, nullptr, wParam, lParam), bHandled);
    return 0;
}

bool CDUIWindowMgr::RouteMove(tagDUIEvent event, BOOL& bHandled)
{
    // While a scroll bar's thumb is dragged, nothing else changes its hover state.
    if ((event.wParam & MK_LBUTTON) && Answers(m_pCapture, "SBThumButton")) {
        const bool isAlive = Deliver(m_pCapture, event, bHandled);
        bHandled = TRUE;
        return isAlive;
    }
    Target found(*this, FindControl(&event.ptMouse, kReachable | DUIFIND_HITTEST));
    if (!MoveHover(found, event, bHandled))
        return false;
    if (m_pCapture)
        return Deliver(m_pCapture, event, bHandled);
    event.pSender = found.Get();
    return !found || Deliver(found.Get(), event, bHandled);
}

// While a control holds the capture, it alone can become hot.
bool CDUIWindowMgr::MoveHover(Target& found, const tagDUIEvent& move, BOOL& bHandled)
{
    const auto mayBeHot = [this, &found] { return !m_pCapture || found.Get() == m_pCapture; };
    if (m_pHover && found.Get() != m_pHover && (!m_pCapture || found.Get() != m_pCapture)) {
        tagDUIEvent leave = move;
        leave.Type = DUIEVENT_MOUSELEAVE;
        leave.pSender = found.Get();
        IDUIControl* const left = m_pHover;
        if (!Deliver(left, leave, bHandled))
            return false;
        if (m_pHover == left)
            m_pHover = nullptr;
    }
    if (found && found.Get() != m_pHover && mayBeHot()) {
        tagDUIEvent enter = move;
        enter.Type = DUIEVENT_MOUSEENTER;
        enter.pSender = m_pHover;
        m_pHover = found.Get();
        return Deliver(found.Get(), enter, bHandled);
    }
    return true;
}

LRESULT CDUIWindowMgr::OnMouseLeave(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_bTracking)
        EndHover(bHandled);
    return 0;
}

LRESULT CDUIWindowMgr::OnNcMouseMove(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_pHover) {
        m_bTracking = TRUE;
        EndHover(bHandled);
    }
    return 0;
}

// A move to where no control is. A window that holds the mouse is not left: its moves say where the pointer
// is.
bool CDUIWindowMgr::EndHover(BOOL& bHandled)
{
    constexpr LPARAM kOutside = MAKELPARAM(0xFFFF, 0xFFFF);
    if (!m_holdsMouse && !RouteMove(PointerEvent(DUIEVENT_MOUSEMOVE, nullptr, 0, kOutside), bHandled))
        return false;
    m_bTracking = FALSE;
    return true;
}

// SetCapture and ReleaseCapture tell the window that loses the mouse, whose handlers may do anything.
void CDUIWindowMgr::HoldMouse(bool isHeld)
{
    const bool isReleased = m_holdsMouse && !isHeld;
    m_holdsMouse = isHeld;
    if (isHeld)
        SetCapture(m_hWnd);
    else if (isReleased && GetCapture() == m_hWnd)
        ReleaseCapture();
}

LRESULT CDUIWindowMgr::OnCaptureChanged(UINT, WPARAM, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    // The release of the press will not arrive.
    if (m_holdsMouse && reinterpret_cast<HWND>(lParam) != m_hWnd) {
        m_holdsMouse = false;
        m_pCapture = nullptr;
        BOOL bEventHandled = FALSE;
        EndHover(bEventHandled);
    }
    return 0;
}

// --- buttons and wheel -------------------------------------------------------------------------------------

LRESULT CDUIWindowMgr::OnLButtonDown(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONDOWN, nullptr, wParam, lParam);
    Target pressed(*this, FindControl(&event.ptMouse, kReachable | DUIFIND_HITTEST));
    event.pSender = pressed.Get();
    if (m_pFocus && m_pFocus != pressed.Get() && !LoseFocus(pressed.Get(), event, bHandled))
        return 0;
    bHandled = FALSE;
    m_pCapture = pressed.Get();
    const BOOL isControl = pressed && !IsLayoutContainer(pressed.Get());
    HoldMouse(isControl && uMsg == WM_LBUTTONDOWN);
    if (!pressed)
        return 0;
    if (pressed->GetStyle() & DUISTYLE_TABSTOP)
        pressed->SetFocus(TRUE);
    BOOL bEventHandled = FALSE;
    if (pressed)
        pressed->OnDUIEvent(event, bEventHandled);
    if (!pressed.IsManagerAlive()) {
        bHandled = TRUE;
        return 0;
    }
    bHandled = isControl;
    if (m_pFocus && m_pFocus != pressed.Get()) {
        bHandled = FALSE;
        event.Type = DUIEVENT_BUTTONDOWN_ELSEWHERE;
        event.pSender = pressed.Get();
        Deliver(m_pFocus, event, bHandled);
    }
    return 0;
}

// While a control hears that it loses the focus, it still has it; a handler that moves the focus then takes
// it.
bool CDUIWindowMgr::LoseFocus(IDUIControl* sender, tagDUIEvent event, BOOL& bHandled)
{
    IDUIControl* const loser = m_pFocus;
    event.Type = DUIEVENT_KILLFOCUS;
    event.pSender = sender;
    if (!IsTold(m_focusLosers, loser) && !TellOnce(m_focusLosers, loser, event, bHandled))
        return false;
    if (m_pFocus == loser)
        m_pFocus = nullptr;
    return true;
}

bool CDUIWindowMgr::IsTold(const FocusCalls& calls, const IDUIControl* control)
{
    return std::find(calls.begin(), calls.end(), control) != calls.end();
}

bool CDUIWindowMgr::TellOnce(FocusCalls& calls, IDUIControl* control, const tagDUIEvent& event,
                             BOOL& bHandled)
{
    calls.emplace_back(control);
    if (!Deliver(control, event, bHandled))
        return false;
    calls.pop_back();
    return true;
}

LRESULT CDUIWindowMgr::OnLButtonUp(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONUP, m_pCapture, wParam, lParam);
    Target captured(*this, m_pCapture);
    // Before the event, whose handler may open a window that needs the mouse.
    HoldMouse(false);
    if (!captured)
        return 0;
    const bool isThumb = Answers(m_pCapture, "SBThumButton") || Answers(m_pCapture, "track_bar_thumb");
    IDUIControl* const found = isThumb ? captured.Get() : FindControl(&event.ptMouse);
    bHandled = isThumb || !found || IsLayoutContainer(found);
    if (isThumb || (found == m_pCapture && !IsLayoutContainer(found))) {
        BOOL bEventHandled = FALSE;
        captured->OnDUIEvent(event, bEventHandled);
        if (!captured.IsManagerAlive() || m_pCapture != captured.Get())
            return 0;  // a handler closed the window, or a press inside a nested loop took the capture
        if (!isThumb && Answers(captured.Get(), "richedit"))
            return 0;
    }
    m_pCapture = nullptr;
    return 0;
}

LRESULT CDUIWindowMgr::OnLButtonDBClick(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    tagDUIEvent event = PointerEvent(DUIEVENT_LBUTTONDBLCLK, nullptr, wParam, lParam);
    Target found(*this, FindControl(&event.ptMouse));
    if (!found)
        return 0;
    event.pSender = m_pCapture = found.Get();
    HoldMouse(!IsLayoutContainer(found.Get()));
    BOOL bEventHandled = FALSE;
    if (found)
        found->OnDUIEvent(event, bEventHandled);
    return 0;
}

LRESULT CDUIWindowMgr::OnMouseWheel(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!m_pFocus)
        return 0;
    POINT pointer{};
    GetCursorPos(&pointer);
    ScreenToClient(m_hWnd, &pointer);
    IDUIControl* const target = FindControl(&pointer, kInDocumentOrder | DUIFIND_HITTEST);
    if (!target)
        return 1;
    BOOL bEventHandled = FALSE;
    Deliver(target, {DUIEVENT_MOUSEWHEEL, m_pFocus, m_ptLast, 0, LOWORD(wParam), wParam, lParam},
            bEventHandled);
    return 0;
}

LRESULT CDUIWindowMgr::OnContextMenu(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    POINT point = PointOf(lParam);
    ScreenToClient(m_hWnd, &point);
    BOOL bEventHandled = FALSE;
    if (IDUIControl* const found = FindControl(&point))
        Deliver(found, {DUIEVENT_CONTEXTMENU, found, point, 0, DUIKeyState(), wParam, lParam}, bEventHandled);
    return 0;
}

LRESULT CDUIWindowMgr::OnSetCursor(UINT, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_pRoot.IsNull())
        return 0;
    POINT pointer{};
    GetCursorPos(&pointer);
    ScreenToClient(m_hWnd, &pointer);
    IDUIControl* const found = FindControl(&pointer);
    if (!found || !(found->GetStyle() & DUISTYLE_CURSOR))
        return 0;
    BOOL bEventHandled = FALSE;
    Deliver(found, {DUIEVENT_SETCURSOR, found, pointer, 0, DUIKeyState(), wParam, lParam}, bEventHandled);
    bHandled = TRUE;
    return TRUE;
}

// --- keys --------------------------------------------------------------------------------------------------

LRESULT CDUIWindowMgr::OnKey(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    if (!m_pFocus)
        return 0;
    const UINT type = uMsg == WM_KEYDOWN ? DUIEVENT_KEYDOWN
                      : uMsg == WM_KEYUP ? DUIEVENT_KEYUP
                                         : DUIEVENT_CHAR;
    BOOL bEventHandled = FALSE;
    Deliver(m_pFocus, {type, m_pFocus, m_ptLast, static_cast<char>(wParam), DUIKeyState(), wParam, lParam},
            bEventHandled);
    bHandled = uMsg != WM_KEYDOWN || wParam == VK_TAB;
    return 0;
}

LRESULT CDUIWindowMgr::OnKillFocus(UINT, WPARAM, LPARAM, BOOL& bHandled)
{
    bHandled = FALSE;
    if (m_pFocus) {
        const Target focus(*this, m_pFocus);
        focus->SetFocus(FALSE);
    }
    return 0;
}

// Filters see the messages of all windows of the thread; keys that belong to another window are not ours.
bool CDUIWindowMgr::IsOwnMessage(const MSG& message) const
{
    return !message.hwnd || message.hwnd == m_hWnd || !IsWindow() || IsChild(m_hWnd, message.hwnd);
}

BOOL CDUIWindowMgr::PreTranslateMessage(MSG* pMsg)
{
    const Target alive(*this, nullptr);
    if (m_messageLoop.PreTranslateMessage(pMsg))
        return TRUE;
    if (!alive.IsManagerAlive())
        return FALSE;
    if (m_pToolTip)
        m_pToolTip->RelayEvent(pMsg);
    if (!IsOwnMessage(*pMsg))
        return FALSE;
    if (pMsg->message == WM_SYSCHAR)
        return ActivateShortcut(Upper(static_cast<char>(pMsg->wParam)));
    BOOL bHandled = FALSE;
    if (pMsg->message == WM_KEYDOWN)
        OnPreKeyDown(pMsg, bHandled);
    return bHandled;
}

LRESULT CDUIWindowMgr::OnPreKeyDown(MSG* pMsg, BOOL& bHandled)
{
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    bHandled = FALSE;
    switch (pMsg->wParam) {
        case VK_TAB:
            if (isDown(VK_LCONTROL) || isDown(VK_RCONTROL))
                bHandled = SetNextTabPage(!isDown(VK_SHIFT));
            else
                bHandled = SetNextTabControl(!isDown(VK_SHIFT));
            break;
        case VK_RETURN:
            bHandled = OnPreReturn();
            break;
        case VK_ESCAPE:
            bHandled = OnPreEscape(*pMsg);
            break;
        default:
            break;
    }
    return 0;
}

bool CDUIWindowMgr::OnPreReturn()
{
    IDUIControl* const ok = GetControlByName("ok", FALSE);
    if (!ok || ok == m_pFocus || (m_pFocus && (m_pFocus->GetStyle() & DUISTYLE_WANTRETURN)))
        return false;
    return ActivateControl(ok);
}

// The first Escape takes the focus away, the next one cancels.
bool CDUIWindowMgr::OnPreEscape(const MSG& message)
{
    IDUIControl* const cancel = GetControlByName("cancel", FALSE);
    if (m_pFocus && m_pFocus != cancel) {
        BOOL bEventHandled = FALSE;
        LoseFocus(nullptr, {DUIEVENT_KILLFOCUS, nullptr, {0, 0}, 0, VK_ESCAPE, VK_ESCAPE, message.lParam},
                  bEventHandled);
        return true;
    }
    return cancel && ActivateControl(cancel);
}

bool CDUIWindowMgr::ActivateControl(IDUIControl* control)
{
    const Target keep(*this, control);
    control->Activate();
    return true;
}

bool CDUIWindowMgr::ActivateShortcut(char ch)
{
    const Target control(*this, GetControlByShortcut(ch));
    if (!control)
        return false;
    control->SetFocus(TRUE);
    if (control)
        control->Activate();
    return true;
}

// --- moving the focus --------------------------------------------------------------------------------------

namespace {

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

BOOL CDUIWindowMgr::SetNextTabControl(BOOL bForward)
{
    if (m_pRoot.IsNull())
        return FALSE;
    TabWalk walk{m_pFocus, bForward != FALSE};
    if (IDUIControl* const next = m_pRoot->FindControl(&TabWalk::Offer, &walk, kInDocumentOrder)) {
        MoveFocus(next);
        return TRUE;
    }
    return FocusBeyondTree(bForward, walk.last);
}

// The focus is at the end of the tree: another native window's turn, or the tree's other end.
bool CDUIWindowMgr::FocusBeyondTree(BOOL bForward, IDUIControl* lastTabStop)
{
    HWND next = IsWindow() ? GetNextDlgTabItem(m_hWnd, m_hWnd, !bForward) : nullptr;
    // Without native tab stops some platforms answer with the window itself and some with nothing.
    if (!next && IsWindow())
        next = m_hWnd;
    if (!next)
        return false;
    if (next != m_hWnd) {
        MoveFocus(nullptr);
        ::SetFocus(next);
        return true;
    }
    if (bForward) {
        TabWalk fromStart{nullptr, true};
        lastTabStop = m_pRoot->FindControl(&TabWalk::Offer, &fromStart, kInDocumentOrder);
    }
    MoveFocus(lastTabStop);
    return true;
}

void CDUIWindowMgr::MoveFocus(IDUIControl* control)
{
    const Target to(*this, control);
    if (m_pFocus && m_pFocus != control) {
        const Target from(*this, m_pFocus);
        from->SetFocus(FALSE);
        if (!from.IsManagerAlive())
            return;
    }
    if (to)
        to->SetFocus(TRUE);
}

BOOL CDUIWindowMgr::SetNextTabPage(BOOL bForward)
{
    IDUIControl* const control = GetControlByInterface("tab_bar");
    if (!control)
        return FALSE;
    const Target keep(*this, control);
    return static_cast<IDUITabBar*>(control->GetInterface("tab_bar"))->MoveSelection(bForward, TRUE);
}

// --- finding controls --------------------------------------------------------------------------------------

IDUIControl* CDUIWindowMgr::GetControlByShortcut(char ch)
{
    const auto matches = [](IDUIControl* control, void* data) {
        const char shortcut = control->GetShortcut();
        return shortcut && Upper(shortcut) == *static_cast<const char*>(data) ? control : nullptr;
    };
    return m_pRoot.IsNull() ? nullptr : m_pRoot->FindControl(matches, &ch, kInDocumentOrder);
}

IDUIControl* CDUIWindowMgr::GetControlByInterface(const char* name)
{
    const auto matches = [](IDUIControl* control, void* data) {
        return control->GetInterface(*static_cast<const CString*>(data)) ? control : nullptr;
    };
    CString wanted(name);
    return !name || m_pRoot.IsNull() ? nullptr : m_pRoot->FindControl(matches, &wanted, kInDocumentOrder);
}

LRESULT CDUIWindowMgr::OnNotifyDisplayTooltip(UINT, WPARAM, LPARAM lParam, BOOL& bHandled)
{
    bHandled = FALSE;
    auto* const notification = reinterpret_cast<NM_TOOLTIP_DISPLAY*>(lParam);
    if (!notification || !m_pToolTip || notification->hdr.hwndFrom != m_pToolTip->GetHWND() ||
        notification->hdr.code != TOOLTIP_DISPLAY || !notification->ti || notification->ti->nIDTool != 1)
        return 0;
    bHandled = TRUE;
    POINT point = notification->pt;
    ScreenToClient(m_hWnd, &point);
    IDUIControl* const control = FindControl(&point);
    if (!control)
        return 0;
    TOOLTIP_INFO& info = *notification->ti;
    info.nEffect = TOOLTIP_EFFECT_3VGRADIENT;
    info.nMask |= TOOLTIP_MASK_COLORS;
    info.crBegin = TOOLTIP_COLOR_BEGIN;
    info.crMid = TOOLTIP_COLOR_MID;
    info.crEnd = TOOLTIP_COLOR_END;
    info.sTooltip = control->GetTooltip();
    return 0;
}

LRESULT CDUIWindowMgr::OnGetDispInfo(char* text, BOOL& bHandled)
{
    constexpr int kCapacity = 80;
    bHandled = TRUE;
    if (text && m_pHover && !m_pHover->GetTooltip().IsEmpty())
        lstrcpynA(text, m_pHover->GetTooltip(), kCapacity);
    return 0;
}

}  // namespace DUI
