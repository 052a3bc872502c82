// The fences that the player orders.
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/fences/FencePlan.h"
#include "Game/GameLogic/goals/BuildRoadGoal.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"

using namespace Engine;

cPlayerFence::cPlayerFence(cView* parent) : cFence(parent) {
}

cPlayerFence::~cPlayerFence() = default;

void cPlayerFence::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cFence::loadXML(xml);
    loadWorkBar(xml);
}

// Its run ------------------------------------------------------------------------------------------------------------

cFencePlan& cPlayerFence::getPlan() {
    if (!m_fence_plan)
        m_fence_plan = std::make_unique<cFencePlan>(*this);
    return *m_fence_plan;
}

void cPlayerFence::setViewBuilt(Bool built) {
    cFence::setViewBuilt(built);
    if (!built)
        m_fence_plan.reset();
}

void cPlayerFence::invalidateFences() {
    cUtils::makeOurFencesInvalid();
}

Bool cPlayerFence::isPlayerConnected() const {
    return m_fence_plan && getLevel() == 0 ? m_fence_plan->isPlayerConnected() : cFence::isPlayerConnected();
}

Bool cPlayerFence::looksDisabled() const {
    return getUpgradeState() == idle && !(isActive() && isPlayerConnected());
}

// Its order ----------------------------------------------------------------------------------------------------------

Bool cPlayerFence::canBuildFence() {
    return getUpgradeState() == idle && isUpgradeAllowed() && isPlayerConnected();
}

Bool cPlayerFence::createUpgradeGoals() {
    ENGINE_MARK;
    std::vector<cBuilding*> providers;
    getMap().getSortedResourceProviders(providers, getUnderPoint());
    if (providers.empty())
        return false;
    orderUpgrade(providers, getEndPos(getP0()), {1.0f, 0.0f},
                 "cPlayerFence::createUpgradeGoals(): there are not enough resources on the level to build fence");
    return true;
}

std::shared_ptr<cDeliveryGoal> cPlayerFence::getNewDeliveryGoal() {
    return std::make_shared<cDeliveryRoadGoal>(-1, getP0(), -1, this, goalDeliveryFence);
}

std::shared_ptr<cGoal> cPlayerFence::getNewBuilderGoal() {
    return std::make_shared<cBuildFenceGoal>(getP0(), this);
}

void cPlayerFence::upgrade() {
    ENGINE_MARK;
    if (!countFinishedMan())
        return;
    cFencePlan(*this).build();
    getMap().onFenceBuilt();
}

void cPlayerFence::finishUpgrade() {
    ENGINE_MARK;
    if (getLevel() == 0)
        cFencePlan(*this).callOff();
    cFence::finishUpgrade();
}

// The player's hand --------------------------------------------------------------------------------------------------

void cPlayerFence::updateView(Bool hide) {
    cFence::updateView(hide);
    if (hide || !hasEnds())
        return;
    const Bool possible =
        getLevel() == 0 && getUpgradeState() == idle && isUpgradeAllowed() && getPlan().isPlayerConnected();
    showPossible(possible);
}

/// One that nobody can get at offers the road there.
void cPlayerFence::hovered() {
    ENGINE_MARK;
    cFence::hovered();
    getPlan().hovered(static_cast<Int>(eButtonState::hovered));
    proposeRoad();
}

void cPlayerFence::unhovered() {
    ENGINE_MARK;
    cFence::unhovered();
    getPlan().hovered(static_cast<Int>(eButtonState::normal));
    if (cWayPoint* way_point = getWayPoint())
        way_point->deleteRoadPlan();
}

void cPlayerFence::clicked() {
    ENGINE_MARK;
    cFence::clicked();
    if (getLevel() > 0)
        return processRoad();
    getPlan();
    if (canBuildFence()) {
        cFencePlan plan(*this);
        if (plan.createBuildGoals())
            return plan.updateView();
    }
    if (!isUpgradeAllowed() && !isAtTop())
        getMap().showLack(getPrice(), getNeededMen(goalUpgrade));
}

// Its tip ------------------------------------------------------------------------------------------------------------

void cPlayerFence::updateInfoTipCargo(sInfoTip& info) {
    tellOrder(info);
}

void cPlayerFence::updateInfoTipPrice(sInfoTip& info) {
    tellRoad(info);
}
