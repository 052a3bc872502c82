#include "Game/GameLogic/roads/DamagedRoad.h"

#include <utility>

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

cDamagedRoad::cDamagedRoad(cView* parent) : cRoad(parent) {
}

cDamagedRoad::~cDamagedRoad() = default;

Bool cDamagedRoad::hasEnemyObstacles(Int a, Int b) const {
    for (const Int point : {a, b}) {
        const sPointInfo& info = getMap().getPoint(point);
        if (info.way_point && info.way_point->isGateClosed(false, true))
            return true;
        if (info.building && info.building->isEnemyBuilding())
            return true;
    }
    return false;
}

Bool cDamagedRoad::isPlayerConnected() const {
    if (!hasEnds() || hasEnemyObstacles(getP0(), getP1()))
        return false;
    const sPointInfo& a = getMap().getPoint(getP0());
    const sPointInfo& b = getMap().getPoint(getP1());
    if (a.player_connected && b.player_connected)
        return a.getArcType(getP1()) == ARC_GROUND || b.getArcType(getP0()) == ARC_GROUND;
    return a.player_connected || b.player_connected;
}

void cDamagedRoad::updateBuildingState() {
    const Bool is_near_net = getMap().getPoint(getP0()).player_connected || getMap().getPoint(getP1()).player_connected;
    if (is_near_net && !cUtils::isRoadInProgress(getP0(), getP1()))
        m_is_building = false;
}

void cDamagedRoad::updateView(Bool hide) {
    cRoad::updateView(hide);
    if (!hasEnds())
        return;
    setEnabled(isPlayerConnected() && !cUtils::isRoadInProgress(getP0(), getP1()));
    updateBuildingState();
    setActive(!m_is_building);
    setStatePicture(getState());
    if (cUtils::isEnemyRoadArc(getP0(), getP1()))
        disable();
    if (m_road_plan)
        m_road_plan->setAllowed(m_road_plan->canBeBuilt());
}

void cDamagedRoad::createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse) {
    setUpRoadBase();
    cRoad::createTiles(from, to, color, reverse);
}

// The player's order -------------------------------------------------------------------------------------------------

Bool cDamagedRoad::createRoadPlan() {
    ENGINE_MARK;
    if (!hasEnds() || hasEnemyObstacles(getP0(), getP1()))
        return false;
    PATH_HOLDER path{getP0(), getP1()};
    if (getMap().getPoint(getP0()).player_connected)
        std::swap(path[0], path[1]);  // it ends on the net
    const sTacticConstants& constants = getMap().getConstants();
    m_road_plan = std::make_unique<cRoadPlan>(path, constants.road_cost, constants.road_building_speed);
    m_road_plan->setAllowed(m_road_plan->canBeBuilt());
    m_road_plan->show();
    return true;
}

void cDamagedRoad::deleteRoadPlan() {
    m_road_plan.reset();
}

void cDamagedRoad::hovered() {
    cRoad::hovered();
    if (!m_road_plan && !getMap().getRoadInDrag())
        createRoadPlan();
}

void cDamagedRoad::unhovered() {
    cRoad::unhovered();
    deleteRoadPlan();
}

void cDamagedRoad::clicked() {
    ENGINE_MARK;
    cRoad::clicked();
    if (getMap().getRoadInDrag() || m_is_building || (!m_road_plan && !createRoadPlan()))
        return;
    if (!m_road_plan->canBeBuilt())
        return getMap().showLack(m_road_plan->getPrice(), 1);
    const auto plan = std::move(m_road_plan);
    m_is_building = plan->createBuildGoals();
    updateView(false);
}

void cDamagedRoad::updateInfoTipCargo(sInfoTip&) {
}

void cDamagedRoad::updateInfoTipPrice(sInfoTip& info) {
    info.text = getGameString("road");
    info.cargo = getMap().getConstants().road_cost.amounts;
    info.compare_global = true;
}

void cDamagedRoad::destroyMe() {
    ENGINE_MARK;
    deleteRoadPlan();
    getMap().unRegisterControl(this);
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}
