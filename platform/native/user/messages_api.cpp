// Posts, sends, retrieves and dispatches messages.

#include "native/user/desktop.h"
#include "native/user/message_queue.h"

using namespace qvui::native;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // Sharing ownership keeps the record alive if its own procedure destroys the window.
    const std::shared_ptr<Window> target = TheDesktop().windows.Find(window);
    return target && target->procedure ? target->procedure(window, message, wParam, lParam) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window && !LookUpWindow(window)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    TheDesktop().messages.posted.push_back(StampedMessage(window, message, wParam, lParam));
    return TRUE;
}

void PostQuitMessage(int exitCode)
{
    TheDesktop().messages.hasQuit = true;
    TheDesktop().messages.exitCode = exitCode;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    const bool removes = (remove & PM_REMOVE) != 0;
    if (!TakeMessage(*message, {window, first, last}, removes))
        return FALSE;
    if (removes)
        RememberMessage(*message);
    return TRUE;
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    const MessageFilter filter{window, first, last};
    while (!TakeMessage(*message, filter, true))
        TheDisplay().Wait(MillisecondsToWait(), TheInputSink());
    RememberMessage(*message);
    return message->message != WM_QUIT;
}

DWORD GetMessagePos()
{
    const POINT point = TheDesktop().messages.lastPoint;
    return static_cast<DWORD>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

LONG GetMessageTime()
{
    return static_cast<LONG>(TheDesktop().messages.lastTime);
}

LRESULT DispatchMessageA(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam) {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam,
                                                     GetTickCount());
        return 0;
    }
    return message->hwnd ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam)
                         : 0;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}
