#include <qvui/bars/builtin_controls.h>

#include "framework/app_access.h"

// The library's entry point is in the last room, so that what it hands out knows the controls of all rooms.

DUI::IDUIApp* WINAPI DUIGetAppInstance()
{
    DUI::SetBuiltinControls(&DUI::BuiltinControls);
    return &DUI::App();
}
