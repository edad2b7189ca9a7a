#pragma once

#include <string_view>
#include <unordered_map>

#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// Values by name. A name matches byte for byte, in constant time; where order matters it is CStrLessCmp's
/// (names that it ties stand in byte order). Pointers to values stay valid until the table is cleared.
template <class T>
class CNameTable {
public:
    T* Find(const CString& name)
    {
        const auto found = m_values.find(name);
        return found == m_values.end() ? nullptr : &found->second;
    }
    const T* Find(const CString& name) const { return const_cast<CNameTable*>(this)->Find(name); }
    /// The value of that name, made empty when it is new.
    T& operator[](const CString& name) { return m_values[name]; }
    /// False, and nothing changes, when the name is there already.
    bool Add(const CString& name, T value) { return m_values.try_emplace(name, std::move(value)).second; }

    bool IsEmpty() const { return m_values.empty(); }
    void Clear() { m_values.clear(); }
    /// The value whose name comes first; null for an empty table. Looks at every name.
    const T* First() const
    {
        const typename Map::value_type* first = nullptr;
        for (const auto& entry : m_values)
            if (!first || Precedes(entry.first, first->first))
                first = &entry;
        return first ? &first->second : nullptr;
    }

private:
    struct Hash {
        std::size_t operator()(const CString& name) const
        {
            return std::hash<std::string_view>()(name.View());
        }
    };
    using Map = std::unordered_map<CString, T, Hash>;

    static bool Precedes(const CString& left, const CString& right)
    {
        const CStrLessCmp less;
        return less(left, right) || (!less(right, left) && left < right);
    }

    Map m_values;
};

}  // namespace DUI
