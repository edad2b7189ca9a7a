#include "native/user/classes.h"

#include <algorithm>
#include <cstring>

#include <qvui/platform/cstring.h>

#include "native/user/desktop.h"

namespace qvui::native {
std::shared_ptr<WindowClass> FindClass(LPCSTR name)
{
    const bool isAtom = IS_INTRESOURCE(name);
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    for (const auto& known : TheDesktop().classes)
        if (isAtom ? known->atom == atom : EqualNoCase(known->name, name))
            return known;
    return nullptr;
}

}  // namespace qvui::native
