#include "support/input_source.h"

namespace qvui::test {
namespace {

void InjectMouse(DWORD flags, DWORD data)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    SendInput(1, &input, sizeof input);
}

}  // namespace

void InjectMove(POINT screen)
{
    SetCursorPos(screen.x, screen.y);
}

void InjectButton(int button, bool isDown)
{
    switch (button) {
        case VK_LBUTTON:
            return InjectMouse(isDown ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP, 0);
        case VK_RBUTTON:
            return InjectMouse(isDown ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP, 0);
        default:
            return InjectMouse(isDown ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP, 0);
    }
}

void InjectWheel(int delta)
{
    InjectMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta));
}

void InjectKey(int virtualKey, bool isDown)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(virtualKey);
    input.ki.dwFlags = isDown ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
}

}  // namespace qvui::test
