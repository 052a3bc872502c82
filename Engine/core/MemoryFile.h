#pragma once

#include <vector>

#include "Engine/core/File.h"

namespace Engine {

/// A file whose bytes lie in memory: for tests, and for readers of bytes that have come from elsewhere.
class cMemoryFile : public iFile {
public:
    cMemoryFile() = default;
    explicit cMemoryFile(std::vector<char> bytes) : m_bytes(std::move(bytes)) {}

    const std::vector<char>& getBytes() const { return m_bytes; }

    ULong getSize() const override { return m_is_open ? static_cast<ULong>(m_bytes.size()) : 0; }
    void seek(Long offset, ULong mode) override;
    ULong read(void* data, ULong size) override;
    ULong write(const void* data, ULong size) override;  ///< grows the file where needed
    void close() override { m_is_open = false; }         ///< the bytes stay

private:
    std::vector<char> m_bytes;
    std::size_t m_pos = 0;
    Bool m_is_open = true;
};

}  // namespace Engine
