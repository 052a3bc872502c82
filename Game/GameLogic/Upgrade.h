#pragma once

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

namespace Engine {
class iArch;
class iXML;
}  // namespace Engine

/// One row of a unit's table of upgrades: what it takes to go from level L to L + 1, and what holds at level L.
class cUpgrade {
public:
    virtual ~cUpgrade() = default;

    /// Keys "UpgradeNumber", "UpgradeTime" (seconds that each man works), "MenAmount", "Capacity", "texture_mask",
    /// "mask_offset", and those of the price (sResourceCargo).
    virtual void loadXML(const Engine::iXML* xml);
    /// What it takes to build an object of this definition file: the price in the first row of its table, zero without
    /// one.
    static sResourceCargo loadFirstPrice(const String& definition_file);
    /// The number, the time, the men, the capacity and the price; the mask is the definition file's alone.
    void serialize(Engine::iArch& arch);

    Int number = 0;
    Float time = 0.0f;  ///< seconds
    Int men = 0;        ///< needed at once
    Int capacity = 0;   ///< of the store at this level
    String texture_mask;
    Vector2 mask_offset{0.0f, 0.0f};
    sResourceCargo price;
};
