#pragma once

#include <cstdlib>
#include <memory>
#include <new>

namespace qvui::native {

/// Allocates zeroed memory and leaves its elements as they come: large blocks take no time and no memory
/// until they are touched.
template <class Byte>
struct ZeroedMemory {
    using value_type = Byte;

    static Byte* allocate(std::size_t count)
    {
        void* const memory = std::calloc(count, sizeof(Byte));
        if (!memory)
            throw std::bad_alloc();
        return static_cast<Byte*>(memory);
    }
    static void deallocate(Byte* memory, std::size_t) { std::free(memory); }
    static void construct(Byte*) {}

    bool operator==(const ZeroedMemory&) const { return true; }
};

}  // namespace qvui::native
