#pragma once

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// The type-independent part of CWeakPtr: an entry in the list of weak pointers to an object.
class QVUI_API CWeakPtrBase {
public:
    CWeakPtrBase() = default;
    explicit CWeakPtrBase(CDUIObject* object) { Watch(object); }
    CWeakPtrBase(const CWeakPtrBase& other) { Watch(other.m_pObject); }
    CWeakPtrBase& operator=(const CWeakPtrBase& other)
    {
        Watch(other.m_pObject);
        return *this;
    }
    ~CWeakPtrBase() { Watch(nullptr); }

protected:
    void Watch(CDUIObject* object);
    CDUIObject* Object() const { return m_pObject; }

private:
    friend class CDUIObject;

    CDUIObject* m_pObject = nullptr;
    CWeakPtrBase* m_pPrevious = nullptr;
    CWeakPtrBase* m_pNext = nullptr;
};

/// A pointer to a CDUIObject that does not keep it alive: it becomes null when the destruction of the
/// object begins. Use it only on the thread of the object.
template <class T>
class CWeakPtr : public CWeakPtrBase {
public:
    CWeakPtr() = default;
    CWeakPtr(T* object) : CWeakPtrBase(object) {}
    CWeakPtr& operator=(T* object)
    {
        Watch(object);
        return *this;
    }

    T* GetPtr() const { return static_cast<T*>(Object()); }
    operator T*() const { return GetPtr(); }
    T* operator->() const { return GetPtr(); }
};

}  // namespace DUI
