#pragma once

#include <vector>

#include "Engine/core/iXML.h"

namespace Datatool {

struct sLogEntry {
    Engine::String path;
    Engine::String type;  ///< the kind's number, as it is written
};

/// True if the document is a resource log: nothing but tags "Tag" with a "Path" and a "Type", one at least.
bool readResourceLog(const Engine::iXML& document, std::vector<sLogEntry>& entries);

}  // namespace Datatool
