#include "Engine/core/XMLArena.h"

#include <algorithm>
#include <new>

#include "Engine/core/LargePages.h"

namespace Engine {

namespace {

constexpr std::size_t smallest_block = 256;
constexpr std::size_t largest_block = 8 * 1024 * 1024;

}  // namespace

void cXMLArena::reserve(std::size_t bytes) {
    if (bytes > m_left)
        addBlock(bytes);
}

void cXMLArena::addBlock(std::size_t size) {
    const std::size_t block_size = std::max(size, std::clamp(m_total / 4, smallest_block, largest_block));
    BLOCK block(static_cast<std::byte*>(allocateForFilling(block_size)));
    if (!block)
        throw std::bad_alloc();
    m_next = block.get();
    m_blocks.push_back(std::move(block));
    m_left = block_size;
    m_total += block_size;
}

void cXMLArena::clear() {
    m_blocks.clear();
    m_next = nullptr;
    m_left = m_total = 0;
}

}  // namespace Engine
