// The few figures of the system that anybody asks for.

#include "native/display/display.h"

using namespace qvui::native;

int GetSystemMetrics(int index)
{
    switch (index) {
        case SM_CXSCREEN:
            return TheDisplay().ScreenSize().cx;
        case SM_CYSCREEN:
            return TheDisplay().ScreenSize().cy;
        case SM_CXDOUBLECLK:
        case SM_CYDOUBLECLK:
            return 4;
        default:
            return 0;
    }
}

DWORD GetSysColor(int index)
{
    constexpr int kWindow = 5;
    constexpr int kInfo = 24;
    if (index == kInfo)
        return RGB(255, 255, 225);
    return index == kWindow ? RGB(255, 255, 255) : RGB(240, 240, 240);
}
