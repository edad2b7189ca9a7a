#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace qvui::native {

/// Hands out handles for shared objects of one family (windows, device contexts, GDI objects, modules, …).
///
/// A handle is never the address of the object: it names a slot and the slot's generation, so a handle that
/// outlived its object is recognised (until the slot has been reused 2^16 times) and looks up as null.
/// `Family` keeps the handles of different tables apart: a window handle never looks up in the font table.
///
/// The tables, like all that the layer keeps between calls, are never destroyed: an application may have
/// global objects that still ask about their windows while the process ends.
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

    /// The object of `handle`, or null for a null, stale or foreign handle.
    std::shared_ptr<Object> Find(const void* handle) const
    {
        const Slot* slot = SlotOf(handle);
        return slot ? slot->object : nullptr;
    }

    /// As Find, without taking a share; valid while the handle lives.
    Object* Peek(const void* handle) const
    {
        const Slot* slot = SlotOf(handle);
        return slot ? slot->object.get() : nullptr;
    }

    /// Ends the handle and returns the object that it named (null when it named none).
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

    /// Handles that have been handed out and not been removed.
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

    // Bits: 2..25 slot + 1, 26..29 family, 30..45 generation; the low two stay clear, as in real handles, and
    // the low 32 bits alone tell most handles apart, for code that prints them with %u.
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
