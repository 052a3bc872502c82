// The bridges that the player orders.
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/bridgeroads/BridgesPlan.h"
#include "Game/GameLogic/goals/BuildRoadGoal.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

void cPlayerBridgeRoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBridgeRoad::loadXML(xml);
    loadWorkBar(xml);
}

// Its order ----------------------------------------------------------------------------------------------------------

Int cPlayerBridgeRoad::getUnderPoint() const {
    for (const Int end : {getP0(), getP1()}) {
        if (hasEnds() && getMap().getPoint(end).player_connected)
            return end;
    }
    return -1;
}

Bool cPlayerBridgeRoad::isPlayerConnected() const {
    return getLevel() == 0 && hasEnds() ? cBridgesPlan(const_cast<cPlayerBridgeRoad&>(*this)).isPlayerConnected()
                                        : cBridgeRoad::isPlayerConnected();
}

Bool cPlayerBridgeRoad::isUpgradeAllowed() {
    return getUnderPoint() != -1 && cUpgradableUnit::isUpgradeAllowed();
}

Bool cPlayerBridgeRoad::createUpgradeGoals() {
    ENGINE_MARK;
    const Int point = getUnderPoint();
    std::vector<cBuilding*> providers;
    if (point != -1)
        getMap().getSortedResourceProviders(providers, point);
    if (providers.empty())
        return false;
    orderUpgrade(providers, getEndPos(point), {1.0f, 0.0f},
                 "cPlayerBridgeRoad::createUpgradeGoals(): there are not enough resources on the level to build "
                 "bridge");
    return true;
}

std::shared_ptr<cDeliveryGoal> cPlayerBridgeRoad::getNewDeliveryGoal() {
    return std::make_shared<cDeliveryRoadGoal>(-1, getP0(), -1, this, goalDeliveryBridge);
}

std::shared_ptr<cGoal> cPlayerBridgeRoad::getNewBuilderGoal() {
    return std::make_shared<cBuildBridgeRoadGoal>(getUnderPoint(), this);
}

void cPlayerBridgeRoad::upgrade() {
    ENGINE_MARK;
    if (!countFinishedMan())
        return;
    cBridgesPlan(*this).build();
    getMap().onFenceBuilt();
}

// The player's hand --------------------------------------------------------------------------------------------------

void cPlayerBridgeRoad::updateView(Bool hide) {
    cBridgeRoad::updateView(hide);
    if (hide || !hasEnds())
        return;
    const Bool possible = getLevel() == 0 && getUpgradeState() == idle && isUpgradeAllowed() && isPlayerConnected();
    showPossible(possible);
}

/// One that nobody can get at offers the road there.
void cPlayerBridgeRoad::hovered() {
    ENGINE_MARK;
    cBridgeRoad::hovered();
    cBridgesPlan(*this).hovered(static_cast<Int>(eButtonState::hovered));
    proposeRoad();
}

void cPlayerBridgeRoad::unhovered() {
    ENGINE_MARK;
    cBridgeRoad::unhovered();
    cBridgesPlan(*this).hovered(static_cast<Int>(eButtonState::normal));
    if (cWayPoint* way_point = getWayPoint())
        way_point->deleteRoadPlan();
}

void cPlayerBridgeRoad::clicked() {
    ENGINE_MARK;
    cBridgeRoad::clicked();
    if (getLevel() > 0)
        return processRoad();
    if (getUpgradeState() != idle || !isUpgradeAllowed() || !cBridgesPlan(*this).createBuildGoals())
        return;
    getMap().updateGlobalResources(true);
    updateView(false);
}

void cPlayerBridgeRoad::updateInfoTipCargo(sInfoTip& info) {
    tellOrder(info);
}

void cPlayerBridgeRoad::updateInfoTipPrice(sInfoTip& info) {
    tellRoad(info);
}
