#pragma once

#include <SDL.h>

#include "Engine/core/Types.h"

namespace Engine::Platform {

/// The engine's scan code (1 to 237) of a key; 0 for a key that has none.
UInt toScanCode(SDL_Scancode key);

/// The virtual-key code of a key message; 0 for a key that has none.
UInt toVirtualKey(SDL_Keycode key);

}  // namespace Engine::Platform
