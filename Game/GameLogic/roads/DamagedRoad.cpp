#include "Game/GameLogic/roads/DamagedRoad.h"

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"

using namespace Engine;

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
}

void cDamagedRoad::createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse) {
    setUpRoadBase();
    cRoad::createTiles(from, to, color, reverse);
}

void cDamagedRoad::destroyMe() {
    ENGINE_MARK;
    getMap().unRegisterControl(this);
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}
