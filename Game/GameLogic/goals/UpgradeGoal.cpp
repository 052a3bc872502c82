#include "Game/GameLogic/goals/UpgradeGoal.h"

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/men/FriendMan.h"

Bool cUpgradeGoal::assign(cMan* man) {
    return sendToDst(man);
}

cUpgradableUnit* cUpgradeGoal::findUnit() const {
    return dynamic_cast<cUpgradableUnit*>(getObjectAt(getDst()));
}

Bool cUpgradeGoal::filter(Long trans_id) {
    const cUpgradableUnit* unit = findUnit();
    if (!unit)
        return false;
    return unit->getUpgradeState() == cUpgradableUnit::waitingForResources ||
           (trans_id != -1 && trans_id != getTransactionId());
}

void cUpgradeGoal::doFinalWork() {
    ENGINE_MARK;
    cUpgradableUnit* unit = findUnit();
    if (!unit || !unit->isOrder(getTransactionId()))
        return cancel();
    unit->addMan(getMan());
    getMan()->waitForUpgradingColleagues(unit);
}

void cUpgradeGoal::giveBack() {
    ENGINE_MARK;
    if (cUpgradableUnit* unit = findUnit())
        unit->endOrder(getTransactionId());
}

cMarketGoal::cMarketGoal(Int point, cUpgradableUnit* unit) : cUpgradeGoal(goalMarket) {
    setDst(point);
    setUnit(unit);
}

Bool cMarketGoal::filter(Long trans_id) {
    if (!getUnit()) {
        setCancelled(true);
        return false;
    }
    return getUnit()->getUpgradeState() == cUpgradableUnit::waitingForResources ||
           getUnit()->keepsWaiting(*this, trans_id);
}

void cMarketGoal::doFinalWork() {
    ENGINE_MARK;
    cUpgradableUnit* unit = getUnit();
    if (!unit || !unit->isOrder(getTransactionId()))
        return cancel();
    unit->addMan(getMan());
    getMan()->upgrade(unit);
}
