#pragma once

#include <nlohmann/json.hpp>

#include "Tools/datatool/FileBytes.h"

namespace Datatool {

/// Meshes and animations begin alike.
bool isUnitFile(const BYTES& head);

/// What the file holds. Throws "<name>: " and the reason.
nlohmann::ordered_json inspectUnit(const Engine::String& name, const BYTES& bytes);

}  // namespace Datatool
