#pragma once

#include <cstdlib>

#include <qvui/platform/platform.h>

namespace DUI {

/// The integer resource id that a decimal text names: the low 16 bits of its value, 0 for a text without
/// digits.
inline WORD ResourceIdOf(const char* text)
{
    // strtol saturates where atoi would be undefined.
    return text ? static_cast<WORD>(std::strtol(text, nullptr, 10)) : WORD{0};
}

}  // namespace DUI
