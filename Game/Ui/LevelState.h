#pragma once

#include <memory>
#include <vector>

#include "Engine/core/Arch.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/Types.h"

/// Reads a record that was written as a whole: what it lacks is an error, and never a value left as it was.
class cRecordReader : public Engine::cBufferReader {
public:
    using Engine::cBufferReader::cBufferReader;

    /// Throws "the record ends too soon".
    void serialize(void* data, ULong size) override {
        if (size > getSize() - static_cast<ULong>(getPos()))
            throw String("the record ends too soon");
        Engine::cBufferReader::serialize(data, size);
    }
};

/// Where one level was left: its number and the bytes that the tactic map wrote.
class cLevelState {
public:
    explicit cLevelState(Int level) : m_level(level) {}

    Int getLevel() const { return m_level; }
    const std::vector<char>& getBytes() const { return m_bytes; }
    void setBytes(std::vector<char> bytes) { m_bytes = std::move(bytes); }

    /// The number, the count of the bytes, and those. load() throws "<count> bytes of a level can't be" for a count
    /// that the rest of the archive can't hold.
    void save(Engine::iArch& arch) {
        Int count = static_cast<Int>(m_bytes.size());
        arch << m_level << count;
        arch.serialize(m_bytes.data(), static_cast<ULong>(m_bytes.size()));
    }
    void load(Engine::iArch& arch) {
        arch << m_level;
        m_bytes.resize(static_cast<std::size_t>(readCount(arch, 1, "bytes of a level")));
        arch.serialize(m_bytes.data(), static_cast<ULong>(m_bytes.size()));
    }

    /// Both work on the bytes here, which outlive them. A writer begins anew.
    std::unique_ptr<Engine::iArch> createReader() { return std::make_unique<cRecordReader>(&m_bytes); }
    std::unique_ptr<Engine::iArch> createWriter() {
        m_bytes.clear();
        return std::make_unique<Engine::cBufferWriter>(&m_bytes);
    }

private:
    Int m_level;
    std::vector<char> m_bytes;
};
