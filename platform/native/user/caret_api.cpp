// The caret: the exported functions.

#include <algorithm>

#include "native/user/caret.h"
#include "native/user/composition.h"
#include "native/user/composition_overlay.h"
#include "native/user/desktop.h"
#include "native/user/painting.h"

using namespace qvui::native;

BOOL CreateCaret(HWND window, HBITMAP, int width, int height)
{
    if (!LookUpWindow(window))
        return FALSE;
    DestroyCaret();
    CaretState& caret = TheDesktop().caret;
    caret.window = window;
    caret.hidden = 1;
    // No size means the width of a border.
    caret.rect = {0, 0, std::max(1, width), std::max(1, height)};
    return TRUE;
}

BOOL DestroyCaret()
{
    CaretState& caret = TheDesktop().caret;
    if (!caret.window)
        return FALSE;
    DropComposition();
    caret.hidden = 1;
    PresentCaret();
    caret = {};
    return TRUE;
}

BOOL ShowCaret(HWND window)
{
    CaretState& caret = TheDesktop().caret;
    if (!caret.window || (window && window != caret.window))
        return FALSE;
    if (caret.hidden > 0 && --caret.hidden == 0)
        RestartCaret();
    return TRUE;
}

BOOL HideCaret(HWND window)
{
    CaretState& caret = TheDesktop().caret;
    if (!caret.window || (window && window != caret.window))
        return FALSE;
    if (++caret.hidden == 1)
        PresentCaret();
    return TRUE;
}

BOOL SetCaretPos(int x, int y)
{
    CaretState& caret = TheDesktop().caret;
    if (!caret.window)
        return FALSE;
    const bool wasOn = std::exchange(caret.isOn, false);
    const RECT composed = CompositionRect();
    if (wasOn)
        PresentCaret();
    caret.rect = {x, y, x + caret.rect.right - caret.rect.left, y + caret.rect.bottom - caret.rect.top};
    RestartCaret();
    if (Window* const window = LookUpWindow(caret.window))
        PresentDamage(*window, composed);
    return TRUE;
}

BOOL GetCaretPos(POINT* point)
{
    if (!point)
        return FALSE;
    const CaretState& caret = TheDesktop().caret;
    *point = {caret.rect.left, caret.rect.top};
    return TRUE;
}

UINT GetCaretBlinkTime()
{
    return 530;
}
