#include "skin/skin_access.h"

namespace DUI::skin {
namespace {

IDUISkinMgr* g_manager = nullptr;

}  // namespace

IDUISkinMgr* Manager()
{
    return g_manager;
}

void SetManager(IDUISkinMgr* manager)
{
    g_manager = manager;
}

CDUIImageListPtr Image(const CString& name)
{
    IDUISkinMgr* const manager = Manager();
    return manager ? manager->GetImage(name, 1) : nullptr;
}

CRefPtr<CDUIFrameBK> Frame(const CString& name)
{
    IDUISkinMgr* const manager = Manager();
    return manager ? manager->GetFrameBK(name) : CRefPtr<CDUIFrameBK>();
}

CARGB Color(const CString& text)
{
    IDUISkinMgr* const manager = Manager();
    return manager ? manager->GetColor(text) : CARGB();
}

CString String(const CString& id)
{
    CString text;
    if (IDUISkinMgr* const manager = Manager())
        manager->GetStringText(id, text);
    return text;
}

}  // namespace DUI::skin
