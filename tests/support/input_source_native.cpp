#include "native/display/headless/headless.h"
#include "support/input_source.h"

namespace qvui::test {

void InjectMove(POINT screen)
{
    native::TheHeadlessDisplay()->MovePointer(screen);
}

void InjectButton(int button, bool isDown)
{
    native::TheHeadlessDisplay()->Button(button, isDown);
}

void InjectWheel(int delta)
{
    native::TheHeadlessDisplay()->Wheel(delta);
}

void InjectKey(int virtualKey, bool isDown)
{
    native::TheHeadlessDisplay()->Key(virtualKey, isDown);
}

}  // namespace qvui::test
