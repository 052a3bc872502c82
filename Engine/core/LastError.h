#pragma once

#include "Engine/core/String.h"

namespace Engine {

/// The system's message for its last error code (errno); empty if there is none.
String lastErrorText();

}  // namespace Engine
