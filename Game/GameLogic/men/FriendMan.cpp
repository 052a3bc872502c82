#include "Game/GameLogic/men/FriendMan.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/tasks/ManBuildFence.h"
#include "Game/GameLogic/men/tasks/ManBuildRoadTask.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

void cFriendMan::setInitState() {
    cMan::setInitState();
    enable();
    absoluteEnable();  // his tasks go on there
}

void cFriendMan::process() {
    if (getGlobalGoal() || m_idle_timer <= 0.0f)
        return cMan::process();
    const Float step = cTimer::getInstance()->getStep();
    m_idle_timer -= step;
    animate(step);
    if (m_idle_timer <= m_idle_sound_time)
        m_idle_sound_done = true;
    if (m_idle_timer <= 0.0f)
        setWaitState();
}

void cFriendMan::absoluteProcess() {
    if (cTacticMap::getInstance()->isLocked())
        return;
    cMan::absoluteProcess();
    cTaskDealer::process();
}

void cFriendMan::setIAmFreeVisualState() {
    const cState* state = findState("i_am_free");
    if (!state)
        return;
    setVisualState(*state);
    setAnimTime(0.0f);
    m_idle_timer = getAnimLength();
    m_idle_sound_time = 0.6f * m_idle_timer;
    m_idle_sound_done = false;
}

void cFriendMan::setGlobalGoal(cGoal* goal) {
    cMan::setGlobalGoal(goal);
    cLog* log = tacticLog();
    if (log) {
        log->printf(u"cFriendMan::setGlobalGoal(): man = %x", getLogId(this));
        log->printf(u"cFriendMan::setGlobalGoal(): goal address = %x", getLogId(goal));
    }
    cTacticMap& map = *cTacticMap::getInstance();
    if (goal) {
        map.setBusyMan(this);
        m_idle_timer = 0.0f;
    } else {
        map.setFreeMan(this);
    }
    if (log)
        log->printf(goal ? u"cFriendMan::setGlobalGoal(): man goes in busy list"
                         : u"cFriendMan::setGlobalGoal(): man goes in free list");
}

void cFriendMan::waitTask(Bool rearrange) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cFriendMan::waitTask(): man %x goes to wait state", getLogId(this));
    resetPace();
    cMan::waitTask(rearrange);
    if (rearrange)
        cTacticMap::getInstance()->rearrangeGoals(this);
    if (getTask())
        return;
    const Int target = findPlaceToStand();
    if (target == -1 || !walkTo(target, false))
        arrange();
}

/// Where he goes to stand; -1: he stays.
Int cFriendMan::findPlaceToStand() const {
    cTacticMap& map = *cTacticMap::getInstance();
    const sPointInfo& point = map.getPoint(getPoint());
    if (!point.player_connected || !map.isStandingPlace(point))
        return map.getNearestConnectedPoint(getPoint());
    if (map.countMen(getPoint()) <= map.getPointCapacity(getPoint()))
        return -1;
    return map.getNearestFreePoint(getPoint());
}

void cFriendMan::deliveryTo(Int point, cGoal* goal) {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cFriendMan::deliveryTo()");
    goal->logGoalInfo();
    deleteGlobalGoal();
    setGlobalGoal(goal);
    goal->setMan(this);
    if (!goal->isSelfContained())
        cTacticMap::getInstance()->getGoals()->manageTransation(goal);
    walkTo(point, false);
}

Bool cFriendMan::canDelivery(Int point) const {
    PATH_HOLDER path;
    return cTacticMap::getInstance()->getBestPathByRoads(this, getPoint(), point, path, true, true, false) &&
           !path.empty();
}

void cFriendMan::buildRoad(cTransRoad* road) {
    ENGINE_MARK;
    setTask(std::make_unique<cManBuildRoadTask>(this, road));
}

void cFriendMan::buildFence(cFence* fence) {
    ENGINE_MARK;
    setWorkVisualState("upgrade");
    setTask(std::make_unique<cManBuildFence>(this, fence));
}

void cFriendMan::startPushOff(Float time) {
    ENGINE_MARK;
    if (isPushed() || (getTask() && !isWalking()))
        return;
    m_idle_timer = 0.0f;
    playGameSound("friend_falls");
    if (const cState* state = findState("collision"))
        setVisualState(*state);
    setAnimTime(0.0f);
    setPushed(true);
    setPushTime(time);
}

void cFriendMan::setWalkVisualState() {
    const String name = "walk_no_cargo_offroad";
    if (getCargo().total(true) > 0 || isOnRoad() || !cLevelObject::changeVisualState(name))
        cMan::setWalkVisualState();
    else
        updateTool(name + "_tool");
}
