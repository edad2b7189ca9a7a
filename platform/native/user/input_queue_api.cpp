// The pointer's position: the exported functions.

#include "native/user/desktop.h"

using namespace qvui::native;

BOOL GetCursorPos(POINT* point)
{
    const InputState& state = TheDesktop().input;
    *point = state.isPointerOutside ? TheDisplay().Pointer() : state.pointer;
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    TheDisplay().SetPointer({x, y});
    TheInputSink().OnPointer({x, y});
    return TRUE;
}
