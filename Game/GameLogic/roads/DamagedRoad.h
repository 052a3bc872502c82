#pragma once

#include "Game/GameLogic/roads/Road.h"

/// The bare or broken track that lies under every arc of ground or road, and where the player orders a road.
class cDamagedRoad : public cRoad {
public:
    using cRoad::cRoad;

    Int getType() const override { return objectDamagedRoad; }
    /// Can the player order a road here? It takes one end on his net, nothing of the enemy's at either, and, where both
    /// ends are his, bare ground between them.
    Bool isPlayerConnected() const override;
    void updateView(Bool hide) override;
    void damage() override {}  ///< it is never a target
    void destroyMe() override;
    void createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse) override;

    /// A gate that is closed to the player, or a catapult or bunker of the enemy's, at either end.
    Bool hasEnemyObstacles(Int a, Int b) const;
    Bool isBuilding() const { return m_is_building; }

private:
    void updateBuildingState();

    Bool m_is_building = false;  ///< ordered, and not yet at rest
};
