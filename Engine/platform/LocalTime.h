#pragma once

#include "Engine/core/Types.h"

namespace Engine::Platform {

struct sLocalTime {
    Int year = 0;
    Int month = 1;
    Int day = 1;
    Int hour = 0;
    Int minute = 0;
    Int second = 0;
};

/// Date and time of the system's clock where the player is.
sLocalTime readSystemClock();

}  // namespace Engine::Platform
