#pragma once

#include <cstddef>

#include <qvui/platform/cstring.h>

namespace DUI {

/// An intrusive reference count. It starts at 0, meaning that no CRefPtr owns the object; the CRefPtr that
/// brings the count back to 0 deletes the object. The count is not atomic: use an object only on the thread
/// that created it.
class QVUI_API CRefCountBase {
public:
    CRefCountBase() { ++s_live; }
    CRefCountBase(const CRefCountBase& other) : m_nRefCount(other.m_nRefCount) { ++s_live; }
    CRefCountBase& operator=(const CRefCountBase& other) = default;

    /// Increments the count and returns the new value.
    int AddRefCount() { return ++m_nRefCount; }
    /// Decrements the count and returns the new value. Never deletes the object.
    int SubRefCount() { return --m_nRefCount; }
    int GetRefCount() const { return m_nRefCount; }
    void ResetRefCount() { m_nRefCount = 0; }

    /// Returns the number of counted objects in the process, for leak checks.
    static std::size_t GetLiveCount() { return s_live; }

protected:
    ~CRefCountBase() { --s_live; }

private:
    int m_nRefCount = 0;
    static std::size_t s_live;
};

/// Base of the polymorphic reference-counted classes. A copy starts with a reference count of 0.
class QVUI_API CDUIObject : public CRefCountBase {
public:
    CDUIObject() = default;
    CDUIObject(const CDUIObject&) : CRefCountBase() {}
    CDUIObject& operator=(const CDUIObject&) { return *this; }
    virtual ~CDUIObject() { ClearWeakPtrs(); }

protected:
    /// Makes every CWeakPtr to this object null. A class whose destructor calls code outside the class
    /// calls this first.
    void ClearWeakPtrs();

private:
    friend class CWeakPtrBase;
    bool m_isWatched = false;  // whether any CWeakPtr points to this object
};

/// A smart pointer that shares ownership of a reference-counted T. Raw pointers obtained from it are not
/// owned and stay valid while some CRefPtr holds the object. Assign a temporary CRefPtr to hold another
/// object, or an empty one to release it. Records that are not polymorphic must be held by a CRefPtr of their
/// exact type.
template <class T>
class CRefPtr {
public:
    CRefPtr() = default;
    CRefPtr(T* object) : m_pObject(object) { Acquire(); }
    CRefPtr(const CRefPtr& other) : m_pObject(other.m_pObject) { Acquire(); }
    CRefPtr(CRefPtr&& other) noexcept : m_pObject(other.m_pObject) { other.m_pObject = nullptr; }
    ~CRefPtr() { Release(m_pObject); }

    /// Acquires the new object before releasing the old one, so `other` may be a member of the old object.
    CRefPtr& operator=(const CRefPtr& other)
    {
        T* const old = m_pObject;
        m_pObject = other.m_pObject;
        Acquire();
        Release(old);
        return *this;
    }
    CRefPtr& operator=(CRefPtr&& other) noexcept
    {
        T* const taken = other.m_pObject;
        other.m_pObject = nullptr;
        T* const old = m_pObject;
        m_pObject = taken;
        Release(old);
        return *this;
    }

    bool operator==(const CRefPtr& other) const { return m_pObject == other.m_pObject; }
    bool operator!=(const CRefPtr& other) const { return m_pObject != other.m_pObject; }
    T* operator->() const { return m_pObject; }
    T* GetPtr() const { return m_pObject; }
    bool IsNull() const { return m_pObject == nullptr; }

private:
    void Acquire()
    {
        if (m_pObject)
            m_pObject->AddRefCount();
    }
    static void Release(T* object)
    {
        if (object && object->SubRefCount() == 0)
            delete object;
    }

    T* m_pObject = nullptr;
};

/// Base of classes that must not be copied.
class CNoCopy {
public:
    CNoCopy() = default;
    CNoCopy(const CNoCopy&) = delete;
    CNoCopy& operator=(const CNoCopy&) = delete;
};

}  // namespace DUI

/// Ordering of all maps keyed by name: the platform's locale-aware, case-sensitive comparison.
struct CStrLessCmp {
    bool operator()(const CString& left, const CString& right) const { return lstrcmpA(left, right) < 0; }
};
