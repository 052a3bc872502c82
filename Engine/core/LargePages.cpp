#include "Engine/core/LargePages.h"

#include <sys/mman.h>

#include <cstdlib>

namespace Engine {

namespace {

constexpr std::size_t large_page = 2 * 1024 * 1024;

}  // namespace

void* allocateForFilling(std::size_t size) {
    if (size < large_page)
        return std::malloc(size);
    const std::size_t rounded = (size + large_page - 1) & ~(large_page - 1);
    void* block = std::aligned_alloc(large_page, rounded);
    if (block)
        ::madvise(block, rounded, MADV_HUGEPAGE);  // only a hint
    return block;
}

}  // namespace Engine
