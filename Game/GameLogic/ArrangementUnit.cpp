#include "Game/GameLogic/ArrangementUnit.h"

#include <algorithm>
#include <numbers>
#include <utility>

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/ManWalkByEllipseTask.h"
#include "Game/GameUI/Tactic/TacticMap.h"

namespace {

constexpr Float least_distance = 1e-09f;  ///< squared units
constexpr Float pi = std::numbers::pi_v<Float>;

}  // namespace

Float cArrangementUnit::getDirection(const Vector2& man_pos) const {
    const cTacticMap& map = *cTacticMap::getInstance();
    Vector2 center;
    getCenter(center);
    const Vector2 way = man_pos - map.toScreen(center);
    if (glm::dot(way, way) < least_distance)
        return 0.0f;
    Float res = projectedYaw(way.x, way.y, map.getConstants().global_pitch);
    normalizeAngle(res);
    return res < 0.0f ? res + 2.0f * pi : res;
}

void cArrangementUnit::add(cMan* man) {
    ENGINE_MARK;
    if (std::find(m_ring.begin(), m_ring.end(), man) != m_ring.end()) {
        if (man->getGlobalGoal())
            man->doFinalWork();
        return;
    }
    m_ring.push_back(man);
    arrange(man);
}

void cArrangementUnit::remove(const cMan* man) {
    const auto found = std::find(m_ring.begin(), m_ring.end(), man);
    if (found != m_ring.end())
        m_ring.erase(found);
}

void cArrangementUnit::handOver() {
    ENGINE_MARK;
    for (cMan* man : std::exchange(m_ring, {})) {
        if (!man->getTask() || dynamic_cast<cManWalkByEllipseTask*>(man->getTask()))
            man->arrange();
    }
}

void cArrangementUnit::arrange(cMan* man) {
    if (m_ring.front() == man)
        return man->doFinalWorkOrWait(false);
    const Float base = getDirection(m_ring.front()->getMovablePosition());
    const Float angle = static_cast<Float>(m_ring.size() - 1) * m_arrangement_delta + base;
    man->setTask(std::make_unique<cManWalkByEllipseTask>(man, angle, true));
}

void cArrangementUnit::turnOutwards(cMan* man) const {
    man->setMovableYaw(getDirection(man->getMovablePosition()) + pi);
}
