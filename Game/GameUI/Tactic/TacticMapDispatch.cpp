// Who does what: men who are free, men who are at work, and the goals that wait for them.
#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

/// In the order of their birth.
void insertMan(std::vector<cFriendMan*>& men, cFriendMan* man) {
    const auto place = std::lower_bound(men.begin(), men.end(), man, [](const cFriendMan* a, const cFriendMan* b) {
        return a->getCreationNumber() < b->getCreationNumber();
    });
    if (place == men.end() || *place != man)
        men.insert(place, man);
}

Bool isDelivery(Int type) {
    return type == goalDelivery || type == goalDeliveryMarket || type == goalDeliveryRoad ||
           type == goalDeliveryFence || type == goalDeliveryBridge;
}

}  // namespace

void cTacticMap::setFreeMan(cFriendMan* man) {
    std::erase(m_busy_men, man);
    insertMan(m_free_men, man);
}

void cTacticMap::setBusyMan(cFriendMan* man) {
    std::erase(m_free_men, man);
    insertMan(m_busy_men, man);
}

void cTacticMap::removeMan(cMan* man) {
    const auto remove = [man](auto& men) { std::erase_if(men, [man](const cMan* other) { return other == man; }); };
    remove(m_free_men);
    remove(m_busy_men);
    remove(m_men);
    remove(m_enemies);
}

Int cTacticMap::getNumberOfMen() const {
    if (m_start_point && m_start_point->getMenBorn() <= 0)
        return m_start_point->getMenAmount();
    return static_cast<Int>(m_men.size());
}

// Handing out --------------------------------------------------------------------------------------------------------

void cTacticMap::processDispatch(Float step) {
    if (!m_dispatch_enabled || m_tasks_timer > 0.0f) {
        m_tasks_timer -= step;
        return;
    }
    if (m_free_men.empty() || m_goals->isEmpty())
        return;
    cGoal* goal = m_goals->findReady(m_current_transaction);
    if (!goal)
        return;
    const auto hold = goal->shared_from_this();
    m_tasks_timer = m_constants.tasks_process_delay;
    cFriendMan* man = findManFor(*goal);
    if (!man)
        return;
    man->setGlobalGoal(goal);
    if (cLog* log = tacticLog())
        log->printf(u"cTacticMap::process(): goal was assigned to man.");
    if (goal->getType() == goalUpgrade)
        m_current_transaction = goal->getTransactionId();
    m_goals->remove(goal);
    if (!m_goals->contains(m_current_transaction))
        m_current_transaction = -1;
    if (!goal->isSelfContained())
        m_goals->manageTransation(goal);
    m_man_idle_timer = m_constants.man_idle_time;
}

/// The nearest free man who takes the goal; null for none. A goal that nobody can carry out may call itself off when it
/// is tried; then nobody else is asked.
cFriendMan* cTacticMap::findManFor(cGoal& goal) {
    cLog* log = tacticLog();
    const Int point = goal.goesToSrc() ? goal.getSrc() : goal.getDst();
    m_candidates = m_free_men;
    sortMenByDistance(m_candidates, point, false);
    for (cFriendMan* man : m_candidates) {
        if (!(man->getDistance() < no_way)) {
            if (log)
                log->printf(u"cTacticMap::process(): man %x hasn't path to destination point %d.", getLogId(man),
                            point);
            continue;
        }
        if (log)
            log->printf(u"cTacticMap::process(): try to assign goal to man.");
        if (goal.assign(man))
            return man;
        if (!m_goals->contains(&goal))
            return nullptr;
    }
    return nullptr;
}

void cTacticMap::rearrangeGoals(cFriendMan* man) {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cTacticMap::rearrangeGoals(): man = %x", getLogId(man));
    PATH_HOLDER path;
    const auto get_distance = [&](const cFriendMan* who, Int target) {
        const Bool found = getBestPathByRoads(who, who->getPoint(), target, path, true, true, false);
        return found ? getPathLength(path) : no_way;
    };
    for (cFriendMan* candidate : std::vector(m_busy_men)) {
        cGoal* goal = candidate->getGlobalGoal();
        if (!candidate->isWalking() || !goal)
            continue;
        const auto hold = goal->shared_from_this();
        if (!goal->goesToSrc() && (goal->getSrc() != -1 || isDelivery(goal->getType())))
            continue;  // he carries something
        const Int target = goal->getSrc() != -1 ? goal->getSrc() : goal->getDst();
        const Float distance = get_distance(man, target);
        const Float candidate_distance = get_distance(candidate, target);
        if (!(distance < candidate_distance))
            continue;
        if (log) {
            log->printf(u"cTacticMap::rearrangeGoals(): man find candidate (%x) to exchange goals",
                        getLogId(candidate));
            log->printf(u"cTacticMap::rearrangeGoals(): man's distance = %f", static_cast<Double>(distance));
            log->printf(u"cTacticMap::rearrangeGoals(): candidate's distance = %f",
                        static_cast<Double>(candidate_distance));
            log->printf(u"cTacticMap::rearrangeGoals(): man's point = %d", man->getPoint());
            log->printf(u"cTacticMap::rearrangeGoals(): candidate's point = %d", candidate->getPoint());
        }
        if (!goal->assign(man))
            continue;
        man->setGlobalGoal(goal);
        candidate->setGlobalGoal(nullptr);
        return;
    }
    if (log)
        log->printf(u"cTacticMap::rearrangeGoals(): nothing to rearrange.");
}

// Calling off --------------------------------------------------------------------------------------------------------

// A cancelled goal moves its man between the lists, so copies are walked.

void cTacticMap::freeBusyMen() {
    for (const cFriendMan* man : std::vector(m_busy_men)) {
        const auto goal = man->holdGlobalGoal();
        if (goal && goal->isSelfContained())
            goal->cancel();
    }
}

void cTacticMap::freeBusyMen(Long trans_id) {
    for (const cFriendMan* man : std::vector(m_busy_men)) {
        const auto goal = man->holdGlobalGoal();
        if (goal && goal->getTransactionId() == trans_id)
            goal->cancel();
    }
}

Bool cTacticMap::isAnyGoalOfType(Int type) const {
    if (!m_goals)
        return false;
    return m_goals->containsType(type) ||
           std::any_of(m_busy_men.begin(), m_busy_men.end(), [type](const cFriendMan* man) {
               return man->getGlobalGoal() && man->getGlobalGoal()->getType() == type;
           });
}

void cTacticMap::clearGoalList() {
    m_goals->deleteTransactions();
}

/// Any of its goals takes the others along.
Bool cTacticMap::callOffOrder(const cUpgradableUnit& unit) {
    ENGINE_MARK;
    for (const auto& waiting : m_goals->getGoals()) {
        if (!unit.isOrder(waiting->getTransactionId()))
            continue;
        const auto hold = waiting->shared_from_this();
        hold->cancel();
        return true;
    }
    for (const cFriendMan* man : m_busy_men) {
        const auto hold = man->holdGlobalGoal();
        if (!hold || !unit.isOrder(hold->getTransactionId()))
            continue;
        hold->cancel();
        return true;
    }
    return false;
}

void cTacticMap::clearTasks() {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cTacticMap::clearTasks(): player click right button");
    clearGoalList();
    freeBusyMen();
    updateGlobalResources(true);
}

// Men who come -------------------------------------------------------------------------------------------------------

Bool cTacticMap::canBuyMan() {
    if (!m_start_point || m_start_point->getMenBorn() <= 0)
        return false;
    const Int limit = m_start_point->getMaxAmount();
    if (limit >= 1 && static_cast<Int>(m_men.size()) >= limit)
        return false;
    const sResourceCargo& cost = m_start_point->getManCost();
    for (Int type = 0; type < resource_count; ++type) {
        if (m_global_cargo[type] < cost[type])
            return false;
    }
    return true;
}

void cTacticMap::buyMan() {
    ENGINE_MARK;
    if (canBuyMan()) {
        setUpInitMan(m_start_point->getUnderPoint());
        addToLevelStat(statMenBought, 1);
        consumeGlobalResources(m_start_point->getManCost(), m_start_point->getUnderPoint());
        playGameSound("market_action");
    }
    updateControlPanel();
}

cFriendMan* cTacticMap::setUpInitMan(Int point) {
    ENGINE_MARK;
    auto* man = static_cast<cFriendMan*>(cLevelObject::create(objectFriendMan, *this));
    m_men.push_back(man);
    man->setPoint(point);
    man->setInitState();
    m_control_panel->setMen(getNumberOfMen());
    m_control_panel->updateView();
    addToLevelStat(statMenMade, 1);
    return man;
}
