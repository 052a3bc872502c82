#pragma once

#include "Engine/core/WholeFile.h"

namespace Engine {

/// All bytes of a picture's file. Throws as readWholeFile(), its files being of the kind "Image".
inline std::vector<std::uint8_t> readPictureFile(const String& name) {
    return readWholeFile(name, "Image");
}

}  // namespace Engine
