#include "tooltip/popup_window.h"

#include "foundation/rect.h"

namespace DUI {

PopupWindow::~PopupWindow()
{
    if (!m_popup)
        return;
    SetWindowLongPtrA(m_popup, GWLP_USERDATA, 0);
    ::DestroyWindow(m_popup);
}

bool PopupWindow::Register(const char* className)
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExA(GetModuleHandleA(nullptr), className, &windowClass))
        return true;
    windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DROPSHADOW;
    windowClass.lpfnWndProc = &PopupWindow::Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = className;
    return RegisterClassExA(&windowClass) != 0;
}

bool PopupWindow::CreatePopup(const char* className, DWORD exStyle, HWND owner)
{
    if (m_popup || !IsWindow(owner) || !Register(className))
        return false;
    m_popup = CreateWindowExA(WS_EX_TOOLWINDOW | exStyle, className, "", WS_POPUP, 0, 0, 0, 0, owner, nullptr,
                              GetModuleHandleA(nullptr), this);
    return m_popup != nullptr;
}

void PopupWindow::ShowPopup(const RECT& place, bool activates)
{
    const bool isTopmost = (GetWindowLongA(m_popup, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    SetWindowPos(m_popup, isTopmost ? HWND_TOPMOST : HWND_TOP, place.left, place.top, wrapping::Width(place),
                 wrapping::Height(place), SWP_NOACTIVATE | (activates ? 0U : SWP_SHOWWINDOW));
    if (activates)
        ShowWindow(m_popup, SW_SHOW);
}

void PopupWindow::DestroyPopup()
{
    if (m_popup)
        ::DestroyWindow(m_popup);
}

LRESULT CALLBACK PopupWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<PopupWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self || self->m_popup != window)
        return DefWindowProcA(window, message, wParam, lParam);
    const std::shared_ptr<PopupWindow> keep = self->weak_from_this().lock();
    return self->OnMessage(message, wParam, lParam);
}

LRESULT PopupWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = m_popup;
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
            m_popup = nullptr;
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
