#pragma once

#include <string>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"

/// Where the goods of a level are: in a store, promised there, in a man's hands or brought to a unit.
struct sLedger {
    sResourceCargo total;       ///< of the four
    sResourceCargo on_units;    ///< brought, and not yet built in
    sResourceCargo mill_stock;  ///< made, and not yet fetched

    static sLedger read(const cTacticMap& map) {
        sLedger res;
        for (const cBuilding* building : cBuilding::getStorage()) {
            res.total.add(building->cCargoStorage::getCargo());
            res.total.add(building->getLocked());
            if (const auto* mill = dynamic_cast<const cMill*>(building))
                res.mill_stock.add(mill->cCargoStorage::getCargo());
            if (const auto* unit = dynamic_cast<const cUpgradableUnit*>(building))
                res.on_units.add(unit->getUpgradeCargo().getCargo());
        }
        for (const auto& [number, road] : Engine::cStorage<cTransRoad>::getStorage())
            res.on_units.add(road->getUpgradeCargo().getCargo());
        for (const cFriendMan* man : map.getMen())
            res.total.add(man->getCargo());
        res.total.add(res.on_units);
        return res;
    }
};
