#pragma once

#include <functional>

#include "Engine/core/RealFile.h"

namespace Engine {

/// A file that is written beside its target and takes its place, whole or not at all, when it is closed.
///
/// Until then the target keeps its old bytes. A file that is destroyed without close() (an exception unwinds) leaves
/// no trace. While one is open, a second one for the same target is refused.
class cAtomicFile : public cRealFile {
public:
    /// @param path       the target
    /// @param overwrite  true: starts empty; false: starts with what the target holds now
    /// @param on_done    called by close() once the target has the new bytes; may be empty
    /// Throws a String: the system's message if the file beside the target can't be made; without overwrite, also
    /// that the target can't be read.
    cAtomicFile(const String& path, Bool overwrite, std::function<void()> on_done);
    ~cAtomicFile() override;

    /// Flushes to the disk and renames over the target.
    /// Throws `File "<path>" can't be written. ` and the system's message; the target is then as it was.
    void close() override;

private:
    void copyTarget();

    String m_path;
    String m_temp_path;  ///< beside the target; hidden, so that nobody takes one left by a crash for data
    std::function<void()> m_on_done;
};

}  // namespace Engine
