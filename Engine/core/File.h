#pragma once

#include "Engine/core/Types.h"

namespace Engine {

/// An open file, wherever its bytes lie (on disk, in a pack, in memory).
///
/// Reads and writes return how many bytes were moved, and whoever needs all of them says so itself. Two failures are
/// thrown all the same, since going on would lose or falsify data: a damaged member of a pack, by read() and seek()
/// (ZipFile.h), and a file that can't be brought to the disk, by close() (AtomicFile.h).
/// A closed file does nothing and has size 0.
class iFile {
public:
    static constexpr ULong from_start = 0;
    static constexpr ULong from_current = 1;
    static constexpr ULong from_end = 2;

    virtual ~iFile() = default;

    virtual ULong getSize() const = 0;  ///< bytes
    /// @param mode  from_start, from_current or from_end; a place outside the file is cut to its ends
    virtual void seek(Long offset, ULong mode) = 0;
    /// Gives the bytes read: fewer than asked only at the end of the file or where the disk fails.
    virtual ULong read(void* data, ULong size) = 0;
    virtual ULong write(const void* data, ULong size) = 0;
    /// Ends the use of the file; what was written becomes visible under its name only now.
    virtual void close() = 0;
};

}  // namespace Engine
