#include "common/host_window.h"

#include <cstdio>

namespace example {

HostWindow::HostWindow()
{
    Skin().AddLanguageObserver(this);
}

HostWindow::~HostWindow()
{
    Skin().RemoveLanguageObserver(this);
    if (m_hWindow)
        DestroyWindow(m_hWindow);
}

bool HostWindow::CreateHost(const Shape& shape)
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = &HostWindow::Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = shape.className;
    RegisterClassExA(&windowClass);

    RECT rect{0, 0, shape.client.cx, shape.client.cy};
    if ((shape.style & WS_CAPTION) == WS_CAPTION)
        AdjustWindowRectEx(&rect, shape.style, FALSE, shape.exStyle);
    m_hWindow = CreateWindowExA(shape.exStyle, shape.className, "", shape.style, shape.place.x, shape.place.y,
                                rect.right - rect.left, rect.bottom - rect.top, nullptr, nullptr,
                                windowClass.hInstance, this);
    return m_hWindow && BuildControls();
}

void HostWindow::StartControls()
{
    InitWindowMgr();
    CString title;
    Skin().GetStringText("window_title", title);
    SetWindowTextA(m_hWindow, title);
    Invalidate(TRUE);
}

void HostWindow::Show()
{
    ShowWindow(m_hWindow, SW_SHOW);
    UpdateWindow(m_hWindow);
    DUIGetAppInstance()->GetMessageLoop()->AddMessageFilter(this);
    GetControlByName("window", TRUE);  // the names may have been read before all controls were there
    for (const CString& name : ToldControls())
        if (DUI::IDUIControl* const control = GetControlByName(name, FALSE)) {
            const RECT rect = control->GetControlRect();
            std::printf("control %s %d %d %d %d\n", name.GetString(), static_cast<int>(rect.left),
                        static_cast<int>(rect.top), static_cast<int>(rect.right),
                        static_cast<int>(rect.bottom));
        }
    TellOrigin("client");
    std::puts("ready");
    std::fflush(stdout);
}

void HostWindow::TellOrigin(const char* what)
{
    POINT origin{0, 0};
    ClientToScreen(m_hWindow, &origin);
    std::printf("%s %d %d\n", what, static_cast<int>(origin.x), static_cast<int>(origin.y));
    std::fflush(stdout);
}

LRESULT CALLBACK HostWindow::Procedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const window = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    return window ? window->Handle(hWnd, message, wParam, lParam)
                  : DefWindowProcA(hWnd, message, wParam, lParam);
}

LRESULT HostWindow::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    BOOL bHandled = TRUE;
    switch (message) {
        case WM_PAINT:
            return OnPaint(message, wParam, lParam, bHandled);
        case WM_TIMER:
            return OnTimer(message, wParam, lParam, bHandled);
        case WM_ENTERSIZEMOVE:
            TellOrigin("lifted");
            return 0;
        case WM_EXITSIZEMOVE:
            TellOrigin("dropped");
            return 0;
        case WM_DESTROY:
            OnClosed();
            return 0;
        case WM_MOVE:
            if (IsWindowVisible(hWnd))
                TellOrigin("client");
            [[fallthrough]];
        default:
            if (ProcessWindowMessage(hWnd, message, wParam, lParam, result))
                return result;
            return DefWindowProcA(hWnd, message, wParam, lParam);
    }
}

void HostWindow::OnClosed()
{
    DUIGetAppInstance()->GetMessageLoop()->RemoveMessageFilter(this);
    FinishWindowMgr();
    m_hWindow = nullptr;
    std::puts("closed");
    std::fflush(stdout);
    PostQuitMessage(0);
}

void HostWindow::OnLanguageTypeChanged(const CString&, const CString&)
{
    FinishWindowMgr();
    BuildControls();
}

void HostWindow::Tell(const char* what, const char* which)
{
    std::printf("%s %s\n", what, which);
    std::fflush(stdout);
}

}  // namespace example
