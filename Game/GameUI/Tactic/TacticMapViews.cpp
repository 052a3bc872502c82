// What is seen of the level after something has changed.
#include <algorithm>

#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameLogic/roads/RoadPrice.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Int idol_plan = 26;      ///< the product without which there are no idols
constexpr Int catapult_plan = 31;  ///< the product without which there are no catapults

}  // namespace

// The cascade --------------------------------------------------------------------------------------------------------

template <class T>
void cTacticMap::updateStorage(Bool hide) {
    for (const auto& [number, object] : cStorage<T>::getStorage())
        object->updateView(hide);
}

void cTacticMap::updateView(Bool hide) {
    ENGINE_MARK;
    generateConnectionMap();
    updateGlobalResources(true);
    updateRoads(hide);
    updateFences(false, true, hide);
    updateBridgeRoads(false, true, hide);
    updateWayPoints(hide);
    for (cFriendMan* man : m_men)
        man->updateView(hide);
}

void cTacticMap::updateGlobalResources(Bool force) {
    ENGINE_MARK;
    getGlobalCargo(force);
    m_control_panel->setGlobalResources(m_global_cargo, getNumberOfMen(), m_global_capacity);
    updateControlPanel();
    updateUpgradableUnits();
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage())
        way_point->updateRoadPlan();
}

void cTacticMap::updateControlPanel() {
    ENGINE_MARK;
    if (!m_start_point)
        return;
    m_control_panel->setManCost(m_start_point->getManCost());
    m_control_panel->setManAllowed(canBuyMan());
    m_control_panel->setMaxMen(m_start_point->getMaxAmount());
    m_control_panel->setBackAllowed(m_start_point->getPrevLevel() >= 0);
    m_control_panel->setIdolAllowed(getProduct(idol_plan) > 0);
    m_control_panel->setCatapultAllowed(getProduct(catapult_plan) > 0);
    m_control_panel->updateView();
}

void cTacticMap::showControlPanel() {
    m_control_panel->show();
}

void cTacticMap::showLack(const sResourceCargo& need, Int men) {
    m_control_panel->showLack(need, men);
}

Bool cTacticMap::isPanelAt(const Vector2& point) const {
    return m_control_panel->isShown() && m_control_panel->pointInRect(point);
}

void cTacticMap::updateUpgradableUnits() {
    updateBuildings(false);
    updateFences(true, false, false);
    updateBridgeRoads(true, false, false);
    updateDamagedRoads();
}

void cTacticMap::updateBuildings(Bool hide) {
    for (cBuilding* building : cBuilding::getStorage())
        building->updateView(hide);
}

void cTacticMap::updateRoads(Bool hide) {
    updateDamagedRoads();
    updateStorage<cRoad>(hide);
    updateStorage<cRoadEnemy>(hide);
}

void cTacticMap::updateDamagedRoads() {
    updateStorage<cDamagedRoad>(false);
}

void cTacticMap::updateFences(Bool player, Bool enemy, Bool hide) {
    if (player)
        updateStorage<cPlayerFence>(hide);
    if (enemy)
        updateStorage<cEnemyFence>(hide);
}

void cTacticMap::updateBridgeRoads(Bool player, Bool enemy, Bool hide) {
    if (player)
        updateStorage<cPlayerBridgeRoad>(hide);
    if (enemy)
        updateStorage<cEnemyBridgeRoad>(hide);
}

cRoadPrice& cTacticMap::getRoadPrice() {
    if (!m_road_price)
        m_road_price = new cRoadPrice(m_objects);
    return *m_road_price;
}

void cTacticMap::updateWayPoints(Bool hide) {
    updateStorage<cWayPoint>(hide);
}

void cTacticMap::onFenceBuilt() {
    ENGINE_MARK;
    updateFences(true, true, false);
    updateBridgeRoads(true, true, false);
    updateRoads(false);
    for (cFriendMan* man : std::vector(m_men)) {
        if (man->isWalking())
            man->checkCurrentPath();
    }
    for (cMan* enemy : std::vector(m_enemies)) {
        if (enemy->isWalking())
            enemy->checkCurrentPath();
    }
}
