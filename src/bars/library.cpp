#include <qvui/bars/builtin_controls.h>

#include "framework/app_access.h"

// The library's entry point is in this folder, which can include all others, so that it can register all
// controls.

DUI::IDUIApp* WINAPI DUIGetAppInstance()
{
    DUI::SetBuiltinControls(&DUI::BuiltinControls);
    return &DUI::App();
}
