#pragma once

#include "Engine/core/Resource.h"

namespace Engine {

/// Plays a sound once. There is no sound device yet, so this is silence.
inline void playSoundOnce(iResource*) {
}

}  // namespace Engine
