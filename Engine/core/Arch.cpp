#include "Engine/core/Arch.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "Engine/core/CallStack.h"

namespace Engine {

static_assert(std::endian::native == std::endian::little, "archives are written as the machine keeps its numbers");
static_assert(sizeof(short) == 2 && sizeof(Float) == 4 && sizeof(Double) == 8);

namespace {

constexpr ULong max_size = std::numeric_limits<Long>::max();

template <class T>
iArch& serializeValue(iArch& arch, T& value) {
    arch.serialize(&value, sizeof(T));
    return arch;
}

/// The units of a C text; archives move bytes both ways, so the loan is cast, but only a writer gets it.
template <class C>
iArch& writeUnits(iArch& arch, const C* text) {
    if (!arch.isWriting())
        throw String("iArch: a plain text can't be read back.");
    const std::size_t length = std::char_traits<C>::length(text);
    arch.serialize(const_cast<C*>(text), static_cast<ULong>(length * sizeof(C)));
    return arch;
}

ULong getLeft(const iArch& arch) {
    const ULong pos = static_cast<ULong>(std::max(arch.getPos(), 0));
    return arch.getSize() - std::min(pos, arch.getSize());
}

template <class S>
iArch& serializeText(iArch& arch, S& text) {
    using C = typename S::value_type;
    if (text.size() > max_size / sizeof(C))
        throw String("iArch: a text of " + std::to_string(text.size()) + " characters is too long.");
    if (arch.isReading() && arch.atEnd())
        return arch;
    Int count = static_cast<Int>(text.size());
    arch << count;
    if (arch.isReading()) {
        const ULong left = getLeft(arch);
        if (count < 0 || static_cast<ULong>(count) > left / sizeof(C))
            throw String("Damaged archive: a text of " + std::to_string(count) + " characters with " +
                         std::to_string(left) + " bytes left.");
        text.resize(static_cast<std::size_t>(count));
    }
    arch.serialize(text.data(), static_cast<ULong>(text.size() * sizeof(C)));
    return arch;
}

}  // namespace

Bool iArch::atEnd() const {
    const Long pos = getPos();
    return pos >= 0 && static_cast<ULong>(pos) >= getSize();
}

cBufferReader::cBufferReader(std::vector<char>* buffer) : iArch(mode_reading), m_buffer(buffer) {
}

void cBufferReader::serialize(void* data, ULong size) {
    const ULong total = getSize();
    if (m_pos >= total || size == 0)
        return;
    const ULong part = std::min(size, total - m_pos);
    std::memcpy(data, m_buffer->data() + m_pos, part);
    m_pos += part;
}

Long cBufferReader::getPos() const {
    return m_buffer ? static_cast<Long>(m_pos) : -1;
}

ULong cBufferReader::getSize() const {
    return m_buffer ? static_cast<ULong>(std::min<std::size_t>(m_buffer->size(), max_size)) : 0;
}

Bool cBufferReader::atEnd() const {
    return m_pos >= getSize();
}

cBufferWriter::cBufferWriter(std::vector<char>* buffer) : iArch(mode_writing), m_buffer(buffer) {
}

void cBufferWriter::serialize(void* data, ULong size) {
    if (!m_buffer || size == 0)
        return;
    if (m_pos > max_size || size > max_size - m_pos)
        throw String("cBufferWriter::serialize(): an archive ends at 2 GiB.");
    if (m_buffer->size() < std::size_t(m_pos) + size)
        m_buffer->resize(std::size_t(m_pos) + size);
    std::memcpy(m_buffer->data() + m_pos, data, size);
    m_pos += size;
}

Long cBufferWriter::getPos() const {
    return m_buffer ? static_cast<Long>(m_pos) : -1;
}

ULong cBufferWriter::getSize() const {
    return m_buffer ? static_cast<ULong>(m_buffer->size()) : 0;
}

iArch& operator<<(iArch& arch, unsigned char& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, char& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, unsigned short& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, short& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, UInt& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, Int& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, Float& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, Double& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, ULongLong& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, LongLong& value) {
    return serializeValue(arch, value);
}

iArch& operator<<(iArch& arch, Vector2& value) {
    return arch << value.x << value.y;
}

iArch& operator<<(iArch& arch, const char* text) {
    ENGINE_MARK;
    return writeUnits(arch, text);
}

iArch& operator<<(iArch& arch, const char16_t* text) {
    ENGINE_MARK;
    return writeUnits(arch, text);
}

iArch& operator<<(iArch& arch, String& text) {
    ENGINE_MARK;
    return serializeText(arch, text);
}

iArch& operator<<(iArch& arch, WString& text) {
    ENGINE_MARK;
    return serializeText(arch, text);
}

}  // namespace Engine
