#pragma once

#include <qvui/skin/text_values.h>

namespace DUI {

/// The integer resource id that a decimal text names: the low 16 bits of its value, 0 for a text without
/// digits.
inline WORD ResourceIdOf(LPCSTR text)
{
    return static_cast<WORD>(ReadInteger(text));
}

}  // namespace DUI
