#pragma once

#include <memory>

#include "Game/CommonUI/InfoTip.h"
#include "Game/GameLogic/roads/Road.h"

class cRoadPlan;

/// The bare or broken track that lies under every arc of ground or road, and where the player orders a road.
class cDamagedRoad : public cRoad, public iExtendedInfoTip {
public:
    explicit cDamagedRoad(Engine::cView* parent);
    ~cDamagedRoad() override;

    Int getType() const override { return objectDamagedRoad; }
    /// Can the player order a road here? It takes one end on his net, nothing of the enemy's at either, and, where both
    /// ends are his, bare ground between them.
    Bool isPlayerConnected() const override;
    void updateView(Bool hide) override;
    void damage() override {}  ///< it is never a target
    void destroyMe() override;
    void createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse) override;

    void hovered() override;
    void unhovered() override;
    void clicked() override;
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    /// Of this stretch alone. False where the enemy is near.
    Bool createRoadPlan();
    void deleteRoadPlan();
    const cRoadPlan* getRoadPlan() const { return m_road_plan.get(); }

    /// A gate that is closed to the player, or a catapult or bunker of the enemy's, at either end.
    Bool hasEnemyObstacles(Int a, Int b) const;
    Bool isBuilding() const { return m_is_building; }

private:
    void updateBuildingState();

    std::unique_ptr<cRoadPlan> m_road_plan;  ///< while the pointer rests here
    Bool m_is_building = false;              ///< ordered, and not yet at rest
};
