#pragma once

#include "Game/GameLogic/buildings/PlacedBuilding.h"

/// The player's trap for enemy men: it stands on one way point.
class cIdol : public cPlacedBuilding {
public:
    using cPlacedBuilding::cPlacedBuilding;

    Int getType() const override { return objectIdol; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(26, level); }
    Bool initUnderWayPoint(Int index) override;
    void setInitState() override;

protected:
    void leaveWayPoint(cWayPoint& way_point, Bool phantom) override;
};
