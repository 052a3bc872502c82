#pragma once

#include <functional>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Calls found with each regular file below a real directory, named relative to it with "/" separators.
///
/// Directories are taken breadth first and the entries of each in the order of their bytes, so that the order is the
/// same on every disk. Names that begin with "." are left out. A link is followed unless it leads back to a directory
/// that holds it. A directory that isn't there or can't be read has no files.
/// Throws a String for a tree of more than 1,000,000 entries.
/// @param path       with a trailing "/"
/// @param recursive  false: only the files right in the directory
void walkDirectory(const String& path, Bool recursive, const std::function<void(const String&)>& found);

}  // namespace Engine
