#pragma once

#include "Game/Types.h"

namespace Engine {
class cLog;
}

/// The trace of what men and goals do on the level, step by step. Null while nobody wants one: the constant
/// "game/tactic_log" names the log.
Engine::cLog* tacticLog();

/// Asks the constants anew, for a level that begins.
void openTacticLog();
