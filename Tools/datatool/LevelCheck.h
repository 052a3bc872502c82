#pragma once

#include "Tools/datatool/KnownKeys.h"

namespace Datatool {

/// Tells what is wrong with the levels of "LevelMap.lvl": what the game would refuse, and what it would load although
/// it can't be played or won.
void checkLevels(const COMPLAINT& complain);

}  // namespace Datatool
