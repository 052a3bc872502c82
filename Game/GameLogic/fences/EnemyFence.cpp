// The fences that the enemy's men build.
#include <vector>

#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"

using namespace Engine;

namespace {

/// The stretch of road in work on an arc; null for none.
cTransRoad* findRoadInWork(Int p0, Int p1) {
    for (const auto& [number, road] : cStorage<cTransRoad>::getStorage()) {
        if (road->joins(p0, p1) && road->getUpgradeState() != cUpgradableUnit::idle)
            return road;
    }
    return nullptr;
}

}  // namespace

void cEnemyFence::invalidateFences() {
    cUtils::makeEnemyFencesInvalid();
}

void cEnemyFence::upgrade() {
    ENGINE_MARK;
    cTacticMap& map = getMap();
    setLevel(getLevel() + 1);
    setArc(getStandingArc());
    map.generateConnectionMap();
    destroyPlayerRoads(getP0(), map.getPoint(getP0()));
    destroyPlayerRoads(getP1(), map.getPoint(getP1()));
    invalidateFences();
    finishUpgrade();
    map.onFenceBuilt();
}

void cEnemyFence::destroyPlayerRoads(Int src_p, const sPointInfo& info) {
    ENGINE_MARK;
    cTacticMap& map = getMap();
    for (const auto& [neighbour, arc] : std::map(info.arcs)) {
        if (arc.type == ARC_PLAYER_ROAD)
            map.deleteRoad(src_p, neighbour, false, true);
        if (arc.type != ARC_ROAD_IN_PROGRESS)
            continue;
        if (cTransRoad* road = findRoadInWork(src_p, neighbour))
            road->callOff();
        map.setArcType(src_p, neighbour, ARC_GROUND);
    }
}
