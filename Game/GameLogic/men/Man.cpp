#include "Game/GameLogic/men/Man.h"

#include <algorithm>
#include <numbers>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Log.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Random.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/CommonUI/SimpleEffect.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/UpgradableBuilding.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/tasks/ManUpgradeTask.h"
#include "Game/GameLogic/men/tasks/ManWalkByEllipseTask.h"
#include "Game/GameLogic/men/tasks/ManWalkTask.h"
#include "Game/GameLogic/men/tasks/TaskType.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

UInt getLogId(const cMan* man) {
    return man ? static_cast<UInt>(man->getCreationNumber()) : 0;
}

UInt getLogId(const cGoal* goal) {
    return goal ? goal->getNumber() : 0;
}

cMan::cMan(cView* parent)
    : cFieldObject<cLevelObject>(parent), m_tool(new cPicture(this)), m_shadow(new cPicture(this)) {
    m_shadow->setFlat(true);
    setOnClick(onClick);
}

void cMan::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cFieldObject<cLevelObject>::loadXML(xml);
    m_yaw_offset = getAngle();
    readKey(*xml, u"default_capacity", m_default_capacity);
    readKey(*xml, u"delta_yaw", m_delta_yaw);
    readKey(*xml, u"turn_distance", m_turn_distance);
    readKey(*xml, u"speed_by_road", m_speed_by_road);
    readKey(*xml, u"cross_country_speed", m_cross_country_speed);
    readKey(*xml, u"speed_with_cargo", m_speed_with_cargo);
    readKey(*xml, u"walk_animation_speed", m_walk_animation_speed);
    readKey(*xml, u"kick_delta", m_kick_delta);
    readKey(*xml, u"exchange_goal_buf_time", m_exchange_goal_buf_time);
    readKey(*xml, u"acceleration_factor", m_acceleration_factor);
    readKey(*xml, u"max_acceleration", m_max_acceleration);
    iXML* stolen = nullptr;
    if (xml->get("StolenCargo", stolen)) {
        m_stolen_cargo = new cPriceList(this);
        m_stolen_cargo->loadXML(stolen);
        m_stolen_cargo->hide();
    }
    loadChild(*m_tool, xml, "Tool");
    loadChild(*m_shadow, xml, "Shadow");
    m_tool->hide();
    m_tool_angle = m_tool->getAngle();
}

void cMan::saveBinState(iArch& arch) {
    arch << m_point;
}

void cMan::loadBinState(iArch& arch) {
    arch << m_point;
}

void cMan::setInitState() {
    ENGINE_MARK;
    m_cargo = {};
    setGlobalGoal(nullptr);
    setNearWayPointPosition();
    arrange();
    show();
}

Bool cMan::pointInRect(const Vector2& point) const {
    constexpr Float part_below_feet = 0.1f;
    const Vector2 half = getSize() * 0.5f;
    const Vector2 middle = getPosition() - Vector2(0.0f, getHeightOffset() + half.y * (1.0f - 2.0f * part_below_feet));
    const Vector2 way = glm::abs(point - middle);
    return way.x <= half.x && way.y <= half.y;
}

// Frames -------------------------------------------------------------------------------------------------------------

void cMan::process() {
    cFieldObject<cLevelObject>::process();
    if (cTacticMap::getInstance()->isLocked())
        return;
    const Float step = cTimer::getInstance()->getStep();
    if (m_exchange_timer > 0.0f)
        m_exchange_timer -= step;
    if (m_pushed && m_push_time > 0.0f) {
        m_push_time -= step;
        animate(step);
    } else if (m_pushed) {
        m_pushed = false;
        if (getTask())
            setWalkVisualState();
        else
            setWaitVisualStates();
    }
    if (!m_pushed)
        animate(m_walk_anim_factor * m_walk_animation_speed * step);
    if (m_tool->isShow()) {
        m_tool->setPosition(getPosition());
        m_tool->setAngle(getAngle() + m_tool_angle);
        m_tool->setAnimTime(getAnimTime());
    }
}

void cMan::setInside(Bool inside) {
    m_inside = inside;
    if (inside)
        hide();
    else
        show();
}

void cMan::updateView(Bool hide) {
    if (m_inside)
        return;
    cFieldObject<cLevelObject>::updateView(hide);
    if (!hide && !m_shadow->isShow())
        m_shadow->show();
    if (!hide && isWalking() && !m_pushed)
        setWalkVisualState();  // what he carries may have changed
}

// Where he goes ------------------------------------------------------------------------------------------------------

void cMan::makeDecision() {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cMan::makeDecision(): man = %x", getLogId(this));
    if (const auto goal = m_goal)
        goal->execute();
    else
        waitTask(true);
}

Bool cMan::walkTo(cUpgradableUnit* dst, Bool is_src) {
    return walkTo(dst->getUnderPoint(), is_src);
}

Bool cMan::walkTo(cBuilding* dst, Bool is_src) {
    return walkTo(dst->getUnderPoint(), is_src);
}

Bool cMan::walkTo(Int dest_point, Bool is_src) {
    ENGINE_MARK;
    PATH_HOLDER path;
    cTacticMap& map = *cTacticMap::getInstance();
    if (!map.getBestPathByRoads(this, m_point, dest_point, path, true, true, false) || path.empty()) {
        if (cLog* log = tacticLog())
            log->printf(u"cMan::walkTo(): path was not found, man's point = %d, dst point = %d", m_point, dest_point);
        return false;
    }
    const Bool stays = path.size() == 2 && path.front() == path.back();
    if (!stays)
        leaveRing();
    auto task = std::make_unique<cManWalkTask>(this, 0, is_src);
    task->setPath(std::move(path));
    setTask(std::move(task));
    updateView(false);
    return true;
}

Bool cMan::isWalking() const {
    return getTask() && getTask()->getType() == taskWalk;
}

Bool cMan::isBuildingRoad() const {
    return getTask() && getTask()->getType() == taskBuildRoad;
}

cManWalkTask* cMan::getWalkTask() const {
    return isWalking() ? static_cast<cManWalkTask*>(getTask()) : nullptr;  // which is what that type means
}

void cMan::checkCurrentPath() {
    if (cManWalkTask* task = getWalkTask())
        task->validatePath();
}

Int cMan::getPointAimedFor() const {
    const cManWalkTask* task = getWalkTask();
    return task && !task->getPath().empty() ? task->getPath().back() : m_point;
}

void cMan::arrange() {
    ENGINE_MARK;
    cArrangementUnit* unit = cTacticMap::getInstance()->getArrangementUnit(m_point);
    if (unit && isAwayFromRing(*unit, getPosition()) && getMovingSpeed(0, 0) > 0.0f)
        setTask(std::make_unique<cManReturnTask>(this, unit->getDirection(getPosition())));
    else if (unit)
        unit->add(this);
}

/// What stood at his point when he came may be another thing than what stands there now.
void cMan::leaveRing() {
    const cTacticMap& map = *cTacticMap::getInstance();
    if (!map.hasPoint(m_point))
        return;
    const sPointInfo& point = map.getPoint(m_point);
    if (auto* unit = dynamic_cast<cArrangementUnit*>(point.building))
        unit->remove(this);
    if (point.way_point)
        point.way_point->remove(this);
}

void cMan::setNearWayPointPosition() {
    const cTacticMap& map = *cTacticMap::getInstance();
    const sPointInfo& point = map.getPoint(m_point);
    Vector2 place = map.toScreen(point.pos);
    if (const auto* building = dynamic_cast<const cBuilding*>(point.building))
        building->getEllipsePosition(place, getMovableYaw() - std::numbers::pi_v<Float>);
    else if (point.way_point)
        place.x += point.way_point->getRadius();
    setPosition(place);
}

Bool cMan::isRoadBetween(Int src, Int dst) const {
    const cTacticMap& map = *cTacticMap::getInstance();
    switch (map.getPoint(src).getArcType(dst)) {
        case ARC_PLAYER_ROAD:
        case ARC_ENEMY_ROAD:
        case ARC_PLAYER_BRIDGE:
        case ARC_ENEMY_BRIDGE:
            return true;
        default:
            break;
    }
    return map.hasRoad(src, dst, false) || map.hasBridgeRoad(src, dst);
}

Float cMan::getMovingSpeed(Int src, Int dst) {
    m_walk_anim_factor = 1.0f;
    Float speed = m_speed_by_road;
    m_on_road = src == dst || isRoadBetween(src, dst);
    if (!m_on_road) {
        speed *= m_cross_country_speed;
        m_walk_anim_factor *= m_cross_country_speed;
    }
    if (m_cargo.total(true) > 0) {
        speed *= m_speed_with_cargo;
        m_walk_anim_factor *= m_speed_with_cargo;
    }
    m_walk_anim_factor *= m_speed_factor;
    return speed * m_speed_factor;
}

void cMan::onClick(cView* _button) {
    auto* man = static_cast<cMan*>(_button);
    if (!man->isWalking() || man->m_is_praying)
        return;
    if (cManWalkTask* task = man->getWalkTask())
        task->jump(cLogic::getInstance()->getCursorPos());
}

// What he has to do --------------------------------------------------------------------------------------------------

void cMan::setGlobalGoal(cGoal* goal) {
    m_goal = goal ? goal->shared_from_this() : nullptr;
    m_last_exchange_man = nullptr;
    if (!goal)
        m_capacity = m_default_capacity;
}

void cMan::deleteGlobalGoal() {
    if (!m_goal)
        return;
    const auto goal = m_goal;
    if (cGoalsList* goals = cTacticMap::getInstance()->getGoals())
        goals->remove(goal.get());
    goal->setMan(nullptr);
    setGlobalGoal(nullptr);
}

void cMan::doFinalWork() {
    if (const auto goal = m_goal)
        goal->doFinalWork();
}

void cMan::doFinalWorkOrWait(Bool rearrange) {
    if (m_goal)
        doFinalWork();
    else
        waitTask(rearrange);
}

void cMan::waitTask(Bool) {
    ENGINE_MARK;
    deleteGlobalGoal();
    m_capacity = m_default_capacity;
    setWaitState();
    setTask(nullptr);
    hideEffects();
    updateView(false);
}

void cMan::setWaitState() {
    setWaitVisualStates();
    hideEffects();
}

void cMan::resetPace() {
    m_speed_factor = 1.0f;
    m_walk_anim_factor = 1.0f;
}

Bool cMan::canExchange(const cMan* other) const {
    return m_last_exchange_man != other && m_exchange_timer <= 0.0f && other->m_exchange_timer <= 0.0f &&
           !isBuildingRoad() && !other->isBuildingRoad() && !m_pushed && !other->m_pushed;
}

void cMan::exchangeGoals(cMan* other, Bool same_point) {
    ENGINE_MARK;
    if (!canExchange(other))
        return;
    if (cLog* log = tacticLog()) {
        log->printf(u"cMan::exchangeGoals(): current man = %x", getLogId(this));
        log->printf(u"cMan::exchangeGoals(): other man = %x", getLogId(other));
        log->printf(u"cMan::exchangeGoals(): current man gets goal of other man:");
        if (other->m_goal)
            other->m_goal->logGoalInfo();
        else
            log->printf(u"cMan::exchangeGoals(): goal2 is 0");
        log->printf(u"cMan::exchangeGoals(): other man gets goal of this man:");
        if (m_goal)
            m_goal->logGoalInfo();
        else
            log->printf(u"cMan::exchangeGoals(): goal1 is 0");
    }
    const auto goal = m_goal;
    const auto other_goal = other->m_goal;
    const Int capacity = m_capacity;  // losing a goal resets it
    const Int other_capacity = other->m_capacity;
    setGlobalGoal(other_goal.get());
    other->setGlobalGoal(goal.get());
    if (other_goal)
        other_goal->setMan(this);
    if (goal)
        goal->setMan(other);
    std::swap(m_cargo, other->m_cargo);
    m_capacity = other_capacity;
    other->m_capacity = capacity;
    if (!same_point)
        std::swap(m_point, other->m_point);
    swapWalks(*other, same_point);
    for (cMan* man : {this, other}) {
        man->updateView(false);
        man->m_exchange_timer = man->m_exchange_goal_buf_time;
        man->accelerate();
    }
    m_last_exchange_man = other;
    other->m_last_exchange_man = this;
}

void cMan::swapWalks(cMan& other, Bool same_point) {
    cManWalkTask* task = getWalkTask();
    cManWalkTask* other_task = other.getWalkTask();
    if (!task)
        throw "cMan::exchangeGoals(): man1 hasn't walk task";
    if (!other_task)
        throw "cMan::exchangeGoals(): man2 hasn't walk task";
    cManWalkTask::exchange(*task, *other_task, same_point);
}

void cMan::accelerate() {
    if (!m_goal)
        return resetPace();
    m_speed_factor = std::min(m_speed_factor * m_acceleration_factor, m_max_acceleration);
}

void cMan::destroyMe() {
    ENGINE_MARK;
    setTask(nullptr);
    if (const auto goal = m_goal)
        goal->setMan(nullptr);
    leaveRing();
    cTacticMap& map = *cTacticMap::getInstance();
    map.unRegisterControl(this);
    map.removeMan(this);
    hide();
    disable();
    absoluteDisable();
    m_tool->hide();
    m_shadow->hide();
    discard(static_cast<cView*>(this), here());
}

// What he carries ----------------------------------------------------------------------------------------------------

Int cMan::loadResourcesFrom(Int type, cCargoStorage* provider) {
    m_cargo[type] = provider->removeResourceItems(type, m_capacity);
    if (m_cargo[type] != 0)
        updateView(false);
    return m_cargo[type];
}

void cMan::unloadResourcesTo(Int type, cCargoStorage* dst) {
    const Int stored = dst->addResourceItems(type, m_cargo[type]);
    if (stored <= 0)
        return;
    m_cargo[type] -= stored;
    updateView(false);
}

Int cMan::getLockedResourcesFrom(Int type, cBuilding* src) {
    m_cargo[type] = src->unlockResourceItems(type, m_capacity);
    if (m_cargo[type] != 0) {
        src->updateView(false);
        updateView(false);
    }
    return m_cargo[type];
}

void cMan::unloadUpgradeResourcesTo(Int type, cUpgradableUnit* dst) {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cMan::unloadUpgradeResourcesTo()");
    dst->addUpgradeResources(type, m_cargo[type]);
    if (dst->getUpgradeState() == cUpgradableUnit::waitingForResources && dst->isEnoughForUpgrade()) {
        dst->startUpgrade();
        if (log)
            log->printf(
                u"cMan::unloadUpgradeResourcesTo(): all resources were delivered to upgraded unit. Change its "
                u"state to UPGRADE_STATE.");
    }
    m_cargo[type] = 0;
    updateView(false);
}

const char* cMan::getCargoId() const {
    constexpr const char* ids[resource_count] = {"money", "food", "wood", "stone", "iron"};
    for (Int type = 0; type < resource_count; ++type) {
        if (m_cargo[type] > 0)
            return ids[type];
    }
    return "no_cargo";
}

// His work -----------------------------------------------------------------------------------------------------------

void cMan::upgrade(cUpgradableUnit* dst) {
    ENGINE_MARK;
    setWorkVisualState("upgrade");
    setTask(std::make_unique<cManUpgradeTask>(this, dst));
}

void cMan::waitForUpgradingColleagues(cUpgradableUnit* dst) {
    ENGINE_MARK;
    setWaitVisualStates();
    setTask(std::make_unique<cManWaitForUpgrade>(this, dst));
}

void cMan::stopWork() {
    if (isWalking())
        return;
    setTask(nullptr);
    setWaitState();
}

// Looks --------------------------------------------------------------------------------------------------------------

void cMan::updateTool(const String& state) {
    const cState* look = findState(state);
    if (!look)
        return m_tool->hide();
    m_tool->cState::operator=(*look);
    m_tool->setDirty();
    m_tool->setPosition(getPosition());
    m_tool->show();
}

void cMan::setWalkVisualState() {
    const String id = getCargoId();
    if (m_cargo.total(true) == 0) {
        cLevelObject::changeVisualState("walk_no_cargo");
        m_tool->hide();
        return;
    }
    const String name = String("walk_with_") + id;
    cLevelObject::changeVisualState(name);
    updateTool(name + "_tool");
}

void cMan::setWorkVisualState(const String& name) {
    if (cLevelObject::changeVisualState(name))
        setAnimTime(0.0f);
    updateTool(name + "_tool");
}

void cMan::makeBuildRoadEffect() {
    if (m_build_road_effect)
        return;
    m_build_road_effect = new cSimpleEffect(this, "Effects/BuildRoadEffect.xml");
    m_build_road_offset = m_build_road_effect->getPosition();
    m_build_road_effect->setDeep(getDeep() + m_build_road_effect->getDeep());
}

void cMan::setBuildRoadVisualState(const Vector2& direction) {
    constexpr Float reach = 0.75f;  // of the tool
    setWorkVisualState("build_road");
    makeBuildRoadEffect();
    const Float length = glm::length(direction);
    const Vector2 ahead = length > 0.0f ? direction / length * m_tool->getSize() * reach : Vector2(0.0f);
    m_build_road_effect->setPosition(m_tool->getPosition() + ahead + m_build_road_offset);
    m_build_road_effect->show();
}

void cMan::hideEffects() {
    if (m_build_road_effect)
        m_build_road_effect->hide();
}

void cMan::setWaitVisualStates() {
    if (cLevelObject::changeVisualState("wait_no_cargo"))
        setAnimTime(getAnimLength() * static_cast<Float>(Engine::random().next()) / 32768.0f);
    m_tool->hide();
}
