#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// Returns the character set of new fonts for a system default language.
constexpr BYTE CharacterSetOf(LANGID language)
{
    switch (language) {
        case 1041:
            return SHIFTJIS_CHARSET;
        case 1028:
        case 3076:
        case 4100:
            return CHINESEBIG5_CHARSET;
        case 2052:
            return GB2312_CHARSET;
        case 1042:
        case 2066:
            return JOHAB_CHARSET;
        default:
            return ANSI_CHARSET;
    }
}

}  // namespace DUI
