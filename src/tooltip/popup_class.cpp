#include "tooltip/popup_class.h"

namespace DUI {

bool RegisterPopupClass(const char* className, WNDPROC procedure)
{
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExA(GetModuleHandleA(nullptr), className, &windowClass))
        return true;
    windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DROPSHADOW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = className;
    return RegisterClassExA(&windowClass) != 0;
}

}  // namespace DUI
