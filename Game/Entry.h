#pragma once

#include "Engine/platform/Platform.h"
#include "Game/Types.h"

/// The whole program on a given machine: builds the engine and the game, runs until the window is closed, takes all
/// down again. Failures end here: they are written to the log "error".
/// @return the process's exit code, 0
Int runGame(Engine::Platform::iPlatform& platform);
