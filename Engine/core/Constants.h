#pragma once

#include "Engine/core/PropertyTable.h"
#include "Engine/core/Singleton.h"

namespace Engine {

/// The tuning that ships with the data ("sys/constants.xml"): read with getProperty, never written.
class cConstants : public cPropertyTable, public cSingleton<cConstants> {
public:
    cConstants() = default;
    explicit cConstants(const String& filename) { load(filename); }
};

}  // namespace Engine
