#pragma once

#include <memory>

#include "Engine/platform/Platform.h"

namespace Engine::Platform {

/// The desktop platform, for callers that know nothing of SDL.
std::unique_ptr<iPlatform> createSdlPlatform();

}  // namespace Engine::Platform
