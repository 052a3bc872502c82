#include "Game/GameLogic/men/tasks/EnemyBringsFlag.h"

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

cEnemyBringsFlag::cEnemyBringsFlag(cBridge* bridge, cEnemyMan* man, Int kind, const Vector2& from, const Vector2& to,
                                   Bool vanish)
    : cMoveTask(man, man, 0, true),
      m_bridge(bridge),
      m_man(man),
      m_kind(kind),
      m_from(from),
      m_to(to),
      m_vanish(vanish) {
}

void cEnemyBringsFlag::onStart() {
    ENGINE_MARK;
    m_man->setWalkWithFlagVisualState(m_kind);
    const Vector2 way = m_to - m_from;
    if (glm::length(way) > least_length)
        m_target_yaw = angleOf(way);
    setUpObjectSpeed(m_man->getPoint(), m_man->getPoint());
    calcMovement(m_from, m_to);
    m_man->setPosition(cTacticMap::getInstance()->toScreen(m_from));
}

void cEnemyBringsFlag::moveForward(Float dt) {
    m_time_left -= dt;
    m_object->setMovablePosition(m_object->getMovablePosition() + m_velocity * dt);
}

void cEnemyBringsFlag::getDstPosition(Vector2& out) const {
    out = cTacticMap::getInstance()->toScreen(m_to);
}

void cEnemyBringsFlag::onEnd() {
    ENGINE_MARK;
    cMoveTask::onEnd();
    if (m_kind == bringsBlue)
        m_bridge->onBlueFlagBrought();
    else if (m_kind == bringsSilver && !m_vanish)
        m_bridge->onSilverFlagBrought();
    else
        m_man->hide();
}
