#pragma once

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// Keeps an object alive for one scope, during calls into code that may let go of it. An object that nobody
/// owns stays nobody's.
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
