#pragma once

#include <qvui/skin/text_values.h>

namespace DUI {

/// Returns the integer resource id of a decimal text: the low 16 bits of its value, or 0 for a text without
/// digits.
inline WORD ResourceIdOf(LPCSTR text)
{
    return static_cast<WORD>(ReadInteger(text));
}

}  // namespace DUI
