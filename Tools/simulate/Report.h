#pragma once

#include <nlohmann/json.hpp>

#include "Tools/simulate/Player.h"

namespace Simulate {

/// Everything that can be told of the level in play, and what the player was answered.
nlohmann::ordered_json makeReport(double time, unsigned seed, const cPlayer& player);

}  // namespace Simulate
