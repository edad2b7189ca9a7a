// The caret: a rectangle of inverted pixels that blinks.

#include "native/user/caret.h"

#include <algorithm>

#include "native/display/display.h"
#include "native/kernel/clock.h"
#include "native/user/caret_overlay.h"
#include "native/user/composition.h"
#include "native/user/composition_overlay.h"
#include "native/user/desktop.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

constexpr std::int64_t kMillisecond = 1'000'000;

}  // namespace

void PresentCaret()
{
    if (Window* window = LookUpWindow(TheDesktop().caret.window)) {
        PresentDamage(*window, TheDesktop().caret.rect);
        PresentDamage(*window, CompositionRect());
    }
}

void RestartCaret()
{
    CaretState& caret = TheDesktop().caret;
    caret.isOn = true;
    caret.toggleDue = Now() + GetCaretBlinkTime() * kMillisecond;
    if (!IsCaretShown(caret))
        return;
    PresentCaret();
    if (Window* const window = LookUpWindow(caret.window)) {
        RECT area = caret.rect;
        const POINT origin = OriginInRoot(*window);
        OffsetRect(&area, origin.x, origin.y);
        TheDisplay().SetTextArea(RootOf(*window)->handle, area);
    }
}

void BlinkCaret()
{
    CaretState& caret = TheDesktop().caret;
    if (!IsCaretShown(caret) || caret.toggleDue > Now())
        return;
    caret.isOn = !caret.isOn;
    caret.toggleDue = Now() + GetCaretBlinkTime() * kMillisecond;
    PresentCaret();
}

int MillisecondsToBlink()
{
    const CaretState& caret = TheDesktop().caret;
    if (!IsCaretShown(caret))
        return -1;
    return static_cast<int>(
        std::max<std::int64_t>(0, (caret.toggleDue - Now() + kMillisecond - 1) / kMillisecond));
}

void ForgetCaret(HWND window)
{
    if (TheDesktop().caret.window != window)
        return;
    DropComposition();
    TheDesktop().caret = {};
}

}  // namespace qvui::native
