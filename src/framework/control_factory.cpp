#include <qvui/framework/control_factory.h>

#include <qvui/skin/xml/xml_document.h>

#include "framework/app_access.h"

namespace DUI {
namespace {

BuiltinTable g_builtinControls = nullptr;

}  // namespace

void SetBuiltinControls(BuiltinTable table)
{
    g_builtinControls = table;
}

CDUIControlFactory::~CDUIControlFactory()
{
    FreeTextServices();
}

BOOL CDUIControlFactory::InitializeFactory()
{
    if (!m_hTextServices)
        m_hTextServices = LoadLibraryA("Riched20.dll");
    IDUIControlFactory* const factory = App().GetControlFactory();
    if (!factory)
        return FALSE;
    for (const BuiltinControl& control : g_builtinControls())
        factory->RegisterControl(control.tag, control.create);
    return TRUE;
}

void CDUIControlFactory::UninitializeFactory()
{
    m_creators.clear();
    FreeTextServices();
}

BOOL CDUIControlFactory::RegisterControl(const CString& tag, ControlCreator creator)
{
    if (!creator || tag.IsEmpty())
        return FALSE;
    m_creators.emplace(tag, creator);
    return TRUE;
}

BOOL CDUIControlFactory::UnregisterControl(const CString& tag)
{
    m_creators.erase(tag);
    return TRUE;
}

CRefPtr<IDUIControl> CDUIControlFactory::NewControl(const CString& tag)
{
    const auto found = m_creators.find(tag);
    return found == m_creators.end() ? nullptr : found->second();
}

BOOL CDUIControlFactory::GetPlugin(const CString& name, CString& fileName, CString& entryFunction)
{
    IDUISkinMgr* const manager = App().GetSkinMgr();
    CString xml;
    CXmlDocument document;
    if (!manager || !manager->GetPlugin(name, xml) || !document.SetDocument(xml) ||
        !document.FindElement("plugin"))
        return FALSE;
    fileName = document.GetAttribute("file_name");
    entryFunction = document.GetAttribute("entry_function");
    return TRUE;
}

CRefPtr<IDUIControl> CDUIControlFactory::CreateFromPlugin(const CString&)
{
    return nullptr;
}

void CDUIControlFactory::FreeTextServices()
{
    if (m_hTextServices)
        FreeLibrary(m_hTextServices);
    m_hTextServices = nullptr;
}

}  // namespace DUI
