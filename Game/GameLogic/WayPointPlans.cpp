// The road that the player may order to a point, from the pointer's coming to the click.
#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Engine/input/Input.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/roads/DraggedRoad.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameLogic/roads/RoadPrice.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

// The plan -----------------------------------------------------------------------------------------------------------

Bool cWayPoint::proposeRoadPlan(Int src) {
    ENGINE_MARK;
    if (m_road_plan)
        return true;
    if (src == m_index)
        return false;
    m_road_plan = getMap().getRoadPlan(m_index, src);
    if (!m_road_plan)
        return false;
    m_road_plan->setAllowed(m_road_plan->canBeBuilt());
    m_road_plan->show();
    showRoadPrice();
    return true;
}

void cWayPoint::deleteRoadPlan() {
    m_road_plan.reset();
    hideRoadPrice();
    followPointer(false);
}

/// What the order brings about may reach this point again, so that the plan is taken from it before.
void cWayPoint::processRoadPlan() {
    ENGINE_MARK;
    if (!m_road_plan)
        return;
    if (!m_road_plan->canBeBuilt())
        return getMap().showLack(m_road_plan->getPrice(), 1);
    const auto plan = std::move(m_road_plan);
    hideRoadPrice();
    plan->createBuildGoals();
}

void cWayPoint::updateRoadPlan() {
    if (!m_road_plan)
        return;
    updateRoadPlanPrice();
    m_road_plan->setAllowed(m_road_plan->areGoalsMade() || m_road_plan->canBeBuilt());
}

/// The way has changed, or the point has: a building stands here now, say.
///
/// A point under a building has no node; there the plan is the building's as long as the pointer rests on it.
Bool cWayPoint::isPlanOutdated() const {
    if (isNodeSeen())
        return false;
    return isFree() || (getMap().getPoint(m_index).player_connected && !getMap().getRoadInDrag());
}

// Its price ----------------------------------------------------------------------------------------------------------

void cWayPoint::showRoadPrice() {
    updateRoadPlanPrice();
    m_price_shown = true;
    followPointerWithPrice();
}

/// Not yet on a level that has just begun, whose stock nobody has seen: it comes with the pointer's next move.
void cWayPoint::followPointerWithPrice() {
    updatePricePosition(cLogic::getInstance()->getCursorPos());
    cRoadPrice& price = getMap().getRoadPrice();
    if (!price.isShow() && getMap().getControlPanel().isShow())
        price.show();
}

void cWayPoint::hideRoadPrice() {
    if (m_price_shown)
        getMap().getRoadPrice().hide();
    m_price_shown = false;
}

void cWayPoint::updateRoadPlanPrice() {
    if (m_road_plan)
        updateRoadPlanPrice(m_road_plan->getPrice(), getMap().getGlobalCargo(false));
}

void cWayPoint::updateRoadPlanPrice(const sResourceCargo& price, const sResourceCargo& global) {
    getMap().getRoadPrice().setPrice(price, global);
}

void cWayPoint::updatePricePosition(const Vector2& pos) {
    getMap().getRoadPrice().moveTo(pos);
}

void cWayPoint::mouseMove(eControl, Long, cView* _this) {
    auto* way_point = static_cast<cWayPoint*>(_this);
    if (way_point->m_price_shown)
        way_point->followPointerWithPrice();
}

void cWayPoint::followPointer(Bool follow) {
    if (follow == m_follows_pointer)
        return;
    m_follows_pointer = follow;
    cInput* input = cInput::getInstance();
    if (follow)
        input->bindMouse(mouseMove, this);
    else if (input)
        input->unbindMouse(mouseMove, this);
}

// The pointer --------------------------------------------------------------------------------------------------------

Bool cWayPoint::pointerCame() {
    if (getMap().areTargetsShown())
        return false;
    if (cDraggedRoad* road = getMap().getRoadInDrag()) {
        if (road->getP0() == m_index)
            return true;
        road->hide();
        proposeRoadPlan(road->getP0());
    } else {
        if (getMap().getPoint(m_index).player_connected)
            return true;
        if (!proposeRoadPlan(-1))
            return false;
    }
    followPointer(true);
    return true;
}

void cWayPoint::pointerLeft() {
    if (getMap().areTargetsShown())
        return;
    if (cDraggedRoad* road = getMap().getRoadInDrag())
        road->updateView(false);
    deleteRoadPlan();
}

void cWayPoint::hovered() {
    if (pointerCame())
        cFieldObject<cLevelObject>::hovered();
}

void cWayPoint::unhovered() {
    cFieldObject<cLevelObject>::unhovered();
    pointerLeft();
    if (m_catapult && !getMap().areTargetsShown())
        m_catapult->hideDamageArea();
}

void cWayPoint::clicked() {
    if (!m_road_plan)
        return;
    cFieldObject<cLevelObject>::clicked();
    if (!getMap().getRoadInDrag())
        processRoadPlan();
}
