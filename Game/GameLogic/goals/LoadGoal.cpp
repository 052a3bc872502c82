#include "Game/GameLogic/goals/LoadGoal.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/ManWalkByEllipseTask.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

Bool cLoadGoal::assign(cMan* man) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cLoadGoal::assign()");
    logAssign(man);
    if (!man->walkTo(getSrc(), goesToSrc())) {
        cancel();
        return false;
    }
    setMan(man);
    if (getCargoType() == resourceMoney)
        man->setCapacity(getIndex());
    return true;
}

Bool cLoadGoal::filter(Long trans_id) {
    return getUnit() && getUnit()->keepsWaiting(*this, trans_id);
}

void cLoadGoal::onSrc() {
    ENGINE_MARK;
    cGoal::onSrc();
    cBuilding* building = getBuildingAt(getSrc());
    if (!building)
        return cancel();
    if (const auto* mill = dynamic_cast<const cMill*>(building)) {
        if (mill->getLoads() <= 0)
            return cancel();
        getMan()->setTask(std::make_unique<cManWalkToLoadingBay>(getMan(), mill->getLoadingBayAngle()));
        return;
    }
    if (cBuilding* store = findStore(*building))
        takeLoad(*building, *store);
}

/// Null, and the goal called off, if nothing takes the load.
cBuilding* cLoadGoal::findStore(cBuilding& from) {
    cBuilding* store = getMap().getClosestWarehouse(getMan(), getSrc(), getCargoType() != resourceMoney);
    if (store)
        return store;
    if (from.getType() == objectShop || from.getType() == objectPort) {
        m_to_start_point = true;
        return getMap().getStartPoint();
    }
    cancel();
    cUtils::oscillateWarehouses();
    return nullptr;
}

void cLoadGoal::takeLoad(cBuilding& from, cBuilding& store) {
    setDst(store.getUnderPoint());
    if (getMan()->loadResourcesFrom(getCargoType(), &from) <= 0)
        return cancel();
    setGoesToSrc(false);
    if (!getMan()->walkTo(&store, false))
        cancel();
    getMap().updateGlobalResources(true);
}

Bool cLoadGoal::canUnload(const cBuilding& store) const {
    return store.hasFreeSpace() || getCargoType() == resourceMoney ||
           (m_to_start_point && store.getType() == objectStartPoint);
}

void cLoadGoal::doFinalWork() {
    ENGINE_MARK;
    cBuilding* store = getBuildingAt(getDst());
    if (!store)
        return cancel();
    cMan& man = *getMan();
    if (canUnload(*store)) {
        man.unloadResourcesTo(getCargoType(), store);
        if (man.getCargo().total(true) == 0 || m_to_start_point) {
            playGameSound("new_resource");
            man.setCargo({});
            releaseMan();
            return getMap().updateGlobalResources(true);
        }
    }
    cBuilding* next = getMap().getClosestWarehouse(&man, man.getPoint(), true);
    if (!next)
        return cancel();
    setDst(next->getUnderPoint());
    if (!man.walkTo(next, false))
        cancel();
}

void cLoadGoal::giveBack() {
    cBuilding* source = getBuildingAt(getSrc());
    if (!source)
        return;
    if (!goesToSrc()) {
        const Int type = getCargoType();
        source->returnResourceItems(type, getMan() ? getMan()->getCargo()[type] : 0);
    }
    auto* mill = dynamic_cast<cMill*>(source);
    if (!mill)
        return;
    if (goesToSrc())
        mill->setLoads(std::max(mill->getLoads() - 1, 0));
    mill->updateView(false);
}
