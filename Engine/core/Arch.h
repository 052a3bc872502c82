#pragma once

#include <vector>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// The one binary serialiser of the game's state: the same operator writes a field or reads it, by the archive's mode,
/// so that saving and loading can't drift apart.
///
/// A stream has no tags and no versions: it means something only to the code that wrote it, in that order of fields.
/// All values are little-endian, without padding. A read past the end leaves its target as it was.
class iArch {
public:
    static constexpr UInt mode_reading = 1;
    static constexpr UInt mode_writing = 2;
    static constexpr UInt mode_other = 4;  ///< can be asked for; no archive here sets it

    virtual ~iArch() = default;

    /// Moves size bytes between the stream and data, in the direction of the mode.
    virtual void serialize(void* data, ULong size) = 0;
    virtual void seek(Long, ULong) {}
    virtual Long getPos() const = 0;    ///< bytes; -1 for an archive over no buffer
    virtual ULong getSize() const = 0;  ///< bytes
    virtual Bool atEnd() const;
    virtual void setPos(ULong pos) = 0;
    virtual void flush() {}
    virtual void close() {}
    virtual Bool isOther() const { return (m_mode & mode_other) != 0; }

    Bool isReading() const { return (m_mode & mode_reading) != 0; }
    Bool isWriting() const { return (m_mode & mode_writing) != 0; }

protected:
    explicit iArch(UInt mode) : m_mode(mode) {}

private:
    UInt m_mode;
};

/// Reads from a byte vector, which the caller owns and which outlives the archive.
class cBufferReader : public iArch {
public:
    explicit cBufferReader(std::vector<char>* buffer);

    /// Copies what is left, if that is less; nothing at the end.
    void serialize(void* data, ULong size) override;
    Long getPos() const override;
    ULong getSize() const override;
    Bool atEnd() const override;
    void setPos(ULong pos) override { m_pos = pos; }

private:
    std::vector<char>* m_buffer;
    ULong m_pos = 0;  ///< bytes
};

/// Writes into a byte vector, which the caller owns and which outlives the archive. A write inside it overwrites in
/// place, one past its end grows it (a gap is filled with zeros).
class cBufferWriter : public iArch {
public:
    explicit cBufferWriter(std::vector<char>* buffer);

    void serialize(void* data, ULong size) override;
    Long getPos() const override;
    ULong getSize() const override;
    void setPos(ULong pos) override { m_pos = pos; }

private:
    std::vector<char>* m_buffer;
    ULong m_pos = 0;  ///< bytes
};

iArch& operator<<(iArch& arch, unsigned char& value);
iArch& operator<<(iArch& arch, char& value);
iArch& operator<<(iArch& arch, unsigned short& value);
iArch& operator<<(iArch& arch, short& value);
iArch& operator<<(iArch& arch, UInt& value);
iArch& operator<<(iArch& arch, Int& value);
iArch& operator<<(iArch& arch, Float& value);
iArch& operator<<(iArch& arch, Double& value);
iArch& operator<<(iArch& arch, ULongLong& value);
iArch& operator<<(iArch& arch, LongLong& value);
iArch& operator<<(iArch& arch, Vector2& value);  ///< x, y

/// The text's units without length or terminator; only for writing, a reading archive throws a String.
iArch& operator<<(iArch& arch, const char* text);
iArch& operator<<(iArch& arch, const char16_t* text);

/// An Int count, then the units (bytes, or two bytes each). Reading at the very end leaves the text as it is.
/// Throws "Damaged archive: a text of <count> characters with <left> bytes left." for a count that can't be.
iArch& operator<<(iArch& arch, String& text);
iArch& operator<<(iArch& arch, WString& text);

/// A Bool has no width of its own: move it through a short or an unsigned char, as its record says.
iArch& operator<<(iArch& arch, Bool& value) = delete;

}  // namespace Engine
