#include "Game/GameLogic/men/tasks/ManWalkTask.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Engine/Ui/Control.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/TaskType.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Float pi = std::numbers::pi_v<Float>;

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

cBuilding* getBuildingAt(Int point) {
    return dynamic_cast<cBuilding*>(map().getPoint(point).building);
}

}  // namespace

cManWalkTask::cManWalkTask(cMan* man, Int index, Bool is_src) : cMoveTask(man, man, index, is_src), m_man(man) {
    m_type = taskWalk;
}

cManWalkTask::~cManWalkTask() {
    stopListening();
    endPassBy();
}

void cManWalkTask::stopListening() {
    if (m_dst_building)
        m_dst_building->removeListener(this);
    m_dst_building = nullptr;
}

Vector2 cManWalkTask::getPointPosition(const cBuilding* building, const sPointInfo& point) {
    Vector2 place = point.pos;
    if (building)
        building->getCenter(place);
    return map().toScreen(place);
}

const cArrangementUnit* cManWalkTask::getSrcUnit() const {
    return m_src_building ? static_cast<const cArrangementUnit*>(m_src_building) : m_src_point_object;
}

const cArrangementUnit* cManWalkTask::getDstUnit() const {
    const Bool at_building = m_dst_building && map().getPoint(m_dst).building;
    return at_building ? static_cast<const cArrangementUnit*>(m_dst_building) : m_dst_point_object;
}

void cManWalkTask::getDstPosition(Vector2& out) const {
    if (const cArrangementUnit* unit = getDstUnit())
        unit->getEllipsePosition(out, m_target_yaw - pi);
    else
        out = map().toScreen(map().getPoint(m_dst).pos);
}

// The start of an arc ------------------------------------------------------------------------------------------------

void cManWalkTask::onStart() {
    ENGINE_MARK;
    const auto next = static_cast<std::size_t>(m_path_index) + 1;
    if (next >= m_path.size())
        m_finished = true;
    else
        calcStartConditions(m_path[next - 1], m_path[next]);
}

/// What stands at both ends of the arc.
void cManWalkTask::findEnds() {
    stopListening();
    m_src_building = getBuildingAt(m_src);
    m_dst_building = getBuildingAt(m_dst);
    m_src_point_object = map().getPoint(m_src).way_point;
    m_dst_point_object = map().getPoint(m_dst).way_point;
    if (m_dst_building)
        m_dst_building->addListener(this);
}

void cManWalkTask::calcStartConditions(Int src, Int dst) {
    ENGINE_MARK;
    m_src = src;
    m_dst = dst;
    setUpObjectSpeed(src, dst);
    m_man->setWalkVisualState();
    findEnds();
    const Vector2 way =
        getPointPosition(m_dst_building, map().getPoint(dst)) - getPointPosition(m_src_building, map().getPoint(src));
    if (glm::length(way) < least_length) {
        if (cLog* log = tacticLog())
            log->printf(
                u"cManWalkTask::calcStartConditions(): src position equals to dst position, already came, so "
                u"finish this task");
        m_target_yaw = getSrcUnit() ? getSrcUnit()->getDirection(m_man->getPosition()) : m_target_yaw;
        m_time_left = 0.0f;
        setUpEllipse();
        m_finished = !m_on_ellipse;
        return;
    }
    m_target_yaw = projectedYaw(way.x, way.y, map().getConstants().global_pitch);
    setUpEllipse();
    Vector2 start = m_man->getPosition();
    if (m_on_ellipse)
        getSrcUnit()->getEllipsePosition(start, m_target_yaw);
    getDstPosition(m_dst_position);
    calcMovement(start, m_dst_position);
    setUpGates();
    if (!m_on_ellipse)
        setTurnTime(m_speed);
}

/// The walk round the point that he leaves, to the side where his way begins.
void cManWalkTask::setUpEllipse() {
    m_on_ellipse = false;
    const cArrangementUnit* unit = getSrcUnit();
    if (!unit)
        return;
    m_start_yaw = unit->getDirection(m_man->getPosition());
    if (!m_src_building && !unit->hasEllipse())
        return;
    const Bool is_away = isAwayFromRing(*unit, m_man->getPosition());
    if (is_away && isOutOnArc())
        return;
    const Float turn = angleDifference(m_start_yaw, m_target_yaw);
    const Float length = std::abs(unit->getRadius() * turn);
    const Float speed = m_object->getMovingSpeed(0, 0);
    m_object->getMovingSpeed(m_src, m_dst);  // the man remembers what he was last asked for
    if (!(length > 0.0f || is_away) || !(speed > 0.0f))
        return;
    m_on_ellipse = true;
    m_ellipse_time_left = length / speed;
    m_ellipse_speed = length > 0.0f ? turn / m_ellipse_time_left : 0.0f;
    m_approach.start(*unit, *m_man, m_start_yaw, speed);
    setTurnTime(speed);
}

/// Somewhere between the rings at both ends, or hardly beside the line.
Bool cManWalkTask::isOutOnArc() const {
    if (m_src == m_dst)
        return false;
    constexpr Float half_width = 10.0f;
    Vector2 from;
    Vector2 to;
    getSrcUnit()->getEllipsePosition(from, m_target_yaw);
    getDstPosition(to);
    const Vector2 line = to - from;
    const Vector2 way = m_man->getPosition() - from;
    const Float part = std::clamp(glm::dot(way, line) / std::max(glm::dot(line, line), least_length), 0.0f, 1.0f);
    return glm::distance(way, line * part) < half_width;
}

void cManWalkTask::setUpGates() {
    m_has_gates = false;
    m_src_gate_time = 0.0f;
    m_dst_gate_time = 0.0f;
    if (!(m_speed > 0.0f))
        return;
    if (m_src_point_object && m_src_point_object->hasGates()) {
        m_has_gates = true;
        m_src_gate_time = m_src_point_object->getDistanceToGates() / m_speed;
    }
    if (m_dst_point_object && m_dst_point_object->hasGates()) {
        m_has_gates = true;
        m_dst_gate_time = m_dst_point_object->getDistanceToGates() / m_speed;
    }
}

// Frames -------------------------------------------------------------------------------------------------------------

Bool cManWalkTask::onProcess() {
    if (m_finished)
        return true;
    if (m_man->isPushed())
        return false;
    const Float step = cTimer::getInstance()->getStep();
    if (m_src_gate_time != 0.0f)
        m_src_gate_time -= step;
    if (m_on_ellipse) {
        processEllipse(step);
        return false;
    }
    if (m_pass_by) {
        processPassBy(step);
        return false;
    }
    checkGates();
    return cMoveTask::onProcess();
}

void cManWalkTask::processEllipse(Float step) {
    cBuilding* building = getBuildingAt(m_src);
    const Bool is_other_ring = building != m_src_building;
    m_src_building = building;
    const cArrangementUnit* unit = getSrcUnit();
    if (!unit || (!m_src_building && !unit->hasEllipse())) {  // what he walked round is gone
        m_on_ellipse = false;
        m_man->setPosition(map().toScreen(map().getPoint(m_src).pos));
        setTurnTime(m_speed);
        return;
    }
    if (is_other_ring)
        m_approach.start(*unit, *m_man, m_start_yaw, m_object->getMovingSpeed(0, 0));
    const Bool is_there = !m_approach.isFar();
    if (is_there) {
        m_ellipse_time_left -= step;
        m_start_yaw += step * m_ellipse_speed;
    }
    m_approach.process(*unit, *m_man, m_start_yaw, signOf(m_ellipse_speed) * pi * 0.5f + m_start_yaw, step);
    if (is_there && m_ellipse_time_left <= 0.0f) {
        m_on_ellipse = false;
        setTurnTime(m_speed);
    }
}

void cManWalkTask::processPassBy(Float step) {
    if (m_pass_by_time_left <= 0.0f)
        return endPassBy();
    m_pass_by_time_left -= step;
    m_pass_by_angle += step * m_pass_by_speed;
    const Vector2 round(std::cos(m_pass_by_angle), std::sin(m_pass_by_angle));
    m_man->setPosition(m_pass_by_center->getPosition() + round * m_pass_by_radius);
    const Float yaw = m_object->getMovableYaw();
    const Float turn = angleDifference(yaw, m_pass_by_direction * pi * 0.5f + m_pass_by_angle);
    m_object->setMovableYaw(yaw + signOf(turn) * m_delta_yaw);
    checkGates();
}

void cManWalkTask::endPassBy() {
    m_pass_by = false;
    cControl* center = m_pass_by_center;
    m_pass_by_center = nullptr;
    if (!center || !cView::isValid(center))
        return;
    if (cTacticMap* level = cTacticMap::getInstance())
        level->unRegisterControl(center);
    discard(static_cast<cView*>(center), here());
}

void cManWalkTask::checkGates() {
    if (!m_has_gates)
        return;
    if (m_src_point_object && m_src_point_object->hasGates() && m_src_gate_time < 0.0f) {
        m_src_point_object->closeGates();
        m_src_gate_time = 0.0f;
    }
    if (m_dst_point_object && m_dst_point_object->hasGates() && m_time_left < m_dst_gate_time)
        m_dst_point_object->openGates();
}

void cManWalkTask::onEnd() {
    ENGINE_MARK;
    ++m_path_index;
    const auto index = static_cast<std::size_t>(m_path_index);
    if (index < m_path.size())
        m_man->setPoint(m_path[index]);
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cManWalkTask::onEnd(): man = %x", getLogId(m_man));
    stopListening();
    cGoal* goal = m_man->getGlobalGoal();
    if (goal && goal->isCancelled()) {
        if (log)
            log->printf(u"cManWalkTask::onEnd(): goal was canceled, transaction will be deleted");
        const Long transaction = goal->getTransactionId();
        goal->deleteTransaction();
        map().freeBusyMen(transaction);
        m_man->waitTask(true);
        return;
    }
    if (index + 1 >= m_path.size()) {
        m_man->setWaitState();
        m_man->makeDecision();
        return;
    }
    if (log)
        log->printf(u"cManWalkTask::onEnd(): this is an intermediate point, go to the next one (%d)",
                    m_path[index + 1]);
    auto next = std::make_unique<cManWalkTask>(m_man, m_path_index, m_is_src);
    next->setPath(m_path);
    m_man->setTask(std::move(next));
}

// Changes of the way -------------------------------------------------------------------------------------------------

void cManWalkTask::recalcRoute() {
    if (static_cast<std::size_t>(m_path_index) + 1 >= m_path.size())
        return;
    Vector2 end;
    getDstPosition(end);
    const Vector2 way = end - m_man->getPosition();
    if (glm::length(way) >= least_length) {
        calcMovement(m_man->getPosition(), end);
        m_target_yaw = angleOf(way);
    } else {
        m_finished = true;
    }
}

void cManWalkTask::validatePath() {
    ENGINE_MARK;
    const auto index = static_cast<std::size_t>(m_path_index);
    if (index >= m_path.size())
        return;
    const Bool has_next = index + 1 < m_path.size();
    const Int start = m_path[index] != -1 || !has_next ? m_path[index] : m_path[index + 1];
    PATH_HOLDER path;
    if (!map().getBestPathByRoads(m_man, start, m_path.back(), path, m_man->isFriend(), true, false)) {
        if (cGoal* goal = m_man->getGlobalGoal())
            goal->setCancelled(true);
        m_finished = true;
        return;
    }
    const Bool changed = has_next && path.size() >= 2 && m_path[index + 1] != path[1];
    m_path = std::move(path);
    m_path_index = 0;
    if (!changed)
        return;
    if (m_on_ellipse)  // he has not left the point yet
        return calcStartConditions(m_path[0], m_path[1]);
    m_path.insert(m_path.begin(), -1);
    if (m_path[1] != m_dst)
        turnBack();
    recalcRoute();
}

/// He is on his way and goes back to where he came from.
void cManWalkTask::turnBack() {
    std::swap(m_src, m_dst);
    findEnds();
    setUpGates();
}

void cManWalkTask::takePath(PATH_HOLDER path, Int index, Int src, Int dst, Bool same_point) {
    m_path = std::move(path);
    m_path_index = index;
    m_finished = false;
    calcStartConditions(src, dst);
    if (same_point)
        return;
    recalcRoute();
    m_on_ellipse = false;
}

void cManWalkTask::exchange(cManWalkTask& first, cManWalkTask& second, Bool same_point) {
    const PATH_HOLDER path = first.m_path;
    const Int index = first.m_path_index;
    const Int src = first.m_src;
    const Int dst = first.m_dst;
    first.takePath(second.m_path, second.m_path_index, second.m_src, second.m_dst, same_point);
    second.takePath(path, index, src, dst, same_point);
}

void cManWalkTask::jump(const Vector2& mouse_pos) {
    if (m_on_ellipse)
        return;
    const Vector2 to_mouse = mouse_pos - m_man->getPosition();
    const Float speed = glm::length(m_velocity);
    const Float distance = glm::length(to_mouse);
    if (!(speed > 0.0f) || !(distance > 0.0f))
        return;
    const Float cosine = std::cos(angleDifference(angleOf(m_velocity), angleOf(to_mouse)));
    const Vector2 kick = m_velocity / speed * m_man->getKickDelta();
    const Float time = glm::length(kick) / m_speed;
    if (distance * cosine >= 0.0f) {
        if (m_time_left + time > m_move_time)
            return;
        m_man->setPosition(m_man->getPosition() - kick);
        m_time_left += time;
    } else {
        m_man->setPosition(m_man->getPosition() + kick);
        m_time_left -= time;
    }
}

void cManWalkTask::startPassBy(const Vector2& center) {
    Vector2 way = center - m_man->getPosition();
    if (glm::length(way) <= map().getConstants().passby_distance * 0.5f)
        way *= 1.2f;
    m_pass_by_radius = glm::length(way);
    if (m_pass_by_radius < least_length)
        return;
    m_pass_by_angle = angleOf(way) - pi;
    m_pass_by_end_angle = m_pass_by_angle + pi;
    const Float speed = m_object->getMovingSpeed(m_src, m_dst);
    if (!(speed > 0.0f))
        return;
    const Float time = std::abs(m_pass_by_radius * pi) / speed;
    m_pass_by_time_left = time;
    m_pass_by_speed = pi / time;
    m_pass_by_direction = signOf(m_pass_by_speed);
    m_time_left -= 2.0f * m_pass_by_radius / m_speed;  // half the circle stands for its chord
    endPassBy();
    m_pass_by_center = new cControl(&map());
    m_pass_by_center->setPosition(center);
    map().registerControl(m_pass_by_center);
    m_pass_by = true;
}
