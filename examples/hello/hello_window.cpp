#include "hello/hello_window.h"

bool HelloWindow::Create()
{
    return CreateHost({"qvui hello", WS_OVERLAPPEDWINDOW, 0, {620, 340}, {100, 100}});
}

bool HelloWindow::BuildControls()
{
    RECT client{};
    GetClientRect(m_hWindow, &client);
    if (!CreateFromResource("hello", m_hWindow, client))
        return false;
    StartControls();
    return true;
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
