// What the player's hand does to the level: it drags roads and the land, and carries what is to be built.
#include <cmath>

#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/roads/DraggedRoad.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

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

// Press, move, release -----------------------------------------------------------------------------------------------

void cTacticMap::mouseDown() {
    ENGINE_MARK;
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    if (cursorOutOfScreen())
        return;
    if (!isPanelAt(cursor))
        press(cursor);
    dropFromHand();
}

void cTacticMap::press(const Vector2& cursor) {
    if (m_targets_shown)
        return pressTarget(cursor);
    const Int point = getPointByPosition(cursor);
    if (point != -1)
        return pressPoint(point);
    setDragMode(true);
    m_drag_mouse_x = std::trunc(cursor.x);
}

void cTacticMap::pressPoint(Int point) {
    cWayPoint* way_point = getPoint(point).way_point;
    if (!way_point || !getPoint(point).player_connected || pressSite(*way_point) ||
        way_point->isGateClosed(false, true))
        return;
    deleteDraggedRoad();
    m_dragged_road = static_cast<cDraggedRoad*>(cLevelObject::create(objectDraggedRoad, *this));
    m_dragged_road->setConnectionPoint(point, -1);
    m_dragged_road->show();
}

void cTacticMap::mouseUp() {
    ENGINE_MARK;
    if (m_dragged_road) {
        finishDraggedRoad();
        deleteDraggedRoad();
    }
    if (!m_drag_mode)
        return;
    if (cursorOutOfScreen())
        m_scroll_by_border = true;
    setDragMode(false);
}

/// The plan is there already, unless the pointer came in the very frame in which it was released.
void cTacticMap::finishDraggedRoad() {
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    const Int point = isPanelAt(cursor) ? -1 : getPointByPosition(cursor);
    if (point == -1 || point == m_dragged_road->getP0())
        return;
    cWayPoint* way_point = getPoint(point).way_point;
    if (way_point && way_point->proposeRoadPlan(m_dragged_road->getP0()))
        way_point->processRoadPlan();
}

void cTacticMap::mouseMove() {
    if (isRolling())
        return;
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    if (m_scroll_by_border && !cursorOutOfScreen())
        m_scroll_by_border = false;
    if (m_drag_mode) {
        const Float x = std::trunc(cursor.x);
        dragMap(x - m_drag_mouse_x);
        m_drag_mouse_x = x;
    }
    if (m_idol_in_hand)
        updateFlyingIdolPos();
    if (m_catapult_in_hand)
        updateFlyingCatapultPos();
    if (m_dragged_road) {
        const Bool was_hidden = m_road_in_drag && !m_dragged_road->isShow();
        m_road_in_drag = true;
        m_dragged_road->setEnd(cursor);
        m_dragged_road->updateView(was_hidden);
    }
}

// The dragged road ---------------------------------------------------------------------------------------------------

std::unique_ptr<cRoadPlan> cTacticMap::getRoadPlan(Int src_point, Int dst_point) {
    ENGINE_MARK;
    PATH_HOLDER path;
    if (dst_point == -1)
        getBestPathForRoadPlan(src_point, path);
    else
        getBestPathForDraggedRoad(src_point, dst_point, path);
    if (path.size() < 2)
        return nullptr;
    return std::make_unique<cRoadPlan>(path, m_constants.road_cost, m_constants.road_building_speed);
}

void cTacticMap::deleteDraggedRoad() {
    m_road_in_drag = false;
    if (!m_dragged_road)
        return;
    m_dragged_road->destroyMe();
    m_dragged_road = nullptr;
}
