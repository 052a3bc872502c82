#include "Game/GameLogic/buildings/Idol.h"

#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

Bool cIdol::initUnderWayPoint(Int index) {
    const Bool res = cUpgradableBuilding::initUnderWayPoint(index);
    if (cWayPoint* way_point = getMap().getPoint(index).way_point)
        way_point->setIdol(this);
    return res;
}
