#include "Game/GameLogic/men/tasks/MoveInsideMill.h"

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/Man.h"

cMoveInsideMill::cMoveInsideMill(cMill* mill, cMan* man, const Vector2& from, const Vector2& to, Bool silent)
    : cMoveTask(man, man, 0, true), m_mill(mill), m_man(man), m_from(from), m_to(to), m_silent(silent) {
}

void cMoveInsideMill::onStart() {
    const Vector2 way = m_to - m_from;
    if (glm::length(way) > least_length)
        m_target_yaw = angleOf(way);
    setUpObjectSpeed(m_man->getPoint(), m_man->getPoint());
    calcMovement(m_from, m_to);
    m_man->setPosition(m_from);
    m_man->setWalkVisualState();
}

void cMoveInsideMill::moveForward(Float dt) {
    m_time_left -= dt;
    m_object->setMovablePosition(m_object->getMovablePosition() + m_velocity * dt);
}

void cMoveInsideMill::onEnd() {
    ENGINE_MARK;
    cMoveTask::onEnd();
    if (m_silent)
        return;
    m_man->setInside(true);
    m_mill->manWantsToStartWorking();
}
