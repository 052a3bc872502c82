#pragma once

#include <map>

#include "Engine/core/String.h"
#include "Engine/input/ControlCodes.h"

namespace Engine {

/// The names of the keys by scan code, as shown to the player.
std::map<eControl, String> makeKeyNames();

}  // namespace Engine
