// System metrics and settings.

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
    constexpr int kInfo = 24;
    switch (index) {
        case kInfo:
            return RGB(255, 255, 225);
        case COLOR_WINDOW:
        case COLOR_HIGHLIGHTTEXT:
            return RGB(255, 255, 255);
        case COLOR_WINDOWTEXT:
            return RGB(0, 0, 0);
        case COLOR_HIGHLIGHT:
            return RGB(51, 153, 255);
        default:
            return RGB(240, 240, 240);
    }
}
