// What is seen of the level after something has changed, and what the player's hand does to it.
#include <algorithm>

#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
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

void cTacticMap::targetDamaged(aTarget* target) {
    const auto found = std::find(m_shown_targets.begin(), m_shown_targets.end(), target);
    if (!target || found == m_shown_targets.end())
        return;
    target->showTarget(false);
    *found = nullptr;
}

// The hand -----------------------------------------------------------------------------------------------------------

void cTacticMap::bindAll() {
    cInput* input = cInput::getInstance();
    input->bind(Control::left_press, onMouseDown, this);
    input->bind(Control::left_release, onMouseUp, this);
    input->bind(Control::right_press, onRightClick, this);
    input->bindMouse(onMouseMove, this);
}

void cTacticMap::unbindAll() {
    cInput* input = cInput::getInstance();
    if (!input)
        return;
    input->unbind(Control::left_press, onMouseDown, this);
    input->unbind(Control::left_release, onMouseUp, this);
    input->unbind(Control::right_press, onRightClick, this);
    input->unbindMouse(onMouseMove, this);
}

void cTacticMap::onMouseDown(cView* view) {
    static_cast<cTacticMap*>(view)->mouseDown();
}

void cTacticMap::onMouseUp(cView* view) {
    static_cast<cTacticMap*>(view)->mouseUp();
}

void cTacticMap::onMouseMove(eControl, Long, cView* view) {
    static_cast<cTacticMap*>(view)->mouseMove();
}

void cTacticMap::onRightClick(cView* view) {
    static_cast<cTacticMap*>(view)->clearTasks();
}

Bool cTacticMap::cursorOutOfScreen() const {
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    const cGraphics* graphics = cGraphics::getInstance();
    return cursor.x < 0.0f || cursor.y < 0.0f || cursor.x > static_cast<Float>(graphics->getWidth()) ||
           cursor.y > static_cast<Float>(graphics->getHeight());
}

void cTacticMap::setDragMode(Bool drag) {
    m_drag_mode = drag;
    cInput* input = cInput::getInstance();
    if (!drag)
        input->restoreCursor();
    else if (m_size.x > static_cast<Float>(cGraphics::getInstance()->getWidth()))
        input->setCursor(Platform::eCursor::dragSideways);
}

void cTacticMap::mouseDown() {
    if (cursorOutOfScreen())
        return;
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    if (getPointByPosition(cursor) != -1)
        return;
    setDragMode(true);
    m_drag_mouse_x = std::trunc(cursor.x);
}

void cTacticMap::mouseUp() {
    if (!m_drag_mode)
        return;
    if (cursorOutOfScreen())
        m_scroll_by_border = true;
    setDragMode(false);
}

void cTacticMap::mouseMove() {
    if (isRolling())
        return;
    if (m_scroll_by_border && !cursorOutOfScreen())
        m_scroll_by_border = false;
    if (!m_drag_mode)
        return;
    const Float x = std::trunc(cLogic::getInstance()->getCursorPos().x);
    dragMap(x - m_drag_mouse_x);
    m_drag_mouse_x = x;
}
