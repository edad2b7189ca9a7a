// Exported functions for mouse capture and the window under the pointer.

#include "native/user/desktop.h"
#include "native/user/input_queue.h"
#include "native/user/mouse.h"

using namespace qvui::native;

HWND SetCapture(HWND window)
{
    InputState& state = TheDesktop().input;
    if (window && !LookUpWindow(window))
        return nullptr;
    const HWND previous = std::exchange(state.capture, window);
    TheDisplay().Capture(window != nullptr);
    if (previous && previous != window)
        SendMessageA(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    return previous;
}

HWND GetCapture()
{
    return TheDesktop().input.capture;
}

BOOL ReleaseCapture()
{
    SetCapture(nullptr);
    // During the capture, no other window was told that the pointer is over it.
    PointerMayHaveMoved();
    return TRUE;
}

HWND WindowFromPoint(POINT screen)
{
    return WindowTakingMouse(screen);
}

UINT GetDoubleClickTime()
{
    return kDoubleClickTime;
}
