#pragma once

#include <cstdint>
#include <vector>

#include "Engine/core/String.h"

namespace Engine {

/// All bytes of a file, taken from the file tree.
/// Throws what cFileManager::open() throws, and `<kind> "<name>": ` and the reason for a file of more than 256 MiB or
/// one that can't be read to its end.
/// @param kind  what the file is, for its failures
std::vector<std::uint8_t> readWholeFile(const String& name, const char* kind);

}  // namespace Engine
