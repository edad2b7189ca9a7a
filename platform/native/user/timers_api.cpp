// Exported functions for timers.

#include "native/user/desktop.h"
#include "native/user/timers.h"

using namespace qvui::native;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    if (window && !LookUpWindow(window))
        return 0;
    if (!window)
        id = TheDesktop().nextFreeTimer++;
    StartTimer(window, id, milliseconds, procedure);
    return id ? id : 1;
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return StopTimer(window, id);
}
