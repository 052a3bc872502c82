#pragma once

#include "Game/GameLogic/Barrier.h"

/// A bridge over water on one arc; without it nobody passes there.
class cPlayerBridgeRoad : public cBarrier {
public:
    using cBarrier::cBarrier;

    /// The keys of cBarrier, then the child tags "TileBridgePlace" and "TileBridge".
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectPlayerBridgeRoad; }
};

class cEnemyBridgeRoad : public cBarrier {
public:
    using cBarrier::cBarrier;

    /// The keys of cBarrier, then the child tags "TileBridgePlace" and "TileBridge".
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectEnemyBridgeRoad; }
    Bool isEnemy() const override { return true; }
};
