// The goods of the level: what the player has, and how he pays.
#include <algorithm>
#include <limits>

#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Int first_plan = 1;  ///< products from here to last_plan are upgrades that a shop sells
constexpr Int last_plan = 33;

String getProductKey(Int product_id) {
    return String("Product") + std::to_string(product_id);
}

Int addUpTo(Int a, Int b) {
    return static_cast<Int>(std::min<LongLong>(LongLong{a} + b, std::numeric_limits<Int>::max()));
}

}  // namespace

const sResourceCargo& cTacticMap::getGlobalCargo(Bool force) {
    if (!force)
        return m_global_cargo;
    m_global_cargo = {};
    m_global_capacity = 0;
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (!building->isPlayerConnected() || !building->isProvider())
            continue;
        m_global_cargo.add(building->cCargoStorage::getCargo());
        m_global_capacity = addUpTo(m_global_capacity, building->getCapacity());
    }
    std::vector<cFriendMan*> loading;
    getLoadingMen(loading);
    for (const cFriendMan* man : loading)
        m_global_cargo.add(man->getCargo());
    return m_global_cargo;
}

void cTacticMap::getLoadingMen(std::vector<cFriendMan*>& men) const {
    ENGINE_MARK;
    men.clear();
    for (cFriendMan* man : m_busy_men) {
        const cGoal* goal = man->getGlobalGoal();
        if (!goal)
            throw "cTacticMap::getLoadingMen() - busy man hasn't goal";
        if (goal->getType() == goalLoad && !goal->goesToSrc())
            men.push_back(man);
    }
}

Bool cTacticMap::consumeGlobalResources(const sResourceCargo& price, Int under_point) {
    ENGINE_MARK;
    std::vector<cBuilding*> providers;
    getSortedResourceProviders(providers, under_point);
    for (Int type = 0; type < resource_count; ++type) {
        Int rest = std::max(price[type], 0);
        for (cBuilding* provider : providers) {
            if (rest > 0)
                rest -= provider->removeResourceItems(type, rest);
        }
        if (rest > 0)
            rest = consumeResourcesFromLoadingMen(type, rest);
        if (rest > 0)
            throw "cTacticMap::consumeGlobalResources(): there is not enough global resources on the level";
    }
    updateGlobalResources(true);
    return true;
}

Int cTacticMap::consumeResourcesFromLoadingMen(Int type, Int amount) {
    ENGINE_MARK;
    std::vector<cFriendMan*> loading;
    getLoadingMen(loading);
    for (cFriendMan* man : loading) {
        if (amount <= 0)
            break;
        sResourceCargo cargo = man->getCargo();
        const Int taken = std::min(cargo[type], amount);
        if (taken <= 0)
            continue;
        cargo[type] -= taken;
        amount -= taken;
        man->setCargo(cargo);
        if (cargo.total(true) == 0)
            man->waitTask(true);
    }
    return amount;
}

void cTacticMap::addProduct(Int product_id, Int amount) {
    Int& owned = cProfile::getInts()[getProductKey(product_id)];
    owned = addUpTo(owned, amount);
    if (isPlan(product_id))
        removeUpgrade(product_id);
}

Bool cTacticMap::isPlan(Int product_id) {
    return product_id >= first_plan && product_id <= last_plan;
}

void cTacticMap::saveUpgrades(const std::vector<cMarketTask*>& tasks) {
    for (cMarketTask* task : tasks) {
        if (!task->isPlan() || task->isDone())
            continue;
        setProduct(task->getProductId(), 0);
        m_upgrades.insert_or_assign(task->getProductId(), task);
    }
}

void cTacticMap::setProduct(Int product_id, Int amount) {
    cProfile::getInts()[getProductKey(product_id)] = amount;
}

Int cTacticMap::getProduct(Int product_id) const {
    const auto& values = cProfile::getInts();
    const auto found = values.find(getProductKey(product_id));
    return product_id < 0 || found == values.end() ? 0 : found->second;
}
