#include "Game/GameUI/Tactic/Utils.h"

#include <algorithm>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

Bool hasArcOfType(Int a, Int b, Int type) {
    const cTacticMap* map = cTacticMap::getInstance();
    return map->getPoint(a).getArcType(b) == type || map->getPoint(b).getArcType(a) == type;
}

template <class T>
void addTargets(std::vector<aTarget*>& targets) {
    for (const auto& [number, object] : cStorage<T>::getStorage())
        targets.push_back(object);
}

template <class T>
void invalidate() {
    for (const auto& [number, fence] : cStorage<T>::getStorage())
        fence->setViewBuilt(false);
}

Bool isTargetOfEnemy(Int type) {
    switch (type) {
        case objectBridge:
        case objectStartPoint:
        case objectBunker:
        case objectEnemyCatapult:
        case objectIdol:
        case objectShop:
        case objectPort:
            return false;
        default:
            return true;
    }
}

}  // namespace

Bool cUtils::levelHasFreeStorages(const cBuilding* except) {
    const auto& buildings = cBuilding::getStorage();
    return std::any_of(buildings.begin(), buildings.end(), [except](const cBuilding* building) {
        return building != except && building->isStore() && building->isPlayerConnected() && building->hasFreeSpace();
    });
}

Bool cUtils::isRoadInProgress(Int a, Int b) {
    return hasArcOfType(a, b, ARC_ROAD_IN_PROGRESS);
}

Bool cUtils::isEnemyRoadArc(Int a, Int b) {
    return hasArcOfType(a, b, ARC_ENEMY_ROAD);
}

void cUtils::oscillateWarehouses() {
    for (cBuilding* building : cBuilding::getStorage()) {
        if (building->isStore())
            building->startOscillator();
    }
}

void cUtils::oscillateShops() {
    for (cBuilding* building : cBuilding::getStorage()) {
        if (building->getType() == objectShop)
            building->startOscillator();
    }
}

void cUtils::deleteRoadPlans() {
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage())
        way_point->deleteRoadPlan();
    for (const auto& [number, track] : cStorage<cDamagedRoad>::getStorage())
        track->deleteRoadPlan();
}

void cUtils::showLevelBridges(Bool show) {
    for (cBuilding* building : cBuilding::getStorage()) {
        if (building->getType() == objectBridge)
            static_cast<cBridge*>(building)->showBridge(show);
        else if (building->getType() == objectStartPoint)
            static_cast<cStartPoint*>(building)->showBridge(show);
    }
}

std::vector<cBridge*> cUtils::getLevelBridges() {
    std::vector<cBridge*> res;
    for (cBuilding* building : cBuilding::getStorage()) {
        if (building->getType() == objectBridge)
            res.push_back(static_cast<cBridge*>(building));
    }
    std::stable_sort(res.begin(), res.end(),
                     [](const cBridge* a, const cBridge* b) { return a->getBridgeNumber() < b->getBridgeNumber(); });
    return res;
}

std::vector<aTarget*> cUtils::getLevelTargets(Bool for_enemy) {
    std::vector<aTarget*> res;
    if (for_enemy) {
        addTargets<cRoadEnemy>(res);
        addTargets<cEnemyFence>(res);
        addTargets<cEnemyBridgeRoad>(res);
    } else {
        addTargets<cRoad>(res);
        addTargets<cPlayerFence>(res);
        addTargets<cPlayerBridgeRoad>(res);
    }
    for (cBuilding* building : cBuilding::getStorage()) {
        if (for_enemy ? building->isEnemyBuilding() : isTargetOfEnemy(building->getType()))
            res.push_back(building);
    }
    return res;
}

void cUtils::makeOurFencesInvalid() {
    invalidate<cPlayerFence>();
}

void cUtils::makeEnemyFencesInvalid() {
    invalidate<cEnemyFence>();
}

Bool cUtils::pathHasIdol(const PATH_HOLDER& path) {
    const cTacticMap* map = cTacticMap::getInstance();
    return std::any_of(path.begin(), path.end(), [map](Int point) {
        const cWayPoint* way_point = map->getPoint(point).way_point;
        return way_point && way_point->getIdol() && way_point->getIdol()->getLevel() > 0;
    });
}

Int cUtils::getClosestPointForEnemy(const cMan* man, Int p0, Int p1) {
    cTacticMap* map = cTacticMap::getInstance();
    const auto get_length = [&](Int point) {
        PATH_HOLDER path;
        const Bool found = map->getBestPathByRoads(man, man->getPoint(), point, path, false, false, false);
        return found ? map->getPathLength(path) : no_way;
    };
    const Float first = get_length(p0);
    const Float second = get_length(p1);
    if (first >= no_way && second >= no_way)
        return -1;
    return second < first ? p1 : p0;
}
