// How a level comes out of its file, or out of the record of where it was left.
#include <string>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameUI/Tactic/LevelBackgroundObject.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/LevelHead.h"

using namespace Engine;

namespace {

constexpr Int option_catapult = 1;
constexpr Int option_idol = 2;

Int getCurrentLevel() {
    return cProfile::getInts()["CurrentLevel"];
}

/// Throws "undefined object type", and another text for an object that is no building.
cLevelObject* createBuilding(Int type, cTacticMap& map) {
    if (cLevelObject::getDefinitionFile(type) && (type < objectIdol || type > objectShop))
        throw String("an object of type " + std::to_string(type) + " is no building");
    return cLevelObject::create(type, map);
}

}  // namespace

// The level's file ---------------------------------------------------------------------------------------------------

void cTacticMap::loadXmlLevel() {
    ENGINE_MARK;
    const cLevelFile file(getCurrentLevel());
    file.readGraph(m_graph, m_size);
    m_graph.build();
    createWaypoints();
    file.forEachBuilding([this](Int type, const iXML& tag) {
        cLevelObject* object = createBuilding(type, *this);
        object->loadXmlState(&tag);
        object->setInitState();
    });
    cLevelFile::withPlace(cLevelFile::getName(getCurrentLevel()), [this] {
        requireStartPoint();
        createRoadAndFences();
    });
}

void cTacticMap::requireStartPoint() const {
    if (!m_start_point)
        throw "there is no start point";
}

void cTacticMap::createWaypoints() {
    for (sPointInfo& point : m_graph.getPoints()) {
        if (point.kind != 0)
            continue;
        auto* way_point = static_cast<cWayPoint*>(cLevelObject::create(objectWayPoint, *this));
        way_point->setIndex(point.index);
        way_point->setInitState();
        way_point->setCanHaveIdol((point.options & option_idol) != 0);
        way_point->setCanHaveCatapult((point.options & option_catapult) != 0);
        point.way_point = way_point;
    }
}

void cTacticMap::createRoadAndFences() {
    // An arc is stored at both of its ends; the pair is made where the walk meets it first.
    for (const sPointInfo& point : m_graph.getPoints()) {
        for (const auto& [neighbour, arc] : point.arcs) {
            if (point.index < neighbour)
                createArcObjects(neighbour, point.index, arc);
        }
    }
}

void cTacticMap::createArcObjects(Int a, Int b, const sArcInfo& arc) {
    const auto create_road = [&](Int type) {
        static_cast<cRoad*>(cLevelObject::create(type, *this))->setConnectionPoint(a, b);
    };
    const auto create_barrier = [&](Int type, Int standing) {
        auto* barrier = static_cast<cBarrier*>(cLevelObject::create(type, *this));
        barrier->setConnectionPoint(a, b);
        barrier->setLevel(arc.type == standing ? 1 : 0);
        barrier->setPrice(arc.cargo);
        barrier->setInitState();
    };
    switch (arc.type) {
        case ARC_GROUND:
            return create_road(objectDamagedRoad);
        case ARC_PLAYER_ROAD:
            create_road(objectDamagedRoad);
            return create_road(objectRoad);
        case ARC_ENEMY_ROAD:
            create_road(objectDamagedRoad);
            return create_road(objectRoadEnemy);
        case ARC_PLAYER_FENCE:
        case ARC_PLAYER_FENCE_SITE:
            return create_barrier(objectPlayerFence, ARC_PLAYER_FENCE);
        case ARC_ENEMY_FENCE:
        case ARC_ENEMY_FENCE_SITE:
            return create_barrier(objectEnemyFence, ARC_ENEMY_FENCE);
        case ARC_PLAYER_BRIDGE:
        case ARC_PLAYER_BRIDGE_SITE:
            return create_barrier(objectPlayerBridgeRoad, ARC_PLAYER_BRIDGE);
        case ARC_ENEMY_BRIDGE:
        case ARC_ENEMY_BRIDGE_SITE:
            return create_barrier(objectEnemyBridgeRoad, ARC_ENEMY_BRIDGE);
        default:
            return;
    }
}

void cTacticMap::objectCreated(cLevelObject& object) {
    switch (object.getType()) {
        case objectStartPoint:
            m_start_point = static_cast<cStartPoint*>(&object);
            return;
        case objectBunker:
            return addToLevelStat(statBunkers, 1);
        case objectPort:
            return addToLevelStat(statPorts, 1);
        case objectShop:
            return addToLevelStat(statShops, 1);
        default:
            return;
    }
}

// Scenery ------------------------------------------------------------------------------------------------------------

void cTacticMap::loadLevelBackground() {
    ENGINE_MARK;
    enum eTileType : Int { landTile = 0, waterTile = 2, decoration = 3 };

    const cLevelFile file(getCurrentLevel());
    file.forEachBackground([this](Int type, const iXML& tag) {
        Vector2 position{0.0f, 0.0f};
        readKey(tag, u"position", position);
        const auto add_copy = [&](const cPicture& proto, const String& texture, Bool animated) {
            auto* tile = new cLevelBackgroundObject(proto);
            if (!texture.empty())
                tile->setTexture(cResourceRef::adopt(cResourceManager::getInstance()->getTexture(texture)).get());
            tile->setPosition(toScreen(position));
            addBackgroundTile(tile, animated, true);
        };
        const auto add_own = [&](Bool rolls) {
            auto* tile = new cLevelBackgroundObject(this);
            addBackgroundTile(tile, false, rolls);
            tile->loadXML(&tag);
            tile->setPosition(toScreen(tile->getPosition()));
            tile->show();
        };
        if (type == waterTile)
            return add_copy(*m_water, {}, true);
        if (type != landTile)
            return add_own(type == decoration);
        String name;
        readKey(tag, u"Picture", name);
        add_copy(*m_bottom_tile, m_constants.land_base_dir + m_constants.bottom_tile_prefix + name, false);
        add_copy(*m_nearshore, {}, true);
        add_copy(*m_top_tile, m_constants.land_base_dir + m_constants.top_tile_prefix + name, false);
        if (cFileManager::getInstance()->isExist(name))
            add_own(true);  // what this tile has over the land
    });
}

void cTacticMap::addBackgroundTile(cLevelBackgroundObject* tile, Bool animated, Bool rolls) {
    m_background.push_back(tile);
    if (animated)
        m_animated_tiles.push_back(tile);
    if (rolls)
        m_all_tiles.push_back(tile);
    tile->show();
}

// The record ---------------------------------------------------------------------------------------------------------

void cTacticMap::writeLevel(iArch& arch) {
    ENGINE_MARK;
    sLevelHead head{.completed = m_level_completed, .marks = {}};
    for (const cBridge* bridge : cUtils::getLevelBridges())
        head.marks.push_back(bridge->getMark(true));
    if (m_start_point)
        head.previous_level = m_start_point->getPrevLevel();
    head.serialize(arch);
    arch << m_size;
    Int point_count = getPointCount();
    arch << point_count;
    for (sPointInfo& point : m_graph.getPoints())
        point.saveBin(arch);
    Int building_count = static_cast<Int>(cBuilding::getStorage().size());
    arch << building_count;
    for (cBuilding* building : cBuilding::getStorage()) {
        Int type = building->getType();
        arch << type;
        building->saveBinState(arch);
    }
    UInt men_count = static_cast<UInt>(m_men.size());
    arch << men_count;
    for (cFriendMan* man : m_men)
        man->saveBinState(arch);
    for (Int& stat : m_level_stats)
        arch << stat;
}

void cTacticMap::saveBinLevel() {
    ENGINE_MARK;
    if (!hasLevel())
        return;  // what could not be loaded must not cover what was saved
    deleteTemporaryObjects();
    cGame* game = cGame::getInstance();
    if (!game)
        return;
    cLevelState record(getCurrentLevel());
    writeLevel(*record.createWriter());
    *game->createSavedLevel(record.getLevel()) = std::move(record);
}

void cTacticMap::loadBinLevel() {
    ENGINE_MARK;
    const Int level = getCurrentLevel();
    const auto reader = cGame::getInstance()->getSavedLevel(level)->createReader();
    try {
        cLevelFile::withPlace(cLevelFile::getName(level) + ", saved", [&] { readLevel(*reader); });
    } catch (const std::string& what) {
        throw sDamagedRecord(what);
    }
}

/// What writeLevel() wrote.
void cTacticMap::readLevel(iArch& arch) {
    constexpr ULong least_point = 24;     // bytes
    constexpr ULong least_building = 60;  // bytes
    sLevelHead head;                      // but for its first field there for the map of levels
    head.serialize(arch);
    m_level_completed = head.completed;
    serializeNumber(arch, m_size);
    cLevelFile::requireSize(m_size);

    m_graph.getPoints().resize(static_cast<std::size_t>(readCount(arch, least_point, "points")));
    for (sPointInfo& point : m_graph.getPoints())
        point.loadBin(arch);
    cLevelFile::requireGraph(m_graph);
    m_graph.build();
    createWaypoints();

    for (Int left = readCount(arch, least_building, "buildings"); left > 0; --left) {
        Int type = -1;
        arch << type;
        cLevelObject* object = createBuilding(type, *this);
        object->loadBinState(arch);
        object->setInitState();
    }
    requireStartPoint();
    createRoadAndFences();
    readMen(arch);
    for (Int& stat : m_level_stats)
        arch << stat;
}

void cTacticMap::readMen(iArch& arch) {
    for (Int left = readCount(arch, sizeof(Int), "men"); left > 0; --left) {
        auto* man = static_cast<cFriendMan*>(cLevelObject::create(objectFriendMan, *this));
        m_men.push_back(man);
        man->loadBinState(arch);
        if (!hasPoint(man->getPoint()))
            throw String("a man at point " + std::to_string(man->getPoint()));
        man->setInitState();
    }
}
