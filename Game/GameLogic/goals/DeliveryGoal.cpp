#include "Game/GameLogic/goals/DeliveryGoal.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/ManWalkByEllipseTask.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

Bool cDeliveryGoal::assign(cMan* man) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cDeliveryGoal::assign()");
    logAssign(man);
    PATH_HOLDER path;
    cTacticMap& map = getMap();
    const Bool there = map.getBestPathByRoads(man, man->getPoint(), getSrc(), path, true, true, false);
    if (!there || !map.getBestPathByRoads(man, getSrc(), getDst(), path, true, true, false)) {
        cancel();
        return false;
    }
    setMan(man);
    man->setCapacity(getIndex());  // however much he takes at once else: the rest is promised to other goals
    man->walkTo(getSrc(), goesToSrc());
    return true;
}

void cDeliveryGoal::onSrc() {
    ENGINE_MARK;
    cGoal::onSrc();
    cLog* log = tacticLog();
    cBuilding* provider = getBuildingAt(getSrc());
    if (!provider)
        return cancel();
    if (const auto* mill = dynamic_cast<const cMill*>(provider); mill && !hasComeToBay()) {
        if (log)
            log->printf(u"cDeliveryGoal::onSrc(): man came to mill and now goes to loading bay");
        return goToBay(mill->getLoadingBayAngle());
    }
    const Int amount = getMan()->getLockedResourcesFrom(getCargoType(), provider);
    if (log)
        log->printf(u"cDeliveryGoal::onSrc(): man get %d items from locked cargo", amount);
    if (amount < 1)
        throw "cDeliveryGoal::onSrc() - provider must have locked resources for this delivery but it hasn't.";
    setGoesToSrc(false);
    const Int dst = chooseDst();
    if (dst == -1)
        return cancel();
    setDst(dst);
    if (!getMan()->walkTo(dst, false))
        cancel();
}

void cDeliveryGoal::goToBay(Float bay_angle) {
    getMan()->setTask(std::make_unique<cManWalkToLoadingBay>(getMan(), bay_angle));
}

cUpgradableUnit* cDeliveryGoal::findReceiver() const {
    cLog* log = tacticLog();
    cLevelObject* object = getObjectAt(getDst());
    if (!object) {
        if (log)
            log->printf(
                u"cDeliveryGoal::doFinalWork(): maybe upgrading level object was destroyed. So we are going to cancel "
                u"this goal.");
        return nullptr;
    }
    auto* unit = dynamic_cast<cUpgradableUnit*>(object);
    if (!unit && log)
        log->printf(
            u"cDeliveryGoal::doFinalWork(): upgrading unit was destroyed. So we are going to cancel this goal.");
    return unit;
}

void cDeliveryGoal::doFinalWork() {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cDeliveryGoal::doFinalWork()");
    logGoalInfo();
    cUpgradableUnit* receiver = findReceiver();
    if (!receiver || !receiver->isOrder(getTransactionId()))
        return cancel();
    getMan()->unloadUpgradeResourcesTo(getCargoType(), receiver);
    if (log)
        log->printf(u"cDeliveryGoal::doFinalWork(): resource item was delivered. Man goes to free list.");
    if (getUnit() && getType() != goalDeliveryMarket)
        getMan()->waitTask(true);
    else
        releaseMan();
}

void cDeliveryGoal::giveBack() {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cDeliveryGoal::cancel()");
    cBuilding* provider = getBuildingAt(getSrc());
    if (!provider)
        throw "cDeliveryGoal::cancel(): source of delivery goal was destroyed.";
    const Int type = getCargoType();
    const Int amount = type == resourceMoney ? getIndex() : 1;
    if (goesToSrc()) {
        if (log)
            log->printf(u"cDeliveryGoal::cancel(): unlock resources in src resource provider: type = %d, amount = %d",
                        type, amount);
        provider->returnResourceItems(type, provider->unlockResourceItems(type, amount));
        return;
    }
    if (!getMan())
        throw "cDeliveryGoal::cancel(): man was destroyed.";
    if (log)
        log->printf(u"cDeliveryGoal::cancel(): return resources in src resource provider: type = %d, amount = %d", type,
                    amount);
    provider->returnResourceItems(type, getMan()->getCargo()[type]);
}

// Where points don't tell --------------------------------------------------------------------------------------------

cDeliveryRoadGoal::cDeliveryRoadGoal(Int src, Int dst, Int cargo_type, cUpgradableUnit* unit, Int type)
    : cDeliveryGoal(type) {
    setSrc(src);
    setDst(dst);
    setCargoType(cargo_type);
    setUnit(unit);
}

Bool cDeliveryRoadGoal::filter(Long trans_id) {
    return !getUnit() || getUnit()->keepsWaiting(*this, trans_id);
}

Int cDeliveryRoadGoal::chooseDst() const {
    return getUnit() ? getUnit()->findClosestPoint(*getMan(), getSrc()) : -1;
}

Bool cDeliveryMarketGoal::filter(Long trans_id) {
    if (!getUnit())
        setCancelled(true);
    return getUnit() && cDeliveryRoadGoal::filter(trans_id);
}

void cDeliveryMarketGoal::doFinalWork() {
    ENGINE_MARK;
    auto* trade = dynamic_cast<cMarketTask*>(getUnit());
    const Int type = getCargoType();
    if (!trade || !trade->keepForLater(getTransactionId(), type, getMan()->getCargo()[type]))
        return cDeliveryRoadGoal::doFinalWork();
    getMan()->setCargo({});
    releaseMan();
}
