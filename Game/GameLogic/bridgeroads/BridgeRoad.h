#pragma once

#include "Game/GameLogic/Barrier.h"

namespace Engine {
class cPicture;
}

/// A bridge over water on one arc; without it nobody passes there.
///
/// It is seen as pieces along the arc, those of a site or those of the standing bridge, made from two templates.
class cBridgeRoad : public cBarrier {
public:
    explicit cBridgeRoad(Engine::cView* parent);

    /// The keys of cBarrier, then the child tags "TileBridgePlace" and "TileBridge".
    void loadXML(const Engine::iXML* xml) override;
    void updateView(Bool hide) override;

private:
    void buildPieces();

    Engine::cPicture* m_site;  ///< a child of this view, as all pieces are
    Engine::cPicture* m_standing;
    std::vector<Engine::cPicture*> m_pieces;
};

class cPlayerBridgeRoad : public cBridgeRoad {
public:
    using cBridgeRoad::cBridgeRoad;
    Int getType() const override { return objectPlayerBridgeRoad; }
};

class cEnemyBridgeRoad : public cBridgeRoad {
public:
    using cBridgeRoad::cBridgeRoad;
    Int getType() const override { return objectEnemyBridgeRoad; }
    Bool isEnemy() const override { return true; }
};
