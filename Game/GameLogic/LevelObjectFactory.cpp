#include <array>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/CommonUI/Tips.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/Bunker.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/buildings/Port.h"
#include "Game/GameLogic/buildings/Shop.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/buildings/Warehouse.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/DraggedRoad.h"
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

/// One that tells about itself.
template <class T>
cLevelObject* makeTipped(cView* parent) {
    auto* object = new cTips<T>(parent);
    object->setTipFile("GameLogic/Tip.xml");
    return object;
}

constexpr sObjectType object_types[] = {
    {objectWayPoint, "GameLogic/WayPoint.xml", make<cStorage<cWayPoint>>},
    {objectRoad, "GameLogic/Road.xml", make<cStorage<cRoad>>},
    {objectRoadEnemy, "GameLogic/RoadEnemy.xml", make<cStorage<cRoadEnemy>>},
    {objectPlayerFence, "GameLogic/PlayerFence.xml", makeTipped<cStorage<cPlayerFence>>},
    {objectEnemyFence, "GameLogic/EnemyFence.xml", makeTipped<cStorage<cEnemyFence>>},
    {objectIdol, "GameLogic/Idol.xml", makeTipped<cIdol>},
    {objectPlayerCatapult, "GameLogic/PlayerCatapult.xml", makeTipped<cPlayerCatapult>},
    {objectEnemyCatapult, "GameLogic/EnemyCatapult.xml", makeTipped<cEnemyCatapult>},
    {objectStartPoint, "GameLogic/StartPoint.xml", makeTipped<cStartPoint>},
    {objectWarehouse, "GameLogic/Warehouse.xml", makeTipped<cWarehouse>},
    {objectIronMill, "GameLogic/IronMill.xml", makeTipped<cIronMill>},
    {objectStoneMill, "GameLogic/StoneMill.xml", makeTipped<cStoneMill>},
    {objectWoodMill, "GameLogic/WoodMill.xml", makeTipped<cWoodMill>},
    {objectFoodMill, "GameLogic/FoodMill.xml", makeTipped<cFoodMill>},
    {objectBridge, "GameLogic/Bridge.xml", makeTipped<cBridge>},
    {objectBunker, "GameLogic/Bunker.xml", makeTipped<cBunker>},
    {objectPort, "GameLogic/Port.xml", makeTipped<cPort>},
    {objectShop, "GameLogic/Shop.xml", makeTipped<cShop>},
    {objectFriendMan, "GameLogic/FriendMan.xml", make<cFriendMan>},
    {objectEnemyMan, "GameLogic/EnemyMan.xml", make<cEnemyMan>},
    {objectTransRoad, "GameLogic/Road.xml", make<cStorage<cTransRoad>>},
    {objectDraggedRoad, "GameLogic/Road.xml", make<cStorage<cDraggedRoad>>},
    {objectPlayerBridgeRoad, "GameLogic/PlayerBridgeRoad.xml", makeTipped<cStorage<cPlayerBridgeRoad>>},
    {objectEnemyBridgeRoad, "GameLogic/EnemyBridgeRoad.xml", makeTipped<cStorage<cEnemyBridgeRoad>>},
    {objectDamagedRoad, "GameLogic/DamagedRoad.xml", makeTipped<cStorage<cDamagedRoad>>},
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
