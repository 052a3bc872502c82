#include "Game/GameLogic/men/tasks/MoveTask.h"

#include <cmath>

#include "Engine/core/Timer.h"
#include "Game/GameLogic/Angles.h"

using namespace Engine;

cMoveTask::cMoveTask(cTaskDealer* owner, iMovable* object, Int index, Bool is_src)
    : cTask(owner),
      m_object(object),
      m_path_index(index),
      m_is_src(is_src),
      m_delta_yaw(object->getDeltaYaw()),
      m_turn_distance(object->getTurnDistance()) {
}

void cMoveTask::calcMovement(const Vector2& from, const Vector2& to) {
    const Vector2 way = to - from;
    const Float length = glm::length(way);
    if (!(length > least_length) || !(m_speed > 0.0f)) {
        m_time_left = 0.0f;
        m_move_time = 0.0f;
        return;
    }
    m_move_time = length / m_speed;
    m_time_left = m_move_time;
    m_velocity = way / m_move_time;
}

void cMoveTask::setTurnTime(Float speed) {
    m_turn_time = 1.0f / (speed <= 0.0f ? 1.0f : speed) * m_turn_distance;
    m_turn_time_left = m_turn_time;
}

void cMoveTask::turnToTarget() {
    const Float yaw = m_object->getMovableYaw();
    const Float turn = angleDifference(yaw, m_target_yaw);
    if (!(std::abs(turn) > 0.0f))
        return;
    const Float step = cTimer::getInstance()->getStep();
    // The last frame may be longer than what is left of the turn: it ends there and does not swing past.
    const Float part = m_turn_time_left > step ? step / m_turn_time_left : 1.0f;
    m_object->setMovableYaw(yaw + part * turn);
    m_turn_time_left -= step;
}

void cMoveTask::moveForward(Float dt) {
    m_time_left -= dt;
    m_object->setMovablePosition(m_object->getMovablePosition() + m_velocity * dt);
    Vector2 end;
    getDstPosition(end);
    const Vector2 rest = end - m_object->getMovablePosition();
    const Float length = glm::length(rest);
    if (length > least_length)
        m_velocity = rest / length * m_speed;
}

Bool cMoveTask::onProcess() {
    if (m_time_left > 0.0f) {
        turnToTarget();
        moveForward(cTimer::getInstance()->getStep());
    } else {
        m_finished = true;
    }
    return m_finished;
}
