#pragma once

#include <qvui/platform/native/user.h>

namespace qvui::native {

/// Returns the character that a key types on a US keyboard, for input without a real keyboard: letters,
/// digits, the space bar and the number pad. Returns 0 for a key that types nothing.
constexpr char UsCharacter(int virtualKey, bool isShifted)
{
    constexpr char kShiftedDigits[] = ")!@#$%^&*(";
    if (virtualKey >= 'A' && virtualKey <= 'Z')
        return static_cast<char>(isShifted ? virtualKey : virtualKey - 'A' + 'a');
    if (virtualKey >= '0' && virtualKey <= '9')
        return isShifted ? kShiftedDigits[virtualKey - '0'] : static_cast<char>(virtualKey);
    if (virtualKey >= VK_NUMPAD0 && virtualKey <= VK_NUMPAD9)
        return static_cast<char>(virtualKey - VK_NUMPAD0 + '0');
    switch (virtualKey) {
        case VK_SPACE:
            return ' ';
        case VK_MULTIPLY:
            return '*';
        case VK_ADD:
            return '+';
        case VK_SUBTRACT:
            return '-';
        case VK_DECIMAL:
            return '.';
        case VK_DIVIDE:
            return '/';
        case VK_OEM_PLUS:
            return isShifted ? '+' : '=';
        case VK_OEM_MINUS:
            return isShifted ? '_' : '-';
        default:
            return '\0';
    }
}

}  // namespace qvui::native
