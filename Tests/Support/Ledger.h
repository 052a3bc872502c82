#pragma once

#include <vector>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"

/// The trades of all markets, as they stand in their files.
inline std::vector<cMarketTask*> getTrades() {
    std::vector<cMarketTask*> res;
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (const auto* market = dynamic_cast<const cMarket*>(building))
            res.insert(res.end(), market->getTasks().begin(), market->getTasks().end());
    }
    return res;
}

/// Everything on the level that takes goods and men to rise, or to be traded.
inline std::vector<cUpgradableUnit*> getUpgradableUnits() {
    std::vector<cUpgradableUnit*> res;
    for (cBuilding* building : cBuilding::getStorage()) {
        if (auto* unit = dynamic_cast<cUpgradableUnit*>(building))
            res.push_back(unit);
    }
    const auto add_all = [&res](const auto& storage) {
        for (const auto& [number, unit] : storage)
            res.push_back(unit);
    };
    add_all(Engine::cStorage<cTransRoad>::getStorage());
    add_all(Engine::cStorage<cPlayerFence>::getStorage());
    add_all(Engine::cStorage<cPlayerBridgeRoad>::getStorage());
    const std::vector<cMarketTask*> trades = getTrades();
    res.insert(res.end(), trades.begin(), trades.end());
    return res;
}

/// Where the goods of a level are: in a store, promised there, in a man's hands or brought to a unit.
struct sLedger {
    sResourceCargo total;       ///< of the four
    sResourceCargo carried;     ///< by the player's men
    sResourceCargo on_units;    ///< brought, and not yet built in
    sResourceCargo mill_stock;  ///< made, and not yet fetched

    static sLedger read(const cTacticMap& map) {
        sLedger res;
        for (const cBuilding* building : cBuilding::getStorage()) {
            res.total.add(building->cCargoStorage::getCargo());
            res.total.add(building->getLocked());
            if (const auto* mill = dynamic_cast<const cMill*>(building))
                res.mill_stock.add(mill->cCargoStorage::getCargo());
        }
        for (const cUpgradableUnit* unit : getUpgradableUnits())
            res.on_units.add(unit->getUpgradeCargo().getCargo());
        for (const cMarketTask* trade : getTrades())
            res.on_units.add(trade->getKeptGoods());
        for (const cFriendMan* man : map.getMen())
            res.carried.add(man->getCargo());
        for (const cMan* man : map.getEnemies())
            res.total.add(man->getCargo());
        res.total.add(res.carried);
        res.total.add(res.on_units);
        return res;
    }
};
