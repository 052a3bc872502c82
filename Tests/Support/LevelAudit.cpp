#include "Tests/Support/LevelAudit.h"

#include <algorithm>
#include <cmath>

#include "Game/GameLogic/ArrangementUnit.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/goals/GoalsList.h"

using Engine::String;

namespace {

constexpr Float margin = 200.0f;  ///< units beyond the map in which a man is not lost

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

template <class... PARTS>
[[noreturn]] void fail(const PARTS&... parts) {
    String text;
    (text.append(parts), ...);
    throw text;
}

std::string toText(const sResourceCargo& cargo) {
    std::string res;
    for (const Int amount : cargo.amounts)
        res.append(res.empty() ? "" : "/").append(std::to_string(amount));
    return res;
}

std::string getName(const cFriendMan& man) {
    return std::string("the man ") + std::to_string(getLogId(&man)) + " at point " + std::to_string(man.getPoint());
}

Bool isDelivery(const cGoal& goal) {
    return dynamic_cast<const cDeliveryGoal*>(&goal) != nullptr;
}

Int getAmount(const cGoal& goal) {
    return goal.getCargoType() == resourceMoney ? goal.getIndex() : 1;
}

template <class T>
Bool contains(const std::vector<T*>& all, const T* one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

}  // namespace

void cLevelAudit::remember() {
    m_before = sLedger::read(map());
    m_men_bought = map().getLevelStat(statMenBought);
    m_deals = map().getLevelStat(statShopDeals);
    m_trades_at_work.clear();
    for (const cMarketTask* trade : getTrades()) {
        if (trade->getUpgradeState() == cUpgradableUnit::UPGRADE_STATE)
            m_trades_at_work.emplace_back(trade, trade->getOrderCount());
    }
    m_mill_levels = 0;
    m_mills_at_work.clear();
    for (const cBuilding* building : cBuilding::getStorage()) {
        const auto* mill = dynamic_cast<const cMill*>(building);
        if (!mill)
            continue;
        m_mill_levels += mill->getLevel();
        m_mills_at_work[mill->getProduct()] += mill->getMillState() != cMill::millIdle ? 1 : 0;
    }
}

void cLevelAudit::start() {
    m_traces.clear();
    remember();
}

String cLevelAudit::startAgain() {
    const sLedger before = m_before;
    start();
    for (Int type = 0; type < resource_count; ++type) {
        const Int gone = before.total[type] - m_before.total[type];
        if (gone < 0 || gone > before.carried[type] + before.on_units[type])
            return String("entered again with goods ") + toText(m_before.total) + " instead of " +
                   toText(before.total) + ", of which men carried " + toText(before.carried);
    }
    return {};
}

String cLevelAudit::findFault(Float step) {
    gatherGoals();
    try {
        checkGoods();
        checkPromises();
        checkOrders();
        checkLists();
        for (const cFriendMan* man : map().getMen()) {
            checkMan(*man);
            checkProgress(*man, step);
        }
    } catch (const String& fault) {
        return fault;
    }
    remember();
    return {};
}

void cLevelAudit::checkLists() const {
    if (map().getFreeMenList().size() + map().getBusyMen().size() != map().getMen().size())
        fail("there are men in neither list, or in both");
}

void cLevelAudit::gatherGoals() {
    m_goals.clear();
    m_waiting.clear();
    for (const auto& goal : map().getGoals()->getGoals()) {
        m_goals.push_back(goal.get());
        m_waiting.insert(goal.get());
    }
    for (const cFriendMan* man : map().getMen()) {
        if (man->getGlobalGoal())
            m_goals.push_back(man->getGlobalGoal());
    }
    const UInt last = m_last_goal;
    for (const cGoal* goal : m_goals) {
        if (goal->getNumber() > last)
            ++m_goal_counts[goal->getType()];
        m_last_goal = std::max(m_last_goal, goal->getNumber());
    }
}

void cLevelAudit::checkGoods() const {
    const sLedger now = sLedger::read(map());
    const Int men_bought = map().getLevelStat(statMenBought) - m_men_bought;
    const sResourceCargo& man_cost = map().getStartPoint()->getManCost();
    sResourceCargo traded;  // at most: an order that is over may have been called off
    for (const auto& [trade, orders] : m_trades_at_work) {
        if (map().getLevelStat(statShopDeals) > m_deals && trade->getOrderCount() < orders)
            traded.add(trade->getDstCargo());
    }
    Int mill_levels = 0;
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (const auto* mill = dynamic_cast<const cMill*>(building))
            mill_levels += mill->getLevel();
    }
    for (Int type = 0; type < resource_count; ++type) {
        const Int gone = m_before.total[type] - now.total[type] - men_bought * man_cost[type];
        const Int spilled = mill_levels < m_mill_levels ? m_before.mill_stock[type] : 0;
        const auto at_work = m_mills_at_work.find(type);
        const Int made = at_work == m_mills_at_work.end() ? 0 : at_work->second;
        if (gone > m_before.on_units[type] + spilled)
            fail("goods are lost: ", toText(m_before.total), " became ", toText(now.total), ", with ",
                 toText(m_before.on_units), " on units");
        if (gone < -made - traded[type])
            fail("goods are doubled: ", toText(m_before.total), " became ", toText(now.total));
    }
}

void cLevelAudit::checkPromises() const {
    std::map<const cLevelObject*, sResourceCargo> promised;
    for (const cGoal* goal : m_goals) {
        if (isDelivery(*goal) && goal->goesToSrc())
            promised[map().getPoint(goal->getSrc()).building].add(goal->getCargoType(), getAmount(*goal));
    }
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (building->getLocked() != promised[building])
            fail("the store at point ", std::to_string(building->getUnderPoint()), " has promised ",
                 toText(building->getLocked()), ", but goals fetch ", toText(promised[building]));
    }
}

void cLevelAudit::checkOrders() const {
    Bool is_barrier_in_work = false;
    Bool has_barrier_goals = false;
    for (const cGoal* goal : m_goals)
        has_barrier_goals = has_barrier_goals || dynamic_cast<const cBarrier*>(goal->getUnit());
    for (const cUpgradableUnit* unit : getUpgradableUnits()) {
        const auto* road = dynamic_cast<const cTransRoad*>(unit);
        const Bool is_barrier = dynamic_cast<const cBarrier*>(unit) != nullptr;
        const auto* trade = dynamic_cast<const cMarketTask*>(unit);
        if (trade && (trade->getOrderCount() == 0) != (unit->getUpgradeState() == cUpgradableUnit::idle))
            fail("the trade \"", trade->getId(), "\" is idle with orders, or at work without");
        if (unit->getUpgradeState() == cUpgradableUnit::idle)
            continue;
        const std::string place = road ? std::to_string(road->getP0()) + " - " + std::to_string(road->getP1())
                                       : std::to_string(unit->getUnderPoint());
        Int goal_count = 0;
        sResourceCargo coming = unit->getUpgradeCargo().getCargo();
        for (const cGoal* goal : m_goals) {
            if (!unit->isOrder(goal->getTransactionId()))
                continue;
            ++goal_count;
            if (isDelivery(*goal))
                coming.add(goal->getCargoType(), getAmount(*goal));
        }
        is_barrier_in_work = is_barrier_in_work || is_barrier;
        if (!is_barrier && goal_count == 0)
            fail("the order at ", place, " has no goals any more");
        if (unit->getUpgradeState() == cUpgradableUnit::waitingForResources && !coming.covers(unit->getPrice()))
            fail("the order at ", place, " waits for ", toText(unit->getPrice()), ", but only ", toText(coming),
                 " is there or comes");
        if (road && map().getPoint(road->getP0()).getArcType(road->getP1()) != ARC_ROAD_IN_PROGRESS)
            fail("the road at ", place, " is in work, but its arc does not say so");
    }
    if (is_barrier_in_work && !has_barrier_goals)
        fail("a fence is in work without goals");
}

void cLevelAudit::checkMan(const cFriendMan& man) {
    const cGoal* goal = man.getGlobalGoal();
    if (!map().hasPoint(man.getPoint()))
        fail("a man is at point ", std::to_string(man.getPoint()));
    const Vector2 place = map().toMap(man.getMovablePosition());
    const Vector2 size = map().getSize();
    if (!(place.x > -margin && place.x < size.x + margin && place.y > -margin && place.y < size.y + margin))
        fail(getName(man), " is lost at ", std::to_string(place.x), ", ", std::to_string(place.y));
    if (!contains(goal ? map().getBusyMen() : map().getFreeMenList(), &man))
        fail(getName(man), " is in the wrong list");
    if (!goal && man.getCargo().total(true) != 0)
        fail(getName(man), " carries ", toText(man.getCargo()), " for nobody");
    if (goal && goal->getMan() != &man)
        fail(getName(man), " has a goal that does not know him");
    if (goal && (goal->isCalledOff() || m_waiting.contains(goal)))
        fail(getName(man), " has a goal that was called off, or waits for another man");
    if (man.getTask() || man.isInside())
        return;
    if (!contains(map().getArrangementUnit(man.getPoint())->getRing(),
                  const_cast<cMan*>(static_cast<const cMan*>(&man))))
        fail(getName(man), " has neither place nor task");
}

void cLevelAudit::checkProgress(const cFriendMan& man, Float step) {
    constexpr Float patience = 900.0f;  // seconds
    sTrace& trace = m_traces[man.getCreationNumber()];
    const Vector2 place = map().toMap(man.getMovablePosition());
    const Bool changed = place != trace.position || man.getTask() != trace.task;
    trace = {place, man.getTask(), changed || man.isFree() ? 0.0f : trace.idle + step};
    if (trace.idle > patience)
        fail(getName(man), " has stood in his work for ", std::to_string(patience), " s, with a goal of type ",
             std::to_string(man.getGlobalGoal()->getType()));
}
