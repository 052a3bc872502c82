#include <array>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/Bunker.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/buildings/Warehouse.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/Road.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

struct sObjectType {
    Int type;
    const char* definition_file;
    cLevelObject* (*make)(cView* parent);
};

template <class T>
cLevelObject* make(cView* parent) {
    return new T(parent);
}

constexpr sObjectType object_types[] = {
    {objectWayPoint, "GameLogic/WayPoint.xml", make<cStorage<cWayPoint>>},
    {objectRoad, "GameLogic/Road.xml", make<cStorage<cRoad>>},
    {objectRoadEnemy, "GameLogic/RoadEnemy.xml", make<cStorage<cRoadEnemy>>},
    {objectPlayerFence, "GameLogic/PlayerFence.xml", make<cStorage<cPlayerFence>>},
    {objectEnemyFence, "GameLogic/EnemyFence.xml", make<cStorage<cEnemyFence>>},
    {objectIdol, "GameLogic/Idol.xml", make<cIdol>},
    {objectPlayerCatapult, "GameLogic/PlayerCatapult.xml", make<cPlayerCatapult>},
    {objectEnemyCatapult, "GameLogic/EnemyCatapult.xml", make<cEnemyCatapult>},
    {objectStartPoint, "GameLogic/StartPoint.xml", make<cStartPoint>},
    {objectWarehouse, "GameLogic/Warehouse.xml", make<cWarehouse>},
    {objectIronMill, "GameLogic/IronMill.xml", make<cIronMill>},
    {objectStoneMill, "GameLogic/StoneMill.xml", make<cStoneMill>},
    {objectWoodMill, "GameLogic/WoodMill.xml", make<cWoodMill>},
    {objectFoodMill, "GameLogic/FoodMill.xml", make<cFoodMill>},
    {objectBridge, "GameLogic/Bridge.xml", make<cBridge>},
    {objectBunker, "GameLogic/Bunker.xml", make<cBunker>},
    {objectPort, "GameLogic/Port.xml", make<cPort>},
    {objectShop, "GameLogic/Shop.xml", make<cShop>},
    {objectFriendMan, "GameLogic/FriendMan.xml", make<cFriendMan>},
    {objectEnemyMan, "GameLogic/EnemyMan.xml", make<cEnemyMan>},
    {objectTransRoad, "GameLogic/Road.xml", make<cStorage<cTransRoad>>},
    {objectDraggedRoad, "GameLogic/Road.xml", make<cStorage<cDraggedRoad>>},
    {objectPlayerBridgeRoad, "GameLogic/PlayerBridgeRoad.xml", make<cStorage<cPlayerBridgeRoad>>},
    {objectEnemyBridgeRoad, "GameLogic/EnemyBridgeRoad.xml", make<cStorage<cEnemyBridgeRoad>>},
    {objectDamagedRoad, "GameLogic/DamagedRoad.xml", make<cStorage<cDamagedRoad>>},
};

const sObjectType* findType(Int type) {
    for (const sObjectType& candidate : object_types) {
        if (candidate.type == type)
            return &candidate;
    }
    return nullptr;
}

}  // namespace

const char* cLevelObject::getDefinitionFile(Int type) {
    const sObjectType* found = findType(type);
    return found ? found->definition_file : nullptr;
}

cLevelObject* cLevelObject::create(Int type, cTacticMap& map) {
    ENGINE_MARK;
    const sObjectType* found = findType(type);
    if (!found)
        throw "undefined object type";
    cLevelObject* object = found->make(map.getObjectsLayer());
    try {
        loadView(*object, found->definition_file);
    } catch (...) {
        discard(static_cast<cView*>(object), here());
        throw;
    }
    map.objectCreated(*object);
    return object;
}
