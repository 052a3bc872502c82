#pragma once

#include <cstdint>
#include <vector>

#include "Engine/core/String.h"

namespace Engine {

/// All bytes of a picture's file, taken from the file tree.
/// Throws what cFileManager::open() throws, and `Image "<name>": ` and the reason for a file that is too large or can't
/// be read to its end.
std::vector<std::uint8_t> readPictureFile(const String& name);

}  // namespace Engine
