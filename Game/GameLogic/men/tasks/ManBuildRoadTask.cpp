#include "Game/GameLogic/men/tasks/ManBuildRoadTask.h"

#include <cmath>
#include <numbers>

#include "Engine/Sound/Channel.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/TaskType.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

constexpr Float pi = std::numbers::pi_v<Float>;
constexpr Float least_squared_way = 1e-09f;  ///< squared units
constexpr Float least_arc = 0.0001f;         ///< units

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

}  // namespace

cManBuildRoadTask::cManBuildRoadTask(cMan* man, cUpgradableUnit* unit)
    : cTask(man),
      m_man(man),
      m_unit(unit),
      m_road(dynamic_cast<cTransRoad*>(unit)),
      m_src(m_road ? m_road->getP0() : man->getPoint()),
      m_dst(m_road ? m_road->getP1() : unit->getUnderPoint()) {
    m_type = taskBuildRoad;
}

cManBuildRoadTask::~cManBuildRoadTask() {
    if (cTacticMap::getInstance())
        markDst(false);
}

void cManBuildRoadTask::onStart() {
    ENGINE_MARK;
    if (m_src == m_dst)
        throw "cManBuildRoadTask::onStart(): can't build road to the same point";
    m_src_unit = map().getArrangementUnit(m_src);
    m_dst_unit = map().getArrangementUnit(m_dst);
    m_delta_yaw = m_man->getDeltaYaw();
    Vector2 src{0.0f, 0.0f};
    Vector2 dst{0.0f, 0.0f};
    m_src_unit->getCenter(src);
    m_dst_unit->getCenter(dst);
    const Vector2 way = dst - src;
    if (glm::dot(way, way) < least_squared_way)
        throw "cManBuildRoadTask::onStart(): src and dst points are too close";
    m_road_yaw = projectedYaw(way.x, way.y, map().getConstants().global_pitch);
    setUpEllipse();
    setUpLine();
    m_man->leaveRing();
    if (m_on_ellipse)
        m_man->setWalkVisualState();
    else
        startBuilding();
}

void cManBuildRoadTask::setUpEllipse() {
    m_angle = m_src_unit->getDirection(m_man->getMovablePosition());
    const Float turn = angleDifference(m_angle, m_road_yaw);
    const Float length = std::abs(m_src_unit->getRadius() * turn);
    const Float speed = m_man->getMovingSpeed(0, 0);
    m_on_ellipse = length > least_arc && speed > 0.0f;
    if (!m_on_ellipse)
        return;
    m_ellipse_time = length / speed;
    m_ellipse_speed = turn / m_ellipse_time;
}

void cManBuildRoadTask::setUpLine() {
    Vector2 from;
    Vector2 to;
    m_src_unit->getEllipsePosition(from, m_road_yaw);
    m_dst_unit->getEllipsePosition(to, m_road_yaw - pi);
    const Float speed = getActionSpeed();
    const Float length = glm::distance(from, to);
    if (!(length > 0.0f) || !(speed > 0.0f))
        return;
    m_total_time = length / speed;
    m_time_left = m_total_time;
    m_velocity = (to - from) / m_total_time;
}

Float cManBuildRoadTask::getActionSpeed() const {
    return m_unit->getUpgradeTime();  // which, of a road, is the speed of its building
}

void cManBuildRoadTask::startSound() {
    if (const cGameSounds* sounds = cGameSounds::getInstance())
        m_sound = sounds->play("build_road");
}

void cManBuildRoadTask::markDst(Bool in_work) {
    cWayPoint* way_point = map().hasPoint(m_dst) ? map().getPoint(m_dst).way_point : nullptr;
    if (!way_point || way_point->isRoadInWork() == in_work)
        return;
    way_point->setRoadInWork(in_work);
    way_point->updateView(false);
}

void cManBuildRoadTask::startBuilding() {
    startSound();
    m_man->setBuildRoadVisualState(m_velocity);
    markDst(true);
    m_start_position = map().toMap(m_man->getMovablePosition());
    if (m_road)
        m_road_start = m_road->getRoadPointPos(m_src);
}

void cManBuildRoadTask::turnTo(Float yaw) {
    const Float present = m_man->getMovableYaw();
    const Float turn = angleDifference(present, yaw);
    const Float step = std::min(std::abs(turn), m_delta_yaw);
    m_man->setMovableYaw(present + signOf(turn) * step);
}

void cManBuildRoadTask::processEllipse(Float step) {
    m_ellipse_time -= step;
    m_angle += step * m_ellipse_speed;
    Vector2 place;
    m_src_unit->getEllipsePosition(place, m_angle);
    m_man->setPosition(place);
    turnTo(signOf(m_ellipse_speed) * pi * 0.5f + m_angle);
    if (m_ellipse_time > 0.0f)
        return;
    m_on_ellipse = false;
    startBuilding();
}

Bool cManBuildRoadTask::onProcess() {
    const Float step = cTimer::getInstance()->getStep();
    if (m_on_ellipse) {
        processEllipse(step);
        return false;
    }
    m_time_left -= step;
    if (map().getPoint(m_src).getArcType(m_dst) == ARC_GROUND) {
        m_aborted = true;
        return true;
    }
    turnTo(m_road_yaw);
    m_man->setPosition(m_man->getPosition() + m_velocity * step);
    processRoad();
    return m_time_left <= 0.0f;
}

void cManBuildRoadTask::processRoad() {
    if (!m_road || !(m_road->getRoadLength() > 0.0f))
        return;
    const Vector2 reached = m_start_position + m_velocity * (m_total_time - m_time_left);
    m_road->buildProcess(glm::distance(reached, m_road_start) / m_road->getRoadLength());
}

void cManBuildRoadTask::onEnd() {
    ENGINE_MARK;
    cTask::onEnd();
    m_sound.reset();
    markDst(false);
    if (m_aborted) {
        m_unit->finishUpgrade();
    } else {
        m_unit->upgrade();
        map().showSitesAnew();
    }
    m_man->setGlobalGoal(nullptr);
    m_man->setWaitState();
    m_man->setPoint(m_dst);
    m_man->arrange();
}
