#include "Engine/core/MemoryFile.h"

#include <algorithm>
#include <cstring>

namespace Engine {

void cMemoryFile::seek(Long offset, ULong mode) {
    const LongLong size = static_cast<LongLong>(m_bytes.size());
    const LongLong base = mode == from_current ? static_cast<LongLong>(m_pos) : mode == from_end ? size : 0;
    m_pos = static_cast<std::size_t>(std::clamp<LongLong>(base + offset, 0, size));
}

ULong cMemoryFile::read(void* data, ULong size) {
    if (!m_is_open)
        return 0;
    const std::size_t done = std::min<std::size_t>(size, m_bytes.size() - m_pos);
    if (done > 0)
        std::memcpy(data, m_bytes.data() + m_pos, done);
    m_pos += done;
    return static_cast<ULong>(done);
}

ULong cMemoryFile::write(const void* data, ULong size) {
    if (!m_is_open || size == 0)
        return 0;
    if (m_bytes.size() < m_pos + size)
        m_bytes.resize(m_pos + size);
    std::memcpy(m_bytes.data() + m_pos, data, size);
    m_pos += size;
    return size;
}

}  // namespace Engine
