#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace qvui::native {

/// Allocates handles for shared objects of one family (windows, device contexts, GDI objects, modules, …).
///
/// A handle is never the address of the object. It encodes a slot and the slot's generation, so a handle that
/// outlived its object is detected (until the slot has been reused 2^16 times) and looks up as null. `Family`
/// separates the handles of different tables: a window handle is never valid in the font table.
///
/// The tables, like all state that the platform layer keeps between calls, are never destroyed: an
/// application may have global objects that use their windows while the process exits.
template <class Object, std::uint8_t Family>
class HandleTable {
public:
    /// Stores `object` and returns its handle; never null.
    void* Insert(std::shared_ptr<Object> object)
    {
        std::uint32_t index = 0;
        if (m_free.empty()) {
            index = static_cast<std::uint32_t>(m_slots.size());
            m_slots.emplace_back();
        } else {
            index = m_free.back();
            m_free.pop_back();
        }
        m_slots[index].object = std::move(object);
        ++m_live;
        return Encode(index, m_slots[index].generation);
    }

    /// Returns the object of `handle`, or null if the handle is null, invalid or of another family.
    std::shared_ptr<Object> Find(const void* handle) const
    {
        const Slot* slot = SlotOf(handle);
        return slot ? slot->object : nullptr;
    }

    /// As Find, without sharing ownership. The pointer is valid while the handle is.
    Object* Peek(const void* handle) const
    {
        const Slot* slot = SlotOf(handle);
        return slot ? slot->object.get() : nullptr;
    }

    /// Invalidates the handle and returns its object, or null if it had none.
    std::shared_ptr<Object> Remove(const void* handle)
    {
        Slot* slot = const_cast<Slot*>(SlotOf(handle));
        if (!slot)
            return nullptr;
        ++slot->generation;
        m_free.push_back(static_cast<std::uint32_t>(slot - m_slots.data()));
        --m_live;
        return std::exchange(slot->object, nullptr);
    }

    /// Returns the number of handles that are valid.
    std::size_t LiveCount() const { return m_live; }

    /// Calls `visit(handle, object)` for every live handle; `visit` must not insert or remove.
    template <class Visit>
    void ForEach(Visit visit) const
    {
        for (std::uint32_t index = 0; index < m_slots.size(); ++index)
            if (m_slots[index].object)
                visit(Encode(index, m_slots[index].generation), *m_slots[index].object);
    }

private:
    struct Slot {
        std::shared_ptr<Object> object;
        std::uint16_t generation = 1;
    };

    // Bits: 2..25 slot + 1, 26..29 family, 30..45 generation. The low two bits are zero, as in the platform's
    // handles, and the low 32 bits are enough to distinguish most handles in code that prints them with %u.
    static void* Encode(std::uint32_t index, std::uint16_t generation)
    {
        const std::uintptr_t value = (static_cast<std::uintptr_t>(index + 1) << 2) |
                                     (static_cast<std::uintptr_t>(Family) << 26) |
                                     (static_cast<std::uintptr_t>(generation) << 30);
        return reinterpret_cast<void*>(value);
    }

    const Slot* SlotOf(const void* handle) const
    {
        const auto value = reinterpret_cast<std::uintptr_t>(handle);
        const std::uintptr_t number = (value >> 2) & 0xFFFFFF;
        if (number == 0 || number > m_slots.size() || ((value >> 26) & 0xF) != Family)
            return nullptr;
        const Slot& slot = m_slots[number - 1];
        return slot.object && slot.generation == (value >> 30) ? &slot : nullptr;
    }

    std::vector<Slot> m_slots;
    std::vector<std::uint32_t> m_free;
    std::size_t m_live = 0;
};

}  // namespace qvui::native
