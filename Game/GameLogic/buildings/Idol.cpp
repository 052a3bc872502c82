#include "Game/GameLogic/buildings/Idol.h"

#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

Bool cIdol::initUnderWayPoint(Int index) {
    const Bool res = cPlacedBuilding::initUnderWayPoint(index);
    if (cWayPoint* way_point = getMap().getPoint(index).way_point)
        way_point->setIdol(this);
    return res;
}

void cIdol::setInitState() {
    cPlacedBuilding::setInitState();
    setActive(false);
}

void cIdol::leaveWayPoint(cWayPoint& way_point, Bool phantom) {
    if (way_point.getIdol() == this)
        way_point.deleteIdol(!phantom, true);
}
