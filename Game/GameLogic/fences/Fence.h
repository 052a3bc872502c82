#pragma once

#include "Game/GameLogic/Barrier.h"

/// A fence of either side on an arc.
class cFence : public cBarrier {
public:
    using cBarrier::cBarrier;

    /// The keys of cBarrier, then the child tags "TileFencePlace" and "TileFence".
    void loadXML(const Engine::iXML* xml) override;
};

/// A fence of the player's: it stops the enemy.
class cPlayerFence : public cFence {
public:
    using cFence::cFence;
    Int getType() const override { return objectPlayerFence; }
};

/// A fence of the enemy's: it stops the player.
class cEnemyFence : public cFence {
public:
    using cFence::cFence;
    Int getType() const override { return objectEnemyFence; }
    Bool isEnemy() const override { return true; }
};
