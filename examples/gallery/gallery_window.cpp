#include "gallery/gallery_window.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "gallery/spinner.h"
#include "gallery/tip_preview.h"

namespace {

constexpr const char* kTabPrefix = "tab_";  // before a page's name, in the name of its tab
constexpr SIZE kSize{1100, 760};
constexpr const char* kPages[] = {"buttons", "labels",    "pictures",  "progress", "text_fields", "combos",
                                  "lists",   "trees",     "tabs",      "toolbars", "layouts",     "splitters",
                                  "panels",  "scrolling", "animation", "frames",   "tooltips"};

// -1 when no page has the name.
int PageOf(const CString& name)
{
    const auto* const found = std::find_if(std::begin(kPages), std::end(kPages),
                                           [&name](const char* page) { return name == page; });
    return found == std::end(kPages) ? -1 : static_cast<int>(found - kPages);
}

}  // namespace

GalleryWindow::GalleryWindow() : m_frame(*this)
{
    // The frame is asked for its style bits before the template can say them.
    SetDUIStyle(0, DUI::DUINCSTYLE_CUSTOM_NC);
}

void GalleryWindow::RegisterControls()
{
    DUI::IDUIControlFactory& factory = *DUIGetAppInstance()->GetControlFactory();
    factory.RegisterControl("spinner", []() -> DUI::IDUIControl* { return new Spinner; });
    factory.RegisterControl("tip_preview", []() -> DUI::IDUIControl* { return new TipPreview; });
}

bool GalleryWindow::Create(bool isLayered)
{
    if (isLayered)
        SetDUIStyle(0, DUI::DUINCSTYLE_LAYERED);
    const DWORD exStyle = isLayered ? static_cast<DWORD>(WS_EX_LAYERED) : 0;
    return CreateHost({"qvui gallery", CustomFrame::kStyle, exStyle, kSize, {80, 60}});
}

bool GalleryWindow::BuildControls()
{
    RECT client{};
    GetClientRect(m_hWindow, &client);
    m_behaviour.reset();
    if (!CreateFromResource("gallery", m_hWindow, client))
        return false;
    StartControls();
    m_behaviour = std::make_unique<PageBehaviour>(*this);
    MarkMaximised();
    m_frame.Shape();
    return ShowPage(kPages[m_nPage]);
}

// Every page has a template of its own and a place in the window's, which it takes when it is shown first.
bool GalleryWindow::BuildPage(const CString& name)
{
    DUI::IDUIControl* const host = GetControlByName(CString("host_") + name, FALSE);
    if (host && host->GetControlCount() > 0)
        return true;
    const DUI::CRefPtr<DUI::IDUIControl> page =
        DUI::CDUIControlBuilder(nullptr).CreateFromResource(CString("page_") + name);
    if (!host || page.IsNull() || !host->AddControl(page)) {
        std::fprintf(stderr, "The skin package has no usable page \"%s\".\n", name.GetString());
        return false;
    }
    m_behaviour->Start(name);
    return true;
}

bool GalleryWindow::ShowPage(const CString& name)
{
    auto* const bar =
        dynamic_cast<DUI::CDUITabBar<DUI::CDUIVerticalLayout>*>(GetControlByName("pages", TRUE));
    const int page = PageOf(name);
    if (!bar || page < 0 || !BuildPage(name))
        return false;
    bar->SetSelectIndex(page, FALSE);
    m_nPage = page;
    return true;
}

std::vector<CString> GalleryWindow::ToldControls()
{
    std::vector<CString> names{"language", "skin", "maximise", "close", "window_title"};
    for (const char* const page : kPages)
        names.push_back(CString(kTabPrefix) + page);
    return names;
}

LRESULT GalleryWindow::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (const std::optional<LRESULT> answer = m_frame.Handle(hWnd, message, wParam, lParam))
        return *answer;
    const LRESULT result = HostWindow::Handle(hWnd, message, wParam, lParam);
    if (message == WM_SIZE && m_behaviour) {
        m_behaviour->PlaceDialog();
        MarkMaximised();
    }
    return result;
}

void GalleryWindow::MarkMaximised()
{
    auto* const button = dynamic_cast<DUI::CDUIControlBase*>(GetControlByName("maximise", TRUE));
    if (button)
        button->ApplyControlStyle(IsZoomed(m_hWindow) ? "caption_restore" : "caption_maximise");
}

void GalleryWindow::OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled)
{
    const CString name = notify.pSender ? notify.pSender->GetName() : CString();
    if (notify.nCode == DUI::DUINOTIFY_CLICK && !name.IsEmpty()) {
        Tell("click", name);
        bHandled = PressCaptionButton(name);
    } else if (notify.nCode == DUI::DUINOTIFY_TABACTIVATE && !name.IsEmpty()) {
        Tell("page", name);
        const CString pageName = name.Mid(static_cast<int>(std::strlen(kTabPrefix)));
        if (const int page = PageOf(pageName); page >= 0 && BuildPage(pageName))
            m_nPage = page;
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
