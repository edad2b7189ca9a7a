#include "support/synthetic_input.h"

#include "support/platform_window.h"

namespace qvui::test {
namespace {

native::HeadlessDisplay& Display()
{
    return *native::TheHeadlessDisplay();
}

bool IsButton(int key)
{
    return key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON;
}

}  // namespace

SyntheticInput::~SyntheticInput()
{
    for (int key = 0; key < 256; ++key)
        if (m_isDown[key])
            IsButton(key) ? Display().Button(key, false) : Display().Key(key, false);
    Pump();
}

SyntheticInput& SyntheticInput::Dispatch()
{
    Pump();
    return *this;
}

SyntheticInput& SyntheticInput::MoveTo(POINT screen)
{
    Display().MovePointer(screen);
    return Dispatch();
}

SyntheticInput& SyntheticInput::Press(int button)
{
    m_isDown[button & 0xFF] = true;
    Display().Button(button, true);
    return Dispatch();
}

SyntheticInput& SyntheticInput::Release(int button)
{
    m_isDown[button & 0xFF] = false;
    Display().Button(button, false);
    return Dispatch();
}

SyntheticInput& SyntheticInput::Wheel(int notches)
{
    Display().Wheel(notches * static_cast<int>(WHEEL_DELTA));
    return Dispatch();
}

SyntheticInput& SyntheticInput::KeyDown(int virtualKey)
{
    m_isDown[virtualKey & 0xFF] = true;
    Display().Key(virtualKey, true);
    return Dispatch();
}

SyntheticInput& SyntheticInput::KeyUp(int virtualKey)
{
    m_isDown[virtualKey & 0xFF] = false;
    Display().Key(virtualKey, false);
    return Dispatch();
}

SyntheticInput& SyntheticInput::Type(const std::string& utf8)
{
    Display().Type(utf8);
    return Dispatch();
}

POINT SyntheticInput::At(HWND window, int x, int y)
{
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

}  // namespace qvui::test
