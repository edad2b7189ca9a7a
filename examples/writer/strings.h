#pragma once

#include <qvui/qvui.h>

namespace writer {

/// A text of the current language.
inline CString Text(const char* id)
{
    CString text;
    DUIGetAppInstance()->GetSkinMgr()->GetStringText(id, text);
    return text;
}

}  // namespace writer
