#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// The player's trap for enemy men: it stands on one way point.
class cIdol : public cUpgradableBuilding {
public:
    using cUpgradableBuilding::cUpgradableBuilding;

    Int getType() const override { return objectIdol; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(26, level); }
    Bool initUnderWayPoint(Int index) override;
};
