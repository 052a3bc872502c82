#pragma once

#include "Game/GameLogic/Barrier.h"

/// A fence of the player's: it stops the enemy.
class cPlayerFence : public cPlayerBarrier {
public:
    using cPlayerBarrier::cPlayerBarrier;

    /// The keys of cBarrier, then the child tags "TileFencePlace" and "TileFence".
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectPlayerFence; }
};

/// A fence of the enemy's: it stops the player.
class cEnemyFence : public cBarrier {
public:
    using cBarrier::cBarrier;

    /// The keys of cBarrier, then the child tags "TileFencePlace" and "TileFence".
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectEnemyFence; }
    Bool isEnemy() const override { return true; }
};
