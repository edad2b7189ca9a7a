#include <qvui/foundation/weak_ptr.h>

#include <unordered_map>

namespace DUI {
namespace {

// The first watcher of each watched object. Few objects are watched, so the list's head is not in the object.
std::unordered_map<const CDUIObject*, CWeakPtrBase*>& Watchers()
{
    // Never destroyed: watchers in static objects may outlive it.
    static auto* const watchers = new std::unordered_map<const CDUIObject*, CWeakPtrBase*>;
    return *watchers;
}

}  // namespace

void CWeakPtrBase::Watch(CDUIObject* object)
{
    if (object == m_pObject)
        return;
    if (m_pObject) {
        if (m_pNext)
            m_pNext->m_pPrevious = m_pPrevious;
        if (m_pPrevious) {
            m_pPrevious->m_pNext = m_pNext;
        } else if (m_pNext) {
            Watchers()[m_pObject] = m_pNext;
        } else {
            Watchers().erase(m_pObject);
            m_pObject->m_isWatched = false;
        }
        m_pPrevious = m_pNext = nullptr;
    }
    m_pObject = object;
    if (object) {
        CWeakPtrBase*& first = Watchers()[object];
        m_pNext = first;
        if (first)
            first->m_pPrevious = this;
        first = this;
        object->m_isWatched = true;
    }
}

void CDUIObject::ClearWeakPtrs()
{
    if (!m_isWatched)
        return;
    const auto found = Watchers().find(this);
    for (CWeakPtrBase* watcher = found->second; watcher;) {
        CWeakPtrBase* const next = watcher->m_pNext;
        watcher->m_pObject = nullptr;
        watcher->m_pPrevious = watcher->m_pNext = nullptr;
        watcher = next;
    }
    Watchers().erase(found);
    m_isWatched = false;
}

}  // namespace DUI
