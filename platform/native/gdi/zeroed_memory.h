#pragma once

#include <cstdlib>
#include <memory>
#include <new>

namespace qvui::native {

/// An allocator that returns zeroed memory and leaves elements uninitialised: a large block costs neither
/// time nor memory until it is accessed.
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
