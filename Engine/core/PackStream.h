#pragma once

#include <minizip/unzip.h>

#include "Engine/core/String.h"

namespace Engine {

/// Opens a pack for minizip so that its many small reads are served from one buffer instead of the system.
///
/// Gives null for what can't be opened or is no zip file. The handle is closed with unzClose.
unzFile openPack(const String& path);

}  // namespace Engine
