#pragma once

#include "Game/GameLogic/buildings/Building.h"

/// Where the enemy comes from.
class cBunker : public cBuilding {
public:
    using cBuilding::cBuilding;

    Int getType() const override { return objectBunker; }
    String getVisualStateName() const override { return m_destroyed ? "destroyed_state" : "init_state"; }
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;

private:
    Bool m_destroyed = false;
};
