#pragma once

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// Keeps an object alive for one scope, during calls into code that may release it. Has no effect on an
/// object whose reference count is 0: nobody owns it, so a reference that came and went would delete it.
class ControlGuard {
public:
    explicit ControlGuard(CDUIObject* object)
        : m_pObject(object && object->GetRefCount() > 0 ? object : nullptr)
    {
    }

private:
    CRefPtr<CDUIObject> m_pObject;
};

}  // namespace DUI
