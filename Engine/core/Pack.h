#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// What a pack's directory says of a member: known once, it is opened without a search by name.
struct sMemberPlace {
    ULongLong offset = 0;  ///< of its directory entry, bytes, as minizip counts them
    ULongLong number = 0;  ///< ordinal in the directory
    ULong size = 0;        ///< bytes; 0 if it can't be opened
    Bool can_open = true;  ///< not encrypted, and of a size that can be

    friend Bool operator==(const sMemberPlace&, const sMemberPlace&) = default;
};

/// One pack on disk, shared by the files that are open in it.
///
/// Opening a pack costs a search for its directory, so the last handle given back is kept for the next member. Several
/// members may be open at once; each has a handle of its own.
class cPack {
public:
    using HANDLE = void*;  ///< minizip's unzFile

    explicit cPack(const String& path);
    ~cPack();
    cPack(const cPack&) = delete;
    cPack& operator=(const cPack&) = delete;

    const String& getPath() const { return m_path; }

    /// A handle for one member. Throws "Cant't open pack file '<path>'".
    HANDLE take();
    /// @param handle  of take(), with no member open
    void giveBack(HANDLE handle);

private:
    String m_path;
    HANDLE m_idle = nullptr;
};

}  // namespace Engine
