#include "Tools/simulate/Report.h"

#include <cstdio>

#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/Arch.h"
#include "Engine/core/Random.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/Game.h"

using namespace Engine;
using nlohmann::ordered_json;

namespace Simulate {

namespace {

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

ordered_json tell(const Vector2& v) {
    return ordered_json::array({v.x, v.y});
}

ordered_json tell(const sResourceCargo& cargo) {
    return cargo.amounts;
}

/// FNV-1a over the record of the level and the men's positions on the map.
std::string makeHash() {
    std::vector<char> bytes;
    cBufferWriter writer(&bytes);
    map().writeLevel(writer);
    const auto add_man = [&](const cMan& man) {
        Vector2 place = map().toMap(man.getMovablePosition());
        writer << place;
    };
    for (const cFriendMan* man : map().getMen())
        add_man(*man);
    for (const cMan* man : map().getEnemies())
        add_man(*man);
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3ULL;
    char text[17];
    std::snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

ordered_json tellPoint(const sPointInfo& point) {
    ordered_json res;
    res["index"] = point.index;
    res["pos"] = tell(point.pos);
    res["options"] = point.options;
    res["player_connected"] = point.player_connected;
    res["enemy_connected"] = point.enemy_connected;
    res["building"] = point.building ? ordered_json(point.building->getType()) : ordered_json();
    res["arcs"] = ordered_json::array();
    for (const auto& [neighbour, arc] : point.arcs)
        res["arcs"].push_back(
            {{"to", neighbour}, {"type", arc.type}, {"length", arc.length}, {"cargo", tell(arc.cargo)}});
    return res;
}

void tellMarket(ordered_json& res, const cMarket& market) {
    res["clock"] = market.getMarketTime();
    res["schedule"] = ordered_json::array();
    for (const cMarket::sEntry& entry : market.getSchedule())
        res["schedule"].push_back({{"id", entry.task->getId()}, {"time", entry.time}});
    res["trades"] = ordered_json::array();
    for (const cMarketTask* task : market.getTasks())
        res["trades"].push_back({{"index", task->getIndex()},
                                 {"id", task->getId()},
                                 {"active", task->isActive()},
                                 {"done", task->isDone()}});
}

ordered_json tellBuilding(const cBuilding& building) {
    const auto* unit = dynamic_cast<const cUpgradableUnit*>(&building);
    ordered_json res;
    res["type"] = building.getType();
    res["points"] = building.getPoints();
    res["center"] = tell(building.getMapCenter());
    res["level"] = unit ? unit->getLevel() : 0;
    res["state"] = unit ? unit->getUpgradeState() : 0;
    res["cargo"] = tell(building.cCargoStorage::getCargo());
    res["locked"] = tell(building.getLocked());
    res["capacity"] = building.getCapacity();
    res["player_connected"] = building.isPlayerConnected();
    if (unit)
        res["delivered"] = tell(unit->getUpgradeCargo().getCargo());
    if (const auto* mill = dynamic_cast<const cMill*>(&building)) {
        res["mill_state"] = mill->getMillState();
        res["loads"] = mill->getLoads();
    }
    if (const auto* market = dynamic_cast<const cMarket*>(&building))
        tellMarket(res, *market);
    return res;
}

template <class T>
void tellBarriers(ordered_json& res) {
    for (const auto& [number, barrier] : cStorage<T>::getStorage())
        res.push_back({{"p0", barrier->getP0()},
                       {"p1", barrier->getP1()},
                       {"enemy", barrier->isEnemy()},
                       {"level", barrier->getLevel()},
                       {"state", barrier->getUpgradeState()}});
}

ordered_json tellGoal(const cGoal* goal) {
    if (!goal)
        return nullptr;
    return {{"type", goal->getType()},
            {"src", goal->getSrc()},
            {"dst", goal->getDst()},
            {"cargo_type", goal->getCargoType()},
            {"transaction", goal->getTransactionId()},
            {"goes_to_src", goal->goesToSrc()}};
}

ordered_json tellMan(const cMan& man) {
    ordered_json res;
    res["point"] = man.getPoint();
    res["position"] = tell(map().toMap(man.getMovablePosition()));
    res["cargo"] = tell(man.getCargo());
    res["goal"] = tellGoal(man.getGlobalGoal());
    res["task"] = man.getTask() ? ordered_json(man.getTask()->getType()) : ordered_json();
    res["hidden"] = !man.isShow();
    res["pushed"] = man.isPushed();
    return res;
}

void tellObjects(ordered_json& res) {
    for (const char* list : {"points", "buildings", "fences", "bridge_roads", "men", "enemies", "goals"})
        res[list] = ordered_json::array();
    for (const sPointInfo& point : map().getPoints())
        res["points"].push_back(tellPoint(point));
    for (const cBuilding* building : cBuilding::getStorage())
        res["buildings"].push_back(tellBuilding(*building));
    tellBarriers<cPlayerFence>(res["fences"]);
    tellBarriers<cEnemyFence>(res["fences"]);
    tellBarriers<cPlayerBridgeRoad>(res["bridge_roads"]);
    tellBarriers<cEnemyBridgeRoad>(res["bridge_roads"]);
    for (const cFriendMan* man : map().getMen())
        res["men"].push_back(tellMan(*man));
    for (const cMan* enemy : map().getEnemies())
        res["enemies"].push_back(tellMan(*enemy));
    const auto& goals = map().getGoals()->getGoals();
    for (auto goal = goals.rbegin(); goal != goals.rend(); ++goal)
        res["goals"].push_back(tellGoal(goal->get()));
}

void tellProgress(ordered_json& res) {
    res["products"] = ordered_json::array();
    for (Int i = 0; i < static_cast<Int>(cGame::product_count); ++i)
        res["products"].push_back(map().getProduct(i));
    res["open_levels"] = ordered_json::array();
    for (Int level = 0; level < cLevelFile::getLevelCount(); ++level) {
        if (cGame::isLevelOpen(level))
            res["open_levels"].push_back(level);
    }
    res["level_stats"] = ordered_json::array();
    for (std::size_t i = 0; i < level_stat_count; ++i)
        res["level_stats"].push_back(map().getLevelStat(static_cast<eLevelStat>(i)));
    res["bridges"] = ordered_json::array();
    for (const cBridge* bridge : cUtils::getLevelBridges())
        res["bridges"].push_back({{"number", bridge->getBridgeNumber()},
                                  {"level", bridge->getLevel()},
                                  {"passed", bridge->isPassed()},
                                  {"mark", bridge->getMark(false)},
                                  {"elapsed", bridge->getElapsed()}});
}

}  // namespace

ordered_json makeReport(double time, unsigned seed, const cPlayer& player) {
    ordered_json res;
    res["time"] = time;
    res["level"] = cProfile::getInts()["CurrentLevel"];
    const cTacticMap* level = cTacticMap::getInstance();
    const bool has_level = level && level->hasLevel();
    res["completed"] = has_level && level->isLevelCompleted();
    res["locked"] = !has_level || level->isLocked();
    res["seed"] = seed;
    res["draws"] = Engine::random().getDraws();
    if (has_level) {
        res["hash"] = makeHash();
        res["size"] = tell(level->getSize());
        tellObjects(res);
        res["current_transaction"] = level->getCurrentTransaction();
        res["global_cargo"] = level->getStock();
        res["global_capacity"] = level->getGlobalCapacity();
        tellProgress(res);
    }
    res["answers"] = player.getAnswers();
    res["log"] = player.getLog();
    return res;
}

}  // namespace Simulate
