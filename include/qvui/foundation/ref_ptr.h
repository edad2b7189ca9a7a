#pragma once

#include <cstddef>

#include <qvui/platform/cstring.h>

namespace DUI {

/// An intrusive reference count. Objects start at 0, owned by nobody; the CRefPtr that brings the count back
/// to 0 deletes the object. Counts are plain integers: an object belongs to the thread that made it.
class QVUI_API CRefCountBase {
public:
    CRefCountBase() { ++s_live; }
    CRefCountBase(const CRefCountBase& other) : m_nRefCount(other.m_nRefCount) { ++s_live; }
    CRefCountBase& operator=(const CRefCountBase& other) = default;

    /// Adds one; the new count.
    int AddRefCount() { return ++m_nRefCount; }
    /// Takes one away and never deletes; the new count.
    int SubRefCount() { return --m_nRefCount; }
    int GetRefCount() const { return m_nRefCount; }
    void ResetRefCount() { m_nRefCount = 0; }

    /// How many counted objects exist in the process, for leak checks.
    static std::size_t GetLiveCount() { return s_live; }

protected:
    ~CRefCountBase() { --s_live; }

private:
    int m_nRefCount = 0;
    static std::size_t s_live;
};

/// The root of the polymorphic counted classes. A copy is a new, unowned object.
class QVUI_API CDUIObject : public CRefCountBase {
public:
    CDUIObject() = default;
    CDUIObject(const CDUIObject&) : CRefCountBase() {}
    CDUIObject& operator=(const CDUIObject&) { return *this; }
    virtual ~CDUIObject() { ClearWeakPtrs(); }

protected:
    /// Makes every CWeakPtr to this object null. A class whose destructor calls foreign code does this first.
    void ClearWeakPtrs();

private:
    friend class CWeakPtrBase;
    bool m_isWatched = false;  // by a CWeakPtr
};

/// A counted share of a T. Raw pointers got from it are borrowed: valid while some CRefPtr holds the object.
/// To hold another object assign a temporary CRefPtr, to let go assign an empty one. Records that are not
/// polymorphic must be held by a CRefPtr of their exact type.
template <class T>
class CRefPtr {
public:
    CRefPtr() = default;
    CRefPtr(T* object) : m_pObject(object) { Acquire(); }
    CRefPtr(const CRefPtr& other) : m_pObject(other.m_pObject) { Acquire(); }
    CRefPtr(CRefPtr&& other) noexcept : m_pObject(other.m_pObject) { other.m_pObject = nullptr; }
    ~CRefPtr() { Release(m_pObject); }

    /// Takes the new object before it lets go of the old one, so a source inside the old object is safe.
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

/// The ordering of every map that is keyed by a name: the platform's locale-aware, case-sensitive comparison.
struct CStrLessCmp {
    bool operator()(const CString& left, const CString& right) const { return lstrcmpA(left, right) < 0; }
};
