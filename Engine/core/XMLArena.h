#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

#include "Engine/core/Types.h"

namespace Engine {

/// Memory of one document, given out piece by piece and freed as a whole.
///
/// Nothing in it is destroyed: only what needs no destructor may live here. A piece stays where it is until clear().
/// Blocks grow with what has been given out, so that a small document takes little and a large one few blocks.
class cXMLArena {
public:
    static constexpr std::size_t alignment = 8;

    /// @param bytes  may be 0; the memory is not initialised and aligned to 8 bytes
    void* allocate(std::size_t bytes) {
        const std::size_t size = (bytes + alignment - 1) & ~(alignment - 1);
        if (size > m_left)
            addBlock(size);
        void* result = m_next;
        m_next += size;
        m_left -= size;
        return result;
    }

    template <class T>
    T* allocateArray(std::size_t count) {
        static_assert(alignof(T) <= alignment);
        return static_cast<T*>(allocate(count * sizeof(T)));
    }

    /// Takes memory for that much at once: for a document that is known to be large.
    void reserve(std::size_t bytes);

    /// Frees all pieces.
    void clear();

private:
    struct sFree {
        void operator()(std::byte* block) const { std::free(block); }
    };
    using BLOCK = std::unique_ptr<std::byte, sFree>;

    void addBlock(std::size_t size);

    std::vector<BLOCK> m_blocks;
    std::byte* m_next = nullptr;  ///< in the last block
    std::size_t m_left = 0;       ///< bytes behind m_next
    std::size_t m_total = 0;      ///< bytes of all blocks
};

}  // namespace Engine
