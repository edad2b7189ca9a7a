#include "tooltip/popup_window.h"

#include "foundation/rect.h"

namespace DUI {

bool PopupWindow::CreatePopup(const char* className, DWORD exStyle, HWND owner)
{
    if (m_hWnd || !IsWindow(owner) ||
        !RegisterWindowClass(className, CS_DROPSHADOW, LoadCursorA(nullptr, IDC_ARROW)))
        return false;
    m_isMade = CreateEx(WS_EX_TOOLWINDOW | exStyle, className, "", WS_POPUP, RECT{}, owner, 0) != FALSE;
    return m_isMade;
}

void PopupWindow::ShowPopup(const RECT& place, bool activates)
{
    const bool isTopmost = (GetWindowLongA(m_hWnd, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    SetWindowPos(m_hWnd, isTopmost ? HWND_TOPMOST : HWND_TOP, place.left, place.top, wrapping::Width(place),
                 wrapping::Height(place), SWP_NOACTIVATE | (activates ? 0U : SWP_SHOWWINDOW));
    if (activates)
        ShowWindow(m_hWnd, SW_SHOW);
}

void PopupWindow::DestroyPopup()
{
    DestroyWindow();
}

LRESULT PopupWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!m_isMade)
        return Default(message, wParam, lParam);
    const std::shared_ptr<PopupWindow> keep = weak_from_this().lock();
    const HWND window = m_hWnd;
    LRESULT result = 0;
    switch (message) {
        case WM_ACTIVATE:
            // Not at once: a window must not go while another one takes its activation.
            if (LOWORD(wParam) == WA_INACTIVE)
                PostMessageA(window, WM_CLOSE, 0, 0);
            break;
        case WM_CLOSE:
            ClosePopup();
            return 0;
        case WM_DESTROY:
            OnPopupDestroyed();
            Detach();
            m_isMade = false;
            AfterPopupDestroyed();
            return 0;
        default:
            break;
    }
    if (OnPopupMessage(message, wParam, lParam, result))
        return result;
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace DUI
