#include "hello/hello_window.h"

#include <cstdio>

namespace {

constexpr const char* kWindowClass = "qvui hello";
constexpr SIZE kClientSize{620, 340};

DUI::IDUISkinMgr& Skin()
{
    return *DUIGetAppInstance()->GetSkinMgr();
}

// What the program does is told line by line on standard output, for whoever drives it from outside.
void Tell(const char* what, const char* which)
{
    std::printf("%s %s\n", what, which);
    std::fflush(stdout);
}

}  // namespace

HelloWindow::HelloWindow()
{
    Skin().AddLanguageObserver(this);
}

HelloWindow::~HelloWindow()
{
    Skin().RemoveLanguageObserver(this);
    if (m_hWindow)
        DestroyWindow(m_hWindow);
}

bool HelloWindow::Create()
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = &HelloWindow::WindowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExA(&windowClass);

    RECT rect{0, 0, kClientSize.cx, kClientSize.cy};
    AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    m_hWindow = CreateWindowExA(0, kWindowClass, "", WS_OVERLAPPEDWINDOW, 100, 100, rect.right - rect.left,
                                rect.bottom - rect.top, nullptr, nullptr, windowClass.hInstance, this);
    return m_hWindow && BuildControls();
}

bool HelloWindow::BuildControls()
{
    RECT client{};
    GetClientRect(m_hWindow, &client);
    if (!CreateFromResource("hello", m_hWindow, client))
        return false;
    InitWindowMgr();
    CString title;
    Skin().GetStringText("window_title", title);
    SetWindowTextA(m_hWindow, title);
    Invalidate(TRUE);
    return true;
}

void HelloWindow::Show()
{
    ShowWindow(m_hWindow, SW_SHOW);
    UpdateWindow(m_hWindow);
    DUIGetAppInstance()->GetMessageLoop()->AddMessageFilter(this);
    for (const char* const name : {"language", "skin"}) {
        const RECT rect = GetControlByName(name, TRUE)->GetControlRect();
        std::printf("control %s %d %d %d %d\n", name, static_cast<int>(rect.left), static_cast<int>(rect.top),
                    static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    }
    POINT origin{0, 0};
    ClientToScreen(m_hWindow, &origin);
    std::printf("client %d %d\nready\n", static_cast<int>(origin.x), static_cast<int>(origin.y));
    std::fflush(stdout);
}

LRESULT CALLBACK HelloWindow::WindowProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const window = reinterpret_cast<HelloWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    return window ? window->Handle(hWnd, message, wParam, lParam)
                  : DefWindowProcA(hWnd, message, wParam, lParam);
}

LRESULT HelloWindow::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    BOOL bHandled = TRUE;
    switch (message) {
        case WM_PAINT:
            return OnPaint(message, wParam, lParam, bHandled);
        case WM_TIMER:
            return OnTimer(message, wParam, lParam, bHandled);
        case WM_DESTROY:
            OnClosed();
            return 0;
        default:
            if (ProcessWindowMessage(hWnd, message, wParam, lParam, result))
                return result;
            return DefWindowProcA(hWnd, message, wParam, lParam);
    }
}

void HelloWindow::OnClosed()
{
    DUIGetAppInstance()->GetMessageLoop()->RemoveMessageFilter(this);
    FinishWindowMgr();
    m_hWindow = nullptr;
    std::puts("closed");
    std::fflush(stdout);
    PostQuitMessage(0);
}

void HelloWindow::OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK) {
        const CString name = notify.pSender->GetName();
        Tell("click", name);
        if (name == "skin")
            SwitchSkin();
        else if (name == "language")
            SwitchLanguage();
        bHandled = TRUE;
    }
    CDUIWindowMgr::OnDUINotify(notify, bHandled);
}

void HelloWindow::SwitchSkin()
{
    Skin().SetSkinTyle(Skin().GetSkinTyle() == "light" ? "dark" : "light");
    Tell("skin", Skin().GetSkinTyle());
}

void HelloWindow::SwitchLanguage()
{
    Skin().SetLanguageType(Skin().GetLanguageType() == "English" ? "Deutsch" : "English");
    Tell("language", Skin().GetLanguageType());
}

// Texts are read when controls are built, so a new language gets new controls.
void HelloWindow::OnLanguageTypeChanged(const CString&, const CString&)
{
    FinishWindowMgr();
    BuildControls();
}
