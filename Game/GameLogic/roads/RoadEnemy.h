#pragma once

#include "Game/GameLogic/roads/Road.h"

/// The stretch of the enemy's road on one arc.
class cRoadEnemy : public cRoad {
public:
    using cRoad::cRoad;

    Int getType() const override { return objectRoadEnemy; }
    Bool isEnemy() const override { return true; }
};
