#pragma once

#include "Tools/datatool/KnownKeys.h"

namespace Datatool {

/// Tells of the looks ("States") that the code will ask a level object for and not find in its definition file.
void checkDefinitions(const std::function<void(const Engine::String& file, const Engine::String& what)>& find);

/// Tells what is wrong with the levels of "LevelMap.lvl": what the game would refuse, and what it would load although
/// it can't be played or won.
void checkLevels(const COMPLAINT& complain);

}  // namespace Datatool
