#include "framework/skin_access.h"

#include <qvui/framework/app.h>

namespace DUI::skin {

IDUISkinMgr* Manager()
{
    return DUIGetAppInstance()->GetSkinMgr();
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
