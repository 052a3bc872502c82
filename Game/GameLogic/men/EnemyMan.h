#pragma once

#include "Game/GameLogic/men/Man.h"

/// A man of the enemy's.
class cEnemyMan : public cMan {
public:
    using cMan::cMan;

    Int getType() const override { return objectEnemyMan; }
    Bool isBuildingRoad() const override { return false; }
    Bool canPushOff() const { return false; }
};
