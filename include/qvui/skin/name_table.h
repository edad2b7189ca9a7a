#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <utility>
#include <vector>

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// A hash table of values by name. Names are compared byte for byte. Where order matters, it is that of
/// CStrLessCmp, with ties in byte order. Pointers to values stay valid until the table is cleared.
template <class T>
class CNameTable {
public:
    T* Find(const CString& name)
    {
        const std::uint32_t found = m_slots.empty() ? 0 : m_slots[SlotOf(name.View(), HashOf(name))];
        return found ? &m_entries[found - 1].value : nullptr;
    }
    const T* Find(const CString& name) const { return const_cast<CNameTable*>(this)->Find(name); }
    /// Returns the value of a name, inserting an empty one if the name is new.
    T& operator[](const CString& name) { return Place(name, T()).first; }
    /// Returns false, with nothing changed, if the name exists already.
    bool Add(const CString& name, T value) { return Place(name, std::move(value)).second; }

    bool IsEmpty() const { return m_entries.empty(); }
    void Clear()
    {
        m_slots.clear();
        m_entries.clear();
    }
    /// Returns the value whose name is first in order, or null if the table is empty. Takes linear time.
    const T* First() const
    {
        const Entry* first = nullptr;
        for (const Entry& entry : m_entries)
            if (!first || Precedes(entry.name, first->name))
                first = &entry;
        return first ? &first->value : nullptr;
    }

private:
    struct Entry {
        std::size_t hash;
        CString name;
        T value;
    };

    static std::size_t HashOf(const CString& name) { return std::hash<std::string_view>()(name.View()); }
    static bool Precedes(const CString& left, const CString& right)
    {
        const CStrLessCmp less;
        return less(left, right) || (!less(right, left) && left < right);
    }

    /// Returns the slot of a name, or the free slot in which to insert it.
    std::size_t SlotOf(std::string_view name, std::size_t hash) const
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = hash & mask;
        while (m_slots[slot] != 0) {
            const Entry& entry = m_entries[m_slots[slot] - 1];
            if (entry.hash == hash && entry.name.View() == name)
                break;
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    /// Returns the value of a name, inserting the given one if the name is new, and whether it was new.
    std::pair<T&, bool> Place(const CString& name, T value)
    {
        if (m_entries.size() * 2 >= m_slots.size())
            Grow();
        const std::size_t hash = HashOf(name);
        std::uint32_t& slot = m_slots[SlotOf(name.View(), hash)];
        if (slot != 0)
            return {m_entries[slot - 1].value, false};
        m_entries.push_back({hash, name, std::move(value)});
        slot = static_cast<std::uint32_t>(m_entries.size());
        return {m_entries.back().value, true};
    }

    void Grow()
    {
        constexpr std::size_t kFewest = 16;
        m_slots.assign(m_slots.empty() ? kFewest : m_slots.size() * 2, 0);
        std::uint32_t number = 0;
        for (const Entry& entry : m_entries)
            m_slots[SlotOf(entry.name.View(), entry.hash)] = ++number;
    }

    std::deque<Entry> m_entries;
    std::vector<std::uint32_t> m_slots;  // entry numbers starting at 1, 0 for a free slot; at least half are
                                         // free
};

}  // namespace DUI
