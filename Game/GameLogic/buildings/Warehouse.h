#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// Keeps goods.
class cWarehouse : public cUpgradableBuilding {
public:
    using cUpgradableBuilding::cUpgradableBuilding;

    Int getType() const override { return objectWarehouse; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(21, level); }
};
