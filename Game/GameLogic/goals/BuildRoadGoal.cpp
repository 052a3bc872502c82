#include "Game/GameLogic/goals/BuildRoadGoal.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cBuildRoadGoal::cBuildRoadGoal(Int point, cUpgradableUnit* unit, Int type) : cUpgradeGoal(type) {
    setDst(point);
    setUnit(unit);
    if (const cTransRoad* road = getRoad()) {
        setSrc(road->getP0());
        setDst(road->getP1());
    }
}

cTransRoad* cBuildRoadGoal::getRoad() const {
    return dynamic_cast<cTransRoad*>(getUnit());
}

Bool cBuildRoadGoal::assign(cMan* man) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cBuildRoadGoal::assign()");
    logAssign(man);
    const auto measure = [man](Int point) {
        PATH_HOLDER path;
        const Bool found = getMap().getBestPathByRoads(man, man->getPoint(), point, path, true, false, false);
        return found ? getMap().getPathLength(path) : no_way;
    };
    const Float to_src = measure(getSrc());
    const Float to_dst = measure(getDst());
    if (to_dst < to_src) {
        const Int src = getSrc();
        setSrc(getDst());
        setDst(src);
        if (cTransRoad* road = getRoad())
            road->turnRound();
    }
    if ((to_src >= no_way && to_dst >= no_way) || !man->walkTo(getSrc(), false))
        return false;
    setMan(man);
    return true;
}

Bool cBuildRoadGoal::filter(Long trans_id) {
    if (!getUnit()) {
        setCancelled(true);
        return false;
    }
    return getUnit()->keepsWaiting(*this, trans_id) ||
           getUnit()->getUpgradeState() == cUpgradableUnit::waitingForResources;
}

void cBuildRoadGoal::doFinalWork() {
    ENGINE_MARK;
    cTransRoad* road = getRoad();
    cMan& man = *getMan();
    if (!road) {
        man.setWaitState();
        return releaseMan();
    }
    road->addMan(&man);
    if (getMap().hasRoad(road->getP0(), road->getP1(), true)) {
        road->finishUpgrade();
        man.setWaitState();
        return releaseMan();
    }
    static_cast<cFriendMan&>(man).buildRoad(road);
}

Bool cBuildRunGoal::assign(cMan* man) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(getAssignText());
    logAssign(man);
    const Int dst = getUnit() ? getUnit()->findClosestPoint(*man, man->getPoint()) : -1;
    if (dst == -1 || !man->walkTo(dst, goesToSrc())) {
        cancel();
        return false;
    }
    setDst(dst);
    setMan(man);
    return true;
}

void cBuildFenceGoal::doFinalWork() {
    ENGINE_MARK;
    auto* fence = dynamic_cast<cFence*>(getUnit());
    auto* man = static_cast<cFriendMan*>(getMan());
    if (!fence)
        return man->waitTask(true);
    fence->addMan(man);
    man->buildFence(fence);
}

void cBuildBridgeRoadGoal::doFinalWork() {
    ENGINE_MARK;
    cUpgradableUnit* bridge = getUnit();
    if (!bridge)
        return getMan()->waitTask(true);
    bridge->addMan(getMan());
    getMan()->upgrade(bridge);
}
