#include "support/synthetic_input.h"

#include "support/input_source.h"
#include "support/platform_window.h"

namespace qvui::test {
namespace {

bool IsButton(int key)
{
    return key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON;
}

}  // namespace

SyntheticInput::~SyntheticInput()
{
    for (int key = 0; key < 256; ++key)
        if (m_isDown[key])
            IsButton(key) ? InjectButton(key, false) : InjectKey(key, false);
    Pump();
}

SyntheticInput& SyntheticInput::MoveTo(POINT screen)
{
    InjectMove(screen);
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::Press(int button)
{
    HoldModifiers();
    m_isDown[button & 0xFF] = true;
    InjectButton(button, true);
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::Release(int button)
{
    HoldModifiers();
    m_isDown[button & 0xFF] = false;
    InjectButton(button, false);
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::Wheel(int notches)
{
    InjectWheel(notches * static_cast<int>(WHEEL_DELTA));
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::KeyDown(int virtualKey)
{
    HoldModifiers();
    m_isDown[virtualKey & 0xFF] = true;
    InjectKey(virtualKey, true);
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::KeyUp(int virtualKey)
{
    m_isDown[virtualKey & 0xFF] = false;
    InjectKey(virtualKey, false);
    Pump();
    return *this;
}

void SyntheticInput::HoldModifiers()
{
    for (const int key : {VK_SHIFT, VK_CONTROL, VK_MENU})
        if (m_isDown[key] && GetAsyncKeyState(key) >= 0)
            InjectKey(key, true);
}

POINT SyntheticInput::At(HWND window, int x, int y)
{
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

}  // namespace qvui::test
