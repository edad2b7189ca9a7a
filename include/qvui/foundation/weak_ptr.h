#pragma once

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// The part of CWeakPtr that does not depend on the type: an entry in the list of those that watch an object.
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

/// A pointer to a CDUIObject that does not keep it alive: it is null from the moment the destruction of the
/// object begins. It belongs to the thread of the object.
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
