#include <qvui/framework/app.h>

#include "framework/app_access.h"
#include "framework/control_styles.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

CDUIApp g_app;

// Where the platform has a class that hosts ActiveX controls, windows of the class "AtlAxWin90" can be
// created after this.
void RegisterActiveXHost()
{
    RegisterWindowMessageA("WM_ATLGETHOST");
    RegisterWindowMessageA("WM_ATLGETCONTROL");
    using InitializeHost = BOOL(WINAPI*)();
    const HMODULE module = LoadLibraryA("atl.dll");
    const auto initialize =
        module ? reinterpret_cast<InitializeHost>(GetProcAddress(module, "AtlAxWinInit")) : nullptr;
    WNDCLASSEXA host{};
    host.cbSize = sizeof host;
    if (!initialize || !initialize() || !GetClassInfoExA(nullptr, "AtlAxWin", &host))
        return;
    // The module that is always there names its class without a version.
    host.hInstance = GetModuleHandleA(nullptr);
    host.lpszClassName = "AtlAxWin90";
    RegisterClassExA(&host);
}

}  // namespace

CDUIApp::CDUIApp() = default;

CDUIApp::~CDUIApp() = default;

BOOL CDUIApp::Init(const CString& strSkinEntry, BOOL bEnableYahei)
{
    CoInitialize(nullptr);
    RegisterActiveXHost();
    m_bEanbleYahi = bEnableYahei;
    if (!m_pSkinMgr)
        m_pSkinMgr = std::make_unique<CDUISkinMgr>();
    if (this == &g_app)
        skin::SetManager(m_pSkinMgr.get());
    if (!m_pFactory)
        m_pFactory = std::make_unique<CDUIControlFactory>();
    return m_pSkinMgr->InitializeSkin(strSkinEntry) && m_pFactory->InitializeFactory();
}

void CDUIApp::Term()
{
    if (m_pFactory) {
        m_pFactory->UninitializeFactory();
        m_pFactory.reset();
    }
    if (m_pSkinMgr) {
        m_pSkinMgr->UninitializeSkin();
        if (this == &g_app)
            skin::SetManager(nullptr);
        m_pSkinMgr.reset();
    }
    ForgetControlStyles();
    CoUninitialize();
}

IDUIApp& App()
{
    return g_app;
}

}  // namespace DUI
