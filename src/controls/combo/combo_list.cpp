#include "controls/combo/combo_list.h"

#include "framework/app_access.h"

namespace DUI {
namespace {

constexpr char kClassName[] = "QvuiComboList";

}  // namespace

CDUIComboList::~CDUIComboList()
{
    TakeBackList();
}

bool CDUIComboList::Create(HWND owner)
{
    if (!CreatePopup(kClassName, WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, owner))
        return false;
    PostMessageA(PopupHandle(), WM_CLOSE, 0, 0);
    return true;
}

void CDUIComboList::Destroy()
{
    const std::shared_ptr<PopupWindow> keep = weak_from_this().lock();
    if (PopupHandle())
        DestroyPopup();
}

void CDUIComboList::Show(CRefPtr<IDUIControl> list, const RECT& place)
{
    TakeBackList();
    RECT client{0, 0, place.right - place.left, place.bottom - place.top};
    m_hostsList = CreateFromRootControl(list, PopupHandle(), client) != FALSE;
    if (!m_hostsList)
        return;
    MoveWindow(PopupHandle(), place.left, place.top, client.right, client.bottom, FALSE);
    InitWindowMgr();
    App().GetMessageLoop()->AddMessageFilter(this);
    m_isShown = true;
    ShowPopup(place, false);
    UpdateWindow(PopupHandle());
}

void CDUIComboList::Close()
{
    TakeBackList();
    if (!PopupHandle())
        return;
    Hide();
    PostMessageA(PopupHandle(), WM_CLOSE, 0, 0);
}

void CDUIComboList::Dismiss()
{
    TakeBackList();
    Hide();
}

void CDUIComboList::Hide()
{
    m_isShown = false;
    if (PopupHandle())
        ShowWindow(PopupHandle(), SW_HIDE);
}

// The list is the combo box's: it leaves the popup's window manager as it came.
void CDUIComboList::TakeBackList()
{
    if (!std::exchange(m_hostsList, false))
        return;
    App().GetMessageLoop()->RemoveMessageFilter(this);
    if (const CRefPtr<IDUIControl> list = DetachRootControl(); !list.IsNull())
        list->DetachWindow();
    FinishWindowMgr();
}

void CDUIComboList::ClosePopup()
{
    const bool wasHosting = m_hostsList;
    if (m_isShown)
        Hide();
    if (wasHosting)
        TakeBackList();
    if (m_pOwner)
        m_pOwner->OnListClosed();
}

void CDUIComboList::OnPopupDestroyed()
{
    m_isShown = false;
    TakeBackList();
}

bool CDUIComboList::OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    BOOL bHandled = TRUE;
    switch (message) {
        case WM_MOUSEACTIVATE:
            result = MA_NOACTIVATE;
            return true;
        case WM_PAINT:
            result = OnPaint(message, wParam, lParam, bHandled);
            return true;
        case WM_TIMER:
            result = OnTimer(message, wParam, lParam, bHandled);
            return true;
        default:
            return m_hostsList && ProcessWindowMessage(PopupHandle(), message, wParam, lParam, result);
    }
}

BOOL CDUIComboList::PreTranslateMessage(MSG* pMsg)
{
    return pMsg->hwnd == PopupHandle() && CDUIWindowMgr::PreTranslateMessage(pMsg);
}

void CDUIComboList::OnDUINotify(const tagDUINotify& notify, BOOL& bHandled)
{
    constexpr WPARAM kItemClicked = 1;
    CDUIWindowMgr::OnDUINotify(notify, bHandled);
    if (notify.nCode != DUINOTIFY_LISTBOX || notify.wParam != kItemClicked || !m_pOwner)
        return;
    const std::shared_ptr<PopupWindow> keep = weak_from_this().lock();
    bHandled = TRUE;
    m_pOwner->OnItemClicked(reinterpret_cast<IDUIControl*>(notify.lParam));
}

}  // namespace DUI
