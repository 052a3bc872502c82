#pragma once

#include "Engine/core/String.h"

namespace Engine {

/// Ends the work with a device that failed.
/// @param error  the failure's name
/// @param what   the call that failed
/// Throws "Direct3D function call failed\n" + what + "\n" + error, followed by the heading "\nCall Stack:".
[[noreturn]] void directXFailed(const String& error, const String& what);

}  // namespace Engine
