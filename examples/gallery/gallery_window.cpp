#include "gallery/gallery_window.h"

#include <cstdio>

#include <qvui/layout/tab_bar.h>
#include <qvui/layout/tab_layout.h>

namespace {

constexpr const char* kWindowClass = "qvui gallery";
constexpr SIZE kSize{1100, 760};
constexpr const char* kPages[] = {"buttons", "labels",    "pictures",  "progress", "lists",
                                  "trees",   "tabs",      "toolbars",  "layouts",  "splitters",
                                  "panels",  "scrolling", "animation", "frames",   "tooltips"};

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

void TellPlace(const char* name, const RECT& rect)
{
    std::printf("control %s %d %d %d %d\n", name, static_cast<int>(rect.left), static_cast<int>(rect.top),
                static_cast<int>(rect.right), static_cast<int>(rect.bottom));
}

}  // namespace

GalleryWindow::GalleryWindow() : m_frame(*this)
{
    Skin().AddLanguageObserver(this);
}

GalleryWindow::~GalleryWindow()
{
    Skin().RemoveLanguageObserver(this);
    if (m_hWindow)
        DestroyWindow(m_hWindow);
}

bool GalleryWindow::Create(bool isLayered)
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = &GalleryWindow::WindowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExA(&windowClass);
    if (isLayered)
        SetDUIStyle(0, DUI::DUINCSTYLE_LAYERED);
    m_hWindow = CreateWindowExA(isLayered ? WS_EX_LAYERED : 0, kWindowClass, "", CustomFrame::kStyle, 80, 60,
                                kSize.cx, kSize.cy, nullptr, nullptr, windowClass.hInstance, this);
    return m_hWindow && BuildControls();
}

bool GalleryWindow::BuildControls()
{
    RECT client{};
    GetClientRect(m_hWindow, &client);
    if (!CreateFromResource("gallery", m_hWindow, client))
        return false;
    for (const char* const page : kPages)
        if (!BuildPage(page))
            return false;
    InitWindowMgr();
    m_behaviour = std::make_unique<PageBehaviour>(*this);
    m_behaviour->Start();
    m_behaviour->PlaceDialog();
    m_frame.Shape();
    CString title;
    Skin().GetStringText("window_title", title);
    SetWindowTextA(m_hWindow, title);
    Invalidate(TRUE);
    return true;
}

// Every page has a template of its own and a place in the window's.
bool GalleryWindow::BuildPage(const char* name)
{
    DUI::IDUIControl* const host = GetControlByName(CString("host_") + name, FALSE);
    const DUI::CRefPtr<DUI::IDUIControl> page =
        DUI::CDUIControlBuilder(nullptr).CreateFromResource(CString("page_") + name);
    if (!host || page.IsNull() || !host->AddControl(page)) {
        std::fprintf(stderr, "The skin package has no usable page \"%s\".\n", name);
        return false;
    }
    return true;
}

bool GalleryWindow::ShowPage(const CString& name)
{
    for (int i = 0; i < static_cast<int>(std::size(kPages)); ++i)
        if (name == kPages[i]) {
            auto* const bar =
                dynamic_cast<DUI::CDUITabBar<DUI::CDUIVerticalLayout>*>(GetControlByName("pages", TRUE));
            if (!bar)
                return false;
            bar->SetSelectIndex(i, FALSE);
            return true;
        }
    return false;
}

void GalleryWindow::Show()
{
    ShowWindow(m_hWindow, SW_SHOW);
    UpdateWindow(m_hWindow);
    DUIGetAppInstance()->GetMessageLoop()->AddMessageFilter(this);
    for (const char* const name : {"language", "skin", "maximise", "close", "window_title"})
        TellPlace(name, GetControlByName(name, TRUE)->GetControlRect());
    for (const char* const page : kPages) {
        const CString tab = CString("tab_") + page;
        TellPlace(tab, GetControlByName(tab, FALSE)->GetControlRect());
    }
    POINT origin{0, 0};
    ClientToScreen(m_hWindow, &origin);
    std::printf("client %d %d\n", static_cast<int>(origin.x), static_cast<int>(origin.y));
    std::puts("ready");
    std::fflush(stdout);
}

LRESULT CALLBACK GalleryWindow::WindowProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        auto* const window = static_cast<GalleryWindow*>(create->lpCreateParams);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
        // The frame asks for its style bits before the template can say them.
        window->SetDUIStyle(0, DUI::DUINCSTYLE_CUSTOM_NC);
    }
    auto* const window = reinterpret_cast<GalleryWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    return window ? window->Handle(hWnd, message, wParam, lParam)
                  : DefWindowProcA(hWnd, message, wParam, lParam);
}

LRESULT GalleryWindow::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    BOOL bHandled = TRUE;
    if (const std::optional<LRESULT> answer = m_frame.Handle(hWnd, message, wParam, lParam))
        return *answer;
    switch (message) {
        case WM_PAINT:
            return OnPaint(message, wParam, lParam, bHandled);
        case WM_TIMER:
            return OnTimer(message, wParam, lParam, bHandled);
        case WM_DESTROY:
            OnClosed();
            return 0;
        case WM_SIZE:
            ProcessWindowMessage(hWnd, message, wParam, lParam, result);
            if (m_behaviour)
                m_behaviour->PlaceDialog();
            return result;
        default:
            if (ProcessWindowMessage(hWnd, message, wParam, lParam, result))
                return result;
            return DefWindowProcA(hWnd, message, wParam, lParam);
    }
}

void GalleryWindow::OnClosed()
{
    DUIGetAppInstance()->GetMessageLoop()->RemoveMessageFilter(this);
    FinishWindowMgr();
    m_hWindow = nullptr;
    std::puts("closed");
    std::fflush(stdout);
    PostQuitMessage(0);
}

void GalleryWindow::OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled)
{
    const CString name = notify.pSender ? notify.pSender->GetName() : CString();
    if (notify.nCode == DUI::DUINOTIFY_CLICK && !name.IsEmpty()) {
        Tell("click", name);
        bHandled = PressCaptionButton(name);
    } else if (notify.nCode == DUI::DUINOTIFY_TABACTIVATE && !name.IsEmpty()) {
        Tell("page", name);
    }
    CDUIWindowMgr::OnDUINotify(notify, bHandled);
}

bool GalleryWindow::PressCaptionButton(const CString& name)
{
    if (name == "skin") {
        Skin().SetSkinTyle(Skin().GetSkinTyle() == "light" ? "dark" : "light");
        Tell("skin", Skin().GetSkinTyle());
    } else if (name == "language") {
        Skin().SetLanguageType(Skin().GetLanguageType() == "English" ? "Chinese" : "English");
        Tell("language", Skin().GetLanguageType());
    } else if (name == "minimise") {
        ShowWindow(m_hWindow, SW_MINIMIZE);
    } else if (name == "maximise") {
        ShowWindow(m_hWindow, IsZoomed(m_hWindow) ? SW_RESTORE : SW_MAXIMIZE);
    } else if (name == "close") {
        PostMessageA(m_hWindow, WM_CLOSE, 0, 0);
    } else {
        return false;
    }
    return true;
}

void GalleryWindow::OnSkinUIDataChanged()
{
    m_frame.Shape();
    CDUIWindowMgr::OnSkinUIDataChanged();
}

// Texts are read when controls are built, so a new language gets new controls, on the page that was shown.
void GalleryWindow::OnLanguageTypeChanged(const CString&, const CString&)
{
    auto* const pages = dynamic_cast<DUI::IDUITabLayout*>(GetControlByName("content", TRUE));
    const int page = pages ? pages->GetSelectIndex() : 0;
    m_behaviour.reset();
    FinishWindowMgr();
    if (BuildControls())
        ShowPage(kPages[page]);
}
