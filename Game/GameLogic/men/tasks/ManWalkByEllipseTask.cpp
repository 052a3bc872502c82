#include "Game/GameLogic/men/tasks/ManWalkByEllipseTask.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/ArrangementUnit.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cManWalkByEllipseTask::cManWalkByEllipseTask(cMan* man, Float target_angle, Bool face_outwards)
    : cTask(man), m_man(man), m_point(man->getPoint()), m_face_outwards(face_outwards), m_target_angle(target_angle) {
    man->setWalkVisualState();
}

void cManWalkByEllipseTask::onStart() {
    const cArrangementUnit* unit = cTacticMap::getInstance()->getArrangementUnit(m_point);
    if (!unit)
        return;
    m_angle = unit->getDirection(m_man->getPosition());
    const Float turn = angleDifference(m_angle, m_target_angle);
    const Float length = std::abs(unit->getRadius() * turn);
    const Float speed = m_man->getMovingSpeed(0, 0);
    m_approach.start(*unit, *m_man, m_angle, speed);
    if (!(length > 0.0f) || !(speed > 0.0f))
        return;
    m_time_left = length / speed;
    m_angular_speed = turn / m_time_left;
}

Bool cManWalkByEllipseTask::onProcess() {
    const cArrangementUnit* unit = cTacticMap::getInstance()->getArrangementUnit(m_point);
    if (unit && (m_time_left > 0.0f || !m_approach.isThere())) {
        const Float step = cTimer::getInstance()->getStep();
        if (m_time_left > 0.0f && !m_approach.isFar()) {
            m_time_left -= step;
            m_angle += step * m_angular_speed;
        }
        const Float yaw = signOf(m_angular_speed) * std::numbers::pi_v<Float> * 0.5f + m_angle;
        m_approach.process(*unit, *m_man, m_angle, yaw, step);
        return false;
    }
    if (m_face_outwards && unit)
        unit->turnOutwards(m_man);
    return true;
}

void cManWalkByEllipseTask::onEnd() {
    ENGINE_MARK;
    cTask::onEnd();
    m_man->doFinalWorkOrWait(true);
}

void cManReturnTask::onEnd() {
    ENGINE_MARK;
    m_man->arrange();
}

void cManWalkToLoadingBay::onEnd() {
    ENGINE_MARK;
    cGoal* running = m_man->getGlobalGoal();
    if (!running)
        return;
    const auto goal = running->shared_from_this();
    switch (goal->getType()) {
        case goalDeliveryFence:
        case goalDelivery:
        case goalDeliveryMarket:
        case goalDeliveryRoad:
        case goalDeliveryBridge:
            goal->setCameToBay(true);
            return goal->onSrc();
        case goalLoad:
            return takeLoad(*goal);
        default:
            return;
    }
}

void cManWalkToLoadingBay::takeLoad(cGoal& goal) {
    cTacticMap& map = *cTacticMap::getInstance();
    auto* building = dynamic_cast<cBuilding*>(map.getLevelObject(m_man->getPoint()));
    auto* mill = dynamic_cast<cMill*>(building);
    if (!building || (mill && mill->getLoads() == 0))
        return goal.cancel();
    const Bool need_space = goal.getCargoType() != resourceMoney;
    cBuilding* warehouse = map.getClosestWarehouse(m_man, m_man->getPoint(), need_space);
    if (!warehouse)
        return goal.cancel();
    goal.setDst(warehouse->getUnderPoint());
    if (m_man->loadResourcesFrom(goal.getCargoType(), building) == 0)
        return goal.cancel();
    if (mill)
        mill->setLoads(std::max(mill->getLoads() - 1, 0));
    goal.setGoesToSrc(false);
    if (!m_man->walkTo(warehouse, false))
        goal.cancel();
    building->onCargoChanged(0);
}
